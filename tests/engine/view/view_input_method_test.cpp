#include "shown_view.h"

#include <QInputMethodEvent>

#include <functional>
#include <vector>

namespace quillmarker
{
namespace
{

void PreEditText(RichTextView& view, const char16_t* text, int caret = -1)
{
    QList<QInputMethodEvent::Attribute> attributes;
    if (caret >= 0)
        attributes.append({QInputMethodEvent::Cursor, caret, 1});
    QInputMethodEvent event(QString::fromUtf16(text), attributes);
    QApplication::sendEvent(&view, &event);
}

void Commit(RichTextView& view, const char16_t* text, int from = 0, int length = 0)
{
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf16(text), from, length);
    QApplication::sendEvent(&view, &event);
}

TEST(InputMethods, ShowWhatTheyWorkOnAndKeepItOutOfTheDocument)
{
    QApplication::setCursorFlashTime(0);
    ShownView view("one |two");
    const QImage before = view.Picture();
    const QRect word = view.CharacterRectangle(4);
    int changes = 0;
    QObject::connect(&view, &RichTextView::Change, &view, [&] { ++changes; });
    PreEditText(view, u"mmm");
    EXPECT_EQ(Dump(view), "one |two");
    EXPECT_EQ(changes, 0);
    EXPECT_NE(view.Picture(), before);
    // The text behind makes room; the caret stands behind what is being written.
    EXPECT_GT(view.CharacterRectangle(5).left(), word.right() + 10);
    EXPECT_GT(view.CaretRectangle().left(), word.left() + 10);
    PreEditText(view, u"mmm", 0);
    EXPECT_NEAR(view.CaretRectangle().left(), word.left(), 1);
    PreEditText(view, u"");
    EXPECT_EQ(view.Picture(), before);
}

TEST(InputMethods, UnderlineWhatTheyWorkOn)
{
    QApplication::setCursorFlashTime(0);
    ShownView view("|");
    const int bottom = view.CaretRectangle().bottom();
    PreEditText(view, u"mm");
    const QRect letters = view.CaretRectangle();
    const QImage image = view.Picture();
    const int width = letters.left() - 4;
    int underlined = 0;
    for (int y = bottom - 5; y <= bottom; ++y)
    {
        int dark = 0;
        for (int x = 4; x < 4 + width; ++x)
            dark += image.pixelColor(x, y).lightness() < 160 ? 1 : 0;
        underlined += dark >= width - 2 ? 1 : 0;
    }
    EXPECT_GE(underlined, 1);
}

TEST(InputMethods, CommitWhatWasWritten)
{
    ShownView view("one |two");
    PreEditText(view, u"xy");
    Commit(view, u"\u65E5\u672C");
    EXPECT_EQ(Dump(view), "one \u65E5\u672C|two");
    Commit(view, u"!", -2, 2);
    EXPECT_EQ(Dump(view), "one !|two");
    view.Undo();
    EXPECT_EQ(Dump(view), "one |two");
}

TEST(InputMethods, WriteInTheSelectionsPlace)
{
    ShownView view("one ^two| three");
    PreEditText(view, u"x");
    EXPECT_EQ(Dump(view), "one | three");
    Commit(view, u"2");
    EXPECT_EQ(Dump(view), "one 2| three");
}

TEST(InputMethods, WriteNothingWhereTheUserMayNot)
{
    ShownView view("one |two");
    view.SetLocked(true);
    PreEditText(view, u"x");
    Commit(view, u"y");
    EXPECT_EQ(Dump(view), "one |two");
    EXPECT_FALSE(view.inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST(InputMethods, LearnWhatStandsAroundTheCaret)
{
    ShownView view("first\nsec^on|d\nlast");
    EXPECT_EQ(view.inputMethodQuery(Qt::ImSurroundingText).toString(), QStringLiteral("second"));
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorPosition).toInt(), 5);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImAnchorPosition).toInt(), 3);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCurrentSelection).toString(), QStringLiteral("on"));
    EXPECT_EQ(view.inputMethodQuery(Qt::ImAbsolutePosition).toInt(), 12);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImTextBeforeCursor).toString(), QStringLiteral("secon"));
    EXPECT_EQ(view.inputMethodQuery(Qt::ImTextAfterCursor).toString(), QStringLiteral("d"));
    EXPECT_TRUE(view.inputMethodQuery(Qt::ImEnabled).toBool());
    const QRect caret = view.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_EQ(caret, view.CaretRectangle().translated(view.viewport()->pos()));
}

