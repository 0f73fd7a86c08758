#include "shown_view.h"

#include <QElapsedTimer>
#include <QPointingDevice>
#include <QScrollBar>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

namespace quillmarker
{
namespace
{

std::string Lines(int count)
{
    std::string lines = "|0";
    for (int i = 1; i < count; ++i)
        lines += "\n" + std::to_string(i);
    return lines;
}

TEST(ScrollBars, AppearWhenTheTextIsHigherThanTheView)
{
    ShownView view("one|");
    EXPECT_FALSE(view.verticalScrollBar()->isVisible());
    view.Box().SetText(std::u16string(60, u'\n'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.verticalScrollBar()->isVisible(); }));
    EXPECT_GT(view.verticalScrollBar()->maximum(), 0);
    view.Box().SetText(u"one");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view.verticalScrollBar()->isVisible(); }));
}

TEST(ScrollBars, ReachTheLastLine)
{
    ShownView view(Lines(300));
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    const QRect last = view.CharacterRectangle(view.Box().TextLength());
    EXPECT_LE(last.bottom(), view.viewport()->height());
    EXPECT_GT(last.bottom(), view.viewport()->height() - 40);
}

TEST(ScrollBars, AWideRightMarginScrollsSideways)
{
    ShownView view("text|");
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
    view.SetRightMargin(20000);
    QCoreApplication::processEvents();
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 500);
    const int left = view.CharacterRectangle(0).left();
    int heard = 0;
    int leftThen = 0;
    QObject::connect(&view, &RichTextView::HScroll, &view, [&] {
        ++heard;
        leftThen = view.CharacterRectangle(0).left();
    });
    view.horizontalScrollBar()->setValue(100);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(leftThen, left - 100);
    view.verticalScrollBar()->setValue(5);
    EXPECT_EQ(heard, 1);
    view.SetRightMargin(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

TEST(ScrollBars, TypingAtTheEndOfALongLineBringsTheCaretIntoSight)
{
    ShownView view("|");
    view.SetRightMargin(40000);
    view.Type("the quick brown fox jumps over the lazy dog and runs away from everything that follows it");
    QCoreApplication::processEvents();
    EXPECT_GT(view.horizontalScrollBar()->value(), 0);
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
    view.Press(Qt::Key_Home);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.horizontalScrollBar()->value(), 0);
}

