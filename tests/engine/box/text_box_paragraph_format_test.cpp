#include "support/sample.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmarker
{
namespace
{

const ParagraphFormat& FormatOf(const TextBox& box, std::int32_t paragraph)
{
    return box.Value().FormatOf(box.Value().ParagraphAt(paragraph).Ending().format);
}

TEST(ParagraphIndents, AreTheFirstLinesDistanceAndTheOthersRelativeToIt)
{
    SampleBox box("a|");
    box.SetSelIndent(360);
    box.SetSelHangingIndent(200);
    EXPECT_EQ(FormatOf(box, 0).leftIndent, Twips{560});
    EXPECT_EQ(FormatOf(box, 0).firstIndent, Twips{-200});
    EXPECT_EQ(box.SelIndent(), 360);
    EXPECT_EQ(box.SelHangingIndent(), 200);
}

TEST(ParagraphIndents, OfRtfAreReadThatWay)
{
    TextBox box;
    box.SetTextRTF(u"{\\rtf1\\pard\\fi-360\\li720 a\\par}");
    EXPECT_EQ(box.SelIndent(), 360);
    EXPECT_EQ(box.SelHangingIndent(), 360);
}

TEST(ParagraphIndents, OneLeavesTheOtherAsItWas)
{
    SampleBox box("a|");
    box.SetSelHangingIndent(-300);  // the first line stands further in
    box.SetSelIndent(1000);
    box.SetSelIndent(500);
    EXPECT_EQ(box.SelHangingIndent(), -300);
    EXPECT_EQ(FormatOf(box, 0).leftIndent, Twips{200});
    box.SetSelHangingIndent(50);
    EXPECT_EQ(box.SelIndent(), 500);
    box.SetSelRightIndent(77);
    EXPECT_EQ(box.SelRightIndent(), 77);
    EXPECT_EQ(box.SelIndent(), 500);
}

TEST(ParagraphIndents, AreMixedWhereParagraphsDiffer)
{
    SampleBox box("a|\nb\nc");
    box.SetSelIndent(100);
    box.SetSelRightIndent(50);
    box.SetSelStart(0);
    box.SetSelLength(4);
    EXPECT_EQ(box.SelIndent(), std::nullopt);
    EXPECT_EQ(box.SelRightIndent(), std::nullopt);
    EXPECT_EQ(box.SelHangingIndent(), 0);
    box.SetSelIndent(40);
    EXPECT_EQ(FormatOf(box, 0).leftIndent, Twips{40});
    EXPECT_EQ(FormatOf(box, 1).leftIndent, Twips{40});
    EXPECT_EQ(FormatOf(box, 2).leftIndent, Twips{0});
}

TEST(ParagraphIndents, HugeOnesDoNotOverflow)
{
    SampleBox box("a|");
    box.SetSelIndent(std::numeric_limits<std::int32_t>::max());
    EXPECT_GT(box.SelIndent(), 30000);
    box.SetSelHangingIndent(std::numeric_limits<std::int32_t>::max());
    EXPECT_GT(box.SelHangingIndent(), 30000);
    box.SetSelIndent(std::numeric_limits<std::int32_t>::min());
    EXPECT_LE(box.SelIndent(), 0);
    EXPECT_GE(FormatOf(box, 0).leftIndent, Twips{-10'000'000});
}

TEST(ParagraphAlignment, IsOneOfFour)
{
    SampleBox box("a|");
    for (const int alignment : {kAlignRight, kAlignCentre, kAlignJustify, kAlignLeft})
    {
        box.SetSelAlignment(alignment);
        EXPECT_EQ(box.SelAlignment(), alignment);
    }
    box.SetSelAlignment(kAlignCentre);
    box.SetSelAlignment(4);
    box.SetSelAlignment(-1);
    EXPECT_EQ(box.SelAlignment(), kAlignCentre);
}

TEST(ParagraphAlignment, TouchesEveryParagraphOfTheSelection)
{
    SampleBox box("a\n^b\n|c");
    box.SetSelAlignment(kAlignRight);
    EXPECT_EQ(FormatOf(box, 0).alignment, Alignment::Left);
    EXPECT_EQ(FormatOf(box, 1).alignment, Alignment::Right);
    EXPECT_EQ(FormatOf(box, 2).alignment, Alignment::Left);
    box.SetSelStart(0);
    box.SetSelLength(box.TextLength());
    EXPECT_EQ(box.SelAlignment(), std::nullopt);
}

TEST(Bullets, HangByTheBulletIndent)
{
    SampleBox box("a|");
    box.SetBulletIndent(400);
    box.SetSelIndent(100);
    box.SetSelBullet(-1);
    EXPECT_EQ(box.SelBullet(), true);
    EXPECT_EQ(box.SelIndent(), 100);
    EXPECT_EQ(box.SelHangingIndent(), 400);
    box.SetSelBullet(0);
    EXPECT_EQ(box.SelBullet(), false);
    EXPECT_EQ(box.SelIndent(), 100);
    EXPECT_EQ(box.SelHangingIndent(), 0);
}

TEST(Bullets, OverMixedHangingIndentsLeaveEachParagraphsOwn)
{
    SampleBox box("a|\nb");
    box.SetSelHangingIndent(200);
    box.SetSelStart(0);
    box.SetSelLength(box.TextLength());
    box.SetSelBullet(1);
    EXPECT_EQ(FormatOf(box, 0).firstIndent, Twips{-200});
    EXPECT_EQ(FormatOf(box, 1).firstIndent, Twips{0});
    EXPECT_EQ(box.SelBullet(), true);
    box.SetSelBullet(0);
    EXPECT_EQ(FormatOf(box, 0).firstIndent, Twips{-200});
    EXPECT_EQ(FormatOf(box, 1).firstIndent, Twips{0});
}

TEST(Bullets, AreMixedWhereOnlySomeParagraphsHaveOne)
{
    SampleBox box("a|\nb");
    box.SetSelBullet(1);
    box.SetSelLength(2);
    EXPECT_EQ(box.SelBullet(), true);
    box.SetSelStart(0);
    box.SetSelLength(box.TextLength());
    EXPECT_EQ(box.SelBullet(), std::nullopt);
}

TEST(Bullets, SurviveRtf)
{
    SampleBox box("a|\nb");
    box.SetSelBullet(1);
    const Document before = box.Value();
    box.SetTextRTF(box.TextRTF());
    EXPECT_TRUE(SameContent(box.Value(), before));
    EXPECT_EQ(box.Text(), u"a\r\nb");
    EXPECT_EQ(box.SelBullet(), true);
}

TEST(Bullets, ANumberIsNotABullet)
{
    TextBox box;
    box.SetTextRTF(u"{\\rtf1\\pard{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}a\\par}");
    EXPECT_EQ(box.SelBullet(), false);
}

TEST(BoxProperties, NegativeOnesAreRefused)
{
    TextBox box;
    box.SetBulletIndent(100);
    box.SetBulletIndent(-1);
    EXPECT_EQ(box.BulletIndent(), 100);
    box.SetRightMargin(9000);
    box.SetRightMargin(-1);
    EXPECT_EQ(box.RightMargin(), 9000);
    box.SetMaxLength(-5);
    EXPECT_EQ(box.MaxLength(), 0);
}

TEST(BoxProperties, FontWithoutANameOrASizeIsRefused)
{
    TextBox box;
    box.SetFont({.name = u"", .size = 12});
    box.SetFont({.name = u"Georgia", .size = 0});
    EXPECT_EQ(box.Font(), BoxFont());
}

}  // namespace
}  // namespace quillmarker
