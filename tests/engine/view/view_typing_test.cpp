#include "shown_view.h"

#include <QScrollBar>

#include <random>

namespace quillmarker
{
namespace
{

TEST(TypingInTheView, PutsLettersAtTheCaret)
{
    ShownView view("pay |now");
    view.Type("it ");
    EXPECT_EQ(Dump(view), "pay it |now");
}

TEST(TypingInTheView, TakesTheSelectionsPlace)
{
    ShownView view("pay ^now|!");
    view.Type("X");
    EXPECT_EQ(Dump(view), "pay X|!");
}

TEST(TypingInTheView, EnterBeginsAParagraphAndItsVariantsALineAndAPage)
{
    ShownView view("ab|cd");
    view.Press(Qt::Key_Return);
    EXPECT_EQ(Dump(view), "ab\n|cd");
    view.Press(Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier);
    view.Press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(view.Text(), QStringLiteral("ab\r\n\v\fcd"));
}

TEST(TypingInTheView, TabIsACharacter)
{
    ShownView view("a|b");
    view.Press(Qt::Key_Tab);
    EXPECT_EQ(view.Text(), QStringLiteral("a\tb"));
    EXPECT_TRUE(view.hasFocus());
}

TEST(TypingInTheView, ControlTabLeaves)
{
    QWidget window;
    auto* view = new RichTextView(&window);
    auto* next = new QWidget(&window);
    next->setFocusPolicy(Qt::StrongFocus);
    window.show();
    window.activateWindow();
    view->setFocus();
    QCoreApplication::processEvents();
    ASSERT_TRUE(view->hasFocus());
    QTest::keyClick(view, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(next->hasFocus());
    EXPECT_EQ(view->Text(), QString());
}

TEST(TypingInTheView, BackspaceAndDeleteTakeACharacter)
{
    ShownView view("ab|\ncd");
    view.Press(Qt::Key_Delete);
    EXPECT_EQ(Dump(view), "ab|cd");
    view.Press(Qt::Key_Backspace);
    EXPECT_EQ(Dump(view), "a|cd");
    view.PressTimes(3, Qt::Key_Backspace);
    EXPECT_EQ(Dump(view), "|cd");
}

TEST(TypingInTheView, WithControlTheyTakeAWord)
{
    ShownView view("one two| three four");
    view.Press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one | three four");
    view.Press(Qt::Key_Delete, Qt::ControlModifier);
    view.Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one |four");
}

TEST(TypingInTheView, InsertTogglesOverwriting)
{
    ShownView view("|abc\nd");
    view.Press(Qt::Key_Insert);
    EXPECT_TRUE(view.Overwrites());
    view.Type("xy");
    EXPECT_EQ(Dump(view), "xy|c\nd");
    view.Type("zw");
    EXPECT_EQ(Dump(view), "xyzw|\nd");
    view.Press(Qt::Key_Insert);
    view.Press(Qt::Key_Home);
    view.Type("-");
    EXPECT_EQ(Dump(view), "-|xyzw\nd");
}

TEST(TypingInTheView, OneTypingRunIsOneStepAndACaretMoveEndsIt)
{
    ShownView view("|");
    view.Type("abc");
    view.Press(Qt::Key_Backspace);
    view.Press(Qt::Key_Left);
    view.Type("x");
    EXPECT_EQ(Dump(view), "ax|b");
    view.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "a|b");
    view.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "|");
    view.Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(view.Text(), QStringLiteral("ab"));
}

TEST(TypingInTheView, ClipboardKeysMoveFormattedText)
{
    ShownView view("one <b>^two|</b> three");
    view.Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "one | three");
    view.Press(Qt::Key_Home);
    view.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "<b>two</b>|one  three");
    view.Press(Qt::Key_A, Qt::ControlModifier);
    view.Press(Qt::Key_C, Qt::ControlModifier);
    view.Press(Qt::Key_End, Qt::ControlModifier);
    view.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "<b>two</b>one  three<b>two</b>one  three|");
}

TEST(TypingInTheView, ALockedViewSelectsAndCopiesButChangesNothing)
{
    ShownView view("abc|");
    view.SetLocked(true);
    view.Type("x");
    view.Press(Qt::Key_Backspace);
    view.Press(Qt::Key_Return);
    view.Press(Qt::Key_Left, Qt::ShiftModifier);
    view.Press(Qt::Key_C, Qt::ControlModifier);
    view.Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "ab|c^");
    view.SetLocked(false);
    view.Press(Qt::Key_Home);
    view.Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Dump(view), "c|abc");
}

TEST(TypingInTheView, ProtectedTextIsNotTouched)
{
    ShownView view("a<p>bc</p>|d");
    view.Press(Qt::Key_Backspace);
    EXPECT_EQ(Dump(view), "a<p>bc</p>|d");
    view.Press(Qt::Key_Left);
    view.Type("x");
    EXPECT_EQ(Dump(view), "a<p>b|c</p>d");
}

TEST(KeyEvents, ASlotMaySwallowAKeyOrChangeWhatItTypes)
{
    ShownView view("|");
    QObject::connect(&view, &RichTextView::KeyDown, &view,
                     [](QKeyEvent* event, bool& swallow) { swallow = event->key() == Qt::Key_A; });
    QObject::connect(&view, &RichTextView::KeyPress, &view, [](QString& text, bool&) { text.replace(u'b', u'B'); });
    int ups = 0;
    QObject::connect(&view, &RichTextView::KeyUp, &view, [&] { ++ups; });
    view.Type("abc");
    EXPECT_EQ(Dump(view), "Bc|");
    EXPECT_EQ(ups, 3);
}

