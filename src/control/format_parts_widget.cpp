#include "format_parts_widget.h"

#include "editor_state.h"
#include "format/colour_frame_widget.h"
#include "format/colour_palette.h"
#include "format/font_name_combo_widget.h"
#include "format/font_size_combo_widget.h"
#include "format/format_toolbar_widget.h"
#include "format/general_number.h"
#include "format/list_frame_widget.h"
#include "format/popup_place.h"
#include "format/tool_button_widget.h"
#include "format/toolbar_dispatch.h"

#include <QCoreApplication>

#include <array>

namespace quillmarker
{
namespace
{

/// A combo says what its placeholder says.
void NameCombo(QWidget& combo, std::string_view key)
{
    const ToolbarButton* button = FindToolbarButton(key);
    combo.setToolTip(QCoreApplication::translate(kToolbarContext, button->tooltip));
    combo.setAccessibleName(combo.toolTip());
    combo.setAccessibleDescription(QCoreApplication::translate(kToolbarContext, button->description));
}

std::u16string Units(const QString& text) { return text.toStdU16String(); }

}  // namespace

/// A handler with the control's state, which is held while it runs: what it does may end with the control deleted.
template <class Work>
auto FormatParts::Held(Work work)
{
    return [weak = m_state.weak_from_this(), work](auto&&... arguments) {
        if (const auto state = weak.lock())
            work(*state, arguments...);
    };
}

FormatParts::FormatParts(EditorState& state)
    : m_state(state),
      m_buttons([&state] { return state.Box(); }, *this),
      m_fontNames(new FontNameCombo(state.toolbar)),
      m_fontSizes(new FontSizeCombo(state.toolbar)),
      m_fontFrame(new FontFrame(state.editor)),
      m_sizeFrame(new SizeFrame(state.editor)),
      m_colourFrame(new ColFrame(state.editor))
{
    m_fontNames->SetNames(state.comboFontNames);
    m_fontSizes->SetSizes(state.comboSizes);
    m_fontFrame->SetItems(state.popupFontNames);
    m_sizeFrame->SetItems(state.popupSizes);
    const std::array<PickerFrame*, 3> panels = {m_fontFrame, m_sizeFrame, m_colourFrame};
    for (PickerFrame* panel : panels)
        panel->SetScale(state.twipsPerPixelX, state.twipsPerPixelY);
    NameCombo(*m_fontNames, "cFont");
    NameCombo(*m_fontSizes, "cSize");
    ConnectToolbar();
    ConnectCombos();
    ConnectPanels();
    PlaceCombos();
}

void FormatParts::ConnectToolbar()
{
    const FormatToolbar* toolbar = m_state.toolbar;
    const auto focusText = Held([](EditorState& state) { state.FocusText(); });
    QObject::connect(toolbar, &FormatToolbar::ButtonClick, &m_connections,
                     Held([](EditorState& state, const QString& key, int value) {
                         const std::string name = key.toStdString();
                         ButtonClick(state.formatCommands, name, value);
                     }));
    QObject::connect(toolbar, &FormatToolbar::MousePressed, &m_connections,
                     [this](QPoint position) { OnToolbarPressed(position); });
    QObject::connect(toolbar, &FormatToolbar::PickerRequested, &m_connections, [this](const QString& key) {
        HidePopups();
        OpenPicker(key.toStdString());
    });
    QObject::connect(toolbar, &FormatToolbar::LeaveRequested, &m_connections, focusText);
    QObject::connect(toolbar, &FormatToolbar::ButtonsMoved, &m_connections, [this] { PlaceCombos(); });
}

void FormatParts::ConnectCombos()
{
    // Showing the selection's name is no click.
    QObject::connect(m_fontNames, &FontNameCombo::Clicked, &m_connections,
                     Held([](EditorState& state, const QString& name) {
                         if (!state.refreshActive)
                             state.formatCommands.PickFontName(Units(name));
                     }));
    QObject::connect(m_fontSizes, &FontSizeCombo::Clicked, &m_connections,
                     Held([](EditorState& state, const QString& text) {
                         state.formatCommands.PickFontSize(Units(text), PaintingDuring::IsLocked);
                     }));
    const auto focusText = Held([](EditorState& state) { state.FocusText(); });
    QObject::connect(m_fontNames, &FontNameCombo::LeaveRequested, &m_connections, focusText);
    QObject::connect(m_fontSizes, &FontSizeCombo::LeaveRequested, &m_connections, focusText);
    // What was typed and not applied gives way to the true size.
    QObject::connect(m_fontSizes, &FontSizeCombo::FocusLost, &m_connections, [this] { UpdateCharacterButtons(); });
}

void FormatParts::ConnectPanels()
{
    QObject::connect(m_fontFrame, &FontFrame::Chosen, &m_connections, Held([](EditorState& state, const QString& name) {
                         state.formatCommands.PickFontName(Units(name));
                     }));
    QObject::connect(m_sizeFrame, &SizeFrame::Chosen, &m_connections, Held([](EditorState& state, const QString& text) {
                         state.formatCommands.PickFontSize(Units(text), PaintingDuring::GoesOn);
                     }));
    QObject::connect(m_colourFrame, &ColFrame::Chosen, &m_connections, Held([](EditorState& state, int index) {
                         state.formatCommands.PickColour(kSwatches.at(static_cast<std::size_t>(index)).colour);
                     }));
    const std::array<PickerFrame*, 3> panels = {m_fontFrame, m_sizeFrame, m_colourFrame};
    for (PickerFrame* panel : panels)
    {
        QObject::connect(panel, &PickerFrame::LeaveRequested, &m_connections,
                         Held([](EditorState& state) { state.FocusText(); }));
        QObject::connect(panel, &PickerFrame::FocusLost, &m_connections,
                         Held([](EditorState& state) { state.HidePopups(); }));
    }
}

void FormatParts::UpdateCharacterButtons() { m_buttons.UpdateCharacterButtons(); }

void FormatParts::UpdateScriptButtons() { m_buttons.UpdateScriptButtons(); }

void FormatParts::UpdateParagraphButtons() { m_buttons.UpdateParagraphButtons(); }

/// A combo takes left, top and width of its placeholder; its height is its own.
void FormatParts::PlaceCombos()
{
    const auto place = [&](QWidget* combo, std::string_view key) {
        if (!combo || !m_state.toolbar)
            return;
        const QRect slot = m_state.toolbar->Slot(key);
        combo->setVisible(!slot.isEmpty());
        if (slot.isEmpty())
            return;
        const int height = combo->sizeHint().height();
        combo->setGeometry(slot.left(), slot.center().y() - height / 2, slot.width(), height);
    };
    place(m_fontNames, "cFont");
    place(m_fontSizes, "cSize");
}

/// What was under a panel shows at once. Events that wait stay where they are: this runs in the middle of a press of the
/// mouse, which its release must not overtake.
void FormatParts::HidePopups()
{
    const std::array<QWidget*, 3> panels = {m_fontFrame, m_sizeFrame, m_colourFrame};
    for (QWidget* panel : panels)
    {
        if (!panel || panel->isHidden())
            continue;
        panel->hide();
        if (m_state.engine)
            m_state.engine->viewport()->repaint();
    }
}

void FormatParts::SetMixedState(std::string_view key, bool mixed)
{
    if (ToolButton* button = m_state.toolbar ? m_state.toolbar->Button(key) : nullptr)
        button->SetMixedState(mixed);
}

void FormatParts::SetValue(std::string_view key, int value)
{
    if (ToolButton* button = m_state.toolbar ? m_state.toolbar->Button(key) : nullptr)
        button->SetValue(value);
}

bool FormatParts::ShowsFontNames() const { return m_fontNames && !m_fontNames->isHidden(); }

void FormatParts::SelectFontName(const std::optional<std::u16string>& name)
{
    if (name)
        m_fontNames->Select(QString::fromStdU16String(*name), static_cast<int>(m_state.popupFontNames.size()));
    else
        m_fontNames->Blank();
}

bool FormatParts::ShowsFontSizes() const { return m_fontSizes && !m_fontSizes->isHidden(); }

void FormatParts::ShowFontSize(std::optional<float> points)
{
    m_fontSizes->ShowText(points ? GeneralNumber(*points) : QString());
}

/// Edges of buttons meet, so that a point may lie on two: the one on its right is meant.
void FormatParts::OnToolbarPressed(QPoint position)
{
    const auto held = m_state.shared_from_this();
    HidePopups();
    std::string_view hit;
    for (const ToolbarButton& button : kToolbarButtons)
    {
        const QRect slot = m_state.toolbar ? m_state.toolbar->Slot(button.key) : QRect();
        const QPoint corner(slot.left() * m_state.twipsPerPixelX, slot.top() * m_state.twipsPerPixelY);
        const bool isHit = !slot.isEmpty() && ButtonHit(corner, position.x() * m_state.twipsPerPixelX,
                                                        position.y() * m_state.twipsPerPixelY);
        if (isHit)
            hit = button.key;
    }
    OpenPicker(hit);
}

void FormatParts::OpenPicker(std::string_view key)
{
    if (!IsPopupKey(key))
        return;
    const auto held = m_state.shared_from_this();
    m_state.Try([&] {
        const TextBox& box = m_state.engine->Box();
        if (key == "font")
        {
            const std::optional<std::u16string> name = box.SelFontName();
            m_fontFrame->Prepare(name ? std::optional(QString::fromStdU16String(*name)) : std::nullopt);
            OpenPanel(*m_fontFrame, *m_fontFrame, key);
        }
        else if (key == "size")
        {
            const std::optional<float> size = box.SelFontSize();
            m_sizeFrame->Prepare(size ? std::optional(GeneralNumber(*size)) : std::nullopt);
            OpenPanel(*m_sizeFrame, *m_sizeFrame, key);
        }
        else
        {
            m_colourFrame->Prepare(box.SelColor());
            OpenPanel(*m_colourFrame, *m_colourFrame, key);
        }
    });
}

/// At the button's place, moved and cut so that it can be reached in a small window.
void FormatParts::OpenPanel(PickerFrame& panel, QWidget& focus, std::string_view key)
{
    const QPoint button = m_state.toolbar->mapTo(m_state.editor.data(), m_state.toolbar->Anchor(key).topLeft());
    const int x = m_state.twipsPerPixelX;
    const int y = m_state.twipsPerPixelY;
    const QPoint corner = PopupTopLeft({button.x() * x, button.y() * y});
    const QRect place({corner.x() / x, corner.y() / y}, panel.size());
    panel.setGeometry(KeptInside(place, m_state.editor->rect(), panel.LeastHeight()));
    panel.raise();
    panel.show();
    focus.setFocus(Qt::PopupFocusReason);
}

}  // namespace quillmarker
