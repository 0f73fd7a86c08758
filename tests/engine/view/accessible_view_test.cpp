#include "engine/view/accessible_view.h"

#include "support/sample.h"

#include <QAccessible>
#include <QTest>

#include <gtest/gtest.h>

#include <ostream>

namespace quillmarker
{
namespace
{

struct Answer
{
    std::u16string text;
    int start = 0;
    int end = 0;

    bool operator==(const Answer&) const = default;
};

void PrintTo(const Answer& answer, std::ostream* out)
{
    *out << QString::fromStdU16String(answer.text).toStdString() << " (" << answer.start << ", " << answer.end << ")";
}

class ScreenReader : public testing::Test
{
protected:
    void SetUp() override
    {
        m_view.resize(300, 200);
        m_view.show();
        ASSERT_TRUE(m_interface && m_interface->textInterface() && m_interface->editableTextInterface());
    }

    void Show(const char* sample)
    {
        const SampleBox box(sample);
        m_view.Box().OpenValue(box.Value());
        m_view.Box().SetSelStart(box.SelStart());
        m_view.Box().SetSelLength(box.SelLength());
    }

    QAccessibleTextInterface& Text() { return *m_interface->textInterface(); }
    QAccessibleEditableTextInterface& Editable() { return *m_interface->editableTextInterface(); }

    using Question = QString (QAccessibleTextInterface::*)(int, QAccessible::TextBoundaryType, int*, int*) const;
    Answer Ask(Question question, int offset, QAccessible::TextBoundaryType boundary)
    {
        Answer answer;
        answer.text = (Text().*question)(offset, boundary, &answer.start, &answer.end).toStdU16String();
        return answer;
    }
    Answer At(int offset, QAccessible::TextBoundaryType boundary)
    {
        return Ask(&QAccessibleTextInterface::textAtOffset, offset, boundary);
    }
    Answer Before(int offset, QAccessible::TextBoundaryType boundary)
    {
        return Ask(&QAccessibleTextInterface::textBeforeOffset, offset, boundary);
    }
    Answer After(int offset, QAccessible::TextBoundaryType boundary)
    {
        return Ask(&QAccessibleTextInterface::textAfterOffset, offset, boundary);
    }

    std::string Shown() { return Dump(m_view.Box()); }

