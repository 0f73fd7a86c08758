#include "control/editor_sample.h"
#include "control/member_calls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPointer>
#include <QTemporaryDir>

#include <functional>
#include <set>

namespace quillmarker
{
namespace
{

// A host's handler may call the control, change the document or delete the control, in every event of every member and
// gesture. The sanitizers say whether that is survived; the tests also that it happened.

using Subject = QPointer<RichTextEditor>;

struct Gesture
{
    std::string name;
    std::function<void(const Subject&)> make;
};

void SendKey(const Subject& editor, Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
    {
        QKeyEvent event(type, key, modifiers, text);
        if (editor)
            QApplication::sendEvent(&EngineOf(*editor), &event);
    }
}

void SendMouse(const Subject& editor, QEvent::Type type, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    if (!editor)
        return;
    QWidget* surface = EngineOf(*editor).viewport();
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    QMouseEvent event(type, QPointF(point), surface->mapToGlobal(QPointF(point)),
                      type == QEvent::MouseMove ? Qt::NoButton : button, held, Qt::NoModifier);
    QApplication::sendEvent(surface, &event);
}

QPoint PointAt(const Subject& editor, int position) { return EngineOf(*editor).CharacterRectangle(position).center(); }

void Click(const Subject& editor, Qt::MouseButton button = Qt::LeftButton)
{
    const QPoint point = PointAt(editor, 1);
    SendMouse(editor, QEvent::MouseButtonPress, point, button);
    SendMouse(editor, QEvent::MouseButtonRelease, point, button);
}

const std::vector<Gesture>& UserGestures()
{
    const auto ctrl = Qt::ControlModifier;
    static const std::vector<Gesture> gestures = {
        {"letter", [](const Subject& e) { SendKey(e, Qt::Key_X, {}, QStringLiteral("x")); }},
        {"Backspace", [](const Subject& e) { SendKey(e, Qt::Key_Backspace); }},
        {"Enter", [](const Subject& e) { SendKey(e, Qt::Key_Return, {}, QStringLiteral("\r")); }},
        {"arrow", [](const Subject& e) { SendKey(e, Qt::Key_Left); }},
        {"bold", [=](const Subject& e) { SendKey(e, Qt::Key_B, ctrl); }},
        {"bold on nothing selected",
         [=](const Subject& e) {
             EngineOf(*e).SelectFromTo(2, 2);
             SendKey(e, Qt::Key_B, ctrl);
             SendKey(e, Qt::Key_Y, {}, QStringLiteral("y"));
         }},
        {"italic", [=](const Subject& e) { SendKey(e, Qt::Key_I, ctrl); }},
        {"underline", [=](const Subject& e) { SendKey(e, Qt::Key_U, ctrl); }},
        {"copy", [=](const Subject& e) { SendKey(e, Qt::Key_C, ctrl); }},
        {"select all", [=](const Subject& e) { SendKey(e, Qt::Key_A, ctrl); }},
        {"click", [](const Subject& e) { Click(e); }},
        {"right click", [](const Subject& e) { Click(e, Qt::RightButton); }},
        {"double click",
         [](const Subject& e) {
             const QPoint point = PointAt(e, 1);
             Click(e);
             SendMouse(e, QEvent::MouseButtonDblClick, point);
             SendMouse(e, QEvent::MouseButtonRelease, point);
         }},
        {"drag",
         [](const Subject& e) {
             const QPoint to = PointAt(e, 3);
             SendMouse(e, QEvent::MouseButtonPress, PointAt(e, 1));
             SendMouse(e, QEvent::MouseMove, to);
             SendMouse(e, QEvent::MouseButtonRelease, to);
         }},
        {"resize", [](const Subject& e) { e->resize(300, 300); }},
        {"hide and show",
         [](const Subject& e) {
             e->hide();
             e->show();
         }},
    };
    return gestures;
}

struct EventRow
{
    const char* name;
    std::function<void(RichTextEditor&, std::function<void()>)> connect;
};

template <class Signal>
EventRow OfEditor(const char* name, Signal signal)
{
    return {name, [signal](RichTextEditor& editor, std::function<void()> heard) {
                QObject::connect(&editor, signal, QCoreApplication::instance(), [heard](auto&&...) { heard(); });
            }};
}

template <class Signal>
EventRow OfText(const char* name, Signal signal)
{
    return {name, [signal](RichTextEditor& editor, std::function<void()> heard) {
                QObject::connect(&EngineOf(editor), signal, QCoreApplication::instance(),
                                 [heard](auto&&...) { heard(); });
            }};
}

const std::vector<EventRow>& EventRows()
{
    static const std::vector<EventRow> rows = {
        OfEditor("Change", &RichTextEditor::Change),
        OfEditor("Click", &RichTextEditor::Click),
        OfEditor("DblClick", &RichTextEditor::DblClick),
        OfEditor("RClick", &RichTextEditor::RClick),
        OfEditor("PropertyChanged", &RichTextEditor::PropertyChanged),
        OfText("text's Change", &RichTextView::Change),
        OfText("text's SelChange", &RichTextView::SelChange),
        OfText("text's KeyDown", &RichTextView::KeyDown),
        OfText("text's KeyUp", &RichTextView::KeyUp),
        OfText("text's MouseDown", &RichTextView::MouseDown),
        OfText("text's MouseUp", &RichTextView::MouseUp),
    };
    return rows;
}

/// What a handler does to the control that tells it.
struct Deed
{
    const char* name;
    std::function<void(const Subject&)> make;
};

const std::vector<Deed>& Deeds()
{
    static const std::vector<Deed> deeds = {
        {"inserts", [](const Subject& e) { e->InsertStringRTF(QStringLiteral("{\\rtf1 {\\b in}\\par}"), {}); }},
        {"clears", [](const Subject& e) { e->Clear(); }},
        {"undoes", [](const Subject& e) { e->Undo(); }},
        {"reads", [](const Subject& e) { e->TextString().append(e->RTFString()); }},
        {"cuts and pastes",
         [](const Subject& e) {
             e->Cut();
             e->Paste();
         }},
        {"moves the caret", [](const Subject& e) { e->CursorEnd(); }},
        {"formats by key", [](const Subject& e) { SendKey(e, Qt::Key_B, Qt::ControlModifier); }},
        {"sets properties",
         [](const Subject& e) {
             e->SetRedraw(true);
             e->SetToolbar(!e->Toolbar());
             e->SetMeasureInches(!e->MeasureInches());
         }},
    };
    return deeds;
}

class EditorHandlers : public testing::Test
{
protected:
    void SetUp() override
    {
        m_gestures = UserGestures();
        for (const Member& member : InterfaceMembers())
        {
            const std::string kind = member.kind == MemberKind::PropertyPut ? " :=" : "";
            m_gestures.push_back({std::string(member.name) + kind,
                                  [&member, this](const Subject& editor) { CallMember(*editor, member, m_file); }});
        }
        RichTextEditor other(ScriptedServices().Services());
        ASSERT_EQ(other.SaveFileRTF(m_file), 0);
    }

