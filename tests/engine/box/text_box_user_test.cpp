#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(Typing, GoesToTheCaretAndOverTheSelection)
{
    SampleBox box("a^b|c");
    EXPECT_TRUE(box.Type(u"xy"));
    EXPECT_EQ(Dump(box), "axy|c");
    EXPECT_TRUE(box.Type(u"\n"));
    EXPECT_EQ(Dump(box), "axy\n|c");
}

TEST(Typing, BackspaceAndDeleteTakeOneCharacter)
{
    SampleBox box("a\n\U0001F4C4|\U0001F4C4\nb");
    EXPECT_TRUE(box.TypeBackspace());
    EXPECT_EQ(Dump(box), "a\n|\U0001F4C4\nb");
    EXPECT_TRUE(box.TypeBackspace());
    EXPECT_EQ(Dump(box), "a|\U0001F4C4\nb");
    EXPECT_TRUE(box.TypeDelete());
    EXPECT_EQ(Dump(box), "a|\nb");
    EXPECT_TRUE(box.TypeDelete());
    EXPECT_EQ(Dump(box), "a|b");
}

TEST(Typing, BackspaceAndDeleteTakeTheSelection)
{
    SampleBox box("a^bc|d");
    EXPECT_TRUE(box.TypeBackspace());
    EXPECT_EQ(Dump(box), "a|d");
    SampleBox other("a^bc|d");
    EXPECT_TRUE(other.TypeDelete());
    EXPECT_EQ(Dump(other), "a|d");
}

TEST(Typing, NothingIsTakenAtTheEnds)
{
    SampleBox box("|a");
    EXPECT_FALSE(box.TypeBackspace());
    box.SetSelStart(1);
    EXPECT_FALSE(box.TypeDelete());
    EXPECT_EQ(Dump(box), "a|");
}

TEST(Typing, KeysDoNotTakeTheEndOfACell)
{
    SampleBox box("a<cell/>|b<cell/><row/>");
    EXPECT_FALSE(box.TypeBackspace());
    box.SetSelStart(3);
    EXPECT_FALSE(box.TypeDelete());
    EXPECT_EQ(Dump(box), "a<cell/>b|<cell/><row/>");
}

TEST(Typing, AfterADeletionLooksLikeWhatWasDeleted)
{
    SampleBox box("a<b>b</b>|c");
    EXPECT_TRUE(box.TypeBackspace());
    EXPECT_TRUE(box.Type(u"x"));
    EXPECT_EQ(Dump(box), "a<b>x</b>|c");
}

TEST(Pasting, PutsFragmentsAndObjectsOverTheSelection)
{
    SampleBox box("a^b|c");
    EXPECT_TRUE(box.PasteFragment(SampleDocument("x<b>y</b>\nz")));
    EXPECT_EQ(Dump(box), "ax<b>y</b>\nz|c");
    box.SetSelStart(0);
    box.SetSelLength(1);
    EXPECT_TRUE(box.PasteObject(SamplePicture()));
    EXPECT_EQ(Dump(box), "<pic/>|x<b>y</b>\nzc");
    box.Undo();
    EXPECT_EQ(Dump(box), "^a|x<b>y</b>\nzc");
}

TEST(Pasting, BytesHaveTheCodePageThatTheyState)
{
    SampleBox box("a|");
    EXPECT_TRUE(box.PasteRTFBytes("{\\rtf1\\ansicpg1251 \xEF}"));
    EXPECT_EQ(box.Text(), u"a\u043F");
}

TEST(Pasting, AFragmentIsReadWithTheFontOfThePlace)
{
    SampleBox box("a^b|c");
    box.SetSelFontName(u"Courier New");
    box.SetSelFontSize(7.5F);
    EXPECT_EQ(box.ReadingHere().defaultFormat.font.Text(), u"Courier New");
    EXPECT_EQ(box.ReadingHere().defaultFormat.size, Twips{150});
    EXPECT_EQ(box.ReadingHere().formats, box.Value().FormatsPointer());
}