    RichTextView m_view;
    QAccessibleInterface* m_interface = QAccessible::queryAccessibleInterface(&m_view);
};

TEST_F(ScreenReader, SeesAnEditableTextOfSeveralLines)
{
    EXPECT_EQ(m_interface->role(), QAccessible::EditableText);
    EXPECT_TRUE(m_interface->state().editable);
    EXPECT_TRUE(m_interface->state().multiLine);
    EXPECT_TRUE(m_interface->state().selectableText);
    EXPECT_TRUE(m_interface->state().focusable);
    EXPECT_FALSE(m_interface->state().readOnly);
    m_view.SetLocked(true);
    EXPECT_TRUE(m_interface->state().readOnly);
    EXPECT_FALSE(m_interface->state().editable);
    m_view.setAccessibleName(QStringLiteral("Report"));
    EXPECT_EQ(m_interface->text(QAccessible::Name), QStringLiteral("Report"));
}

TEST_F(ScreenReader, ReadsTheTextThatPositionsCount)
{
    Show("a\nb<pic/><h>c</h>|");
    EXPECT_EQ(Text().characterCount(), 6);
    EXPECT_EQ(Text().text(0, -1), QStringLiteral("a\r\nb c"));
    EXPECT_EQ(Text().text(1, 4), QStringLiteral("\r\nb"));
    EXPECT_EQ(Text().text(4, 1), QString());
    EXPECT_EQ(Text().text(-5, 100), QStringLiteral("a\r\nb c"));
    EXPECT_EQ(m_interface->text(QAccessible::Value), QStringLiteral("a\r\nb c"));
}

TEST_F(ScreenReader, ReadsCharactersWordsAndParagraphs)
{
    Show("pay the total\nnow|");
    EXPECT_EQ(At(4, QAccessible::CharBoundary), (Answer{u"t", 4, 5}));
    EXPECT_EQ(Before(4, QAccessible::CharBoundary), (Answer{u" ", 3, 4}));
    EXPECT_EQ(After(12, QAccessible::CharBoundary), (Answer{u"\r\n", 13, 15}));
    EXPECT_EQ(At(5, QAccessible::WordBoundary), (Answer{u"the ", 4, 8}));
    EXPECT_EQ(Before(5, QAccessible::WordBoundary), (Answer{u"pay ", 0, 4}));
    EXPECT_EQ(After(5, QAccessible::WordBoundary), (Answer{u"total", 8, 13}));
    EXPECT_EQ(At(5, QAccessible::ParagraphBoundary), (Answer{u"pay the total\r\n", 0, 15}));
    EXPECT_EQ(After(5, QAccessible::ParagraphBoundary), (Answer{u"now", 15, 18}));
    EXPECT_EQ(Before(16, QAccessible::ParagraphBoundary), (Answer{u"pay the total\r\n", 0, 15}));
    EXPECT_EQ(At(5, QAccessible::NoBoundary), (Answer{u"pay the total\r\nnow", 0, 18}));
}

TEST_F(ScreenReader, FindsNothingBeyondTheEnds)
{
    Show("ab\n|");
    EXPECT_EQ(Before(1, QAccessible::WordBoundary), (Answer{u"", 0, 0}));
    EXPECT_EQ(After(2, QAccessible::CharBoundary), (Answer{u"", 4, 4}));
    EXPECT_EQ(At(4, QAccessible::LineBoundary), (Answer{u"", 4, 4}));
    EXPECT_EQ(At(-2, QAccessible::LineBoundary), (Answer{u"", 4, 4}));
    EXPECT_EQ(At(0, QAccessible::LineBoundary), (Answer{u"ab\r\n", 0, 4}));
}

TEST_F(ScreenReader, ReadsTheLinesThatAreShown)
{
    Show("|the quick brown fox jumps over the lazy dog and goes on to where nobody saw it before\nshort\n\nlast");
    const QString text = m_view.Text();
    QString read;
    int lines = 0;
    for (int offset = 0; offset < text.size(); ++lines)
    {
        const Answer line = At(offset, QAccessible::LineBoundary);
        ASSERT_EQ(line.start, offset);
        ASSERT_GT(line.end, line.start);
        EXPECT_EQ(Before(offset, QAccessible::LineBoundary).end, offset);
        // The first and the last character of a line stand at one height, the next line's lower.
        const int top = Text().characterRect(line.start).top();
        EXPECT_EQ(Text().characterRect(line.start + 1).top(), top);
        EXPECT_TRUE(line.end == text.size() || Text().characterRect(line.end).top() > top);
        read += QString::fromStdU16String(line.text);
        offset = line.end;
    }
    EXPECT_EQ(read, text);
    EXPECT_GT(lines, 4);
}

TEST_F(ScreenReader, FindsCharactersOnTheScreen)
{
    Show("|abc def\nghi");
    const QRect shown(m_view.viewport()->mapToGlobal(QPoint(0, 0)), m_view.viewport()->size());
    for (const int offset : {0, 1, 4, 6, 9, 11})
    {
        const QRect character = Text().characterRect(offset);
        EXPECT_TRUE(shown.contains(character)) << offset;
        EXPECT_EQ(Text().offsetAtPoint(character.center()), offset);
    }
    EXPECT_EQ(Text().offsetAtPoint(shown.bottomRight()), -1);
}

TEST_F(ScreenReader, ReadsAndMovesCaretAndSelection)
{
    Show("one ^two|");
    EXPECT_EQ(Text().cursorPosition(), 7);
    ASSERT_EQ(Text().selectionCount(), 1);
    int start = 0;
    int end = 0;
    Text().selection(0, &start, &end);
    EXPECT_EQ(start, 4);
    EXPECT_EQ(end, 7);
    Text().removeSelection(0);
    EXPECT_EQ(Shown(), "one two|");
    EXPECT_EQ(Text().selectionCount(), 0);
    Text().setCursorPosition(2);
    EXPECT_EQ(Shown(), "on|e two");
    Text().addSelection(0, 3);
    EXPECT_EQ(Shown(), "^one| two");
    Text().setSelection(0, 3, 1);
    EXPECT_EQ(Text().cursorPosition(), 1);
    Text().setSelection(1, 0, 7);
    EXPECT_EQ(Text().cursorPosition(), 1);
}

TEST_F(ScreenReader, HearsOfFormatsOverTheirExtent)
{
    Show("a<b>bold</b>c\nd|");
    int start = 0;
    int end = 0;
    EXPECT_TRUE(Text().attributes(2, &start, &end).contains(QLatin1String("font-weight:bold")));
    EXPECT_EQ(start, 1);
    EXPECT_EQ(end, 5);
    EXPECT_TRUE(Text().attributes(5, &start, &end).contains(QLatin1String("font-weight:normal")));
    EXPECT_EQ(start, 5);
    EXPECT_EQ(end, 6);
    Text().attributes(6, &start, &end);
    EXPECT_EQ(start, 6);
    EXPECT_EQ(end, 8);
    Text().attributes(9, &start, &end);
    EXPECT_EQ(start, 9);
    EXPECT_EQ(end, 9);
}

TEST_F(ScreenReader, WritesAsTheUserDoes)
{
    Show("one two|");
    Editable().insertText(3, QStringLiteral("!"));
    EXPECT_EQ(Shown(), "one!| two");
    Editable().replaceText(0, 3, QStringLiteral("1"));
    EXPECT_EQ(Shown(), "1|! two");
    Editable().deleteText(1, 3);
    EXPECT_EQ(Shown(), "1|two");
    m_view.Undo();
    EXPECT_EQ(m_view.Text(), QStringLiteral("1! two"));
    m_interface->setText(QAccessible::Value, QStringLiteral("all"));
    EXPECT_EQ(Shown(), "all|");
    m_view.SetLocked(true);
    Editable().insertText(0, QStringLiteral("x"));
    Editable().deleteText(0, 2);
    EXPECT_EQ(m_view.Text(), QStringLiteral("all"));
}

TEST_F(ScreenReader, ScrollsToAPart)
{
    m_view.SetText(QStringLiteral("line\n").repeated(500));
    const int offset = 6 * 300;
    const QRect shown(m_view.viewport()->mapToGlobal(QPoint(0, 0)), m_view.viewport()->size());
    EXPECT_FALSE(shown.contains(Text().characterRect(offset)));
    Text().scrollToSubstring(offset, offset + 4);
    EXPECT_TRUE(shown.contains(Text().characterRect(offset)));
}

TEST(AScreenReader, DeletesInAStepOfItsOwn)
{
    RichTextView view;
    view.SetText(QStringLiteral("one two"));
    view.Box().ClearHistory();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(interface, nullptr);
    view.SelectFromTo(1, 1);
    view.Box().Type(u"x");
    view.SelectFromTo(1, 2);
    view.Box().Type(u"y");
    interface->editableTextInterface()->deleteText(1, 2);
    view.Box().Type(u"z");
    EXPECT_EQ(view.Text(), QStringLiteral("ozne two"));
    view.Undo();
    EXPECT_EQ(view.Text(), QStringLiteral("one two"));
    view.Undo();
    EXPECT_EQ(view.Text(), QStringLiteral("oyne two"));
}

}  // namespace
}  // namespace quillmarker
