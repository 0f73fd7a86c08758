#include "format_commands.h"

#include "engine/document/parse_number.h"
#include "engine/rtf/rescale_script.h"

#include <cmath>
#include <optional>

namespace quillmarker
{
namespace
{

constexpr float kScriptSize = 0.7F;

/// The size in force at a caret behind the document's first character, which is that of this character: whatever is
/// selected, raised and lowered text goes by the size at the top of the document. In an empty one it is that of what is
/// typed next.
std::optional<float> SizeAtTop(const TextBox& box)
{
    if (box.TextLength() == 0)
        return box.SelFontSize();
    TextBox top;
    top.OpenValue(box.Value());
    top.SetSelStart(1);
    return top.SelFontSize();
}

void Rescale(TextBox& box)
{
    struct Word
    {
        std::u16string_view keyword;
        int factor;
    };
    constexpr Word kWords[] = {{u"\\dn", 4}, {u"\\up", 8}};

    // Text that stands on the line has no such word, and writing it back would change nothing.
    if (box.SelCharOffset() == 0)
        return;
    std::u16string rtf = box.SelRTF();
    for (const Word& word : kWords)
        RescaleScriptRTF(rtf, word.keyword, word.factor);
    box.SetSelRTF(rtf);
}

}  // namespace

void FormatCommands::WrapEmptySelection(bool begin)
{
    Attempt([&] { m_emptySelection.WrapEmptySelection([this] { return m_host.Box(); }, begin); });
}

void FormatCommands::ApplyScriptOffset(std::int16_t checked, std::int16_t factor)
{
    float base = 0;
    Attempt([&] { m_host.SetRedraw(false); });
    Try([&](const TextBox& box) { base = SizeAtTop(box).value_or(base); });
    if (checked != 0)
    {
        // What is raised or lowered already, or in part, keeps its size.
        Try([&](TextBox& box) {
            if (box.SelCharOffset() == 0)
                box.SetSelFontSize(base * kScriptSize);
        });
        Try([&](TextBox& box) {
            box.SetSelCharOffset(static_cast<std::int32_t>(std::nearbyint(base * static_cast<float>(factor))));
        });
    }
    else
    {
        Try([](TextBox& box) { box.SetSelCharOffset(0); });
        Try([&](TextBox& box) { box.SetSelFontSize(base); });
    }
    Attempt([&] { m_host.SetRedraw(true); });
    Attempt([&] { m_host.UpdateScriptButtons(); });
}

void FormatCommands::ApplyFontSize(float points)
{
    Selection selection;
    Try([&](TextBox& box) { box.SetSelFontSize(points); });
    Try([&](const TextBox& box) { selection = {box.SelStart(), box.SelLength()}; });
    Try([](TextBox& box) { Rescale(box); });
    Try([&](TextBox& box) { box.Select(selection); });
}

void FormatCommands::SetCharset(int charset)
{
    Try([&](TextBox& box) {
        BoxFont font = box.Font();
        font.charset = static_cast<std::int16_t>(charset);
        box.SetFont(font);
    });
}

void FormatCommands::PickFontName(std::u16string_view name)
{
    Attempt([&] { m_host.FocusText(); });
    if (!m_host.MayFormat())
        return;
    WrapEmptySelection(true);
    Try([&](TextBox& box) { box.SetSelFontName(name); });
    SetCharset(m_host.DefaultCharset());
    WrapEmptySelection(false);
    Attempt([&] { m_host.RefreshUIState(); });
}

void FormatCommands::PickFontSize(std::u16string_view text, PaintingDuring painting)
{
    Attempt([&] { m_host.FocusText(); });
    if (!m_host.MayFormat())
        return;
    const bool isLocked = painting == PaintingDuring::IsLocked;
    if (isLocked)
        Attempt([&] { m_host.SetRedraw(false); });
    WrapEmptySelection(true);
    ApplyFontSize(ParseSize(text));
    WrapEmptySelection(false);
    if (isLocked)
        Attempt([&] { m_host.SetRedraw(true); });
    Attempt([&] { m_host.RefreshUIState(); });
}

void FormatCommands::PickColour(Colour colour)
{
    if (m_host.MayFormat())
        Try([&](TextBox& box) { box.SetSelColor(colour); });
    Attempt([&] { m_host.FocusText(); });
}

void FormatCommands::SetFont(std::u16string_view name, float points)
{
    Attempt([&] { m_host.FocusText(); });
    if (name.empty() && !(points > 0))
        return;
    Attempt([&] { m_host.SetRedraw(false); });
    WrapEmptySelection(true);
    if (!name.empty())
        Try([&](TextBox& box) { box.SetSelFontName(name); });
    SetCharset(m_host.DefaultCharset());
    if (points > 0)
        ApplyFontSize(points);
    WrapEmptySelection(false);
    Attempt([&] { m_host.SetRedraw(true); });
    Attempt([&] { m_host.RefreshUIState(); });
}

}  // namespace quillmarker
