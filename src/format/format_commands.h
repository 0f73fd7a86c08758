#pragma once

#include "engine/box/attempt.h"
#include "format/empty_selection.h"
#include "format/format_host.h"

#include <cstdint>
#include <string_view>

namespace quillmarker
{

/// Whether painting is locked while a format is put.
enum class PaintingDuring : bool { GoesOn, IsLocked };

/// Puts formats on the selection as a toolbar, a picker or a host asks for them. Each step is tried on its own: one that
/// fails is skipped, and the next one runs.
class FormatCommands
{
public:
    explicit FormatCommands(FormatHost& host) : m_host(host) {}

    FormatHost& Host() { return m_host; }

    void WrapEmptySelection(bool begin);

    /// Raises (8) or lowers (-4) the selection by `factor` twips for each point of the document's first character and
    /// reduces text that stood on the line to 70 % of that size; not checked: puts it back on the line, in that size.
    /// On an empty selection it is what is typed next that changes.
    void ApplyScriptOffset(std::int16_t checked, std::int16_t factor);

    /// Sets the size, and keeps raised and lowered text reduced and in step with it.
    void ApplyFontSize(float points);

    /// The user picked a face.
    void PickFontName(std::u16string_view name);
    /// The user picked or typed a size; what is no number is 0.
    void PickFontSize(std::u16string_view text, PaintingDuring painting);
    /// The user picked a colour; on an empty selection it is that of what is typed next.
    void PickColour(Colour colour);

    /// The editor's member of that name.
    void SetFont(std::u16string_view name, float points);

    /// Tries a step on the text, if that is still there.
    template <class Step>
    void Try(Step step)
    {
        Attempt([&] {
            if (TextBox* box = m_host.Box())
                step(*box);
        });
    }

    /// Of the engine's font.
    void SetCharset(int charset);

private:
    EmptySelection::BoxFinder Finder();

    FormatHost& m_host;
    EmptySelection m_emptySelection;
};

}  // namespace quillmarker
