#include "display_list.h"

#include <algorithm>

namespace quillmarker
{

std::uint32_t DisplayList::FaceIndex(const FontFace& face)
{
    const auto found = std::find(faces.begin(), faces.end(), &face);
    if (found != faces.end())
        return static_cast<std::uint32_t>(found - faces.begin());
    faces.push_back(&face);
    return static_cast<std::uint32_t>(faces.size() - 1);
}

}  // namespace quillmarker
