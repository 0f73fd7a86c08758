#pragma once

#include <quillmarker/pages/export.h>

#include <QPainter>
#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <string_view>

namespace quillmarker
{

// Metafiles are lists of drawing commands: WMF with 16-bit coordinates (with a placeable header or without), EMF with
// 32-bit ones. They come from strangers: every size in them is checked, and what they may cost is bounded.

struct MetafileSize
{
    QSizeF twips{0, 0};
    bool isKnown = false;

    bool operator==(const MetafileSize&) const = default;
};

/// What the surrounding document says of a WMF that has no placeable header; an EMF and a placeable WMF need none of it.
struct MetafileHint
{
    std::int32_t mapping = 8;  // \wmetafile: the mapping mode, of which 8 is "anisotropic"
    std::int32_t width = 0;    // \picw and \pich, hundredths of a millimetre; 0 is not stated
    std::int32_t height = 0;

    bool operator==(const MetafileHint&) const = default;
};

/// The size that a metafile states itself: the frame of an EMF, the box of a placeable WMF. Unknown for anything else and
/// for a size of nothing.
MetafileSize SizeOfMetafile(std::string_view bytes);

/// Plays a metafile into `target`, in the painter's coordinates, clipped to it; the painter is left as it was. Its bytes
/// decide what it is. A record that is damaged ends the playing, one that is unknown is skipped. False, and nothing is
/// painted, when it is no metafile, is damaged at its start, or is an EMF that draws only in comments of its successor.
QUILLMARKER_PAGES_EXPORT bool PlayMetafile(QPainter& painter, const QRectF& target, std::string_view bytes,
                                           const MetafileHint& hint);

}  // namespace quillmarker
