#include "glyph_painting.h"

#include <QGlyphRun>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

// A font is never set larger; the painter enlarges its outlines from there.
constexpr qreal kLargestSize = 2000;
constexpr qreal kSmallestSize = 0.01;
constexpr qreal kReach = 2;  // of glyphs around their places, in ems

// How many glyphs a font has. A number beyond them comes from a list that was recorded with another font.
std::uint32_t GlyphCount(const QRawFont& font)
{
    const QByteArray table = font.fontTable("maxp");
    if (table.size() < 6)
        return std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(static_cast<unsigned char>(table[4])) << 8 | static_cast<unsigned char>(table[5]);
}

}  // namespace

GlyphPainting::GlyphPainting(const PaintSurface& surface, std::span<const FontFace* const> faces)
    : m_surface(surface), m_faces(faces)
{
}

bool GlyphPainting::Sees(const GlyphRun& run) const
{
    if (run.glyphs.empty())
        return false;
    const auto [left, right] = std::ranges::minmax(run.glyphs, {}, &GlyphPlace::x);
    const auto [top, bottom] = std::ranges::minmax(run.glyphs, {}, &GlyphPlace::y);
    const qreal reach = static_cast<qreal>(run.size) * kReach;
    const QRectF places(run.origin + QPointF(static_cast<qreal>(left.x), static_cast<qreal>(top.y)),
                        run.origin + QPointF(static_cast<qreal>(right.x), static_cast<qreal>(bottom.y)));
    return m_surface.Sees(m_surface.Mapped(places.adjusted(-reach, -reach, reach, reach)));
}

const GlyphPainting::SetFont& GlyphPainting::FontOf(std::uint32_t face, qreal size)
{
    const auto [entry, isNew] = m_fonts.try_emplace({face, size});
    if (isNew)
    {
        entry->second.font = m_faces[face]->RawFont(size);
        entry->second.glyphCount = GlyphCount(entry->second.font);
    }
    return entry->second;
}

void GlyphPainting::Paint(const GlyphRun& run, const QColor& colour)
{
    const qreal wanted = static_cast<qreal>(run.size) * m_surface.Scale();
    const qreal size = std::min(wanted, kLargestSize);
    if (run.face >= m_faces.size() || !(size >= kSmallestSize) || !(run.stretch > 0))
        return;
    const SetFont& set = FontOf(run.face, size);
    const qreal zoom = wanted / size;
    const qreal across = zoom * static_cast<qreal>(run.stretch);
    m_indexes.clear();
    m_places.clear();
    for (const GlyphPlace& place : run.glyphs)
    {
        if (place.glyph >= set.glyphCount)
            continue;
        m_indexes.push_back(place.glyph);
        m_places.emplace_back(static_cast<qreal>(place.x) * m_surface.Scale() / across,
                              static_cast<qreal>(place.y) * m_surface.Scale() / zoom);
    }
    if (m_indexes.empty() || !set.font.isValid())
        return;

    QGlyphRun glyphs;
    glyphs.setRawFont(set.font);
    glyphs.setRawData(m_indexes.data(), m_places.data(), static_cast<int>(m_indexes.size()));
    QPainter& painter = m_surface.Painter();
    const QPointF origin = m_surface.Mapped(run.origin);
    painter.setPen(colour);
    const QTransform before = painter.worldTransform();
    painter.translate(origin);
    if (across != 1 || zoom != 1)
        painter.scale(across, zoom);
    painter.drawGlyphRun(QPointF(), glyphs);
    Thicken(set.font, m_faces[run.face]->Metrics(), size, colour);
    painter.setWorldTransform(before);
}

/// Where a family has no bold, the outlines are drawn once more with a pen; the text itself stays text.
void GlyphPainting::Thicken(const QRawFont& font, const FaceMetrics& metrics, qreal size, const QColor& colour)
{
    if (metrics.thickening <= 0)
        return;
    QPainterPath outlines;
    for (std::size_t i = 0; i < m_indexes.size(); ++i)
        outlines.addPath(font.pathForGlyph(m_indexes[i]).translated(m_places[i]));
    const qreal width = size * metrics.thickening / metrics.unitsPerEm;
    m_surface.Painter().strokePath(outlines, QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

}  // namespace quillmarker
