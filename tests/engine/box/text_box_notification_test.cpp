#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

// A box that writes down what it raises: C for Change, S for SelChange.
class ListeningBox : public SampleBox
{
public:
    explicit ListeningBox(std::string_view sample) : SampleBox(sample)
    {
        Change = [this] { m_raised += 'C'; };
        SelChange = [this] { m_raised += 'S'; };
    }

    std::string Taken() { return std::exchange(m_raised, {}); }

private:
    std::string m_raised;
};

TEST(Notifications, AnEditRaisesChangeOnceAndThenTheSelection)
{
    ListeningBox box("a^b|c");
    box.SetSelText(u"x\ny\nz");
    EXPECT_EQ(box.Taken(), "CS");
    box.SetSelRTF(u"{\\rtf1{\\b a}\\par{\\i b}\\par}");
    EXPECT_EQ(box.Taken(), "CS");
    box.Type(u"x");
    EXPECT_EQ(box.Taken(), "CS");
    box.TypeBackspace();
    EXPECT_EQ(box.Taken(), "CS");
    box.TypeDelete();
    EXPECT_EQ(box.Taken(), "C");  // the caret stays
    box.Undo();
    EXPECT_EQ(box.Taken().substr(0, 1), "C");
}

TEST(Notifications, AFormatRaisesChangeAlone)
{
    ListeningBox box("a^b|c");
    box.SetSelBold(true);
    EXPECT_EQ(box.Taken(), "C");
    box.SetSelAlignment(kAlignCentre);
    EXPECT_EQ(box.Taken(), "C");
    box.SetSelBullet(true);
    EXPECT_EQ(box.Taken(), "C");
}

TEST(Notifications, WhatChangesNothingRaisesNothing)
{
    ListeningBox box("a^<b>b</b>|c");
    box.SetSelBold(true);
    box.SetSelIndent(0);
    box.SetSelBullet(0);
    box.SetSelStart(-1);
    box.SetSelLength(1);
    box.SetSelFontSize(0);
    box.Find(u"nowhere");
    box.SetRightMargin(100);
    box.SetMaxLength(3);
    EXPECT_EQ(box.Taken(), "");
}

TEST(Notifications, ASelectionRaisesOnlyWhenItChanges)
{
    ListeningBox box("|abc");
    box.SetSelStart(1);
    EXPECT_EQ(box.Taken(), "S");
    box.SetSelStart(1);
    EXPECT_EQ(box.Taken(), "");
    box.SetSelLength(2);
    EXPECT_EQ(box.Taken(), "S");
    box.SetSelStart(1);  // nothing selected any more
    EXPECT_EQ(box.Taken(), "S");
    box.SetSelStart(900);
    EXPECT_EQ(box.Taken(), "S");
    box.SetSelStart(901);
    EXPECT_EQ(box.Taken(), "");
    EXPECT_EQ(box.Find(u"b", 0), 1);
    EXPECT_EQ(box.Taken(), "S");
}

TEST(Notifications, OpeningAndPuttingAWholeRaiseChange)
{
    ListeningBox box("abc|");
    box.SetText(u"x");
    EXPECT_EQ(box.Taken(), "CS");
    box.SetTextRTF(u"{\\rtf1 y\\par}");
    EXPECT_EQ(box.Taken(), "C");
    box.OpenValue(SampleDocument("z"));
    EXPECT_EQ(box.Taken(), "C");
}

TEST(Notifications, AreRaisedWhenTheEditIsDone)
{
    SampleBox box("a|b");
    std::string seen;
    box.Change = [&] { seen = Dump(box); };
    box.SetSelText(u"x");
    EXPECT_EQ(seen, "ax|b");
    box.Undo();
    EXPECT_EQ(seen, "a|b");
}

TEST(Notifications, AHandlerMayEdit)
{
    SampleBox box("|");
    int changes = 0;
    box.Change = [&] {
        if (++changes < 4)
            box.SetSelText(u"x");
    };
    box.SetSelText(u"a");
    EXPECT_EQ(Dump(box), "axxx|");
    EXPECT_EQ(changes, 4);
    box.Change = nullptr;
    box.Undo();
    EXPECT_EQ(Dump(box), "axx|");
}

TEST(Notifications, AHandlerMayMoveTheCaret)
{
    SampleBox box("abc|");
    int raised = 0;
    box.SelChange = [&] {
        ++raised;
        box.SetSelStart(1);
    };
    box.SetSelStart(0);
    EXPECT_EQ(Dump(box), "a|bc");
    EXPECT_EQ(raised, 2);
}

TEST(Notifications, AHandlerMayReplaceItself)
{
    SampleBox box("|");
    std::string raised;
    const std::string kept = "still here, in memory of the handler that is replaced";
    box.Change = [&box, &raised, kept] {
        box.Change = [&raised] { raised += "second "; };
        raised += kept.substr(0, 5) + " ";
    };
    box.SetSelText(u"a");
    box.SetSelText(u"b");
    EXPECT_EQ(raised, "still second ");
}

TEST(Notifications, AHandlerMayRemoveItself)
{
    SampleBox box("|");
    int raised = 0;
    box.Change = [&] {
        ++raised;
        box.Change = nullptr;
    };
    box.SetSelText(u"a");
    box.SetSelText(u"b");
    EXPECT_EQ(raised, 1);
}

TEST(Notifications, AHandlerMayUndoWhatWasJustDone)
{
    SampleBox box("a|");
    bool isFirst = true;
    box.Change = [&] {
        if (std::exchange(isFirst, false))
            box.Undo();
    };
    box.SetSelText(u"b");
    EXPECT_EQ(Dump(box), "a|");
    EXPECT_TRUE(box.CanRedo());
}

TEST(Notifications, AValueTakenInAHandlerStaysAsItWas)
{
    SampleBox box("a|");
    std::vector<Document> versions;
    box.Change = [&] { versions.push_back(box.Value()); };
    for (const char16_t* text : {u"b", u"c", u"d"})
        box.SetSelText(text);
    ASSERT_EQ(versions.size(), 3U);
    EXPECT_EQ(versions[0].Text(), u"ab");
    EXPECT_EQ(versions[1].Text(), u"abc");
    EXPECT_EQ(versions[2].Text(), u"abcd");
}

}  // namespace
}  // namespace quillmarker
