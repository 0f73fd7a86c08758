#pragma once

#include "display_list.h"
#include "paint_surface.h"

#include <QColor>
#include <QRawFont>

#include <map>
#include <span>
#include <utility>
#include <vector>

namespace quillmarker
{

/// Paints the glyph runs of one list, each font in the size it has on the device.
class GlyphPainting
{
public:
    GlyphPainting(const PaintSurface& surface, std::span<const FontFace* const> faces);

    /// Whether any of the run can be seen; by its places and size, a little generously.
    bool Sees(const GlyphRun& run) const;

    void Paint(const GlyphRun& run, const QColor& colour);

private:
    void Thicken(const QRawFont& font, const FaceMetrics& metrics, qreal size, const QColor& colour);

    struct SetFont
    {
        QRawFont font;
        std::uint32_t glyphCount = 0;
    };
    const SetFont& FontOf(std::uint32_t face, qreal size);

    const PaintSurface& m_surface;
    std::span<const FontFace* const> m_faces;
    std::map<std::pair<std::uint32_t, qreal>, SetFont> m_fonts;
    std::vector<quint32> m_indexes;
    std::vector<QPointF> m_places;
};

}  // namespace quillmarker
