#pragma once

#include <cstdint>

namespace quillmarker
{

/// Forms that several editors share.
enum class Form : std::uint8_t { ViewFrm, ParaDlg, FindDlg, ComFrm };

enum class RulerReading : std::uint8_t { Reread, AsItIs };

/// What the control tells the parts around the text. A part that is not there hears nothing.
class ControlParts
{
public:
    ControlParts() = default;
    virtual ~ControlParts() = default;
    ControlParts(const ControlParts&) = delete;
    ControlParts& operator=(const ControlParts&) = delete;

    /// The selection may have changed: buttons and combos show its formats.
    virtual void UpdateCharacterButtons() {}
    virtual void UpdateScriptButtons() {}
    virtual void UpdateParagraphButtons() {}
    virtual void DrawRuler(RulerReading) {}

    /// The toolbar moved: the combos stand over their placeholders.
    virtual void PlaceCombos() {}
    /// Closes the lists and the palette.
    virtual void HidePopups() {}

    virtual void HideFindDialog() {}
    /// Shows it again if it was in use.
    virtual void RestoreFindDialog() {}
    virtual void Unload(Form) {}
};

}  // namespace quillmarker
