#pragma once

#include "font_face.h"

#include <quillmarker/char_format.h>
#include <quillmarker/inline_object.h>
#include <quillmarker/pages/export.h>
#include <quillmarker/paragraph_format.h>

#include <QRectF>
#include <QTransform>

#include <string>
#include <variant>
#include <vector>

namespace quillmarker
{

// What is painted, in the order of painting, in twips with y downwards. The origin is whatever the list is made for:
// the page's upper left corner, or a paragraph's. Automatic colours are settled when the list is painted.

/// A colour that may be automatic: then `ground` says whether it is the text's or the background's.
enum class Ground : std::uint8_t { Text, Background };

struct GlyphPlace
{
    std::uint32_t glyph = 0;
    float x = 0;  // from the run's origin
    float y = 0;

    bool operator==(const GlyphPlace&) const = default;
};

/// Glyphs of one face in one size, and the text that they show.
struct GlyphRun
{
    std::uint32_t face = 0;  // index in DisplayList::faces
    float size = 0;          // twips to the em
    float stretch = 1;       // horizontal scaling of the glyphs; their places are scaled already
    QPointF origin;          // of the baseline
    Colour colour;
    bool rightToLeft = false;
    std::vector<GlyphPlace> glyphs;
    std::u16string text;

    bool operator==(const GlyphRun&) const = default;
};

struct FilledRectangle
{
    QRectF rectangle;
    Colour colour;
    Ground ground = Ground::Background;
    /// In hundredths of a per cent, how much of `pattern` is mixed into `colour`.
    std::int32_t mixed = 0;
    Colour pattern;

    bool operator==(const FilledRectangle&) const = default;
};

/// A line under, through or over text; a leader of a tab too. From `from` to the right.
struct TextLine
{
    QPointF from;  // left end, middle of the line's thickness
    float length = 0;
    float thickness = 0;
    Underline kind = Underline::Single;
    Colour colour;

    bool operator==(const TextLine&) const = default;
};

/// A border's line, straight along one side.
struct BorderLine
{
    QPointF from;
    QPointF to;
    Border border;

    bool operator==(const BorderLine&) const = default;
};

/// A picture in its rectangle, which already respects goal, scale and crop: `rectangle` is what remains visible.
struct PlacedPicture
{
    QRectF rectangle;
    Shared<InlineObject> object;  // holds a Picture; anything else is painted as a framed placeholder

    bool operator==(const PlacedPicture&) const = default;
};

/// What follows is clipped to the rectangle until the matching EndClip.
struct BeginClip
{
    QRectF rectangle;
    bool operator==(const BeginClip&) const = default;
};
struct EndClip
{
    bool operator==(const EndClip&) const = default;
};

/// The rectangle leads to `target`; painted as nothing, written into PDFs.
struct LinkArea
{
    QRectF rectangle;
    std::u16string target;

    bool operator==(const LinkArea&) const = default;
};

using DisplayItem =
    std::variant<GlyphRun, FilledRectangle, TextLine, BorderLine, PlacedPicture, BeginClip, EndClip, LinkArea>;

struct DisplayList
{
    std::vector<const FontFace*> faces;
    std::vector<DisplayItem> items;

    /// The index of a face, entered if it is not there yet.
    QUILLMARKER_PAGES_EXPORT std::uint32_t FaceIndex(const FontFace& face);

    void Add(DisplayItem item) { items.push_back(std::move(item)); }
};

}  // namespace quillmarker
