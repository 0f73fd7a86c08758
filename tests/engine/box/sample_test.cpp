#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(Sample, IsWhatADumpOfItShows)
{
    for (const char* sample :
         {"|", "pay ^<b>tot</b>|al now", "^a\nb|", "a<b>\n</b>b|", "|<cell/>x<cell/><row/>", "a<pic/>^b|<i>c</i>",
          "<h>x</h>^<p>y</p>|", "<b>a<i>b</i></b><i>c</i>|", "\\^\\|\\<\\\\|", "ä\U0001F4C4|", "<u>a<s>b</s></u>|"})
        EXPECT_EQ(Dump(SampleBox(sample)), sample);
}

TEST(Sample, CarriesTheSelection)
{
    const SampleBox box("a\n^bc|d");
    EXPECT_EQ(box.Text(), u"a\r\nbcd");
    EXPECT_EQ(box.SelStart(), 3);
    EXPECT_EQ(box.SelLength(), 2);
    EXPECT_FALSE(box.CanUndo());
}

TEST(Sample, WithoutACaretStandsAtTheEnd)
{
    const SampleBox box("abc");
    EXPECT_EQ(box.SelStart(), 3);
    EXPECT_EQ(box.SelLength(), 0);
}

TEST(Sample, CellsRowsAndPicturesTakeTheirRoom)
{
    EXPECT_EQ(SampleDocument("a<cell/><cell/><row/><pic/>b").Text(), u"a\t\t\r\n b");
    EXPECT_THROW(SampleDocument("<strong>a</strong>"), std::invalid_argument);
}

}  // namespace
}  // namespace quillmarker
