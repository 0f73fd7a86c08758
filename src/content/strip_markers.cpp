#include "content/strip_markers.h"

#include <algorithm>
#include <cstddef>

namespace quillmarker
{

namespace
{

constexpr std::size_t kMarkerLength = 3;    // "/h/"
constexpr std::size_t kClosingWithin = 21;  // of the marker's start
constexpr std::size_t kNoClosing = std::u16string::npos;

// Whether a marker's "/h/" ends just before `end` and starts at or after `from`.
bool MarkerEndsAt(const std::u16string& text, std::size_t end, std::size_t from)
{
    return end >= from + kMarkerLength && text[end - 1] == u'/' && (text[end - 2] == u'h' || text[end - 2] == u'H') &&
           text[end - 3] == u'/';
}

// The closing "/" at or after `behindMarker`, if it is near enough.
std::size_t ClosingSlash(const std::u16string& text, std::size_t behindMarker)
{
    const std::size_t end = std::min(text.size(), behindMarker + kClosingWithin - kMarkerLength);
    for (std::size_t at = behindMarker; at < end; ++at)
    {
        if (text[at] == u'/')
            return at;
    }
    return kNoClosing;
}

}  // namespace

// The text is moved unit by unit onto its own beginning: what stands before `kept` is finished, what stands from
// `next` on is still to come, and between them lies what markers have freed. A marker is seen when its last unit is
// moved, so that one made by the removal of another is seen like any other.
void StripMarkers(std::u16string& text)
{
    std::size_t kept = 0;
    std::size_t scanFrom = 0;
    for (std::size_t next = 0; next < text.size();)
    {
        text[kept++] = text[next++];
        if (!MarkerEndsAt(text, kept, scanFrom))
            continue;
        const std::size_t closing = ClosingSlash(text, next);
        if (closing == kNoClosing)
        {
            scanFrom = kept;
            continue;
        }
        kept -= kMarkerLength;
        next = closing + 1;
    }
    text.resize(kept);
}

}  // namespace quillmarker