    static Subject MakeSubject()
    {
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
        const Subject editor = new RichTextEditor(ScriptedServices().Services());
        ShowForTyping(*editor, {400, 300});
        Put(*editor, "one ^t<b>w</b>o| three");
        QCoreApplication::processEvents();
        return editor;
    }

    /// Makes the gesture with a handler in place that does something the first time; whether it was heard.
    static bool Heard(const Gesture& gesture, const EventRow& row, const std::function<void(const Subject&)>& handler)
    {
        const Subject editor = MakeSubject();
        bool isHeard = false;
        row.connect(*editor, [&] {
            if (!std::exchange(isHeard, true))
                handler(editor);
        });
        gesture.make(editor);
        QCoreApplication::processEvents();
        delete editor;
        QCoreApplication::processEvents();
        return isHeard;
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("report.rtf"));
    std::vector<Gesture> m_gestures;
};

TEST_F(EditorHandlers, MayDeleteTheControlInAnyEventOfAnyMemberAndGesture)
{
    std::set<std::string> fired;
    std::set<std::string> changing;
    for (const Gesture& gesture : m_gestures)
        for (const EventRow& row : EventRows())
        {
            SCOPED_TRACE(gesture.name + " in " + row.name);
            if (!Heard(gesture, row, [](const Subject& editor) { delete editor; }))
                continue;
            fired.insert(row.name);
            if (row.name == std::string_view("Change"))
                changing.insert(gesture.name);
        }
    EXPECT_EQ(fired.size(), EventRows().size());
    EXPECT_THAT(changing, testing::IsSupersetOf({"letter", "bold", "bold on nothing selected", "Cut", "Paste", "Undo",
                                                 "Clear", "Delete", "OpenFileRTF", "InsertStringHidden"}));
}

TEST_F(EditorHandlers, MayDoAnythingToTheControlInAnyEvent)
{
    int heard = 0;
    for (const Gesture& gesture : m_gestures)
        for (const EventRow& row : EventRows())
        {
            const std::string_view name = row.name;
            const bool isOfTheControl = name.find("text's") == name.npos;
            if (!isOfTheControl)
                continue;
            for (const Deed& deed : Deeds())
            {
                SCOPED_TRACE(gesture.name + " in " + row.name + " " + deed.name);
                heard += Heard(gesture, row, deed.make) ? 1 : 0;
            }
        }
    EXPECT_GT(heard, 200);
}

TEST_F(EditorHandlers, ThatChangeTheDocumentInChangeHearOfTheirOwnChange)
{
    const Subject editor = MakeSubject();
    int depth = 0;
    int deepest = 0;
    QObject::connect(editor, &RichTextEditor::Change, editor, [&] {
        deepest = std::max(deepest, ++depth);
        if (depth < 5)
            editor->InsertStringText(QStringLiteral("x"), {});
        --depth;
    });
    SendKey(editor, Qt::Key_A, {}, QStringLiteral("a"));
    EXPECT_EQ(deepest, 5);
    EXPECT_EQ(editor->TextString(), QStringLiteral("one axxxx three"));
    EXPECT_TRUE(editor->Changed());
    delete editor;
}

TEST_F(EditorHandlers, ThatToggleInTheMiddleOfAToggleLeaveNoBlank)
{
    const Subject editor = MakeSubject();
    Put(*editor, "ab|cd");
    bool isFirst = true;
    QObject::connect(editor, &RichTextEditor::Change, editor, [&] {
        if (std::exchange(isFirst, false))
            SendKey(editor, Qt::Key_I, Qt::ControlModifier);
    });
    SendKey(editor, Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(isFirst);
    EXPECT_EQ(editor->TextString(), QStringLiteral("abcd"));
    TextBox& box = EngineOf(*editor).Box();
    box.SetText(u"x");
    box.Undo();
    EXPECT_EQ(editor->TextString(), QStringLiteral("abcd"));
    delete editor;
}

TEST_F(EditorHandlers, OfTwoEditorsMayDeleteTheOther)
{
    for (const Gesture& gesture : m_gestures)
    {
        SCOPED_TRACE(gesture.name);
        const Subject first = MakeSubject();
        const Subject second = MakeSubject();
        QObject::connect(first, &RichTextEditor::Change, first, [&] { delete second; });
        QObject::connect(first, &RichTextEditor::PropertyChanged, first, [&] { delete second; });
        gesture.make(first);
        QCoreApplication::processEvents();
        EXPECT_TRUE(first);
        delete first;
        delete second;
    }
}

}  // namespace
}  // namespace quillmarker
