#include "clipboard_cleaning.h"
#include "editor_state.h"
#include "format/choose_font.h"
#include "format/font_choosing.h"

#include <cmath>
#include <limits>

namespace quillmarker
{
namespace
{

/// As a whole number, halves to even; empty when it is none or too large.
std::optional<int> Rounded(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max()))
        return std::nullopt;
    return static_cast<int>(rounded);
}

}  // namespace

void EditorState::SetShown(bool& field, bool shown, const QString& key)
{
    field = shown;
    Try([&] { Q_EMIT editor->PropertyChanged(key); });
    LayoutChildren();
}

void EditorState::SetInches(bool value)
{
    inches = value;
    Try([&] { Q_EMIT editor->PropertyChanged(QStringLiteral("Inches")); });
    DrawRuler(RulerReading::Reread);
}

float EditorState::MarginInUnits(int margin) const { return static_cast<float>(margin / labelStep); }

void EditorState::SetMargin(int& margin, float value, const QString& key)
{
    if (const std::optional<int> twips = Rounded(static_cast<double>(value) * labelStep))
        margin = *twips;
    Try([&] { Q_EMIT editor->PropertyChanged(key); });
}

// A copy of two characters or more, and any cut of a selection, rewrites the clipboard. The thresholds differ on purpose.

void EditorState::Copy()
{
    constexpr int kShortestCleaned = 2;
    FocusText();
    Try([&] { engine->RichTextView::Copy(); });
    Try([&] { services.pendingEvents->Process(); });
    Try([&] {
        if (engine->SelLength() >= kShortestCleaned)
            CleanClipboard(*services.clipboard, *services.pendingEvents);
    });
}

void EditorState::Cut()
{
    FocusText();
    bool hadSelection = false;
    Try([&] { hadSelection = engine->SelLength() > 0; });
    Try([&] { engine->RichTextView::Cut(); });
    Try([&] { services.pendingEvents->Process(); });
    if (hadSelection)
        Try([&] { CleanClipboard(*services.clipboard, *services.pendingEvents); });
}

void EditorState::Paste()
{
    FocusText();
    Try([&] { engine->RichTextView::Paste(); });
}

void EditorState::Delete()
{
    FocusText();
    Try([&] { engine->RichTextView::Clear(); });
}

void EditorState::Undo()
{
    Try([&] { report->Undo(); });
}

/// Whoever may not format may look all the same; nothing comes of it.
void EditorState::ShowFontDialog()
{
    Try([&] {
        const FontChoice given = ChoiceOfSelection(engine->Box());
        FontChoice chosen = given;
        const FontServices machine{*services.fontDialog, *services.messageBoxes, *services.help};
        if (ChooseFontDialog(chosen, machine, editor, editor->logicalDpiY(), DefaultCharset()) && MayFormat())
            ApplyFontChoice(formatCommands, chosen, given);
    });
    FocusText();
}

void EditorState::ShowSearchDialog()
{
    Try([&] { editor->ShowSearchDialog(); });
}

void EditorState::ToolbarClick(std::string_view key)
{
    const QString name = QLatin1String(key.data(), static_cast<qsizetype>(key.size()));
    Try([&] { Q_EMIT editor->ToolbarClick(name); });
}

void EditorState::UpdateScriptButtons()
{
    Try([&] { parts->UpdateScriptButtons(); });
}

TextBox* EditorState::Box() { return editor && engine ? &engine->Box() : nullptr; }

void EditorState::SetRedraw(bool redraw)
{
    Try([&] { report->SetRedraw(redraw); });
}

int EditorState::DefaultCharset() const { return report ? report->DefaultCharset() : 0; }

}  // namespace quillmarker
