#include "shown_view.h"

namespace quillmarker
{
namespace
{

TEST(CaretKeys, GoByCharacterWordAndLine)
{
    ShownView view("one two\nthree|");
    view.Press(Qt::Key_Left);
    EXPECT_EQ(Dump(view), "one two\nthre|e");
    view.Press(Qt::Key_Home);
    EXPECT_EQ(Dump(view), "one two\n|three");
    view.Press(Qt::Key_Left);
    EXPECT_EQ(Dump(view), "one two|\nthree");
    view.Press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one |two\nthree");
    view.Press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one two|\nthree");
    view.Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "|one two\nthree");
    view.Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one two\nthree|");
}

TEST(CaretKeys, WithShiftTheySelectFromTheAnchor)
{
    ShownView view("one two|");
    view.PressTimes(3, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(Dump(view), "one |two^");
    view.Press(Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "|one two^");
    view.Press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Dump(view), "o|ne two^");
}

TEST(CaretKeys, AStepOutOfASelectionGoesToItsEnd)
{
    ShownView view("one ^two| three");
    view.Press(Qt::Key_Left);
    EXPECT_EQ(Dump(view), "one |two three");
    view.PressTimes(3, Qt::Key_Right, Qt::ShiftModifier);
    view.Press(Qt::Key_Right);
    EXPECT_EQ(Dump(view), "one two| three");
}

TEST(CaretKeys, UpAndDownKeepTheColumn)
{
    ShownView view("mmmm|mm\nm\nmmmmmm");
    view.Press(Qt::Key_Down);
    EXPECT_EQ(Dump(view), "mmmmmm\nm|\nmmmmmm");
    view.Press(Qt::Key_Down);
    EXPECT_EQ(Dump(view), "mmmmmm\nm\nmmmm|mm");
    view.PressTimes(2, Qt::Key_Up);
    EXPECT_EQ(Dump(view), "mmmm|mm\nm\nmmmmmm");
}

TEST(CaretKeys, EndOfAWrappedLineIsSeenInThatLine)
{
    ShownView view("|aaaa aaaa aaaa aaaa aaaa aaaa aaaa aaaa", {120, 200});
    const int top = view.CaretRectangle().top();
    view.Press(Qt::Key_End);
    EXPECT_GT(view.CaretOffset(), 5);
    EXPECT_LT(view.CaretOffset(), 39);
    EXPECT_EQ(view.CaretRectangle().top(), top);
    EXPECT_GT(view.CaretRectangle().left(), 60);
    const int end = view.CaretOffset();
    view.Press(Qt::Key_Home);
    EXPECT_EQ(view.CaretOffset(), 0);
    view.Press(Qt::Key_Down);
    EXPECT_GT(view.CaretRectangle().top(), top);
    EXPECT_GE(view.CaretOffset(), end);
    EXPECT_LE(view.CaretOffset(), end + 1);
}

TEST(CaretKeys, PagesScrollAndComeBack)
{
    std::string lines = "|0";
    for (int i = 1; i < 200; ++i)
        lines += "\n" + std::to_string(i);
    ShownView view(lines);
    view.PressTimes(3, Qt::Key_PageDown);
    const int down = view.CaretOffset();
    EXPECT_GT(down, 100);
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
    view.PressTimes(3, Qt::Key_PageUp);
    EXPECT_EQ(view.CaretOffset(), 0);
}

TEST(CaretKeys, ControlWithUpAndDownGoByParagraph)
{
    ShownView view("one\ntwo\nthr|ee");
    view.Press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one\ntwo\n|three");
    view.Press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one\n|two\nthree");
    view.Press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Dump(view), "one\n^two\n|three");
}

TEST(CaretKeys, AHostsSelectionHasItsCaretAtTheEnd)
{
    ShownView view("one two|");
    view.SetSelStart(1);
    view.SetSelLength(3);
    EXPECT_EQ(view.AnchorOffset(), 1);
    EXPECT_EQ(view.CaretOffset(), 4);
    view.Press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Dump(view), "o^ne t|wo");
}

TEST(CaretKeys, HiddenTextIsPassed)
{
    ShownView view("a|<h>xyz</h>b");
    view.Press(Qt::Key_Right);
    EXPECT_EQ(view.CaretOffset(), 5);
    view.Press(Qt::Key_Left);
    EXPECT_LE(view.CaretOffset(), 4);
}

}  // namespace
}  // namespace quillmarker
