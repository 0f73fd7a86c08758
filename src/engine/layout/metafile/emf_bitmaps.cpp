#include "blit.h"
#include "emf_dib.h"
#include "emf_records.h"

#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kCopy = 0x00CC0020;
constexpr std::size_t kTransformAndColour = 28;  // of the device the bitmap came from

/// The records that copy from one device to another begin alike.
struct Copying
{
    Blit blit;
    std::uint32_t setting = 0;  // the operation, the blending or the transparent colour
    Dib dib;
};

enum class Source : std::uint8_t { SizeOfTarget, OwnSize };

Copying ReadCopying(ByteReader& record, Source source)
{
    Copying copying;
    record.Skip(kBounds);
    copying.blit.target = ReadExtent(record);
    copying.setting = record.U32();
    copying.blit.source = {ReadPoint(record), copying.blit.target.size()};
    record.Skip(kTransformAndColour);
    const auto use = static_cast<ColourUse>(record.U32());
    copying.dib = ReadDibPlaces(record, use);
    if (source == Source::OwnSize)
        copying.blit.source.setSize(ReadSize(record));
    return copying;
}

template <Source source>
void CopyBits(Player& player, ByteReader& record)
{
    Copying copying = ReadCopying(record, source);
    copying.blit.operation = copying.setting;
    Draw(player, copying.blit, copying.dib);
}

void BlendBits(Player& player, ByteReader& record)
{
    constexpr std::uint32_t kHasOpacity = 1;
    const Copying copying = ReadCopying(record, Source::OwnSize);
    const Blending blending{.opacity = static_cast<int>(copying.setting >> 16 & 0xFF),
                            .hasOpacity = (copying.setting >> 24 & kHasOpacity) != 0};
    DrawBlended(player, copying.blit, copying.dib, blending);
}

void CopyBitsWithout(Player& player, ByteReader& record)
{
    const Copying copying = ReadCopying(record, Source::OwnSize);
    DrawWithout(player, copying.blit, copying.dib, ColourOf(copying.setting).rgb());
}

/// The operation where the mask is set stands in the low bytes of the quaternary one. The mask itself is not played: the
/// bitmap is drawn whole.
void CopyMasked(Player& player, ByteReader& record)
{
    Copying copying = ReadCopying(record, Source::SizeOfTarget);
    copying.blit.operation = copying.setting;
    Draw(player, copying.blit, copying.dib);
}

void SetBits(Player& player, ByteReader& record)
{
    Blit blit{.operation = kCopy, .countsFromBelow = true};
    record.Skip(kBounds);
    const QPointF place = ReadPoint(record);
    blit.source = ReadExtent(record);
    blit.target = {place, blit.source.size()};
    ByteReader places = record;
    record.Skip(16);
    Draw(player, blit, ReadDibPlaces(places, static_cast<ColourUse>(record.U32())));
}

void StretchBits(Player& player, ByteReader& record)
{
    Blit blit{.countsFromBelow = true};
    record.Skip(kBounds);
    const QPointF place = ReadPoint(record);
    blit.source = ReadExtent(record);
    ByteReader places = record;
    record.Skip(16);
    const auto use = static_cast<ColourUse>(record.U32());
    blit.operation = record.U32();
    blit.target = {place, ReadSize(record)};
    Draw(player, blit, ReadDibPlaces(places, use));
}

constexpr std::array kRows = {
    EmfRow{76, 92, CopyBits<Source::SizeOfTarget>},
    EmfRow{77, 100, CopyBits<Source::OwnSize>},
    EmfRow{78, 120, CopyMasked},
    EmfRow{80, 68, SetBits},
    EmfRow{81, 72, StretchBits},
    EmfRow{114, 100, BlendBits},
    EmfRow{116, 100, CopyBitsWithout},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfBitmapRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