TEST(InputMethods, AClickEndsWhatTheyWorkOn)
{
    ShownView view("one two|");
    PreEditText(view, u"xyz");
    view.ClickAt(QPoint(5, view.CaretRectangle().center().y()));
    EXPECT_EQ(Dump(view), "|one two");
    Commit(view, u"a");
    EXPECT_EQ(Dump(view), "a|one two");
}

TEST(InputMethods, LoseWhatTheyWorkOnWhenTheHostEdits)
{
    QApplication::setCursorFlashTime(0);
    for (const auto& edit : std::vector<std::function<void(RichTextView&)>>{
             [](RichTextView& view) { view.SetSelText(QStringLiteral("host")); },
             [](RichTextView& view) { view.SetText(QStringLiteral("other")); },
             [](RichTextView& view) { view.SelectFromTo(2, 2); },
             [](RichTextView& view) { view.SetSelStart(2); },
             [](RichTextView& view) { view.SetLocked(true); },
         })
    {
        ShownView view("one |two");
        PreEditText(view, u"mmm");
        edit(view);
        // What is shown is the document, up to its last character.
        ShownView same("|");
        same.Box().OpenValue(view.Box().Value());
        same.Box().Select({view.SelStart(), view.SelLength()});
        const int end = view.Box().TextLength();
        EXPECT_EQ(view.CharacterRectangle(end), same.CharacterRectangle(end));
        EXPECT_EQ(view.CaretRectangle(), same.CaretRectangle());
    }
}

TEST(InputMethods, SelectInTheTextTheyWereTold)
{
    std::string text = "|";
    text += std::string(10'000, 'a');
    ShownView view(text);
    view.SelectFromTo(8'000, 8'000);
    QInputMethodEvent event({}, {{QInputMethodEvent::Selection, 10, 5}});
    const int told = 8'000 - view.inputMethodQuery(Qt::ImCursorPosition).toInt();
    QApplication::sendEvent(&view, &event);
    EXPECT_GT(told, 0);
    EXPECT_EQ(view.AnchorOffset(), told + 10);
    EXPECT_EQ(view.CaretOffset(), told + 15);
}

TEST(InputMethods, LetHostsFilterWhatTheyCommit)
{
    ShownView view("|");
    QString heard;
    QObject::connect(&view, &RichTextView::KeyPress, &view, [&](QString& text, bool& swallow) {
        heard += text;
        swallow = text == QStringLiteral("no");
        text = text.toUpper();
    });
    Commit(view, u"ab");
    Commit(view, u"no");
    Commit(view, u"c", -1, 1);
    EXPECT_EQ(heard, QStringLiteral("abnoc"));
    EXPECT_EQ(Dump(view), "AC|");
}

TEST(InputMethods, OverwriteAsMuchAsTheyCommit)
{
    ShownView view("|abcd\ne");
    view.SetOverwrites(true);
    Commit(view, u"x\u65E5");
    EXPECT_EQ(Dump(view), "x\u65E5|cd\ne");
    Commit(view, u"123");
    EXPECT_EQ(Dump(view), "x\u65E5123|\ne");
    view.Undo();
    EXPECT_EQ(view.Text(), QStringLiteral("abcd\r\ne"));
}

}  // namespace
}  // namespace quillmarker
