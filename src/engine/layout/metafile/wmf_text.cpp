#include "text.h"
#include "wmf_records.h"

#include <algorithm>
#include <array>

namespace quillmarker::metafile
{
namespace
{

/// Text fills whole words.
std::string_view ReadText(ByteReader& record, std::size_t length)
{
    const std::string_view text = record.Bytes(length);
    if (length % 2 != 0 && record.Left() > 0)
        record.Skip(1);
    return text;
}

void TextOut(Player& player, ByteReader& record)
{
    const std::string_view bytes = ReadText(record, record.U16());
    const QPointF place = ReadBackwardPoint(record);
    if (!record.HasFailed())
        Draw(player, TextRecord{.text = Decoded(player, bytes, {}).text, .place = place});
}

void ExtTextOut(Player& player, ByteReader& record)
{
    TextRecord text;
    text.place = ReadBackwardPoint(record);
    const std::size_t length = record.U16();
    text.options = record.U16();
    if ((text.options & (TextIsOnGround | TextIsClipped)) != 0)
    {
        const qreal left = record.I16();
        const qreal top = record.I16();
        const qreal right = record.I16();
        text.rectangle = QRectF(QPointF(left, top), QPointF(right, record.I16()));
    }
    const std::string_view bytes = ReadText(record, length);
    std::vector<qreal> steps;
    if (record.Left() / 2 >= length)
    {
        steps.resize(length);
        std::generate(steps.begin(), steps.end(), [&] { return record.I16(); });
    }
    if (record.HasFailed())
        return;
    DecodedText decoded = Decoded(player, bytes, steps);
    text.text = std::move(decoded.text);
    text.steps = std::move(decoded.steps);
    Draw(player, text);
}

constexpr std::array kRows = {
    WmfRow{0x0521, 6, TextOut},
    WmfRow{0x0A32, 8, ExtTextOut},
};
static_assert(AreSorted(kRows));

}  // namespace

const WmfRow* WmfTextRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
