#include "text.h"

#include "shapes.h"
#include "symbols.h"
#include "target_frame.h"

#include "engine/rtf/code_page.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace quillmarker::metafile
{
namespace
{

// Text is set in this size and then scaled: its widths are the design's, whatever device it is painted on.
constexpr int kSetSize = 96;
constexpr qreal kUsualHeight = 12;
constexpr qreal kLeastScale = 1e-6;
constexpr qreal kMostScale = 1e5;
constexpr int kMostText = 8192;

/// The font at its set size, and what scales that to logical units.
struct SetFont
{
    QFont font;
    QFontMetricsF metrics;
    qreal scale;
    qreal stretch;  // of the glyphs along the line
};

/// Fonts that are as wide as those most metafiles were made with.
QString Substitute(FamilyKind kind)
{
    switch (kind)
    {
    case FamilyKind::Serif:
        return QStringLiteral("Times New Roman");
    case FamilyKind::Fixed:
        return QStringLiteral("Courier New");
    default:
        return QStringLiteral("Arial");
    }
}

/// A well-known name says more than the byte beside it, which is often left at zero.
FamilyKind KindOf(const Font& font)
{
    if (font.family.startsWith(u"Times", Qt::CaseInsensitive) || font.family.contains(u"Serif", Qt::CaseInsensitive))
        return FamilyKind::Serif;
    return font.family.startsWith(u"Courier", Qt::CaseInsensitive) ? FamilyKind::Fixed : font.familyKind;
}

QFont FontAtSetSize(const Font& font)
{
    QFont set(QFontDatabase::hasFamily(font.family) ? font.family : Substitute(KindOf(font)));
    set.setPixelSize(kSetSize);
    set.setWeight(static_cast<QFont::Weight>(std::clamp(font.weight == 0 ? 400 : font.weight, 1, 1000)));
    set.setItalic(font.isItalic);
    set.setHintingPreference(QFont::PreferNoHinting);
    set.setKerning(false);
    return set;
}

SetFont Prepared(const Font& font)
{
    const QFont set = FontAtSetSize(font);
    const QFontMetricsF metrics(set);
    const qreal cell = std::max<qreal>(1, metrics.ascent() + metrics.descent());
    qreal scale = -font.height / kSetSize;
    if (font.height == 0)
        scale = kUsualHeight / kSetSize;
    else if (font.height > 0)
        scale = font.height / cell;
    scale = std::clamp(scale, kLeastScale, kMostScale);
    qreal stretch = 1;
    if (const qreal average = metrics.averageCharWidth() * scale; font.width != 0 && average > 0)
        stretch = std::clamp(std::abs(font.width) / average, 0.01, 100.0);
    return {set, metrics, scale, stretch};
}

/// Characters that stand alone; others are shaped together and only stretched to their width.
bool StandsAlone(QChar character)
{
    const ushort unit = character.unicode();
    return unit < 0x0300 || (unit >= 0x0370 && unit < 0x0590) || (unit >= 0x1E00 && unit < 0x2E80 && unit != 0x200D) ||
           (unit >= 0x2E80 && unit < 0xD800) || (unit >= 0xE000 && unit < 0xFB00) || unit >= 0xFF00;
}

qreal HorizontalShift(std::uint32_t alignment, qreal width)
{
    switch (alignment & AlignHorizontally)
    {
    case AlignRight:
        return -width;
    case AlignCentre:
        return -width / 2;
    default:
        return 0;
    }
}

qreal VerticalShift(std::uint32_t alignment, const QFontMetricsF& metrics)
{
    switch (alignment & AlignVertically)
    {
    case AlignBaseline:
        return 0;
    case AlignBottom:
        return -metrics.descent();
    default:
        return metrics.ascent();
    }
}

/// From set text, its line's start at the origin, to the target. Text is never mirrored by the mapping: a mapping whose y
/// grows upwards still has upright text.
QTransform TextFrame(const Player& player, QPointF place, qreal scale)
{
    const Mapping& mapping = player.State().mapping;
    const QTransform page = mapping.Page(player.PixelsInMillimetre()) * player.DeviceToTarget();
    const QPointF origin = Bearable(player.ToTarget().map(place));
    const QTransform world(mapping.world.m11(), mapping.world.m12(), mapping.world.m21(), mapping.world.m22(), 0, 0);
    QTransform frame = QTransform::fromScale(scale, scale);
    // A line that climbs does so along the mapping's y: where that grows upwards, it is turned the other way round.
    const qreal angle = player.State().font.escapement;
    frame *= QTransform().rotate(page.m11() * page.m22() < 0 ? angle : -angle);
    frame *= QTransform::fromScale(std::copysign(1, page.m11()), std::copysign(1, page.m22()));
    frame *= world;
    frame *= QTransform::fromScale(page.m11(), page.m22());
    return frame * QTransform::fromTranslate(origin.x(), origin.y());
}

/// Set text: where its units stand, in set pixels.
struct Line
{
    std::vector<qreal> places;  // empty: as the font sets them
    qreal width = 0;
};

Line LineOf(const TextRecord& record, const SetFont& set, qreal extra)
{
    Line line;
    const auto count = static_cast<std::size_t>(record.text.size());
    if (record.steps.size() < count)
    {
        line.width = set.metrics.horizontalAdvance(record.text) * set.stretch + extra * static_cast<qreal>(count);
        return line;
    }
    for (std::size_t i = 0; i < count; ++i)
    {
        line.places.push_back(line.width);
        line.width += record.steps[i] / set.scale;
    }
    return line;
}

/// True when a square becomes more than sixteen times as long as wide. Qt keeps pictures of glyphs, and makes ones of any
/// length for such a transform.
bool IsOutOfProportion(const QTransform& transform)
{
    const qreal squares = transform.m11() * transform.m11() + transform.m12() * transform.m12() +
                          transform.m21() * transform.m21() + transform.m22() * transform.m22();
    return !(squares <= 16 * std::abs(transform.determinant()));
}

void PaintStretched(QPainter& painter, const QString& text, QPointF place, qreal stretch)
{
    painter.save();
    painter.translate(place);
    painter.scale(stretch, 1);
    if (IsOutOfProportion(painter.combinedTransform()))
    {
        QPainterPath outline;
        outline.addText(QPointF(), painter.font(), text);
        painter.fillPath(outline, painter.pen().color());
    }
    else
        painter.drawText(QPointF(), text);
    painter.restore();
}

void PaintText(QPainter& painter, const TextRecord& record, const SetFont& set, const Line& line, QPointF start)
{
    const bool standAlone = std::all_of(record.text.begin(), record.text.end(), StandsAlone);
    if (line.places.empty() || !standAlone)
    {
        const qreal natural = set.metrics.horizontalAdvance(record.text);
        PaintStretched(painter, record.text, start, natural > 0 && line.width > 0 ? line.width / natural : 1);
        return;
    }
    for (qsizetype i = 0; i < record.text.size(); ++i)
    {
        if (record.text[i] != u' ')
            PaintStretched(painter, record.text.mid(i, 1), start + QPointF(line.places[static_cast<std::size_t>(i)], 0),
                           set.stretch);
    }
}

void PaintRules(QPainter& painter, const Font& font, const SetFont& set, QPointF start, qreal width, QColor colour)
{
    const qreal thickness = std::max<qreal>(set.metrics.lineWidth(), kSetSize / 20.0);
    if (font.isUnderlined)
        painter.fillRect(QRectF(start.x(), start.y() + set.metrics.underlinePos() - thickness / 2, width, thickness),
                         colour);
    if (font.isStruckOut)
        painter.fillRect(QRectF(start.x(), start.y() - set.metrics.strikeOutPos() - thickness / 2, width, thickness),
                         colour);
}

void PaintLine(Player& player, const TextRecord& record)
{
    const DeviceState& state = player.State();
    Canvas& canvas = player.Surface();
    const qreal cost = static_cast<qreal>(record.text.size()) * WorkBudget::kCharacter;
    if (!canvas.Budget().Spend(cost + (player.IsNewFamily(state.font.family) ? WorkBudget::kNewFont : 0)))
        return;
    const SetFont set = Prepared(state.font);
    const Line line = LineOf(record, set, state.characterExtra / set.scale);
    const bool follows = (state.textAlignment & AlignUpdatesPosition) != 0;
    const QTransform frame = TextFrame(player, follows ? state.position : record.place, set.scale);
    const QPointF start(HorizontalShift(state.textAlignment, line.width),
                        VerticalShift(state.textAlignment, set.metrics));
    const QRectF cell(start.x(), start.y() - set.metrics.ascent(), line.width,
                      set.metrics.ascent() + set.metrics.descent());
    const QRectF area = frame.mapRect(cell);
    const bool isBearable =
        area.topLeft() == Bearable(area.topLeft()) && area.bottomRight() == Bearable(area.bottomRight());
    // Glyphs are drawn in the size they have, so one far larger than the picture would cost what nobody sees.
    if (!frame.isInvertible() || !isBearable)
        return;
    if (follows)
        player.State().position += QPointF(line.width * set.scale, 0);
    const bool hasGround = state.isOpaque && (record.options & TextIsOnGround) == 0;
    canvas.DrawWith(frame, area, [&](QPainter& painter) {
        if (hasGround)
            painter.fillRect(cell, state.background);
        painter.setFont(set.font);
        painter.setPen(state.textColour);
        PaintText(painter, record, set, line, start);
        PaintRules(painter, state.font, set, start, line.width, state.textColour);
    });
}

}  // namespace

void Draw(Player& player, const TextRecord& given)
{
    TextRecord record = given;
    if (IsGreekSymbolFont(player.State().font.family))
        record.text = WithGreekSymbols(record.text);
    if (record.rectangle && (record.options & TextIsOnGround) != 0)
        player.FillWith(player.State().background, RectanglePath(*record.rectangle));
    if (record.text.isEmpty() || (record.options & TextIsGlyphs) != 0 || record.text.size() > kMostText ||
        player.IsGathering())
        return;
    const Clip before = player.State().clip;
    if (record.rectangle && (record.options & TextIsClipped) != 0)
        player.ClipTo(RectanglePath(*record.rectangle), ClipMode::Intersect);
    player.Surface().SetClip(player.State().clip);
    PaintLine(player, record);
    player.State().clip = before;
}

DecodedText Decoded(const Player& player, std::string_view bytes, const std::vector<qreal>& byteSteps)
{
    const Decoder& decoder = DecoderFor(CodePageOfCharset(player.State().font.charset));
    const bool hasSteps = byteSteps.size() >= bytes.size();
    DecodedText decoded;
    for (std::size_t i = 0; i < bytes.size();)
    {
        const bool isPair =
            i + 1 < bytes.size() && decoder.IsDoubleByte() && decoder.IsLeadByte(static_cast<unsigned char>(bytes[i]));
        const std::size_t length = isPair ? 2 : 1;
        std::u16string units;
        decoder.Append(bytes.substr(i, length), units);
        decoded.text += QString::fromUtf16(units.data(), static_cast<qsizetype>(units.size()));
        for (std::size_t unit = 0; hasSteps && unit < units.size(); ++unit)
            decoded.steps.push_back(
                unit == 0 ? std::accumulate(byteSteps.begin() + static_cast<std::ptrdiff_t>(i),
                                            byteSteps.begin() + static_cast<std::ptrdiff_t>(i + length), 0.0)
                          : 0);
        i += length;
    }
    return decoded;
}

}  // namespace quillmarker::metafile
