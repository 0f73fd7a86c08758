#pragma once

#include "control/editor_sample.h"
#include "format/format_toolbar_widget.h"
#include "format/tool_button_widget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{

inline constexpr int kWide = 1'000;

/// A control with the focus in its text, wide enough for all buttons, and a user in front of it.
class EditorFormatting : public testing::Test
{
protected:
    void SetUp() override { ShowForTyping(m_editor, {kWide, 600}); }

    TextBox& Box() { return EngineOf(m_editor).Box(); }
    template <class Widget>
    Widget& Child(const char* name)
    {
        return *m_editor.findChild<Widget*>(QLatin1String(name));
    }
    ToolButton& Button(std::string_view key) { return *Child<FormatToolbar>("iToolbar").Button(key); }
    void Click(std::string_view key) { QTest::mouseClick(&Button(key), Qt::LeftButton); }
    void Type(const char* text) { QTest::keyClicks(EngineOf(m_editor).viewport(), QLatin1String(text)); }
    bool TextHasFocus() { return EngineOf(m_editor).hasFocus(); }
    bool IsOpen(const char* panel) { return Child<QWidget>(panel).isVisible(); }

    ScriptedServices m_scripted;
    RichTextEditor m_editor{m_scripted.Services()};
};

}  // namespace quillmarker
