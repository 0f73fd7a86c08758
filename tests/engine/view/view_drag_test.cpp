#include "shown_view.h"

#include "engine/view/clipboard_formats.h"
#include "engine/view/text_moving.h"

#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>

namespace quillmarker
{
namespace
{

/// What a drag over a view sends it, up to the drop. True when the drop was taken.
bool DropAt(RichTextView& view, QPoint point, const QMimeData& data, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(point, actions, &data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(view.viewport(), &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(point, actions, &data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(view.viewport(), &move);
    QDropEvent drop(QPointF(point), actions, &data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(view.viewport(), &drop);
    return drop.isAccepted() && drop.dropAction() != Qt::IgnoreAction;
}

QMimeData& TextData(QMimeData& data, const char* text)
{
    data.setText(QString::fromUtf8(text));
    return data;
}

TEST(Dropping, PutsTextWhereItFallsAndSelectsIt)
{
    ShownView view("|one three");
    QMimeData data;
    EXPECT_TRUE(DropAt(view, view.LeftOf(4), TextData(data, "two ")));
    EXPECT_EQ(Dump(view), "one ^two |three");
    view.Undo();
    EXPECT_EQ(view.Text(), QStringLiteral("one three"));
    EXPECT_FALSE(view.Box().CanUndo());
}

TEST(Dropping, BringsFormatsAlong)
{
    ShownView source("<b>^bold|</b>");
    ShownView view("|one");
    const std::unique_ptr<QMimeData> data = MimeDataOfSelection(source.Box());
    EXPECT_TRUE(DropAt(view, {390, 290}, *data));
    EXPECT_EQ(Dump(view), "one^<b>bold</b>|");
}

TEST(Dropping, IsRefusedWhereTheUserMayNotWrite)
{
    ShownView view("a<p>bc</p>|d");
    QMimeData data;
    EXPECT_FALSE(DropAt(view, view.LeftOf(2), TextData(data, "x")));
    EXPECT_EQ(Dump(view), "a<p>bc</p>|d");
    view.SetLocked(true);
    EXPECT_FALSE(DropAt(view, view.LeftOf(0), data));
    EXPECT_EQ(Dump(view), "a<p>bc</p>|d");
    EXPECT_FALSE(view.Box().CanUndo());
    QMimeData foreign;
    foreign.setData(QStringLiteral("application/x-unknown"), "x");
    view.SetLocked(false);
    EXPECT_FALSE(DropAt(view, view.LeftOf(0), foreign));
}

TEST(Dropping, ShowsWhereItWouldFall)
{
    QApplication::setCursorFlashTime(0);
    ShownView view("|one three");
    QMimeData data;
    TextData(data, "x");
    const QPoint point = view.LeftOf(4);
    const QColor ink = view.palette().color(QPalette::Text);
    const QRect caret(view.CharacterRectangle(4).topLeft(), QSize(1, view.CharacterRectangle(4).height()));
    EXPECT_EQ(CountOf(view.Picture(), ink, caret), 0);
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &move);
    EXPECT_GT(CountOf(view.Picture(), ink, caret.adjusted(-1, 0, 1, 0)), 5);
    QDragLeaveEvent leave;
    QApplication::sendEvent(view.viewport(), &leave);
    EXPECT_EQ(CountOf(view.Picture(), ink, caret), 0);
}

TEST(DraggingTheSelection, IsNoClickUntilTheMouseMovesFar)
{
    ShownView view("one ^two| three");
    const QPoint point = view.MiddleOf(5);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, point);
    EXPECT_EQ(Dump(view), "one ^two| three");
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, point);
    EXPECT_EQ(view.SelLength(), 0);
    EXPECT_GE(view.CaretOffset(), 5);
    EXPECT_LE(view.CaretOffset(), 6);
}

TEST(MovingText, TakesItElsewhereAsOneStep)
{
    SampleBox box("one <b>^two |</b>three");
    EXPECT_TRUE(MoveText(box, {{4}, {8}}, {0}));
    EXPECT_EQ(Dump(box), "^<b>two </b>|one three");
    EXPECT_TRUE(MoveText(box, {{0}, {4}}, {13}));
    EXPECT_EQ(Dump(box), "one three^<b>two </b>|");
    box.Undo();
    box.Undo();
    EXPECT_EQ(box.Text(), u"one two three");
    EXPECT_FALSE(box.CanUndo());
}

TEST(MovingText, ToItsOwnPlaceDoesNothing)
{
    SampleBox box("one ^two| three");
    for (int at = 4; at <= 7; ++at)
        EXPECT_FALSE(MoveText(box, {{4}, {7}}, {at}));
    EXPECT_EQ(Dump(box), "one ^two| three");
    EXPECT_FALSE(box.CanUndo());
}

TEST(MovingText, OverProtectionLeavesEverythingAsItWas)
{
    SampleBox box("^one| <p>two</p>");
    EXPECT_FALSE(MoveText(box, {{0}, {3}}, {5}));
    EXPECT_EQ(Dump(box), "^one| <p>two</p>");
    EXPECT_FALSE(MoveText(box, {{4}, {6}}, {0}));
    EXPECT_EQ(Dump(box), "^one| <p>two</p>");
    EXPECT_FALSE(box.CanUndo());
}

TEST(MovingText, TakesParagraphsAsTheyAre)
{
    SampleBox box("one\n^two\n|three");
    EXPECT_TRUE(MoveText(box, {{5}, {10}}, {0}));
    EXPECT_EQ(Dump(box), "^two\n|one\nthree");
}

TEST(DraggingAway, DeletesWhatWasDraggedAsAStep)
{
    SampleBox box("one ^two| three");
    box.Type(u"2");
    box.Select({4, 1});
    const Document dragged = box.Value();
    // Whatever is selected by then.
    box.Select({0, 3});
    EXPECT_TRUE(DeleteMoved(box, dragged, {{4}, {5}}));
    EXPECT_EQ(Dump(box), "one | three");
    box.Type(u"x");
    box.Undo();
    EXPECT_EQ(box.Text(), u"one  three");
    box.Undo();
    EXPECT_EQ(box.Text(), u"one 2 three");
}

TEST(DraggingAway, LeavesADocumentThatHasChangedMeanwhile)
{
    SampleBox box("one ^two| three");
    const Document dragged = box.Value();
    box.SetSelText(u"new");
    EXPECT_FALSE(DeleteMoved(box, dragged, {{4}, {7}}));
    EXPECT_EQ(box.Text(), u"one new three");
}

TEST(Dropping, ScrollsWhileTheMouseRestsAtTheEdge)
{
    std::string lines = "|0";
    for (int i = 1; i < 200; ++i)
        lines += "\n" + std::to_string(i);
    ShownView view(lines);
    QMimeData data;
    TextData(data, "x");
    const QPoint edge(20, view.viewport()->height() - 2);
    QDragEnterEvent enter(edge, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move(edge, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &move);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.verticalScrollBar()->value() > 100; }, 3000));
    QDragLeaveEvent leave;
    QApplication::sendEvent(view.viewport(), &leave);
    QCoreApplication::processEvents();
    const int rests = view.verticalScrollBar()->value();
    QTest::qWait(150);
    EXPECT_EQ(view.verticalScrollBar()->value(), rests);
}

}  // namespace
}  // namespace quillmarker