TEST(KeyEvents, AKeyOfTheViewIsNotTakenForAShortcut)
{
    ShownView view("ab|c");
    QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::NoModifier);
    override.ignore();
    QApplication::sendEvent(&view, &override);
    EXPECT_TRUE(override.isAccepted());
    QKeyEvent other(QEvent::ShortcutOverride, Qt::Key_B, Qt::ControlModifier, QStringLiteral("\x02"));
    other.ignore();
    QApplication::sendEvent(&view, &other);
    EXPECT_FALSE(other.isAccepted());
}

TEST(Notifications, AKeyIsOneChangeAndOneSelectionChange)
{
    ShownView view("|");
    std::string heard;
    QObject::connect(&view, &RichTextView::Change, &view, [&] { heard += 'c'; });
    QObject::connect(&view, &RichTextView::SelChange, &view, [&] { heard += 's'; });
    view.Type("a");
    EXPECT_EQ(heard, "cs");
    view.Press(Qt::Key_Home);
    EXPECT_EQ(heard, "css");
    view.Press(Qt::Key_Home);
    EXPECT_EQ(heard, "css");
}

// The law: keys do what the box's own members do.
TEST(TypingInTheView, IsTheSameAsTheCallsOfTheBox)
{
    for (unsigned seed = 1; seed <= 6; ++seed)
    {
        std::mt19937 random(seed);
        ShownView view("|");
        TextBox box;
        const auto caret = [&](int by) {
            const int at = view.Box().SelStart() + by;
            if (at >= 0 && at <= box.TextLength())
                box.SetSelStart(at);
        };
        std::string script;
        for (int step = 0; step < 200; ++step)
        {
            const int what = static_cast<int>(random() % 20);
            script += static_cast<char>('a' + what);
            const char letter = static_cast<char>('a' + random() % 26);
            if (what < 12)
            {
                view.Type(std::string(1, letter).c_str());
                box.Type(std::u16string(1, static_cast<char16_t>(letter)));
            }
            else if (what == 12)
            {
                view.Press(Qt::Key_Return);
                box.Type(u"\r\n");
            }
            else if (what == 13)
            {
                view.Press(Qt::Key_Backspace);
                box.TypeBackspace();
            }
            else if (what == 14)
            {
                view.Press(Qt::Key_Delete);
                box.TypeDelete();
            }
            else if (what == 15)
            {
                view.Press(Qt::Key_Left);
                caret(0);
            }
            else if (what == 16)
            {
                view.Press(Qt::Key_Home, Qt::ControlModifier);
                box.SetSelStart(0);
            }
            else if (what == 17)
            {
                view.Press(Qt::Key_Z, Qt::ControlModifier);
                box.Undo();
            }
            else if (what == 18)
            {
                view.Press(Qt::Key_Insert, Qt::ControlModifier);
            }
            else
            {
                view.Press(Qt::Key_End, Qt::ControlModifier);
                box.SetSelStart(box.TextLength());
            }
            ASSERT_EQ(Dump(view.Box()), Dump(box)) << "seed " << seed << " script " << script;
        }
    }
}

TEST(Overwriting, KeepsHiddenText)
{
    ShownView view("a|<h>hid</h>bc");
    view.SetOverwrites(true);
    view.Type("x");
    EXPECT_EQ(view.Text(), QStringLiteral("ahidxc"));
}

TEST(ALockedView, LeavesKeysThatWouldEditToOthers)
{
    ShownView view("one|");
    view.SetLocked(true);
    const auto isTaken = [&](Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&view, &event);
        return event.isAccepted();
    };
    EXPECT_FALSE(isTaken(Qt::Key_Return, QStringLiteral("\r")));
    EXPECT_FALSE(isTaken(Qt::Key_X, QStringLiteral("x")));
    EXPECT_FALSE(isTaken(Qt::Key_Backspace, QStringLiteral("\b")));
    EXPECT_TRUE(isTaken(Qt::Key_Left, {}));
    EXPECT_TRUE(isTaken(Qt::Key_C, {}, Qt::ControlModifier));
    EXPECT_EQ(view.Text(), QStringLiteral("one"));
}

TEST(ALockedView, TabLeavesIt)
{
    QWidget window;
    auto* view = new RichTextView(&window);
    auto* next = new QWidget(&window);
    next->setFocusPolicy(Qt::StrongFocus);
    window.show();
    window.activateWindow();
    view->setFocus();
    view->SetLocked(true);
    QCoreApplication::processEvents();
    ASSERT_TRUE(view->hasFocus());
    QTest::keyClick(view, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
}

TEST(ALockedView, IsNotScrolledByKeysItDoesNotTake)
{
    std::string lines = "|0";
    for (int i = 1; i < 200; ++i)
        lines += "\n" + std::to_string(i);
    ShownView view(lines);
    view.SetLocked(true);
    view.verticalScrollBar()->setValue(300);
    view.Type("x");
    view.Press(Qt::Key_Delete);
    view.Press(Qt::Key_X, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.verticalScrollBar()->value(), 300);
}

}  // namespace
}  // namespace quillmarker
