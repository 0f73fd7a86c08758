#include "control/editor_sample.h"
#include "support/clipboard_elsewhere.h"

#include <gmock/gmock.h>

namespace quillmarker
{
namespace
{

using testing::HasSubstr;
using testing::Not;

/// A control on the display, with the keys.
class EditorClipboardOfTheDisplay : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb"));
        m_editor.resize(800, 500);
        m_editor.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_editor, kPatience));
        EngineOf(m_editor).setFocus();
    }

    void Select(const char* text)
    {
        EngineOf(m_editor).SetText(QLatin1String(text));
        int start = 0;
        int finish = -1;
        m_editor.SelectText(start, finish);
    }

    static void ExpectNoMarkerElsewhere()
    {
        EXPECT_EQ(ReadElsewhere("text/plain"), QByteArray("abcd"));
        EXPECT_THAT(ReadElsewhere("text/rtf").toStdString(), AllOf(HasSubstr("abcd"), Not(HasSubstr("/h/"))));
        EXPECT_EQ(ReadElsewhere("text/html"), QByteArray());
    }

    RichTextEditor m_editor;
};

TEST_F(EditorClipboardOfTheDisplay, ACopyHasNoMarkersForOtherPrograms)
{
    Select("ab/h/12/cd");
    m_editor.Copy();
    ExpectNoMarkerElsewhere();
    EXPECT_EQ(m_editor.TextString(), QStringLiteral("ab/h/12/cd"));
}

TEST_F(EditorClipboardOfTheDisplay, ACutHasNoMarkersForOtherPrograms)
{
    Select("ab/h/12/cd");
    m_editor.Cut();
    ExpectNoMarkerElsewhere();
    EXPECT_EQ(m_editor.TextString(), QString());
}

TEST_F(EditorClipboardOfTheDisplay, NorHasACopyByKey)
{
    Select("ab/h/12/cd");
    QTest::keyClick(EngineOf(m_editor).viewport(), Qt::Key_C, Qt::ControlModifier);
    ExpectNoMarkerElsewhere();
}

TEST_F(EditorClipboardOfTheDisplay, WhatAnotherProgramOffersIsPasted)
{
    Peer peer("offer", "text/rtf");
    peer.Offer("{\\rtf1 x{\\b y}}");
    m_editor.Paste();
    EXPECT_EQ(m_editor.TextString(), QStringLiteral("xy"));
}

}  // namespace
}  // namespace quillmarker
