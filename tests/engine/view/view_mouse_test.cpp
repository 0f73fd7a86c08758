#include "shown_view.h"

#include <QScrollBar>
#include <QWheelEvent>

#include <functional>

namespace quillmarker
{
namespace
{

TEST(Clicking, PutsTheCaretBetweenCharacters)
{
    ShownView view("one two|");
    view.ClickAt(view.LeftOf(4));
    EXPECT_EQ(Dump(view), "one |two");
    view.ClickAt(QPoint(300, view.MiddleOf(0).y()));
    EXPECT_EQ(Dump(view), "one two|");
    view.ClickAt(QPoint(300, 290));
    EXPECT_EQ(Dump(view), "one two|");
}

TEST(Clicking, TwiceSelectsAWordAndThriceAParagraph)
{
    ShownView view("|zero\none two\nthree");
    const QPoint point = view.MiddleOf(10);
    view.DoubleClickAt(point);
    EXPECT_EQ(Dump(view), "zero\none ^two|\nthree");
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, point);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, point);
    EXPECT_EQ(Dump(view), "zero\n^one two\n|three");
}

TEST(Clicking, WithShiftExtendsTheSelection)
{
    ShownView view("|one two");
    view.ClickAt(view.LeftOf(4), Qt::ShiftModifier);
    EXPECT_EQ(Dump(view), "^one |two");
    view.ClickAt(view.LeftOf(2), Qt::ShiftModifier);
    EXPECT_EQ(Dump(view), "^on|e two");
}

TEST(Dragging, SelectsCharacters)
{
    ShownView view("|one two");
    view.DragFromTo(view.LeftOf(6), view.LeftOf(2));
    EXPECT_EQ(Dump(view), "on|e tw^o");
}

TEST(Dragging, AfterADoubleClickSelectsWords)
{
    ShownView view("|one two three four");
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.MiddleOf(5));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, {380, 280});
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, {380, 280});
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(view.MiddleOf(5)), view.MiddleOf(5), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &twice);
    view.DragTo(view.MiddleOf(9));
    EXPECT_EQ(Dump(view), "one ^two three |four");
    view.DragTo(view.MiddleOf(1));
    EXPECT_EQ(Dump(view), "|one two ^three four");
}

TEST(Dragging, BeyondTheEdgeScrolls)
{
    std::string lines = "|0";
    for (int i = 1; i < 100; ++i)
        lines += "\n" + std::to_string(i);
    ShownView view(lines);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, view.LeftOf(0));
    view.DragTo({10, view.viewport()->height() + 30});
    const int caret = view.CaretOffset();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.verticalScrollBar()->value() > 200; }));
    EXPECT_GT(view.CaretOffset(), caret);
    EXPECT_EQ(view.AnchorOffset(), 0);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, {10, 350});
}

TEST(MouseEvents, AreRaisedAndMayBeSwallowed)
{
    ShownView view("one two|");
    std::string heard;
    bool swallows = false;
    QObject::connect(&view, &RichTextView::MouseDown, &view, [&](QMouseEvent*, bool& swallow) {
        heard += 'd';
        swallow = swallows;
    });
    QObject::connect(&view, &RichTextView::MouseMove, &view, [&](QMouseEvent*, bool&) { heard += 'm'; });
    QObject::connect(&view, &RichTextView::MouseUp, &view, [&](QMouseEvent*, bool&) { heard += 'u'; });
    QObject::connect(&view, &RichTextView::Click, &view, [&] { heard += 'c'; });
    QObject::connect(&view, &RichTextView::DblClick, &view, [&] { heard += 'D'; });
    view.ClickAt(view.LeftOf(4));
    EXPECT_EQ(heard, "duc");
    view.DragTo(view.LeftOf(4));
    EXPECT_EQ(heard, "ducm");
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.LeftOf(4));
    EXPECT_NE(heard.find('D'), heard.npos);
    swallows = true;
    view.SetSelStart(0);
    view.ClickAt(view.LeftOf(2));
    EXPECT_EQ(Dump(view), "|one two");
}

TEST(Links, AreFollowedWithControlOnly)
{
    ShownView view("|");
    view.SetTextRTF(
        QStringLiteral("{\\rtf1 see {\\field{\\*\\fldinst HYPERLINK \"http://example.org/a\"}{\\fldrslt here}} now}"));
    ASSERT_EQ(view.Text(), QStringLiteral("see here now"));
    QStringList targets;
    QObject::connect(&view, &RichTextView::LinkActivated, &view, [&](const QString& target) { targets << target; });
    EXPECT_EQ(view.LinkAt(view.MiddleOf(5)), QStringLiteral("http://example.org/a"));
    EXPECT_EQ(view.LinkAt(view.MiddleOf(1)), QString());
    view.ClickAt(view.MiddleOf(5));
    EXPECT_TRUE(targets.isEmpty());
    view.ClickAt(view.MiddleOf(5), Qt::ControlModifier);
    EXPECT_EQ(targets, QStringList(QStringLiteral("http://example.org/a")));
    QTest::mouseMove(view.viewport(), view.MiddleOf(5));
    QMouseEvent hover(QEvent::MouseMove, QPointF(view.MiddleOf(5)), QPointF(view.MiddleOf(5)), Qt::NoButton,
                      Qt::NoButton, Qt::ControlModifier);
    QApplication::sendEvent(view.viewport(), &hover);
    EXPECT_EQ(view.viewport()->cursor().shape(), Qt::PointingHandCursor);
}

