#pragma once

#include <quillmarker/twips.h>

#include <QRawFont>
#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// The measures of a font face in its own units, y upwards; independent of any size or device.
struct FaceMetrics
{
    std::int32_t unitsPerEm = 1000;
    std::int32_t ascent = 0;
    std::int32_t descent = 0;  // positive: below the baseline
    std::int32_t lineGap = 0;
    std::int32_t underlinePosition = 0;  // of its middle, positive: below the baseline
    std::int32_t underlineThickness = 0;
    std::int32_t strikeoutPosition = 0;  // of its middle, positive: above the baseline
    /// How much thicker strokes are to be drawn, half of it on each side, since the family has no bold; advances stay.
    std::int32_t thickening = 0;
};

/// By what a face is found again on the same machine.
struct FaceIdentity
{
    QString family;
    int weight = 400;
    bool italic = false;

    bool operator==(const FaceIdentity&) const = default;
};

/// Advances are kept in 64ths of a font unit, so that the advances of fallback faces keep their fractions.
constexpr std::int32_t kAdvancesPerUnit = 64;

/// A character's glyph, when the face itself has it and it needs no shaping.
struct SimpleGlyph
{
    std::uint32_t glyph = 0;
    std::int32_t advance = 0;  // in 64ths of a font unit
    bool isSimple = false;     // false: only Shape knows
};

enum class TextDirection : bool { LeftToRight, RightToLeft };
enum class Kerning : bool { Off, On };

class FontFace;

/// A glyph that shaping placed, in 64ths of a font unit of the face that was asked: x from the left edge of the text,
/// y from its baseline, positive upwards.
struct ShapedGlyph
{
    const FontFace* face = nullptr;  // the face that has the glyph: the one that was asked, or a fallback
    std::uint32_t glyph = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
};

struct ShapedText
{
    std::vector<ShapedGlyph> glyphs;     // from left to right
    std::vector<std::int32_t> advances;  // one for each UTF-16 unit; a cluster's stands at its first, 0 at the others
    std::int64_t width = 0;              // their sum
    /// The tallest measures of the fallback faces that were used, in units of the face that was asked; 0: none was.
    std::int32_t fallbackAscent = 0;
    std::int32_t fallbackDescent = 0;
};

/// One face of a family, at no particular size. Faces live as long as the host they come from. Not safe to share
/// between threads.
class FontFace
{
public:
    virtual ~FontFace() = default;

    const FaceMetrics& Metrics() const { return m_metrics; }

    SimpleGlyph Simple(char16_t unit) const
    {
        const auto& page = m_pages[unit >> 8];
        return (page ? *page : LoadPage(unit >> 8))[unit & 255];
    }

    /// The glyphs of a text in one direction, without line ends, tabs or objects. Ligatures are never made of
    /// characters that could be shown one by one.
    virtual ShapedText Shape(std::u16string_view text, TextDirection direction, Kerning kerning) const = 0;

    virtual FaceIdentity Identity() const = 0;

    /// The font that paints the face's glyphs, unhinted and slanted where the family has no italic. What the metrics
    /// say of thickening is left to who paints.
    virtual QRawFont RawFont(qreal pixelSize) const = 0;

protected:
    FontFace() = default;
    void SetMetrics(const FaceMetrics& metrics) { m_metrics = metrics; }

    using GlyphPage = std::array<SimpleGlyph, 256>;

    /// Fills the glyphs of the characters `first` to `first` + 255.
    virtual void FillPage(char16_t first, GlyphPage& page) const = 0;

private:
    const GlyphPage& LoadPage(unsigned page) const
    {
        auto filled = std::make_unique<GlyphPage>();
        FillPage(static_cast<char16_t>(page << 8), *filled);
        m_pages[page] = std::move(filled);
        return *m_pages[page];
    }

    FaceMetrics m_metrics;
    mutable std::array<std::unique_ptr<const GlyphPage>, 256> m_pages{};
};

}  // namespace quillmarker
