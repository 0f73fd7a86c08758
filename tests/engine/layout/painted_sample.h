#pragma once

#include "engine/layout/display_list.h"
#include "engine/layout/font_host.h"
#include "engine/layout/paint_list.h"

#include <QImage>
#include <QPainter>

#include <string_view>

namespace quillmarker
{

constexpr double kTwipsAPixel = 15;

/// `text` in simple characters of a face, with its baseline beginning at `origin`.
inline GlyphRun RunOf(DisplayList& list, const FontFace& face, std::u16string_view text, float size, QPointF origin,
                      Colour colour = {})
{
    GlyphRun run = {.face = list.FaceIndex(face), .size = size, .origin = origin, .colour = colour};
    float x = 0;
    for (const char16_t unit : text)
    {
        const SimpleGlyph glyph = face.Simple(unit);
        run.glyphs.push_back({glyph.glyph, x, 0});
        x +=
            static_cast<float>(glyph.advance) * size / static_cast<float>(kAdvancesPerUnit * face.Metrics().unitsPerEm);
    }
    run.text = text;
    return run;
}

/// What a list gives on white, `zoom` pixels for each of a screen with 96 dots an inch.
inline QImage PaintedImage(const DisplayList& list, QSize pixels, double zoom = 1, const GroundColours& colours = {},
                           QPointF origin = {})
{
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(colours.background);
    QPainter painter(&image);
    Paint(painter, list, origin, zoom / kTwipsAPixel, colours);
    return image;
}

}  // namespace quillmarker
