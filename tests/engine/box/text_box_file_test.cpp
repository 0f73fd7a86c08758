#include "file_store_sample.h"
#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using std::string_literals::operator""s;

class TextBoxFiles : public FileStore
{
protected:
    // The text that a file of these bytes gives.
    std::u16string Loaded(std::string_view bytes, FileKind kind = FileKind::Text) const
    {
        TextBox box;
        EXPECT_EQ(box.LoadFile(Made("in", bytes), kind), FileError::None);
        return box.Text();
    }
};

TEST_F(TextBoxFiles, RtfIsReadAndWritten)
{
    SampleBox box("a<b>b\n</b>c<cell/><row/><pic/><h>h</h>|");
    ASSERT_EQ(box.SaveFile(In("out.rtf")), FileError::None);
    EXPECT_TRUE(Bytes(In("out.rtf")).starts_with("{\\rtf1"));
    TextBox other;
    ASSERT_EQ(other.LoadFile(In("out.rtf")), FileError::None);
    EXPECT_TRUE(SameContent(other.Value(), box.Value())) << Dump(other.Value()) << "\nwas\n" << Dump(box.Value());
    EXPECT_EQ(other.SelStart(), 0);
}

TEST_F(TextBoxFiles, WritingWhatWasReadGivesTheSameBytes)
{
    SampleBox box("a<b>b\n</b>c<cell/><row/><pic/>|");
    ASSERT_EQ(box.SaveFile(In("one.rtf")), FileError::None);
    TextBox other;
    ASSERT_EQ(other.LoadFile(In("one.rtf")), FileError::None);
    ASSERT_EQ(other.SaveFile(In("two.rtf")), FileError::None);
    EXPECT_EQ(Bytes(In("one.rtf")), Bytes(In("two.rtf")));
}

TEST_F(TextBoxFiles, ALoadedFileLeavesNoHistory)
{
    SampleBox box("a|");
    box.SetSelText(u"b");
    box.SetSelText(u"c");
    box.Undo();
    ASSERT_EQ(box.LoadFile(Made("in.rtf", "{\\rtf1 x\\par}")), FileError::None);
    EXPECT_FALSE(box.CanUndo() || box.CanRedo());
    EXPECT_EQ(Dump(box), "|x");
}

TEST_F(TextBoxFiles, AFileThatCannotBeReadChangesNothing)
{
    SampleBox box("a^b|c");
    box.SetSelBold(true);
    int raised = 0;
    box.Change = box.SelChange = [&] { ++raised; };
    EXPECT_EQ(box.LoadFile(In("missing.rtf")), FileError::FileNotFound);
    EXPECT_EQ(box.LoadFile(In("missing/in.rtf")), FileError::PathNotFound);
    EXPECT_NE(box.LoadFile(In("")), FileError::None);
    EXPECT_EQ(Dump(box), "a^<b>b</b>|c");
    EXPECT_TRUE(box.CanUndo());
    EXPECT_EQ(raised, 0);
}

TEST_F(TextBoxFiles, AByteOrderMarkDecides)
{
    EXPECT_EQ(Loaded("\xEF\xBB\xBF\xC3\xA4"), u"\u00E4");
    EXPECT_EQ(Loaded("\xFF\xFE\xE4\x00\xAC\x20"s), u"\u00E4\u20AC");
    EXPECT_EQ(Loaded("\xFE\xFF\x00\xE4\x20\xAC"s), u"\u00E4\u20AC");
}

TEST_F(TextBoxFiles, ValidUtf8IsUtf8AndAllElseTheCodePage)
{
    EXPECT_EQ(Loaded("\xC3\xA4 \xE2\x82\xAC"), u"\u00E4 \u20AC");
    EXPECT_EQ(Loaded("\xE4 \x80"), u"\u00E4 \u20AC");
    EXPECT_EQ(Loaded("plain"), u"plain");
    EXPECT_EQ(Loaded(""), u"");
}

TEST_F(TextBoxFiles, LineEndsOfAnyKindAreOne)
{
    EXPECT_EQ(Loaded("a\nb\rc\r\nd\n"), u"a\r\nb\r\nc\r\nd\r\n");
    EXPECT_EQ(Loaded("\xFF\xFE\x61\x00\x0A\x00\x62\x00"s), u"a\r\nb");
}

TEST_F(TextBoxFiles, TextThatLooksLikeRtfIsTextWhenAskedForAsText)
{
    EXPECT_EQ(Loaded("{\\rtf1 x\\par}"), u"{\\rtf1 x\\par}");
    EXPECT_EQ(Loaded("no rtf", FileKind::Rtf), u"no rtf");
}

TEST_F(TextBoxFiles, TextIsWrittenAsUtf8WithWholeLineEnds)
{
    const SampleBox box("\u00E4\U0001F4C4\n<b>b</b><cell/><row/>c<pic/>");
    ASSERT_EQ(box.SaveFile(In("out.txt"), FileKind::Text), FileError::None);
    EXPECT_EQ(Bytes(In("out.txt")), "\xC3\xA4\xF0\x9F\x93\x84\r\nb\t\r\nc ");
    EXPECT_EQ(Loaded(Bytes(In("out.txt"))), box.Text());
}

TEST_F(TextBoxFiles, LoadedTextIsInTheBoxesFont)
{
    TextBox box;
    box.SetFont({.name = u"Georgia", .size = 12});
    ASSERT_EQ(box.LoadFile(Made("in.txt", "abc"), FileKind::Text), FileError::None);
    box.SetSelLength(3);
    EXPECT_EQ(box.SelFontName(), u"Georgia");
    EXPECT_EQ(box.SelFontSize(), 12.0F);
}

TEST_F(TextBoxFiles, WhatCannotBeWrittenSaysSo)
{
    const SampleBox box("abc");
    EXPECT_EQ(box.SaveFile(In("missing/out.rtf")), FileError::PathNotFound);
}

}  // namespace
}  // namespace quillmarker
