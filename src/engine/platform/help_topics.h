#pragma once

#include <array>
#include <string_view>

namespace quillmarker
{

/// A page of the help that comes with the library. Paragraphs are parted by line feeds.
struct HelpTopic
{
    int context;
    std::u16string_view title;
    std::u16string_view text;
};

/// The page of a help context; null when there is none.
const HelpTopic* TopicOf(int context);

}  // namespace quillmarker
