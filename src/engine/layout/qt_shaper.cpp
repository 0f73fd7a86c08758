#include "qt_shaper.h"

#include "simple_characters.h"

#include <QGlyphRun>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

constexpr char16_t kLeftToRightOverride = u'\u202D';
constexpr char16_t kRightToLeftOverride = u'\u202E';
constexpr qreal kNoLimit = 1e7;

std::int32_t In64ths(qreal length) { return static_cast<std::int32_t>(std::lround(length * kAdvancesPerUnit)); }

QFont ShapingFont(const QFont& font, std::u16string_view text, Kerning kerning)
{
    QFont shaping = font;
    shaping.setKerning(kerning == Kerning::On);
    // Spacing of any kind turns optional ligatures off, and one of 100 % moves nothing. Scripts with rules of their
    // own need those ligatures.
    if (IsPlainText(text))
        shaping.setLetterSpacing(QFont::PercentageSpacing, 100);
    return shaping;
}

/// The places of a line of text between which a caret can stand give the advances of the clusters.
std::vector<std::int32_t> AdvancesOf(const QTextLayout& layout, const QTextLine& line, int first, int count)
{
    std::vector<std::int32_t> advances(static_cast<std::size_t>(count), 0);
    int start = 0;
    qreal from = line.cursorToX(first);
    for (int at = 1; at <= count; ++at)
    {
        if (at < count && !layout.isValidCursorPosition(first + at))
            continue;
        const qreal to = line.cursorToX(first + at);
        advances[static_cast<std::size_t>(start)] = In64ths(std::abs(to - from));
        start = at;
        from = to;
    }
    return advances;
}

std::vector<PlacedGlyph> GlyphsOf(const QTextLayout& layout, const QTextLine& line, int first, int count)
{
    std::vector<PlacedGlyph> glyphs;
    const qreal left = std::min(line.cursorToX(first), line.cursorToX(first + count));
    for (const QGlyphRun& run : layout.glyphRuns(first, count))
    {
        const QList<quint32> indexes = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        for (qsizetype i = 0; i < indexes.size(); ++i)
            glyphs.push_back({indexes[i], In64ths(places[i].x() - left), In64ths(line.ascent() - places[i].y())});
    }
    std::ranges::stable_sort(glyphs, {}, &PlacedGlyph::x);
    return glyphs;
}

}  // namespace

ShapedPiece ShapeWithQt(const QFont& font, std::u16string_view text, TextDirection direction, Kerning kerning)
{
    const bool isForward = direction == TextDirection::LeftToRight;
    QString source(QChar(isForward ? kLeftToRightOverride : kRightToLeftOverride));
    source.append(QStringView(text.data(), static_cast<qsizetype>(text.size())));

    QTextOption option;
    option.setUseDesignMetrics(true);
    option.setWrapMode(QTextOption::NoWrap);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(isForward ? Qt::LeftToRight : Qt::RightToLeft);
    QTextLayout layout(source, ShapingFont(font, text, kerning));
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(kNoLimit);
    line.setPosition({0, 0});
    layout.endLayout();

    const int count = static_cast<int>(text.size());
    return {GlyphsOf(layout, line, 1, count), AdvancesOf(layout, line, 1, count)};
}

QFont MeasuringFont(const FaceIdentity& identity, std::int32_t pixelSize)
{
    QFont font(identity.family);
    font.setWeight(static_cast<QFont::Weight>(identity.weight));
    font.setItalic(identity.italic);
    font.setPixelSize(pixelSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferOutline | QFont::NoFontMerging));
    return font;
}

}  // namespace quillmarker
