#pragma once

#include "engine/layout/page_record.h"

#include <string>
#include <utility>

namespace quillmarker
{

/// A page with an item of every type, in which each field differs from its default.
inline PageRecord FullPage(FontHost& fonts, std::string pictureBytes = "\x89PNG sample")
{
    PageRecord record = {.width = {11906}, .height = {16838}};
    DisplayList& list = record.list;
    const Colour red = Colour::Of(255, 0, 0);
    const Colour blue = Colour::Of(0, 0, 255);
    const FontFace& sans = fonts.Face(FontRequest{.name = u"Liberation Sans"});
    const FontFace& bold = fonts.Face(FontRequest{.name = u"Liberation Serif", .bold = true, .italic = true});

    list.Add(FilledRectangle{QRectF(100, 200, 3000, 400), red, Ground::Text, 2500, blue});
    list.Add(BeginClip{QRectF(50, 60.5, 7000, 8000)});
    list.Add(GlyphRun{.face = list.FaceIndex(sans),
                      .size = 240,
                      .stretch = 1.25F,
                      .origin = {300, 500},
                      .colour = blue,
                      .rightToLeft = true,
                      .glyphs = {{36, 0, 0}, {37, 160.5F, -20}},
                      .text = u"A\u20AC"});
    list.Add(GlyphRun{
        .face = list.FaceIndex(bold), .size = 400, .origin = {300, 1200}, .glyphs = {{38, 0, 0}}, .text = u"C"});
    list.Add(TextLine{{300, 530}, 900.25F, 12, Underline::DoubleWave, red});
    list.Add(BorderLine{{100, 700}, {3100, 700}, {BorderStyle::Triple, {15}, {20}, blue}});
    const InlinePicture picture = {.kind = PictureKind::Png,
                                   .mapping = 3,
                                   .width = 20,
                                   .height = 10,
                                   .goalWidth = {3000},
                                   .goalHeight = {1500},
                                   .scaleX = 50,
                                   .scaleY = 75,
                                   .cropLeft = {100},
                                   .cropTop = {-50},
                                   .cropRight = {30},
                                   .cropBottom = {40},
                                   .kept = "\\bliptag7",
                                   .bytes = Shared(std::move(pictureBytes))};
    const Shared<InlineObject> shared{InlineObject(picture)};
    list.Add(PlacedPicture{QRectF(400, 1500, 1450, 1125), shared});
    list.Add(PlacedPicture{QRectF(400, 2800, 1450, 1125), shared});
    list.Add(PlacedPicture{QRectF(2400, 2800, 500, 500), {}});
    list.Add(PlacedPicture{QRectF(3000, 2800, 500, 500), Shared<InlineObject>(Note())});
    list.Add(PlacedPicture{QRectF(3600, 2800, 500, 500), Shared<InlineObject>(EmbeddedObject())});
    list.Add(LinkArea{QRectF(300, 400, 900, 200), u"https://example.org/#a\u00E4"});
    list.Add(EndClip{});
    return record;
}

}  // namespace quillmarker
