#include "support/sample.h"

#include <quillmarker/widgets/rich_text_view.h>

#include <QAccessible>
#include <QTest>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

using testing::Contains;
using testing::ElementsAre;

/// As long as a machine that is busy elsewhere may take.
constexpr int kPatience = 60'000;

/// What was told, in one line each.
std::vector<std::string>& Told()
{
    static std::vector<std::string> told;
    return told;
}

void Hear(QAccessibleEvent* event)
{
    const auto say = [](const QString& text) { Told().push_back(text.toStdString()); };
    switch (event->type())
    {
    case QAccessible::TextInserted:
    {
        const auto* inserted = static_cast<QAccessibleTextInsertEvent*>(event);
        say(QStringLiteral("inserted %1 %2").arg(inserted->changePosition()).arg(inserted->textInserted()));
        break;
    }
    case QAccessible::TextRemoved:
    {
        const auto* removed = static_cast<QAccessibleTextRemoveEvent*>(event);
        say(QStringLiteral("removed %1 %2").arg(removed->changePosition()).arg(removed->textRemoved()));
        break;
    }
    case QAccessible::TextUpdated:
    {
        const auto* updated = static_cast<QAccessibleTextUpdateEvent*>(event);
        say(QStringLiteral("updated %1 %2 -> %3")
                .arg(updated->changePosition())
                .arg(updated->textRemoved(), updated->textInserted()));
        break;
    }
    case QAccessible::TextCaretMoved:
        say(QStringLiteral("caret %1").arg(static_cast<QAccessibleTextCursorEvent*>(event)->cursorPosition()));
        break;
    case QAccessible::TextSelectionChanged:
    {
        const auto* selected = static_cast<QAccessibleTextSelectionEvent*>(event);
        say(QStringLiteral("selection %1 %2").arg(selected->selectionStart()).arg(selected->selectionEnd()));
        break;
    }
    case QAccessible::TextAttributeChanged:
        say(QStringLiteral("formats"));
        break;
    case QAccessible::DocumentContentChanged:
        say(QStringLiteral("everything"));
        break;
    default:
        break;
    }
}

/// Qt tells nothing while nobody listens on the bus of the session, so this needs one.
class NewsForScreenReaders : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QTest::qWaitFor([] { return QAccessible::isActive(); }, kPatience));
        m_view.resize(300, 200);
        m_view.show();
        QAccessible::installUpdateHandler(Hear);
    }
    void TearDown() override { QAccessible::installUpdateHandler(nullptr); }

    void Show(const char* sample)
    {
        const SampleBox box(sample);
        m_view.Box().OpenValue(box.Value());
        m_view.Box().SetSelStart(box.SelStart());
        m_view.Box().SetSelLength(box.SelLength());
        Told().clear();
    }

    RichTextView m_view;
};

TEST_F(NewsForScreenReaders, HearsWhatIsTypedAndDeleted)
{
    Show("ab|c");
    m_view.Box().Type(u"x");
    EXPECT_THAT(Told(), ElementsAre("inserted 2 x", "caret 3"));
    Told().clear();
    m_view.Box().TypeBackspace();
    EXPECT_THAT(Told(), ElementsAre("removed 2 x", "caret 2"));
    Told().clear();
    m_view.Box().Type(u"\n");
    EXPECT_THAT(Told(), ElementsAre("inserted 2 \r\n", "caret 4"));
    Told().clear();
    m_view.Undo();
    EXPECT_THAT(Told(), Contains("removed 2 \r\n"));
}

TEST_F(NewsForScreenReaders, HearsOfTheSelectionAndItsReplacement)
{
    Show("one two|");
    m_view.SelectFromTo(0, 3);
    EXPECT_THAT(Told(), ElementsAre("caret 3", "selection 0 3"));
    Told().clear();
    m_view.Box().Type(u"1");
    EXPECT_THAT(Told(), ElementsAre("updated 0 one -> 1", "caret 1", "selection 1 1"));
    Told().clear();
    m_view.SetSelStart(0);
    EXPECT_THAT(Told(), ElementsAre("caret 0"));
}

TEST_F(NewsForScreenReaders, HearsOfFormatsAndOfAnotherDocument)
{
    Show("^one| two");
    m_view.SetSelBold(true);
    EXPECT_THAT(Told(), ElementsAre("formats"));
    Told().clear();
    m_view.SetText(QString(200'000, QLatin1Char('x')));
    EXPECT_THAT(Told(), Contains("everything"));
}

}  // namespace
}  // namespace quillmarker