TEST(MaxLength, CutsWhatIsTypedAndPasted)
{
    SampleBox box("abc|");
    box.SetMaxLength(5);
    EXPECT_FALSE(box.Type(u"xyz"));
    EXPECT_EQ(Dump(box), "abcxy|");
    EXPECT_FALSE(box.Type(u"z"));
    EXPECT_FALSE(box.PasteText(u"z"));
    EXPECT_FALSE(box.PasteRTF(u"{\\rtf1 z}"));
    EXPECT_EQ(Dump(box), "abcxy|");
    box.SetSelStart(0);
    box.SetSelLength(2);
    EXPECT_FALSE(box.PasteRTF(u"{\\rtf1{\\b 123}}"));
    EXPECT_EQ(Dump(box), "<b>12</b>|cxy");
    EXPECT_FALSE(box.PasteObject(SamplePicture()));
    EXPECT_EQ(Dump(box), "<b>12</b>|cxy");
}

TEST(MaxLength, CutsNeitherALineEndNorAPair)
{
    SampleBox box("abc|");
    box.SetMaxLength(4);
    EXPECT_FALSE(box.Type(u"\n"));
    EXPECT_FALSE(box.Type(u"\U0001F4C4"));
    EXPECT_FALSE(box.PasteText(u"\r\n"));
    EXPECT_EQ(Dump(box), "abc|");
    box.SetMaxLength(5);
    EXPECT_TRUE(box.Type(u"\n"));
    EXPECT_EQ(Dump(box), "abc\n|");
}

TEST(MaxLength, CountsOnlyWhatIsPutIn)
{
    using namespace std::string_view_literals;
    SampleBox box("abc|");
    box.SetMaxLength(6);
    EXPECT_FALSE(box.PasteText(u"\0\0x\0\0\0yz-"sv));
    EXPECT_EQ(Dump(box), "abcxyz|");
}

TEST(MaxLength, DoesNotLimitTheHost)
{
    SampleBox box("abc|");
    box.SetMaxLength(4);
    box.SetSelText(u"defgh");
    EXPECT_EQ(Dump(box), "abcdefgh|");
    EXPECT_FALSE(box.Type(u"x"));
    EXPECT_TRUE(box.TypeBackspace());
    box.SetText(u"0123456789");
    EXPECT_EQ(box.TextLength(), 10);
}

TEST(MaxLength, OfZeroIsNone)
{
    SampleBox box("abc|");
    box.SetMaxLength(0);
    EXPECT_TRUE(box.PasteText(std::u16string(100000, u'x')));
}

TEST(Locked, RefusesTheUserAndNotTheHost)
{
    SampleBox box("a^b|c");
    box.SetLocked(true);
    EXPECT_FALSE(box.Type(u"x"));
    EXPECT_FALSE(box.TypeBackspace());
    EXPECT_FALSE(box.TypeDelete());
    EXPECT_FALSE(box.PasteText(u"x"));
    EXPECT_FALSE(box.PasteRTF(u"{\\rtf1 x}"));
    EXPECT_FALSE(box.PasteRTFBytes("{\\rtf1 x}"));
    EXPECT_FALSE(box.PasteFragment(SampleDocument("x")));
    EXPECT_FALSE(box.PasteObject(SamplePicture()));
    EXPECT_EQ(Dump(box), "a^b|c");
    box.SetSelText(u"x");
    box.SetSelRTF(u"{\\rtf1 y}");
    EXPECT_EQ(Dump(box), "axy|c");
    box.SetLocked(false);
    EXPECT_TRUE(box.Type(u"z"));
}

void ExpectRefused(std::string_view sample)
{
    SampleBox box(sample);
    EXPECT_FALSE(box.Type(u"x")) << sample;
    EXPECT_FALSE(box.PasteText(u"x")) << sample;
    EXPECT_FALSE(box.PasteRTF(u"{\\rtf1 x}")) << sample;
    EXPECT_FALSE(box.PasteFragment(SampleDocument("x"))) << sample;
    EXPECT_FALSE(box.PasteObject(SamplePicture())) << sample;
    EXPECT_EQ(Dump(box), sample);
}

