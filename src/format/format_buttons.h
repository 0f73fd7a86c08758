#pragma once

#include "format/format_bar.h"

#include <quillmarker/text_box.h>

#include <functional>

namespace quillmarker
{

// A boolean format as a number.
inline constexpr int kTrue = -1;
inline constexpr int kFalse = 0;

/// A format over the selection; empty when it is mixed.
using TriState = std::optional<int>;

/// False releases the button, true presses it; anything else shows it mixed and leaves its value as it was.
void SetToggleButtonState(FormatBar& bar, TriState value, std::string_view key);

/// Brings the bar in line with the selection. It only reads, so that a mixed selection stays mixed; a step that fails is
/// skipped.
class FormatButtons
{
public:
    using BoxFinder = std::function<const TextBox*()>;

    FormatButtons(BoxFinder box, FormatBar& bar) : m_box(std::move(box)), m_bar(bar) {}

    void UpdateCharacterButtons();
    void UpdateScriptButtons();
    void UpdateParagraphButtons();

private:
    template <class Step>
    void Try(Step step);

    BoxFinder m_box;
    FormatBar& m_bar;
};

}  // namespace quillmarker