TEST(TheCursor, IsABeamOverTextAndAnArrowOverTheSelection)
{
    ShownView view("one ^two| three");
    const auto hover = [&](QPoint point) {
        QMouseEvent event(QEvent::MouseMove, QPointF(point), QPointF(point), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(view.viewport(), &event);
        return view.viewport()->cursor().shape();
    };
    EXPECT_EQ(hover(view.MiddleOf(1)), Qt::IBeamCursor);
    EXPECT_EQ(hover(view.MiddleOf(5)), Qt::ArrowCursor);
}

void Wheel(RichTextView& view, QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWheelEvent event({50, 50}, view.mapToGlobal(QPointF(50, 50)), pixels, angle, {}, modifiers, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view.viewport(), &event);
}

TEST(TheWheel, ScrollsByPixelsWhereItKnowsThem)
{
    std::string lines = "|0";
    for (int i = 1; i < 100; ++i)
        lines += "\n" + std::to_string(i);
    ShownView view(lines);
    Wheel(view, {0, -37}, {0, -120});
    EXPECT_EQ(view.verticalScrollBar()->value(), 37);
    Wheel(view, {}, {0, -120});
    EXPECT_GT(view.verticalScrollBar()->value(), 37);
}

TEST(TheWheel, WithControlChangesTheZoom)
{
    ShownView view("text|");
    Wheel(view, {}, {0, 120}, Qt::ControlModifier);
    EXPECT_EQ(view.Zoom(), 110);
    Wheel(view, {}, {0, -60}, Qt::ControlModifier);
    Wheel(view, {}, {0, -60}, Qt::ControlModifier);
    EXPECT_EQ(view.Zoom(), 100);
    view.SetZoom(1);
    EXPECT_EQ(view.Zoom(), 10);
    view.SetZoom(5000);
    EXPECT_EQ(view.Zoom(), 500);
}

/// What a view raises, letter by letter, while a test does something.
std::string Heard(RichTextView& view, const std::function<void()>& what, bool swallowsPresses = false)
{
    std::string heard;
    QObject context;
    QObject::connect(&view, &RichTextView::MouseDown, &context, [&](QMouseEvent*, bool& swallow) {
        heard += 'd';
        swallow = swallowsPresses;
    });
    QObject::connect(&view, &RichTextView::MouseUp, &context, [&] { heard += 'u'; });
    QObject::connect(&view, &RichTextView::Click, &context, [&] { heard += 'c'; });
    QObject::connect(&view, &RichTextView::DblClick, &context, [&] { heard += 'D'; });
    what();
    return heard;
}

void SendButton(RichTextView& view, QEvent::Type type, QPoint point, Qt::MouseButton button)
{
    const bool isUp = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, QPointF(point), view.viewport()->mapToGlobal(QPointF(point)), button,
                      isUp ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &event);
}

TEST(MouseEvents, OfADoubleClickHaveOneClick)
{
    ShownView view("one two|");
    const QPoint point = view.MiddleOf(1);
    EXPECT_EQ(Heard(view,
                    [&] {
                        SendButton(view, QEvent::MouseButtonPress, point, Qt::LeftButton);
                        SendButton(view, QEvent::MouseButtonRelease, point, Qt::LeftButton);
                        SendButton(view, QEvent::MouseButtonDblClick, point, Qt::LeftButton);
                        SendButton(view, QEvent::MouseButtonRelease, point, Qt::LeftButton);
                    }),
              "ducDu");
}

TEST(MouseEvents, AClickIsAPressThatWasTakenHere)
{
    ShownView view("one two|");
    const QPoint point = view.MiddleOf(1);
    EXPECT_EQ(Heard(
                  view, [&] { view.ClickAt(point); }, true),
              "du");
    EXPECT_EQ(Heard(view, [&] { SendButton(view, QEvent::MouseButtonRelease, point, Qt::LeftButton); }), "u");
    view.SetTextRTF(
        QStringLiteral("{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"http://example.org/\"}{\\fldrslt here}}}"));
    EXPECT_EQ(Heard(view, [&] { view.ClickAt(view.MiddleOf(1), Qt::ControlModifier); }), "du");
}

TEST(MouseEvents, AQuickSecondPressOfAnotherButtonIsAPress)
{
    ShownView view("one two|");
    const QPoint point = view.MiddleOf(1);
    EXPECT_EQ(Heard(view,
                    [&] {
                        SendButton(view, QEvent::MouseButtonPress, point, Qt::RightButton);
                        SendButton(view, QEvent::MouseButtonRelease, point, Qt::RightButton);
                        SendButton(view, QEvent::MouseButtonDblClick, point, Qt::RightButton);
                        SendButton(view, QEvent::MouseButtonRelease, point, Qt::RightButton);
                    }),
              "dudu");
}

}  // namespace
}  // namespace quillmarker
