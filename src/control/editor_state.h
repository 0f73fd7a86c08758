#pragma once

#include "control_parts.h"
#include "editor_view_widget.h"
#include "engine/box/attempt.h"
#include "format/format_commands.h"
#include "key_policy.h"

#include <quillmarker/report.h>
#include <quillmarker/rich_text_editor.h>

#include <QPointer>
#include <QStringList>

#include <array>
#include <memory>

class QLineEdit;

namespace quillmarker
{

class FormatToolbar;
class StatusBar;

/// Twips. The order is that of the persisted keys.
struct Margins
{
    int left = 720;
    int right = 720;
    int top = 720;
    int bottom = 720;
};

/// The border of the paper that the printer cannot reach, in twips.
struct PrinterOffsets
{
    int left = 182;
    int right = 384;
    int top = 182;
    int bottom = 720;
};

/// What is behind a RichTextEditor. Handlers of the host run in the middle of its functions and may delete the control:
/// whoever calls one holds the state, and steps that come after find the widgets gone.
class EditorState : public ReportHooks, public FormatHost, public std::enable_shared_from_this<EditorState>
{
public:
    EditorState(RichTextEditor& owner, PlatformServices given);

    /// The state behind a control, for those who build its parts and for tests.
    static EditorState& Of(RichTextEditor& owner) { return *owner.m_state; }

    /// Tries a step that needs the control, if that is still there.
    template <class Step>
    void Try(Step step)
    {
        Attempt([&] {
            if (editor)
                step();
        });
    }

    // The life of the control.
    void Initialize();
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;
    void Show();
    void Resize();
    void WatchHostWindow();
    void Terminate();
    void LayoutChildren();
    void ComputePrinterOffsets();
    void ApplyPageWidth();

    // The interface.
    void SetShown(bool& field, bool shown, const QString& key);
    void SetInches(bool value);
    float MarginInUnits(int margin) const;
    void ShowFontDialog();
    void SetMargin(int& margin, float value, const QString& key);

    // What the text tells.
    void OnChange();
    void OnKeyDown(const QKeyEvent& event, bool& swallow);
    void OnKeyUp(const QKeyEvent& event, bool& swallow);
    void OnMouseDown(const QMouseEvent& event);
    void DrawRuler(RulerReading reading);
    void HidePopups();

    // FormatHost
    TextBox* Box() override;
    void SetRedraw(bool redraw) override;
    int DefaultCharset() const override;
    bool MayFormat() const override;
    void Undo() override;
    void Cut() override;
    void Copy() override;
    void Paste() override;
    void Delete() override;
    void ShowSearchDialog() override;
    void ToolbarClick(std::string_view key) override;
    void UpdateScriptButtons() override;

    // ReportHooks
    void FocusText() override;
    void LockPainting(bool locked) override;
    void RefreshUIState() override;
    void PropertyChanged(std::u16string_view key) override;

    QPointer<RichTextEditor> editor;
    PlatformServices services;
    std::unique_ptr<ControlParts> parts = std::make_unique<ControlParts>();

    // Children; Qt deletes them with the control.
    QPointer<FormatToolbar> toolbar;
    QPointer<QWidget> ruler;
    QPointer<EditorView> engine;
    QPointer<StatusBar> statusBar;
    QPointer<QLineEdit> outline;  // hears that the text was scrolled
    QPointer<QLineEdit> textBox;  // its font says the default character set

    std::unique_ptr<Report> report;
    FormatCommands formatCommands{*this};

    bool showsToolbar = true;
    bool showsRuler = true;
    bool showsStatusbar = true;
    bool inches = false;
    Margins margins;
    double labelStep = 567;
    int twipsPerPixelX = 15;
    int twipsPerPixelY = 15;
    PrinterOffsets printerOffsets;
    bool noPrinter = false;
    bool refreshActive = false;

    // What the pickers offer: the popup list's and the combo's.
    QStringList popupFontNames;
    QStringList comboFontNames;
    QStringList popupSizes;
    QStringList comboSizes;

private:
    void MakeChildren();
    void MakeParts();
    void ConnectEngine();
    void ProbePrinter();
    void FillLists();
    void FormatEmptyDocument();
    void TakeDefaultCharset();
    void Toggle(KeyPolicy policy);

    QPointer<QWidget> m_hostWindow;
};

}  // namespace quillmarker
