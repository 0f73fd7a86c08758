#include "format_buttons.h"

#include "engine/box/attempt.h"

#include <array>

namespace quillmarker
{
namespace
{

TriState NumberOf(std::optional<bool> value) { return value ? TriState(*value ? kTrue : kFalse) : std::nullopt; }

struct CharacterButton
{
    std::string_view key;
    std::optional<bool> (TextBox::*format)() const;
};

constexpr std::array kCharacterButtons = {
    CharacterButton{"bold", &TextBox::SelBold},
    CharacterButton{"italic", &TextBox::SelItalic},
    CharacterButton{"uline", &TextBox::SelUnderline},
    CharacterButton{"strike", &TextBox::SelStrikeThru},
};

struct AlignmentButton
{
    std::string_view key;
    int alignment;
};

constexpr std::array kAlignmentButtons = {
    AlignmentButton{"left", kAlignLeft},
    AlignmentButton{"right", kAlignRight},
    AlignmentButton{"centre", kAlignCentre},
};

bool HasButton(int alignment)
{
    return std::ranges::find(kAlignmentButtons, alignment, &AlignmentButton::alignment) != kAlignmentButtons.end();
}

}  // namespace

void SetToggleButtonState(FormatBar& bar, TriState value, std::string_view key)
{
    const int number = value.value_or(1);
    if (number != kFalse && number != kTrue)
        return bar.SetMixedState(key, true);
    bar.SetMixedState(key, false);
    bar.SetValue(key, number == kTrue ? 1 : 0);
}

template <class Step>
void FormatButtons::Try(Step step)
{
    Attempt([&] {
        if (const TextBox* box = m_box())
            step(*box);
    });
}

void FormatButtons::UpdateCharacterButtons()
{
    for (const CharacterButton& button : kCharacterButtons)
        Try([&](const TextBox& box) { SetToggleButtonState(m_bar, NumberOf((box.*button.format)()), button.key); });
    Try([&](const TextBox& box) {
        if (m_bar.ShowsFontNames())
            m_bar.SelectFontName(box.SelFontName());
    });
    Try([&](const TextBox& box) {
        if (m_bar.ShowsFontSizes())
            m_bar.ShowFontSize(box.SelFontSize());
    });
    UpdateScriptButtons();
}

void FormatButtons::UpdateScriptButtons()
{
    struct Row
    {
        std::string_view pressed;
        std::string_view released;
    };
    Try([&](const TextBox& box) {
        const std::optional<int> offset = box.SelCharOffset();
        m_bar.SetMixedState("super", !offset);
        m_bar.SetMixedState("sub", !offset);
        if (!offset)
            return;
        const Row row = *offset < 0 ? Row{"sub", "super"} : Row{"super", "sub"};
        m_bar.SetValue(row.pressed, *offset != 0 ? 1 : 0);
        m_bar.SetValue(row.released, 0);
    });
}

/// An alignment that has no button of its own, like a mixed one, leaves all three undecided.
void FormatButtons::UpdateParagraphButtons()
{
    Try([&](const TextBox& box) {
        const std::optional<int> alignment = box.SelAlignment();
        for (const AlignmentButton& button : kAlignmentButtons)
        {
            TriState state;
            if (alignment && HasButton(*alignment))
                state = *alignment == button.alignment ? kTrue : kFalse;
            SetToggleButtonState(m_bar, state, button.key);
        }
    });
    Try([&](const TextBox& box) { SetToggleButtonState(m_bar, NumberOf(box.SelBullet()), "bullet"); });
}

}  // namespace quillmarker
