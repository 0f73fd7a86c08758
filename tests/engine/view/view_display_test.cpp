#include "shown_view.h"

#include <QClipboard>
#include <QTimer>
#include <QWindow>

namespace quillmarker
{
namespace
{

QPoint InWindow(const ShownView& view, QPoint point) { return view.viewport()->mapTo(view.window(), point); }

/// Drags the selection: the mouse goes on while the drag runs an event loop of its own.
void DragSelection(ShownView& view, QPoint from, ShownView& target, QPoint to,
                   Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWindow* window = view.windowHandle();
    const QPoint begin = InWindow(view, from);
    const QPoint end = view.mapFromGlobal(target.viewport()->mapToGlobal(to));
    bool isDone = false;
    for (int i = 1; i <= 4; ++i)
        QTimer::singleShot(50 * i, &view, [=] { QTest::mouseMove(window, begin + (end - begin) * i / 4); });
    QTimer::singleShot(300, &view, [=, &isDone] {
        QTest::mouseRelease(window, Qt::LeftButton, modifiers, end);
        isDone = true;
    });
    QTest::mousePress(window, Qt::LeftButton, modifiers, begin);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isDone; }));
}

/// A view that stands on the screen, apart from others.
class PlacedView : public ShownView
{
public:
    PlacedView(std::string_view sample, QPoint place) : ShownView(sample, {300, 100})
    {
        move(place);
        (void)QTest::qWaitForWindowExposed(this);
    }
};

TEST(DraggingOnADisplay, MovesTheSelectionAsOneStep)
{
    PlacedView view("one <b>^two |</b>three", {10, 10});
    DragSelection(view, view.MiddleOf(5), view, view.LeftOf(0));
    EXPECT_EQ(Dump(view), "^<b>two </b>|one three");
    view.Undo();
    EXPECT_EQ(view.Text(), QStringLiteral("one two three"));
    EXPECT_FALSE(view.Box().CanUndo());
}

TEST(DraggingOnADisplay, BetweenViewsTakesTheTextAlong)
{
    PlacedView target("|here", {10, 200});
    PlacedView source("one <b>^two |</b>three", {10, 10});
    DragSelection(source, source.MiddleOf(5), target, target.LeftOf(2));
    EXPECT_EQ(Dump(target), "he^<b>two </b>|re");
    EXPECT_EQ(Dump(source), "one |three");
}

TEST(DraggingOnADisplay, OfProtectedTextCopies)
{
    PlacedView target("|here", {10, 200});
    PlacedView source("one <p>^two |</p>three", {10, 10});
    DragSelection(source, source.MiddleOf(5), target, target.LeftOf(2));
    EXPECT_EQ(target.Text(), QStringLiteral("hetwo re"));
    EXPECT_EQ(source.Text(), QStringLiteral("one two three"));
}

TEST(TheMiddleButton, PutsWhatIsSelectedElsewhere)
{
    PlacedView view("one two|", {10, 10});
    ASSERT_TRUE(QGuiApplication::clipboard()->supportsSelection());
    view.DragFromTo(view.LeftOf(0), view.LeftOf(3));
    EXPECT_EQ(QGuiApplication::clipboard()->text(QClipboard::Selection), QStringLiteral("one"));
    QTest::mouseClick(view.viewport(), Qt::MiddleButton, {}, {290, 90});
    EXPECT_EQ(view.Text(), QStringLiteral("one twoone"));
}

}  // namespace
}  // namespace quillmarker
