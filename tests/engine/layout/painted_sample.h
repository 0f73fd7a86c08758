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

inline constexpr Colour kRed = Colour::Of(255, 0, 0);
inline constexpr Colour kBlue = Colour::Of(0, 0, 255);
inline constexpr QRgb kRedPixel = 0xFFFF0000;
inline constexpr QRgb kWhitePixel = 0xFFFFFFFF;
inline constexpr QRgb kBlackPixel = 0xFF000000;

inline QRectF PixelRectangle(double x, double y, double width, double height)
{
    return {x * kTwipsAPixel, y * kTwipsAPixel, width * kTwipsAPixel, height * kTwipsAPixel};
}

inline QPointF PixelPoint(double x, double y) { return QPointF(x, y) * kTwipsAPixel; }

inline DisplayList Single(DisplayItem item)
{
    DisplayList list;
    list.Add(std::move(item));
    return list;
}

inline int CountOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour ? 1 : 0;
    }
    return count;
}

// The smallest rectangle around all that is not white.
inline QRect Inked(const QImage& image)
{
    QRect inked;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            if (image.pixel(x, y) != kWhitePixel)
                inked |= QRect(x, y, 1, 1);
        }
    }
    return inked;
}

inline constexpr QSize kSmall(80, 40);

}  // namespace quillmarker
