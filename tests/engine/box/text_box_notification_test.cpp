#include "support/sample.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>

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

// Every member that goes through an edit or a move of the selection, on a box that its handlers destroy.
TEST(Notifications, AHandlerMayDestroyTheBox)
{
    using Member = void (*)(TextBox&);
    const Member members[] = {
        [](TextBox& box) { box.SetText(u"x"); },
        [](TextBox& box) { box.SetTextRTF(u"{\\rtf1 x}"); },
        [](TextBox& box) { box.SetSelStart(5); },
        [](TextBox& box) { box.SetSelLength(0); },
        [](TextBox& box) { box.SetSelText(u"x"); },
        [](TextBox& box) { box.SetSelRTF(u"{\\rtf1 x}"); },
        [](TextBox& box) { box.Find(u"d"); },
        [](TextBox& box) { box.Span(u"d "); },
        [](TextBox& box) { box.UpTo(u"e"); },
        [](TextBox& box) { box.SetSelBold(1); },
        [](TextBox& box) { box.SetSelBullet(1); },
        [](TextBox& box) { box.SetSelTabCount(2); },
        [](TextBox& box) { box.SetSelTabs(0, 500); },
        [](TextBox& box) { box.Type(u"x"); },
        [](TextBox& box) { box.TypeBackspace(); },
        [](TextBox& box) { box.TypeDelete(); },
        [](TextBox& box) { box.PasteText(u"x"); },
        [](TextBox& box) { box.PasteRTF(u"{\\rtf1 x}"); },
        [](TextBox& box) { box.Undo(); },
        [](TextBox& box) { box.Redo(); },
        [](TextBox& box) { box.SetValue(Document()); },
        [](TextBox& box) { box.OpenValue(Document()); },
    };
    for (std::size_t i = 0; i < std::size(members); ++i)
    {
        int destroyed = 0;
        for (auto handler : {&TextBox::Change, &TextBox::SelChange})
        {
            SCOPED_TRACE(i);
            auto box = std::make_unique<SampleBox>("ab ^c|d e");
            box->SetSelTabCount(1);
            box->SetSelText(u"X");
            box->SetSelText(u"Y");
            box->Undo();
            box->SetSelStart(3);
            box->SetSelLength(1);
            int raised = 0;
            (*box).*handler = [&] {
                ++raised;
                box.reset();
            };
            members[i](*box);
            EXPECT_LE(raised, 1);
            EXPECT_EQ(box == nullptr, raised == 1);
            destroyed += raised;
        }
        EXPECT_GT(destroyed, 0) << i;
    }
}

TEST(Notifications, NobodyHearsOfTheSelectionOfABoxThatIsGone)
{
    auto box = std::make_unique<SampleBox>("a|b");
    int selections = 0;
    box->SelChange = [&] { ++selections; };
    box->Change = [&] { box.reset(); };
    box->SetSelText(u"x");
    EXPECT_EQ(box, nullptr);
    EXPECT_EQ(selections, 0);
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
