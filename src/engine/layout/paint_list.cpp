#include "paint_list.h"

#include "border_painting.h"
#include "glyph_painting.h"
#include "link_writing.h"
#include "paint_surface.h"
#include "painted_ground.h"
#include "picture_image.h"
#include "text_line_painting.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr std::int32_t kWhole = 10000;  // hundredths of a per cent

QColor Mixed(const QColor& ground, const QColor& pattern, std::int32_t hundredths)
{
    const int share = std::clamp(hundredths, 0, kWhole);
    const auto mix = [&](int from, int to) { return from + (to - from) * share / kWhole; };
    return {mix(ground.red(), pattern.red()), mix(ground.green(), pattern.green()), mix(ground.blue(), pattern.blue())};
}

class ListPainting
{
public:
    ListPainting(PaintSurface& surface, const DisplayList& list, const GroundColours& colours)
        : m_surface(surface), m_colours(colours), m_ground(colours, surface.Visible()), m_glyphs(surface, list.faces)
    {
    }

    /// Notes what was painted before the list.
    void SetBehind(const DisplayList& behind)
    {
        for (const DisplayItem& item : behind.items)
        {
            if (const auto* fill = std::get_if<FilledRectangle>(&item))
                m_ground.Fill(m_surface.Mapped(fill->rectangle), ColourOf(*fill));
        }
    }

    void operator()(const GlyphRun& run)
    {
        if (!m_glyphs.Sees(run))
            return;
        // Highlights and shading end below the baseline; the text's colour is looked for inside its letters.
        const QPointF letters = run.origin + QPointF(1, static_cast<qreal>(run.size) * -0.25);
        m_glyphs.Paint(run, TextColour(run.colour, letters));
    }

    void operator()(const FilledRectangle& fill)
    {
        const QRectF rectangle = m_surface.Mapped(fill.rectangle);
        if (!m_surface.Sees(rectangle) || rectangle.isEmpty())
            return;
        const QColor colour = ColourOf(fill);
        m_surface.Painter().fillRect(m_surface.Snapped(rectangle & m_surface.Visible()), colour);
        m_ground.Fill(rectangle, colour);
    }

    void operator()(const TextLine& line)
    {
        // A line lies at the edge of its text's ground; what is above it is on the ground for sure.
        const QPointF above = line.from + QPointF(1, static_cast<qreal>(line.thickness) * -1);
        PaintTextLine(m_surface, line, TextColour(line.colour, above));
    }

    void operator()(const BorderLine& line)
    {
        const Colour colour = line.border.colour;
        PaintBorder(m_surface, line, colour.IsAutomatic() ? m_colours.text : ColourOf(colour));
    }

    void operator()(const PlacedPicture& placed)
    {
        static const InlinePicture kPlaceholder;
        const QRectF rectangle = m_surface.Mapped(placed.rectangle);
        if (!m_surface.Sees(rectangle) || rectangle.isEmpty())
            return;
        const auto* picture = placed.object ? std::get_if<InlinePicture>(&*placed.object) : nullptr;
        PaintPicture(m_surface.Painter(), rectangle, picture != nullptr ? *picture : kPlaceholder);
    }

    void operator()(const BeginClip& clip) { m_surface.OpenClip(m_surface.Snapped(m_surface.Mapped(clip.rectangle))); }
    void operator()(const EndClip&) { m_surface.CloseClip(); }
    void operator()(const LinkArea& link)
    {
        WriteLink(m_surface.Painter(), m_surface.Mapped(link.rectangle), link.target);
    }

private:
    static QColor ColourOf(Colour colour) { return {colour.Red(), colour.Green(), colour.Blue()}; }

    QColor ColourOf(const FilledRectangle& fill) const
    {
        const QColor automatic = fill.ground == Ground::Text ? m_colours.text : m_colours.background;
        const QColor ground = fill.colour.IsAutomatic() ? automatic : ColourOf(fill.colour);
        const QColor pattern = fill.pattern.IsAutomatic() ? m_colours.text : ColourOf(fill.pattern);
        return Mixed(ground, pattern, fill.mixed);
    }

    QColor TextColour(Colour colour, QPointF place) const
    {
        return colour.IsAutomatic() ? m_ground.TextAt(m_surface.Mapped(place)) : ColourOf(colour);
    }

    PaintSurface& m_surface;
    const GroundColours& m_colours;
    PaintedGround m_ground;
    GlyphPainting m_glyphs;
};

}  // namespace

void Paint(QPainter& painter, const DisplayList& list, QPointF origin, qreal scale, const GroundColours& colours,
           const DisplayList* behind)
{
    painter.save();
    {
        // Its end closes the clips that the list left open.
        PaintSurface surface(painter, origin, scale);
        ListPainting painting(surface, list, colours);
        if (behind != nullptr)
            painting.SetBehind(*behind);
        for (const DisplayItem& item : list.items)
            std::visit(painting, item);
    }
    painter.restore();
}

}  // namespace quillmarker
