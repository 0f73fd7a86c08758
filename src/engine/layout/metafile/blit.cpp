#include "blit.h"

#include "shapes.h"
#include "target_frame.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillmarker::metafile
{
namespace
{

/// How an operation is told apart: by the third byte of its number, its truth table over pattern, source and what is there.
struct Operation
{
    std::uint32_t table;
    MixMode mix;
    bool turnsSource = false;
};

// The source mixed with what is there.
constexpr std::array kWithSource = {
    Operation{0x11, MixMode::And, true},   Operation{0x22, MixMode::And, true},  Operation{0x33, MixMode::Copy, true},
    Operation{0x66, MixMode::Xor, false},  Operation{0x88, MixMode::And, false}, Operation{0xBB, MixMode::Or, true},
    Operation{0xCC, MixMode::Copy, false}, Operation{0xEE, MixMode::Or, false},
};

// The brush mixed with what is there.
constexpr std::array kWithoutSource = {
    Operation{0x00, MixMode::Black}, Operation{0x0F, MixMode::NotCopy}, Operation{0x55, MixMode::Not},
    Operation{0x5A, MixMode::Xor},   Operation{0xA0, MixMode::And},     Operation{0xAA, MixMode::Nothing},
    Operation{0xF0, MixMode::Copy},  Operation{0xFA, MixMode::Or},      Operation{0xFF, MixMode::White},
};

constexpr bool IsAscending(const auto& operations)
{
    for (std::size_t i = 1; i < operations.size(); ++i)
    {
        if (operations[i - 1].table >= operations[i].table)
            return false;
    }
    return true;
}
static_assert(IsAscending(kWithSource) && IsAscending(kWithoutSource));

std::uint32_t TruthTable(std::uint32_t operation) { return operation >> 16 & 0xFF; }

/// An operation that nobody uses is taken for a copy.
Operation OperationOf(const auto& operations, std::uint32_t table)
{
    const auto found = std::find_if(operations.begin(), operations.end(),
                                    [table](const Operation& operation) { return operation.table == table; });
    return found == operations.end() ? Operation{table, MixMode::Copy} : *found;
}

QRectF SourceIn(const QImage& image, const Blit& blit)
{
    QRectF source = blit.source;
    if (blit.countsFromBelow)
        source.moveTop(image.height() - source.y() - source.height());
    return source;
}

/// The image from where the source says to where the target says.
void Place(Player& player, const Blit& blit, QImage image, MixMode mix)
{
    const QRectF source = SourceIn(image, blit);
    if (source.width() == 0 || source.height() == 0)
        return;
    const QRect used = source.normalized().toAlignedRect() & image.rect();
    if (used.isEmpty())
        return;
    const qreal across = blit.target.width() / source.width();
    const qreal down = blit.target.height() / source.height();
    const QTransform toLogical(across, 0, 0, down, blit.target.x() + (used.x() - source.x()) * across,
                               blit.target.y() + (used.y() - source.y()) * down);
    if (used != image.rect())
        image = image.copy(used);
    player.Surface().SetClip(player.State().clip);
    player.Surface().DrawImage(image, toLogical * player.ToTarget(), mix);
}

QImage Read(Player& player, const Dib& dib)
{
    return player.Surface().Budget().Spend(PixelsOf(dib) * WorkBudget::kPixelOfImage) ? ReadDib(dib) : QImage();
}

}  // namespace

bool NeedsSource(std::uint32_t operation)
{
    const std::uint32_t table = TruthTable(operation);
    return ((table >> 2 ^ table) & 0x33U) != 0;
}

void FillByOperation(Player& player, const Blit& blit)
{
    const Operation operation = OperationOf(kWithoutSource, TruthTable(blit.operation));
    const bool usesBrush =
        operation.mix != MixMode::Black && operation.mix != MixMode::White && operation.mix != MixMode::Not;
    player.FillWith(usesBrush ? player.State().brush : Brush{}, RectanglePath(blit.target), operation.mix);
}

void Draw(Player& player, const Blit& blit, const Dib& dib)
{
    if (!NeedsSource(blit.operation))
    {
        FillByOperation(player, blit);
        return;
    }
    QImage image = Read(player, dib);
    if (image.isNull())
        return;
    const Operation operation = OperationOf(kWithSource, TruthTable(blit.operation));
    if (operation.turnsSource)
        image.invertPixels(QImage::InvertRgb);
    Place(player, blit, image, operation.mix);
}

void DrawBlended(Player& player, const Blit& blit, const Dib& dib, Blending blending)
{
    if (!player.Surface().Budget().Spend(PixelsOf(dib) * WorkBudget::kPixelOfImage * 2))
        return;
    QImage image = (blending.hasOpacity ? ReadTransparentDib(dib) : ReadDib(dib));
    if (image.isNull())
        return;
    image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (blending.opacity < 255)
    {
        QPainter fader(&image);
        fader.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        fader.fillRect(image.rect(), QColor(0, 0, 0, std::max(0, blending.opacity)));
    }
    Place(player, blit, image, MixMode::Copy);
}

void DrawWithout(Player& player, const Blit& blit, const Dib& dib, QRgb transparent)
{
    if (!player.Surface().Budget().Spend(PixelsOf(dib) * WorkBudget::kPixelOfImage * 2))
        return;
    QImage image = ReadDib(dib).convertToFormat(QImage::Format_ARGB32);
    if (image.isNull())
        return;
    for (int y = 0; y < image.height(); ++y)
    {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::replace_if(
            line, line + image.width(),
            [transparent](QRgb pixel) { return (pixel & 0xFFFFFF) == (transparent & 0xFFFFFF); }, 0);
    }
    Place(player, blit, image.convertToFormat(QImage::Format_ARGB32_Premultiplied), MixMode::Copy);
}

}  // namespace quillmarker::metafile
