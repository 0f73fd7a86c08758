#pragma once

#include "display_list.h"
#include "record_bytes.h"

namespace quillmarker
{

// The fields of what a page is made of, in the order in which they are recorded. Any change here is a new version of the
// page file.

template <>
inline constexpr Ground kLastOf<Ground> = Ground::Background;
template <>
inline constexpr Underline kLastOf<Underline> = Underline::Hairline;
template <>
inline constexpr BorderStyle kLastOf<BorderStyle> = BorderStyle::Outset;
template <>
inline constexpr PictureKind kLastOf<PictureKind> = PictureKind::Other;

template <class Archive, MaybeConst<Twips> T>
void Fields(Archive& archive, T& length)
{
    archive(length.value);
}

template <class Archive, MaybeConst<Colour> T>
void Fields(Archive& archive, T& colour)
{
    archive(colour.rgb);
}

template <class Archive, MaybeConst<Border> T>
void Fields(Archive& archive, T& border)
{
    archive(border.style, border.width, border.space, border.colour);
}

template <class Archive, MaybeConst<FaceIdentity> T>
void Fields(Archive& archive, T& face)
{
    archive(face.family, face.weight, face.italic);
}

template <class Archive, MaybeConst<GlyphPlace> T>
void Fields(Archive& archive, T& place)
{
    archive(place.glyph, place.x, place.y);
}

template <class Archive, MaybeConst<GlyphRun> T>
void Fields(Archive& archive, T& run)
{
    archive(run.face, run.size, run.stretch, run.origin, run.colour, run.rightToLeft, run.glyphs, run.text);
}

template <class Archive, MaybeConst<FilledRectangle> T>
void Fields(Archive& archive, T& fill)
{
    archive(fill.rectangle, fill.colour, fill.ground, fill.mixed, fill.pattern);
}

template <class Archive, MaybeConst<TextLine> T>
void Fields(Archive& archive, T& line)
{
    archive(line.from, line.length, line.thickness, line.kind, line.colour);
}

template <class Archive, MaybeConst<BorderLine> T>
void Fields(Archive& archive, T& line)
{
    archive(line.from, line.to, line.border);
}

template <class Archive, MaybeConst<BeginClip> T>
void Fields(Archive& archive, T& clip)
{
    archive(clip.rectangle);
}

template <class Archive, MaybeConst<EndClip> T>
void Fields(Archive&, T&)
{
}

template <class Archive, MaybeConst<LinkArea> T>
void Fields(Archive& archive, T& link)
{
    archive(link.rectangle, link.target);
}

}  // namespace quillmarker
