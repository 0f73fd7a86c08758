#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

std::u16string InstructionAt(const Document& document, std::uint32_t offset)
{
    const Shared<Field>& field = CharsAt(document, offset).field;
    return field ? field->instruction : u"(none)";
}

TEST(ReadFields, TheResultIsTextThatCarriesTheField)
{
    const Document document = ReadSample(R"(a{\field{\*\fldinst DATE \\@ "yyyy"}{\fldrslt 2024}}b)");
    EXPECT_EQ(document.Text(), u"a2024b");
    EXPECT_EQ(InstructionAt(document, 0), u"(none)");
    EXPECT_EQ(InstructionAt(document, 1), u"DATE \\@ \"yyyy\"");
    EXPECT_EQ(InstructionAt(document, 4), u"DATE \\@ \"yyyy\"");
    EXPECT_EQ(InstructionAt(document, 5), u"(none)");
}

TEST(ReadFields, AHyperlinkKnowsItsTarget)
{
    const Document document =
        ReadSample(R"({\field{\*\fldinst{HYPERLINK "http://example.org/?a=b" \\o "tip"}}{\fldrslt{\ul\cf3 here}}})");
    EXPECT_EQ(document.Text(), u"here");
    ASSERT_TRUE(CharsAt(document, 0).field);
    EXPECT_EQ(LinkTarget(*CharsAt(document, 0).field), u"http://example.org/?a=b");
    EXPECT_EQ(CharsAt(document, 0).underline, Underline::Single);
}

TEST(ReadFields, ABookmarkFollowsAHash)
{
    const Document document = ReadSample(R"({\field{\*\fldinst HYPERLINK "a.rtf" \\l "mark"}{\fldrslt x}})");
    EXPECT_EQ(LinkTarget(*CharsAt(document, 0).field), u"a.rtf#mark");
    const Document other = ReadSample(R"({\field{\*\fldinst PAGE}{\fldrslt 7}})");
    EXPECT_EQ(LinkTarget(*CharsAt(other, 0).field), u"");
}

TEST(ReadFields, AFieldInAResultKnowsTheOuterOne)
{
    const Document document =
        ReadSample(R"({\field{\*\fldinst TOC}{\fldrslt a{\field{\*\fldinst PAGEREF x}{\fldrslt 3}}b}})");
    EXPECT_EQ(document.Text(), u"a3b");
    EXPECT_EQ(InstructionAt(document, 0), u"TOC");
    EXPECT_EQ(InstructionAt(document, 1), u"PAGEREF x");
    ASSERT_TRUE(CharsAt(document, 1).field->outer);
    EXPECT_EQ(CharsAt(document, 1).field->outer->instruction, u"TOC");
    EXPECT_EQ(InstructionAt(document, 2), u"TOC");
}

TEST(ReadFields, AFieldInAnInstructionIsPartOfIt)
{
    const Document document =
        ReadSample(R"({\field{\*\fldinst IF {\field{\*\fldinst PAGE}{\fldrslt 1}} > 2}{\fldrslt yes}})");
    EXPECT_EQ(document.Text(), u"yes");
    EXPECT_EQ(InstructionAt(document, 0), u"IF {PAGE} > 2");
}

TEST(ReadFields, TwoEqualFieldsSideBySideAreTwo)
{
    const Document document =
        ReadSample(R"({\field{\*\fldinst PAGE}{\fldrslt 1}}{\field{\*\fldinst PAGE}{\fldrslt 1}})");
    EXPECT_EQ(document.Text(), u"11");
    EXPECT_EQ(InstructionAt(document, 0), InstructionAt(document, 1));
    EXPECT_FALSE(CharsAt(document, 0).field == CharsAt(document, 1).field);
}

TEST(ReadFields, AResultMayHoldParagraphs)
{
    const Document document = ReadSample(R"({\field{\*\fldinst X}{\fldrslt a\par b}}c)");
    EXPECT_EQ(document.Text(), u"a\r\nbc");
    EXPECT_EQ(document.FormatOf(document.ParagraphAt(1).FormatAt(0)).field->instruction, u"X");
    EXPECT_FALSE(document.FormatOf(document.ParagraphAt(1).FormatAt(1)).field);
}

TEST(ReadFields, SwitchesAreKept)
{
    const Document document = ReadSample(R"({\field\fldlock\fldedit{\*\fldinst PAGE}{\fldrslt 1}})");
    EXPECT_EQ(CharsAt(document, 0).field->switches, "\\fldlock\\fldedit");
}

TEST(ReadFields, APageNumberIsAFieldHoweverItIsWritten)
{
    for (const char* source :
         {R"(\chpgn )", R"({\field{\*\fldinst PAGE}{\fldrslt 1}})", R"({\field{\*\fldinst PAGE}})"})
    {
        const Document document = ReadSample(source);
        EXPECT_EQ(document.Text(), u"1") << source;
        EXPECT_EQ(InstructionAt(document, 0), u"PAGE") << source;
    }
}

TEST(ReadFields, ASymbolWithoutAResultIsItsCharacter)
{
    const Document document = ReadSample(R"(a{\field{\*\fldinst SYMBOL 183 \\f "Symbol" \\s 10}}b)");
    EXPECT_EQ(document.Text(), u"a\uF0B7b");
    EXPECT_EQ(CharsAt(document, 1).font, Name(u"Symbol"));
    EXPECT_EQ(CharsAt(document, 2).font, Name(u"Arial"));
}

TEST(ReadFields, WithoutAResultAFieldThatNobodyCanComputeIsNoText)
{
    EXPECT_EQ(ReadSample(R"(a{\field{\*\fldinst AUTHOR}}b)").Text(), u"ab");
    EXPECT_EQ(ReadSample(R"(a{\field{\*\fldinst AUTHOR}{\fldrslt}}b)").Text(), u"ab");
}

TEST(ReadFields, ResettingCharactersInAResultKeepsTheField)
{
    const Document document = ReadSample(R"({\field{\*\fldinst X}{\fldrslt \b a\plain b}})");
    EXPECT_EQ(InstructionAt(document, 1), u"X");
    EXPECT_FALSE(CharsAt(document, 1).bold);
}

}  // namespace
}  // namespace quillmarker
