#pragma once

#include "control/editor_state.h"
#include "engine/platform/clipboard.h"
#include "support/sample.h"

#include <quillmarker/rich_text_editor.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

namespace quillmarker
{

/// Printers as a test wants them.
class ScriptedPrinters : public PrinterService
{
public:
    QStringList Names() const override
    {
        QStringList names;
        for (const PrinterDescription& printer : printers)
            names.append(printer.name);
        return names;
    }
    QString DefaultName() const override { return printers.empty() ? QString() : printers.front().name; }
    std::optional<PrinterDescription> Describe(const QString& name) const override
    {
        for (const PrinterDescription& printer : printers)
            if (printer.name == name)
                return printer;
        return std::nullopt;
    }

    std::vector<PrinterDescription> printers;
};

/// A printer of A4 paper with a border of a quarter of an inch that it cannot reach.
inline PrinterDescription SamplePrinter()
{
    PrinterDescription printer;
    printer.name = QStringLiteral("Sample");
    printer.port = QStringLiteral("usb");
    printer.pageWidth = 11'906;
    printer.pageHeight = 16'838;
    printer.printableWidth = 11'186;
    printer.printableHeight = 16'118;
    printer.offsetLeft = 360;
    printer.offsetTop = 360;
    return printer;
}

/// Message boxes that a test answers, and reads later.
class ScriptedMessageBoxes : public MessageBoxService
{
public:
    QMessageBox::StandardButton Show(const Message& message, QWidget* /*owner*/) override
    {
        shown.push_back(message);
        return answer;
    }

    std::vector<Message> shown;
    QMessageBox::StandardButton answer = QMessageBox::Ok;
};

/// A font chooser that a test answers: it cancels unless it is told what to choose.
class ScriptedFontDialog : public FontDialogService
{
public:
    bool Choose(FontDialogRequest& request, QWidget* /*owner*/) override
    {
        shown.push_back(request);
        if (choose)
            choose(request);
        return choose != nullptr;
    }

    std::vector<FontDialogRequest> shown;
    std::function<void(FontDialogRequest&)> choose;
};

/// The services of a control under test: printers, message boxes and dialogs are scripted, all else is Qt's.
struct ScriptedServices
{
    std::shared_ptr<ScriptedPrinters> printers = std::make_shared<ScriptedPrinters>();
    std::shared_ptr<ScriptedMessageBoxes> messageBoxes = std::make_shared<ScriptedMessageBoxes>();
    std::shared_ptr<ScriptedFontDialog> fontDialog = std::make_shared<ScriptedFontDialog>();

    PlatformServices Services() const
    {
        PlatformServices services;
        services.printers = printers;
        services.messageBoxes = messageBoxes;
        services.fontDialog = fontDialog;
        return services;
    }
};

/// What the control tells its parts, in order.
class RecordingParts : public ControlParts
{
public:
    explicit RecordingParts(std::vector<QString>& log) : m_log(log) {}

    void UpdateCharacterButtons() override { Note("character buttons"); }
    void UpdateParagraphButtons() override { Note("paragraph buttons"); }
    void DrawRuler(RulerReading reading) override { Note(reading == RulerReading::Reread ? "ruler, reread" : "ruler"); }
    void PlaceCombos() override { Note("combos"); }
    void HidePopups() override { Note("popups hidden"); }
    void HideFindDialog() override { Note("find hidden"); }
    void RestoreFindDialog() override { Note("find restored"); }
    void Unload(Form form) override
    {
        constexpr const char* kNames[] = {"ViewFrm", "ParaDlg", "FindDlg", "ComFrm"};
        Note(kNames[static_cast<std::size_t>(form)]);
    }

private:
    void Note(const char* what) { m_log.push_back(QLatin1String(what)); }

    std::vector<QString>& m_log;
};

inline RichTextView& EngineOf(RichTextEditor& editor)
{
    return *editor.findChild<RichTextView*>(QStringLiteral("RTF"));
}

/// Puts a sample in the text as a file is opened: no history, and the events are over.
inline void Put(RichTextEditor& editor, std::string_view sample)
{
    const SampleBox given(sample);
    TextBox& box = EngineOf(editor).Box();
    box.OpenValue(given.Value());
    box.Select({given.SelStart(), given.SelLength()});
    editor.SetChanged(false);
}

inline std::string Shown(RichTextEditor& editor) { return Dump(EngineOf(editor).Box()); }

/// Shown as a host shows it, active, with the focus in the text.
inline void ShowForTyping(RichTextEditor& editor, QSize size = {800, 600})
{
    editor.resize(size);
    editor.show();
    QApplication::setActiveWindow(&editor);
    EngineOf(editor).setFocus();
    QApplication::processEvents();
}

}  // namespace quillmarker
