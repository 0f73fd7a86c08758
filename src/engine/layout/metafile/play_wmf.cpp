#include "metafile.h"
#include "play.h"
#include "wmf_records.h"

#include <array>
#include <cmath>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kEnd = 0;
constexpr std::size_t kRecordHead = 6;
constexpr std::size_t kWord = 2;

const WmfRow* RowOf(std::uint32_t number)
{
    for (const auto& find : {WmfStateRow, WmfObjectRow, WmfShapeRow, WmfBitmapRow, WmfTextRow})
    {
        if (const WmfRow* const row = find(number))
            return row;
    }
    return nullptr;
}

/// The box that the picture shows, before it says so itself.
QRectF FirstWindow(const WmfHeader& header, const MetafileHint& hint, const QRectF& target)
{
    if (header.IsPlaceable())
        return header.box;
    if (hint.width > 0 && hint.height > 0)
        return {0, 0, static_cast<qreal>(hint.width), static_cast<qreal>(hint.height)};
    return {QPointF(), target.size()};
}

/// The picture's size in millimetres; empty when nobody says.
QSizeF SizeInMillimetres(const WmfHeader& header, const MetafileHint& hint)
{
    constexpr qreal kMillimetresInInch = 25.4;
    if (header.IsPlaceable())
        return QSizeF(std::abs(header.box.width()), std::abs(header.box.height())) * kMillimetresInInch / header.inch;
    return QSizeF(hint.width, hint.height) / 100;
}

Mapping FirstMapping(const WmfHeader& header, const MetafileHint& hint, const QRectF& target)
{
    Mapping mapping;
    const bool isFixed =
        hint.mapping > static_cast<int>(MapMode::Text) && hint.mapping < static_cast<int>(MapMode::Isotropic);
    mapping.mode = isFixed && !header.IsPlaceable() ? static_cast<MapMode>(hint.mapping) : MapMode::Anisotropic;
    const QRectF window = FirstWindow(header, hint, target);
    mapping.windowOrigin = window.topLeft();
    mapping.SetWindowExtent(window.size());
    mapping.SetViewportExtent(target.size());
    return mapping;
}

void PlayRecord(Player& player, std::uint32_t number, std::string_view body)
{
    const WmfRow* const row = RowOf(number);
    ByteReader reader(body);
    if (row && body.size() >= row->leastSize)
        row->play(player, reader);
}

}  // namespace

void PlayWmf(Canvas& canvas, std::string_view bytes, const WmfHeader& header, const MetafileHint& hint)
{
    const QRectF& target = canvas.Target();
    const QSizeF millimetres = SizeInMillimetres(header, hint);
    const QSizeF unitsInMillimetre =
        millimetres.isEmpty() ? QSizeF(1, 1)
                              : QSizeF(target.width() / millimetres.width(), target.height() / millimetres.height());
    Player player(canvas, QTransform::fromTranslate(target.x(), target.y()), unitsInMillimetre, 0);
    player.State().mapping = FirstMapping(header, hint, target);

    ByteReader reader(bytes);
    reader.MoveTo(header.size);
    while (reader.Left() >= kRecordHead && canvas.Budget().Spend(WorkBudget::kRecord))
    {
        const std::uint64_t size = std::uint64_t{reader.U32()} * kWord;
        const std::uint32_t number = reader.U16();
        if (number == kEnd || size < kRecordHead || size - kRecordHead > reader.Left())
            return;
        PlayRecord(player, number, reader.Bytes(static_cast<std::size_t>(size - kRecordHead)));
    }
}

}  // namespace quillmarker::metafile