TEST(TheCaret, IsScrolledToAfterAnEditAndAMotion)
{
    ShownView view(Lines(300));
    view.Press(Qt::Key_End, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
    view.verticalScrollBar()->setValue(0);
    QCoreApplication::processEvents();
    EXPECT_FALSE(view.viewport()->rect().contains(view.CaretRectangle()));
    view.Type("x");
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
    view.Press(Qt::Key_Home, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

TEST(TheCaret, IsNotScrolledToByFindingWithoutHighlight)
{
    ShownView view(Lines(300));
    EXPECT_GT(view.Find(QStringLiteral("250"), 0, -1, kFindNoHighlight), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    EXPECT_EQ(view.SelText(), QStringLiteral("250"));
    EXPECT_GT(view.Find(QStringLiteral("251"), 0, -1, 0), 0);
    QCoreApplication::processEvents();
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
}

TEST(Scrolling, ALineStaysWhereItIsWhenWhatStandsAboveItIsMeasured)
{
    std::string text = "|start";
    for (int i = 0; i < 400; ++i)
        text += i % 3 == 0 ? "\na long paragraph that is wrapped into several lines in a view as narrow as this one is"
                           : "\nshort";
    ShownView view(text, {180, 300});
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2);
    QCoreApplication::processEvents();
    for (int step = 0; step < 40; ++step)
    {
        const int position = view.PositionAt({5, 100});
        const int top = view.CharacterRectangle(position).top();
        const int before = view.verticalScrollBar()->value();
        view.verticalScrollBar()->setValue(before - 17);
        const int scrolled = before - 17;
        QCoreApplication::processEvents();
        EXPECT_EQ(view.CharacterRectangle(position).top(), top + 17) << step << ' ' << scrolled;
    }
}

TEST(Scrolling, ANarrowerViewKeepsItsFirstLine)
{
    std::string text = "|start";
    for (int i = 0; i < 100; ++i)
        text += "\na long paragraph that is wrapped into several lines in a view as narrow as this one is " +
                std::to_string(i);
    ShownView view(text, {400, 300});
    view.verticalScrollBar()->setValue(700);
    QCoreApplication::processEvents();
    const int first = view.LineAround(view.PositionAt({5, 1})).begin.value;
    view.resize(250, 300);
    QCoreApplication::processEvents();
    const TextRange line = view.LineAround(view.PositionAt({5, 1}));
    EXPECT_LE(line.begin.value, first);
    EXPECT_GT(line.end.value, first);
}

TEST(Opening, ALongReportLaysOutOnlyWhatIsSeen)
{
    ShownView view("|");
    std::u16string text;
    for (int i = 0; i < 200'000; ++i)
        text += u"A line of a long report that nobody has looked at yet, with some words in it\r\n";
    view.Box().SetText(text);
    QCoreApplication::processEvents();
    EXPECT_GT(view.verticalScrollBar()->maximum(), 200'000 * 10);
    view.Press(Qt::Key_End, Qt::ControlModifier);
    view.Type("the end");
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
}

TEST(ScrollBars, AreHeardOfOnceTheViewIsAtRest)
{
    ShownView view("|");
    view.SetRightMargin(40'000);
    std::vector<int> heard;
    QObject::connect(&view, &RichTextView::HScroll, &view, [&] {
        heard.push_back(view.horizontalScrollBar()->value());
        // An edit in the slot is shown too.
        if (heard.size() == 1)
            view.SetSelText(QStringLiteral("!"));
    });
    view.Type("the quick brown fox jumps over the lazy dog and runs away from everything that follows it");
    EXPECT_TRUE(heard.empty());
    const int before = view.horizontalScrollBar()->value();
    view.EnsureVisible(89);
    EXPECT_NE(view.horizontalScrollBar()->value(), before);
    EXPECT_TRUE(heard.empty());
    QCoreApplication::processEvents();
    EXPECT_GE(heard.size(), 1U);
    EXPECT_TRUE(view.Text().endsWith(QLatin1Char('!')));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.viewport()->rect().contains(view.CaretRectangle()); }, 1000));
}

TEST(TheCaret, IsScrolledToByFindingWhatIsSelectedAlready)
{
    ShownView view(Lines(300));
    for (const bool isLong : {false, true})
    {
        const int at = view.Find(QStringLiteral("250"), 0);
        ASSERT_GT(at, 0);
        QCoreApplication::processEvents();
        view.verticalScrollBar()->setValue(0);
        QCoreApplication::processEvents();
        EXPECT_EQ(isLong ? view.Find(QStringLiteral("250"), 0) : view.Find(QStringLiteral("250")), at);
        QCoreApplication::processEvents();
        EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
    }
    view.verticalScrollBar()->setValue(0);
    QCoreApplication::processEvents();
    EXPECT_GT(view.Find(QStringLiteral("250"), 0, -1, kFindNoHighlight), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

TEST(Opening, AnotherTextShowsItsBeginning)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.rtf"));
    ShownView view(Lines(300));
    ASSERT_EQ(view.SaveFile(path), 0);
    const QString text = view.Text();
    const QString rtf = view.TextRTF();
    for (const auto& open : std::vector<std::function<void()>>{
             [&] { view.SetText(text); }, [&] { view.SetTextRTF(rtf); }, [&] { EXPECT_EQ(view.LoadFile(path), 0); }})
    {
        view.verticalScrollBar()->setValue(1'000);
        QCoreApplication::processEvents();
        ASSERT_EQ(view.verticalScrollBar()->value(), 1'000);
        open();
        QCoreApplication::processEvents();
        EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    }
}

TEST(Scrolling, AFingerDragsTheTextAndSelectsNothing)
{
    ShownView view(Lines(300));
    const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
    QWidget* ground = view.viewport();
    QTest::touchEvent(ground, finger.get()).press(0, QPoint(100, 280), ground);
    for (int y = 270; y >= 30; y -= 10)
    {
        QTest::touchEvent(ground, finger.get()).move(0, QPoint(100, y), ground);
        QCoreApplication::processEvents();
    }
    QTest::touchEvent(ground, finger.get()).release(0, QPoint(100, 30), ground);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.verticalScrollBar()->value() > 100; }));
    EXPECT_EQ(view.SelLength(), 0);
    EXPECT_EQ(view.SelStart(), 0);
}

TEST(ATap, PutsTheCaretThereAndIsAClick)
{
    ShownView view("|one two three");
    int clicks = 0;
    QObject::connect(&view, &RichTextView::Click, [&] { ++clicks; });
    const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
    QTest::touchEvent(view.viewport(), finger.get()).press(0, view.LeftOf(4), view.viewport());
    QTest::touchEvent(view.viewport(), finger.get()).release(0, view.LeftOf(4), view.viewport());
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 1; }));
    EXPECT_EQ(view.SelStart(), 4);
    EXPECT_EQ(view.SelLength(), 0);
}

}  // namespace
}  // namespace quillmarker
