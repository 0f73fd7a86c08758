#include "engine/view/text_attributes.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

std::string AttributesOf(const CharFormat& format, const ParagraphFormat& paragraph = {})
{
    return TextAttributes(format, paragraph, QColor(1, 2, 3)).toStdString();
}

TEST(TextAttributes, PlainTextSaysItsFontAndThePalettesColour)
{
    EXPECT_EQ(AttributesOf(DefaultCharFormat()),
              "font-family:\"Arial\";font-size:10pt;font-weight:normal;font-style:normal;text-position:baseline;"
              "color:rgb(1,2,3);text-align:left;writing-mode:lr;");
}

TEST(TextAttributes, EverythingElseIsSaidWhereItIsThere)
{
    CharFormat format = DefaultCharFormat();
    format.size = Twips{150};
    format.bold = true;
    format.italic = true;
    format.underline = Underline::Wave;
    format.strike = true;
    format.script = Script::Super;
    format.colour = Colour::Of(255, 0, 16);
    format.highlight = Colour::Of(255, 255, 0);
    format.hidden = true;
    ParagraphFormat paragraph;
    paragraph.alignment = Alignment::Centre;
    paragraph.rightToLeft = true;
    EXPECT_EQ(AttributesOf(format, paragraph),
              "font-family:\"Arial\";font-size:7.5pt;font-weight:bold;font-style:italic;text-underline-style:wave;"
              "text-underline-type:single;text-line-through-type:single;text-position:super;color:rgb(255,0,16);"
              "background-color:rgb(255,255,0);invisible:true;text-align:center;writing-mode:rl;");
}

TEST(TextAttributes, ANameCannotEndItsAttribute)
{
    CharFormat format = DefaultCharFormat();
    format.font = u"A;b:c\"";
    EXPECT_TRUE(AttributesOf(format).starts_with("font-family:\"A\\;b\\:c\\\"\";font-size"));
}

}  // namespace
}  // namespace quillmarker
