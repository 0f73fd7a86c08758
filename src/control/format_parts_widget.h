#pragma once

#include "control_parts.h"
#include "format/format_bar.h"
#include "format/format_buttons.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace quillmarker
{

class ColFrame;
class EditorState;
class FontFrame;
class FontNameCombo;
class FontSizeCombo;
class PickerFrame;
class SizeFrame;

/// Joins the toolbar, its combos and the three panels to the text: they show the formats of the selection, and what is
/// picked in them is put there.
class FormatParts : public ControlParts, public FormatBar
{
public:
    explicit FormatParts(EditorState& state);

    // ControlParts
    void UpdateCharacterButtons() override;
    void UpdateScriptButtons() override;
    void UpdateParagraphButtons() override;
    void PlaceCombos() override;
    void HidePopups() override;

    // FormatBar
    void SetMixedState(std::string_view key, bool mixed) override;
    void SetValue(std::string_view key, int value) override;
    bool ShowsFontNames() const override;
    void SelectFontName(const std::optional<std::u16string>& name) override;
    bool ShowsFontSizes() const override;
    void ShowFontSize(std::optional<float> points) override;

private:
    void ConnectToolbar();
    void ConnectCombos();
    void ConnectPanels();
    void OnToolbarPressed(QPoint position);
    void OpenPicker(std::string_view key);
    void OpenPanel(PickerFrame& panel, QWidget& focus, std::string_view key);

    template <class Work>
    auto Held(Work work);

    EditorState& m_state;
    FormatButtons m_buttons;
    QPointer<FontNameCombo> m_fontNames;
    QPointer<FontSizeCombo> m_fontSizes;
    QPointer<FontFrame> m_fontFrame;
    QPointer<SizeFrame> m_sizeFrame;
    QPointer<ColFrame> m_colourFrame;
    QObject m_connections;  // those to this object end with it
};

}  // namespace quillmarker
