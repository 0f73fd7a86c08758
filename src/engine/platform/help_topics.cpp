#include "help_topics.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr std::array kTopics = {
    HelpTopic{
        12'897, u"Fonts and character sets",
        u"A character set says which letters the codes of a text stand for: Western, Greek, Cyrillic and so on. The "
        u"whole "
        u"text has one, that of your system, so that every font in it is read in the same way.\n"
        u"The font that you chose belongs to another character set, or the text was written in one. The character set "
        u"has been "
        u"put "
        u"back to your system's default. When you pressed OK, the text has taken the font itself, and its style, its "
        u"size "
        u"and its color, all the same.\n"
        u"Fonts of signs, such as Symbol, are the exception. They keep the Symbol character set, because they show "
        u"signs "
        u"in the place of letters, and no message appears.\n"
        u"If letters look wrong afterwards, the font does not have the letters of your language. Select the text and "
        u"choose another font, for example Arial or Times New Roman. If signs have become letters, choose their font "
        u"of "
        u"signs again. What was typed is not changed by any of this, and Undo brings the former font back."},
};

}  // namespace

const HelpTopic* TopicOf(int context)
{
    const auto* found = std::ranges::find(kTopics, context, &HelpTopic::context);
    return found == kTopics.end() ? nullptr : found;
}

}  // namespace quillmarker
