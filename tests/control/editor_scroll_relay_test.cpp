#include "control/editor_sample.h"
#include "control/scroll_relay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScrollBar>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const QString kDrawn = QStringLiteral("ruler, reread");

/// A narrow control over wide lines, which notes what its parts hear.
class ScrolledEditor
{
public:
    ScrolledEditor()
    {
        ShowForTyping(editor, {400, 300});
        Put(editor, "|");
        EngineOf(editor).SetText(QString(300, QLatin1Char('w')));
        QApplication::processEvents();
        EditorState::Of(editor).parts = std::make_unique<RecordingParts>(log);
        log.clear();
    }
    ~ScrolledEditor() { EditorState::Of(editor).parts = std::make_unique<ControlParts>(); }

    QScrollBar& Bar() { return *EngineOf(editor).horizontalScrollBar(); }

    std::vector<QString> log;
    RichTextEditor editor;
};

TEST(ScrollRelay, AScrollSidewaysDrawsTheRulerOnceWhenItIsDone)
{
    ScrolledEditor scrolled;
    ASSERT_GT(scrolled.Bar().maximum(), 100);
    for (const int value : {50, 100, 0})
    {
        scrolled.log.clear();
        scrolled.Bar().setValue(value);
        EXPECT_THAT(scrolled.log, IsEmpty());
        QApplication::processEvents();
        EXPECT_THAT(scrolled.log, ElementsAre(kDrawn)) << value;
    }
}

TEST(ScrollRelay, AScrollThatGoesNowhereOrDownwardsDrawsNothing)
{
    ScrolledEditor scrolled;
    EngineOf(scrolled.editor).SetText(QString(200, QLatin1Char('\n')));
    QApplication::processEvents();
    scrolled.log.clear();
    scrolled.Bar().setValue(scrolled.Bar().value());
    EngineOf(scrolled.editor).verticalScrollBar()->setValue(100);
    QApplication::processEvents();
    EXPECT_THAT(scrolled.log, IsEmpty());
}

TEST(ScrollRelay, AKeyThatScrollsSidewaysDrawsTheRulerOnceForTheScroll)
{
    ScrolledEditor scrolled;
    EngineOf(scrolled.editor).SelectFromTo(0, 0);
    QApplication::processEvents();
    scrolled.log.clear();
    QTest::keyPress(EngineOf(scrolled.editor).viewport(), Qt::Key_End);
    const auto drawn = [&] { return std::ranges::count(scrolled.log, kDrawn); };
    const auto refreshed = [&] { return std::ranges::count(scrolled.log, QStringLiteral("character buttons")); };
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
    EXPECT_GT(scrolled.Bar().value(), 0);
    EXPECT_EQ(drawn(), refreshed() + 1);
}

TEST(ScrollRelay, OfTwoEditorsTheLaterOnesRulerHearsOfBoth)
{
    ScrolledEditor first;
    ScrolledEditor second;
    QApplication::processEvents();
    first.log.clear();
    second.log.clear();
    first.Bar().setValue(50);
    QApplication::processEvents();
    EXPECT_THAT(first.log, IsEmpty());
    EXPECT_THAT(second.log, ElementsAre(kDrawn));
    second.Bar().setValue(50);
    QApplication::processEvents();
    EXPECT_THAT(second.log, ElementsAre(kDrawn, kDrawn));
}

TEST(ScrollRelay, IsSurvivedByTheEditorWhoseScrollsItCarried)
{
    ScrolledEditor first;
    {
        ScrolledEditor second;
        QApplication::processEvents();
        first.Bar().setValue(20);
        second.Bar().setValue(20);
    }
    first.log.clear();
    first.Bar().setValue(50);
    QApplication::processEvents();
    EXPECT_THAT(first.log, IsEmpty());
    EXPECT_EQ(first.Bar().value(), 50);
}

TEST(ScrollRelay, ANoticeOnItsWayToAnEditorThatGoesIsDropped)
{
    auto editor = std::make_unique<ScrolledEditor>();
    editor->Bar().setValue(50);
    editor.reset();
    QApplication::processEvents();
    ScrolledEditor next;
    EXPECT_THAT(next.log, IsEmpty());
}

}  // namespace
}  // namespace quillmarker