TEST(ProtectedText, IsNotChangedByTheUser)
{
    ExpectRefused("a^<p>b</p>|c");
    ExpectRefused("^a<p>b</p>c|");
    ExpectRefused("a^<p>b|c</p>");
    ExpectRefused("<p>b|c</p>");
}

TEST(ProtectedText, GoesOnFromOneParagraphToTheNext)
{
    ExpectRefused("<p>a|\nb</p>");
    ExpectRefused("<p>a\n|b</p>");
}

TEST(ProtectedText, IsNotTakenByKeys)
{
    SampleBox box("a<p>b</p>|c");
    EXPECT_FALSE(box.TypeBackspace());
    box.SetSelStart(1);
    EXPECT_FALSE(box.TypeDelete());
    EXPECT_TRUE(box.TypeBackspace());
    EXPECT_EQ(Dump(box), "|<p>b</p>c");
}

TEST(ProtectedText, MayBeWrittenBesideAndWhatIsWrittenIsNotProtected)
{
    SampleBox box("a<p>b</p>|c");
    EXPECT_TRUE(box.Type(u"x"));
    EXPECT_EQ(Dump(box), "a<p>b</p>x|c");
    box.SetSelStart(1);
    EXPECT_TRUE(box.Type(u"y"));
    EXPECT_EQ(Dump(box), "ay|<p>b</p>xc");
    SampleBox start("|<p>b</p>");
    EXPECT_TRUE(start.Type(u"x"));
    EXPECT_EQ(Dump(start), "x|<p>b</p>");
    SampleBox pasted("<p>b</p>|");
    EXPECT_TRUE(pasted.PasteText(u"x"));
    EXPECT_EQ(Dump(pasted), "<p>b</p>x|");
    EXPECT_TRUE(pasted.PasteObject(SamplePicture()));
    EXPECT_EQ(Dump(pasted), "<p>b</p>x<pic/>|");
}

TEST(ProtectedText, IsChangedByTheHost)
{
    SampleBox box("a^<p>b</p>|c");
    box.SetSelBold(true);
    EXPECT_EQ(Dump(box), "a^<p><b>b</b></p>|c");
    box.SetSelProtected(0);
    box.SetSelText(u"x");
    EXPECT_EQ(Dump(box), "a<b>x</b>|c");
    SampleBox other("^a<p>b</p>c|");
    other.SetSelText(u"");
    EXPECT_EQ(other.Text(), u"");
}

TEST(Typing, BehindWhatWasDeletedIsHiddenOnlyInsideOfHiddenText)
{
    SampleBox box("a<h>b</h>|c");
    box.TypeBackspace();
    box.Type(u"x");
    EXPECT_EQ(Dump(box), "ax|c");
    SampleBox inside("<h>ab|c</h>");
    inside.TypeBackspace();
    inside.Type(u"x");
    EXPECT_EQ(Dump(inside), "<h>ax|c</h>");
}

TEST(Typing, BehindWhatWasDeletedIsInAFieldOnlyInsideOfIt)
{
    const auto typedAfterDeleting = [](TextRange range) {
        TextBox box;
        box.SetTextRTF(u"{\\rtf1 a{\\field{\\*\\fldinst HYPERLINK \"http://example.org/\"}{\\fldrslt bcd}}e}");
        box.Select({range.begin.value, range.Length()});
        box.TypeDelete();
        box.Type(u"x");
        box.Select({range.begin.value, 1});
        const Location at = box.Value().Locate(range.begin);
        const Paragraph& paragraph = box.Value().ParagraphAt(at.paragraph);
        EXPECT_EQ(paragraph.Text()[static_cast<std::size_t>(at.offset)], u'x');
        return static_cast<bool>(box.Value().FormatOf(paragraph.FormatAt(static_cast<std::uint32_t>(at.offset))).field);
    };
    EXPECT_FALSE(typedAfterDeleting({{1}, {4}}));
    EXPECT_FALSE(typedAfterDeleting({{1}, {2}}));
    EXPECT_FALSE(typedAfterDeleting({{3}, {4}}));
    EXPECT_TRUE(typedAfterDeleting({{2}, {3}}));
}

}  // namespace
}  // namespace quillmarker
