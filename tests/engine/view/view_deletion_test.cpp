#include "shown_view.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QWheelEvent>

#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace quillmarker
{
namespace
{

using Subject = QPointer<ShownView>;

void SendKey(const Subject& view, Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
    {
        QKeyEvent event(type, key, modifiers, text);
        if (view)
            QApplication::sendEvent(view, &event);
    }
}

void SendMouse(const Subject& view, QEvent::Type type, QPoint point)
{
    if (!view)
        return;
    const bool isMove = type == QEvent::MouseMove;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(point), view->viewport()->mapToGlobal(QPointF(point)),
                      isMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &event);
}

void Click(const Subject& view, QPoint point)
{
    SendMouse(view, QEvent::MouseButtonPress, point);
    SendMouse(view, QEvent::MouseButtonRelease, point);
}

void SendWheel(const Subject& view, QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers = {})
{
    QWheelEvent event({50, 50}, view->mapToGlobal(QPointF(50, 50)), pixels, angle, {}, modifiers, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view->viewport(), &event);
}

void SendInput(const Subject& view, const QString& preEdit, const QString& commit, int from = 0, int length = 0,
               const QList<QInputMethodEvent::Attribute>& attributes = {})
{
    QInputMethodEvent event(preEdit, attributes);
    event.setCommitString(commit, from, length);
    if (view)
        QApplication::sendEvent(view, &event);
}

struct Gesture
{
    const char* name;
    std::function<void(const Subject&)> make;
};

const std::vector<Gesture>& Gestures()
{
    static const std::vector<Gesture> gestures = {
        {"arrow", [](const Subject& view) { SendKey(view, Qt::Key_Left); }},
        {"shift and arrow", [](const Subject& view) { SendKey(view, Qt::Key_Right, Qt::ShiftModifier); }},
        {"line end far right", [](const Subject& view) { SendKey(view, Qt::Key_End); }},
        {"letter", [](const Subject& view) { SendKey(view, Qt::Key_X, {}, QStringLiteral("x")); }},
        {"letter over another",
         [](const Subject& view) {
             view->SetOverwrites(true);
             SendKey(view, Qt::Key_X, {}, QStringLiteral("x"));
         }},
        {"Backspace", [](const Subject& view) { SendKey(view, Qt::Key_Backspace); }},
        {"Backspace without a selection",
         [](const Subject& view) {
             view->SelectFromTo(5, 5);
             SendKey(view, Qt::Key_Backspace);
         }},
        {"Enter", [](const Subject& view) { SendKey(view, Qt::Key_Return, {}, QStringLiteral("\r")); }},
        {"undo",
         [](const Subject& view) {
             SendKey(view, Qt::Key_X, {}, QStringLiteral("x"));
             SendKey(view, Qt::Key_Z, Qt::ControlModifier);
         }},
        {"select all", [](const Subject& view) { view->SelectAll(); }},
        {"click", [](const Subject& view) { Click(view, view->LeftOf(1)); }},
        {"click on the selection", [](const Subject& view) { Click(view, view->MiddleOf(5)); }},
        {"double click",
         [](const Subject& view) {
             const QPoint point = view->MiddleOf(1);
             Click(view, point);
             SendMouse(view, QEvent::MouseButtonDblClick, point);
             SendMouse(view, QEvent::MouseButtonRelease, point);
             Click(view, point);
         }},
        {"drag over text",
         [](const Subject& view) {
             const QPoint to = view->LeftOf(3);
             SendMouse(view, QEvent::MouseButtonPress, view->LeftOf(1));
             SendMouse(view, QEvent::MouseMove, to);
             SendMouse(view, QEvent::MouseButtonRelease, to);
         }},
        {"drag beyond the edge",
         [](const Subject& view) {
             SendMouse(view, QEvent::MouseButtonPress, view->LeftOf(1));
             SendMouse(view, QEvent::MouseMove, {450, 350});
             QTest::qWait(100);
             SendMouse(view, QEvent::MouseButtonRelease, {450, 350});
         }},
        {"wheel",
         [](const Subject& view) {
             SendWheel(view, {}, {-120, -120});
         }},
        {"wheel sideways",
         [](const Subject& view) {
             SendWheel(view, {}, {-120, 0});
         }},
        {"fine wheel",
         [](const Subject& view) {
             SendWheel(view, {-20, -20}, {-120, -120});
         }},
        {"wheel that zooms",
         [](const Subject& view) {
             SendWheel(view, {}, {0, 120}, Qt::ControlModifier);
         }},
        {"paste", [](const Subject& view) { view->Paste(); }},
        {"cut", [](const Subject& view) { view->Cut(); }},
        {"clear", [](const Subject& view) { view->Clear(); }},
        {"input method", [](const Subject& view) { SendInput(view, QStringLiteral("pre"), {}); }},
        {"input method's commit",
         [](const Subject& view) {
             SendInput(view, {}, QStringLiteral("one"));
             SendInput(view, QStringLiteral("pre"), QStringLiteral("two"), -1, 1,
                       {{QInputMethodEvent::Selection, 1, 1}});
         }},
        {"key behind an input method",
         [](const Subject& view) {
             view->SelectFromTo(2, 2);
             SendInput(view, QStringLiteral("pre"), {});
             SendKey(view, Qt::Key_Left);
         }},
        {"context menu",
         [](const Subject& view) {
             view->SetAutoVerbMenu(true);
             const QPoint point = view->LeftOf(1);
             QContextMenuEvent event(QContextMenuEvent::Mouse, point, view->viewport()->mapToGlobal(point));
             QApplication::sendEvent(view->viewport(), &event);
         }},
        {"action of the context menu",
         [](const Subject& view) {
             view->SetAutoVerbMenu(true);
             const QPoint point = view->MiddleOf(5);
             QContextMenuEvent event(QContextMenuEvent::Mouse, point, view->viewport()->mapToGlobal(point));
             QApplication::sendEvent(view->viewport(), &event);
             view->findChild<QAction*>(QStringLiteral("Cut"))->trigger();
         }},
        {"drop",
         [](const Subject& view) {
             QMimeData data;
             data.setText(QStringLiteral("dropped"));
             QDropEvent event(QPointF(view->LeftOf(1)), Qt::CopyAction, &data, Qt::LeftButton, {});
             QApplication::sendEvent(view->viewport(), &event);
         }},
        {"find", [](const Subject& view) { view->Find(QStringLiteral("three")); }},
        {"find without highlight",
         [](const Subject& view) { view->Find(QStringLiteral("three"), 0, -1, kFindNoHighlight); }},
        {"new text", [](const Subject& view) { view->SetText(QStringLiteral("text")); }},
        {"new RTF", [](const Subject& view) { view->SetTextRTF(QStringLiteral("{\\rtf1 text}")); }},
    };
    return gestures;
}

struct SignalRow
{
    const char* name;
    std::function<void(ShownView&, std::function<void()>)> connect;
};

template <class Signal>
SignalRow RowOf(const char* name, Signal signal)
{
    return {name, [signal](ShownView& view, std::function<void()> heard) {
                QObject::connect(&view, signal, QCoreApplication::instance(), [heard](auto&&...) { heard(); });
            }};
}

const std::vector<SignalRow>& Signals()
{
    static const std::vector<SignalRow> rows = {
        RowOf("Change", &RichTextView::Change),       RowOf("SelChange", &RichTextView::SelChange),
        RowOf("HScroll", &RichTextView::HScroll),     RowOf("ZoomChanged", &RichTextView::ZoomChanged),
        RowOf("KeyDown", &RichTextView::KeyDown),     RowOf("KeyPress", &RichTextView::KeyPress),
        RowOf("KeyUp", &RichTextView::KeyUp),         RowOf("MouseDown", &RichTextView::MouseDown),
        RowOf("MouseMove", &RichTextView::MouseMove), RowOf("MouseUp", &RichTextView::MouseUp),
        RowOf("Click", &RichTextView::Click),         RowOf("DblClick", &RichTextView::DblClick),
    };
    return rows;
}

Subject MakeSubject()
{
    std::string text = "one ^two| three, and a line that goes on far beyond the right edge of a view as narrow as this "
                       "one is, because its margin is wide";
    for (int i = 0; i < 60; ++i)
        text += "\nline";
    Subject view = new ShownView(text);
    view->SetRightMargin(20'000);
    QCoreApplication::processEvents();
    return view;
}

/// How often a signal fires in a gesture on a view that lives.
int TimesOf(const Gesture& gesture, const SignalRow& row)
{
    const Subject view = MakeSubject();
    int times = 0;
    row.connect(*view, [&] { ++times; });
    gesture.make(view);
    QCoreApplication::processEvents();
    view->disconnect(QCoreApplication::instance());
    delete view;
    return times;
}

TEST(DeletingTheView, InAnySlotOfAnyGestureIsSafe)
{
    std::set<std::string> fired;
    for (const Gesture& gesture : Gestures())
    {
        for (const SignalRow& row : Signals())
        {
            QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
            const int times = TimesOf(gesture, row);
            if (times > 0)
                fired.insert(row.name);
            for (int fatal = 1; fatal <= times; ++fatal)
            {
                QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
                const Subject view = MakeSubject();
                int heard = 0;
                row.connect(*view, [&view, &heard, fatal] {
                    if (++heard == fatal)
                        delete view;
                });
                gesture.make(view);
                QCoreApplication::processEvents();
                EXPECT_TRUE(view.isNull()) << gesture.name << ", " << row.name << ' ' << fatal;
                delete view;
            }
        }
    }
    // The table reaches every signal.
    for (const SignalRow& row : Signals())
        EXPECT_TRUE(fired.contains(row.name)) << row.name;
}

}  // namespace
}  // namespace quillmarker
