#include <quillmarker/rich_text_editor.h>

#include "editor_state.h"

#include <QEvent>

#include <filesystem>
#include <vector>

namespace quillmarker
{
namespace
{

std::u16string_view View(const QString& text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

QString Shown(const std::u16string& text) { return QString::fromStdU16String(text); }

std::filesystem::path Path(const QString& name) { return name.toStdU16String(); }

/// What the report answers; `otherwise` when the control is being deleted or for lack of memory.
template <class Value, class Work>
Value Ask(const std::shared_ptr<EditorState>& state, Value otherwise, Work work)
{
    const auto held = state->shared_from_this();
    held->Try([&] { otherwise = work(*held->report); });
    return otherwise;
}

template <class Work>
void Tell(const std::shared_ptr<EditorState>& state, Work work)
{
    const auto held = state->shared_from_this();
    held->Try([&] { work(*held); });
}

constexpr int kOutOfMemory = static_cast<int>(FileError::OutOfMemory);

}  // namespace

RichTextEditor::RichTextEditor(QWidget* parent) : RichTextEditor(PlatformServices(), parent) {}

RichTextEditor::RichTextEditor(PlatformServices services, QWidget* parent)
    : QWidget(parent), m_state(std::make_shared<EditorState>(*this, std::move(services)))
{
    m_state->Initialize();
}

RichTextEditor::~RichTextEditor() { m_state->Terminate(); }

void RichTextEditor::NoPrinterMsg()
{
    Tell(m_state, [this](EditorState& state) {
        Message message;
        message.text = QStringLiteral("You can not print unless you add a printer via Windows control pannel.");
        message.title = QStringLiteral("Quillmarker Report");
        message.icon = QMessageBox::Warning;
        state.services.messageBoxes->Show(message, this);
    });
}

bool RichTextEditor::Changed() const
{
    return Ask(m_state, false, [](const Report& report) { return report.Changed(); });
}

void RichTextEditor::SetChanged(bool changed)
{
    Tell(m_state, [=](EditorState& state) { state.report->SetChanged(changed); });
}

void RichTextEditor::Clear()
{
    Tell(m_state, [](EditorState& state) { state.report->Clear(); });
}

void RichTextEditor::CursorEnd()
{
    Tell(m_state, [](EditorState& state) { state.report->CursorEnd(); });
}

void RichTextEditor::CursorStart()
{
    Tell(m_state, [](EditorState& state) { state.report->CursorStart(); });
}

int RichTextEditor::hWnd() const
{
    int handle = 0;
    Attempt([&] { handle = static_cast<int>(winId()); });
    return handle;
}

bool RichTextEditor::MeasureInches() const { return m_state->inches; }

void RichTextEditor::SetMeasureInches(bool inches)
{
    Tell(m_state, [=](EditorState& state) { state.SetInches(inches); });
}

int RichTextEditor::OpenFileText(const QString& FileName)
{
    return Ask(m_state, kOutOfMemory, [&](Report& report) { return report.OpenFileText(Path(FileName)); });
}

QString RichTextEditor::PreviousField(const QString& Prefix, const QString& Suffix, bool RTFcode)
{
    return Ask(m_state, QString(),
               [&](Report& report) { return Shown(report.PreviousField(View(Prefix), View(Suffix), RTFcode)); });
}

void RichTextEditor::Refresh()
{
    // A widget paints itself; a viewport, a button of a bar would wait.
    std::vector<QPointer<QWidget>> widgets{this};
    Attempt([&] {
        for (QWidget* child : findChildren<QWidget*>())
            widgets.emplace_back(child);
    });
    for (const QPointer<QWidget>& widget : widgets)
        Attempt([&] {
            if (widget && widget->isVisible())
                widget->repaint();
        });
}

QString RichTextEditor::RTFString() const
{
    return Ask(m_state, QString(), [](Report& report) { return Shown(report.RTFString()); });
}

void RichTextEditor::SelectText(int& start, int& finish)
{
    Tell(m_state, [&](EditorState& state) { state.report->SelectText(start, finish); });
}

bool RichTextEditor::Redraw() const
{
    return Ask(m_state, false, [](const Report& report) { return report.Redraw(); });
}

void RichTextEditor::Copy()
{
    Tell(m_state, [](EditorState& state) { state.Copy(); });
}

void RichTextEditor::Cut()
{
    Tell(m_state, [](EditorState& state) { state.Cut(); });
}

void RichTextEditor::Delete()
{
    Tell(m_state, [](EditorState& state) { state.Delete(); });
}

void RichTextEditor::SetFont(const QString& FontName, float FontSize)
{
    const std::u16string name = FontName.toStdU16String();
    Tell(m_state, [&](EditorState& state) { state.formatCommands.SetFont(name, FontSize); });
}

void RichTextEditor::ShowFontDialog()
{
    Tell(m_state, [](EditorState& state) { state.ShowFontDialog(); });
}

void RichTextEditor::SetRedraw(bool redraw)
{
    Tell(m_state, [=](EditorState& state) { state.report->SetRedraw(redraw); });
}

int RichTextEditor::InsertFileRTF(const QString& FileName, const QString& FindText)
{
    return Ask(m_state, -kOutOfMemory,
               [&](Report& report) { return report.InsertFileRTF(Path(FileName), View(FindText)); });
}

int RichTextEditor::OpenFileRTF(const QString& FileName)
{
    return Ask(m_state, kOutOfMemory, [&](Report& report) { return report.OpenFileRTF(Path(FileName)); });
}

void RichTextEditor::Paste()
{
    Tell(m_state, [](EditorState& state) { state.Paste(); });
}

int RichTextEditor::InsertStringHidden(const QString& txth, const QString& LF)
{
    return Ask(m_state, -1, [&](Report& report) { return report.InsertStringHidden(View(txth), View(LF)); });
}

int RichTextEditor::InsertStringText(const QString& txt, const QString& FindText)
{
    return Ask(m_state, -1, [&](Report& report) { return report.InsertStringText(View(txt), View(FindText)); });
}

int RichTextEditor::InsertStringRTF(const QString& richtext, const QString& FindText)
{
    return Ask(m_state, -1, [&](Report& report) { return report.InsertStringRTF(View(richtext), View(FindText)); });
}

int RichTextEditor::SaveFileRTF(const QString& FileName)
{
    return Ask(m_state, kOutOfMemory, [&](Report& report) { return report.SaveFileRTF(Path(FileName)); });
}

QString RichTextEditor::TextString() const
{
    return Ask(m_state, QString(), [](Report& report) { return Shown(report.TextString()); });
}

void RichTextEditor::SetToolbar(bool shown)
{
    Tell(m_state, [=](EditorState& state) { state.SetShown(state.showsToolbar, shown, QStringLiteral("Toolbar")); });
}

bool RichTextEditor::Toolbar() const { return m_state->showsToolbar; }

void RichTextEditor::SetRuler(bool shown)
{
    Tell(m_state, [=](EditorState& state) { state.SetShown(state.showsRuler, shown, QStringLiteral("Ruler")); });
}

bool RichTextEditor::Ruler() const { return m_state->showsRuler; }

void RichTextEditor::SetStatusbar(bool shown)
{
    Tell(m_state,
         [=](EditorState& state) { state.SetShown(state.showsStatusbar, shown, QStringLiteral("Statusbar")); });
}

bool RichTextEditor::Statusbar() const { return m_state->showsStatusbar; }

void RichTextEditor::Undo()
{
    Tell(m_state, [](EditorState& state) { state.report->Undo(); });
}

float RichTextEditor::LeftMargin() const { return m_state->MarginInUnits(m_state->margins.left); }
float RichTextEditor::RightMargin() const { return m_state->MarginInUnits(m_state->margins.right); }
float RichTextEditor::TopMargin() const { return m_state->MarginInUnits(m_state->margins.top); }
float RichTextEditor::BottomMargin() const { return m_state->MarginInUnits(m_state->margins.bottom); }

void RichTextEditor::SetLeftMargin(float margin)
{
    Tell(m_state, [=](EditorState& s) { s.SetMargin(s.margins.left, margin, QStringLiteral("LeftMargin")); });
}

void RichTextEditor::SetRightMargin(float margin)
{
    Tell(m_state, [=](EditorState& s) { s.SetMargin(s.margins.right, margin, QStringLiteral("RightMargin")); });
}

void RichTextEditor::SetTopMargin(float margin)
{
    Tell(m_state, [=](EditorState& s) { s.SetMargin(s.margins.top, margin, QStringLiteral("TopMargin")); });
}

void RichTextEditor::SetBottomMargin(float margin)
{
    Tell(m_state, [=](EditorState& s) { s.SetMargin(s.margins.bottom, margin, QStringLiteral("BottomMargin")); });
}

QObject* RichTextEditor::RTFObj() const { return m_state->engine; }

int RichTextEditor::GetIDsOfNames(const QString& name) { return DispatchIdOf(name); }

DispatchResult RichTextEditor::Invoke(int dispatchId, MemberKind kind, QVariantList& arguments)
{
    return InvokeMember(*this, dispatchId, kind, arguments);
}

void RichTextEditor::ReadProperties(const PropertyBag& bag)
{
    Tell(m_state, [&](EditorState& state) { state.ReadProperties(bag); });
}

void RichTextEditor::WriteProperties(PropertyBag& bag) const { m_state->WriteProperties(bag); }

}  // namespace quillmarker
