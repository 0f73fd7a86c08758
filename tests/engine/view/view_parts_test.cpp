#include "support/sample.h"

#include "engine/view/caret_track.h"
#include "engine/view/key_table.h"
#include "engine/view/mouse_selection.h"
#include "engine/view/pre_edit.h"
#include "engine/view/shown_lines.h"

#include <gtest/gtest.h>

#include <set>

namespace quillmarker
{
namespace
{

TEST(TheTableOfKeys, HasARowForEachMotionAndAction)
{
    std::set<KeyAction> actions;
    std::set<std::pair<Motion, Extend>> motions;
    for (const KeyRow& row : KeyTable())
    {
        if (const auto* motion = std::get_if<KeyMotion>(&row.command))
            motions.insert({motion->motion, motion->extend});
        else
            actions.insert(std::get<KeyAction>(row.command));
    }
    EXPECT_EQ(actions.size(), static_cast<std::size_t>(KeyAction::SelectAll) + 1);
    // Every motion with and without Shift.
    EXPECT_EQ(motions.size() % 2, 0U);
    for (const auto& [motion, extend] : motions)
        EXPECT_TRUE(motions.contains({motion, extend == Extend::Yes ? Extend::No : Extend::Yes}));
}

TEST(TheTableOfKeys, LeavesLettersWithModifiersToTheHost)
{
    const auto types = [](int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        return TypesText(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    };
    EXPECT_TRUE(types(Qt::Key_A, Qt::NoModifier, QStringLiteral("a")));
    EXPECT_TRUE(types(Qt::Key_A, Qt::ShiftModifier, QStringLiteral("A")));
    EXPECT_TRUE(types(Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("@")));
    EXPECT_FALSE(types(Qt::Key_B, Qt::ControlModifier, QStringLiteral("b")));
    EXPECT_FALSE(types(Qt::Key_B, Qt::AltModifier, QStringLiteral("b")));
    EXPECT_FALSE(types(Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b")));
    EXPECT_FALSE(types(Qt::Key_F1, Qt::NoModifier, QString()));
}

TEST(TheTableOfKeys, KnowsTheKeypad)
{
    const QKeyEvent enter(QEvent::KeyPress, Qt::Key_Enter, Qt::KeypadModifier, QStringLiteral("\r"));
    ASSERT_TRUE(CommandOf(enter).has_value());
    EXPECT_EQ(std::get<KeyAction>(*CommandOf(enter)), KeyAction::NewParagraph);
}

TEST(TheCaretTrack, KeepsItsAnchorUntilTheBoxSelectsSomethingElse)
{
    CaretTrack track;
    track.SelectFromTo({7}, {{3}, LineSide::Before});
    EXPECT_EQ(track.Selected(), (Selection{3, 4}));
    EXPECT_FALSE(track.Follow({3, 4}));
    EXPECT_EQ(track.Caret(), (CaretPosition{{3}, LineSide::Before}));
    EXPECT_TRUE(track.Follow({3, 5}));
    EXPECT_EQ(track.Anchor(), Position{3});
    EXPECT_EQ(track.Caret(), (CaretPosition{{8}}));
}

FlowHit HitOn(int position) { return {{{position}}, {position}, true}; }

TEST(MouseSelections, GrowByTheirUnitInEitherDirection)
{
    const Document document = SampleDocument("one two three\nfour");
    MouseSelection mouse;
    EXPECT_EQ(mouse.Begin(document, HitOn(5), SelectionUnit::Word).anchor, Position{4});
    EXPECT_EQ(mouse.To(document, HitOn(5)).caret.position, Position{8});
    EXPECT_EQ(mouse.To(document, HitOn(9)).caret.position, Position{13});
    EXPECT_EQ(mouse.To(document, HitOn(1)), (DraggedSelection{{8}, {{0}}}));
    mouse.Begin(document, HitOn(5), SelectionUnit::Paragraph);
    EXPECT_EQ(mouse.To(document, HitOn(16)).caret.position, Position{19});
    mouse.Begin(document, HitOn(5), SelectionUnit::Character);
    EXPECT_EQ(mouse.To(document, HitOn(2)), (DraggedSelection{{5}, {{2}}}));
}

TEST(PreEditText, MovesThePositionsBehindTheCaret)
{
    SampleBox box("ab|cd");
    PreEdit preEdit;
    preEdit.Take(QInputMethodEvent(QStringLiteral("xyz"), {}));
    EXPECT_EQ(preEdit.Shown(box).Text(), u"abxyzcd");
    EXPECT_EQ(box.Text(), u"abcd");
    EXPECT_EQ(preEdit.ToShown({2}, {2}), Position{2});
    EXPECT_EQ(preEdit.ToShown({3}, {2}), Position{6});
    for (int at = 0; at <= 4; ++at)
        EXPECT_EQ(preEdit.FromShown(preEdit.ToShown({at}, {2}), {2}), Position{at});
    EXPECT_EQ(preEdit.FromShown({4}, {2}), Position{2});
}

ShownLines Made(std::initializer_list<ShownLine> lines)
{
    ShownLines made;
    for (const ShownLine& line : lines)
        made.Add(line);
    return made;
}

TEST(ShownLinesOfAView, DifferWhereTheyLookOrStandOtherwise)
{
    const ShownLines before = Made({{1, 0, 20}, {2, 20, 40}, {3, 40, 60}, {4, 60, 80}});
    EXPECT_TRUE(before.DifferenceFrom(before, 100).isEmpty());
    const QRegion one = Made({{1, 0, 20}, {9, 20, 40}, {3, 40, 60}, {4, 60, 80}}).DifferenceFrom(before, 100);
    EXPECT_TRUE(one.contains(QRect(0, 20, 100, 20)));
    EXPECT_FALSE(one.contains(QPoint(50, 10)));
    EXPECT_FALSE(one.contains(QPoint(50, 50)));
    const QRegion gone = Made({{1, 0, 20}, {2, 20, 40}, {4, 40, 60}}).DifferenceFrom(before, 100);
    EXPECT_TRUE(gone.contains(QPoint(50, 79)));
    EXPECT_FALSE(gone.contains(QPoint(50, 10)));
    const QRegion selected =
        Made({{1, 0, 20}, {2, 20, 40, 0, 5}, {3, 40, 60}, {4, 60, 80}}).DifferenceFrom(before, 100);
    EXPECT_TRUE(selected.contains(QPoint(50, 30)));
    ShownLines scrolled = before;
    scrolled.Scroll(-20);
    const QRegion exposed = Made({{2, 0, 20}, {3, 20, 40}, {4, 40, 60}, {5, 60, 80}}).DifferenceFrom(scrolled, 100);
    EXPECT_FALSE(exposed.contains(QPoint(50, 30)));
    EXPECT_TRUE(exposed.contains(QPoint(50, 70)));
}

}  // namespace
}  // namespace quillmarker
