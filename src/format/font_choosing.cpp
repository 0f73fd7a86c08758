#include "font_choosing.h"

namespace quillmarker
{
namespace
{

constexpr int kByte = 8;
constexpr std::uint32_t kLowByte = 0xFF;

/// 0xRRGGBB as 0x00BBGGRR and back.
std::uint32_t Swapped(std::uint32_t colour)
{
    return (colour & kLowByte) << 2 * kByte | (colour & kLowByte << kByte) | (colour >> 2 * kByte & kLowByte);
}

std::uint32_t NumberOf(const std::optional<Colour>& colour)
{
    return colour && !colour->IsAutomatic() ? Swapped(colour->rgb) : 0;
}

}  // namespace

FontChoice ChoiceOfSelection(const TextBox& box)
{
    FontChoice choice;
    choice.Name = QString::fromStdU16String(box.SelFontName().value_or(std::u16string()));
    choice.Weight = box.SelBold().value_or(false) ? -1 : 0;
    choice.Italic = box.SelItalic().value_or(false);
    choice.Underline = box.SelUnderline().value_or(false);
    choice.StrikeOut = box.SelStrikeThru().value_or(false);
    choice.Color = NumberOf(box.SelColor());
    choice.Charset = box.Font().charset;
    return choice;
}

/// Bold is any weight but 0, on purpose: choosers say 400 for regular type, so what comes from one is always bold, and
/// hosts know it so. An automatic colour that nobody touched stays automatic, so that it goes on following the palette.
void ApplyFontChoice(FormatCommands& commands, const FontChoice& chosen, const FontChoice& given)
{
    FormatHost& host = commands.Host();
    Attempt([&] { host.SetRedraw(false); });
    commands.WrapEmptySelection(true);
    commands.Try([&](TextBox& box) { box.SetSelFontName(chosen.Name.toStdU16String()); });
    commands.ApplyFontSize(static_cast<float>(chosen.Size));
    commands.Try([&](TextBox& box) { box.SetSelBold(chosen.Weight != 0 ? 1 : 0); });
    commands.Try([&](TextBox& box) { box.SetSelItalic(chosen.Italic ? 1 : 0); });
    commands.Try([&](TextBox& box) { box.SetSelStrikeThru(chosen.StrikeOut ? 1 : 0); });
    commands.Try([&](TextBox& box) { box.SetSelUnderline(chosen.Underline ? 1 : 0); });
    commands.Try([&](TextBox& box) {
        const std::optional<Colour> colour = box.SelColor();
        const bool staysAutomatic = colour && colour->IsAutomatic() && chosen.Color == given.Color;
        if (!staysAutomatic)
            box.SetSelColor({Swapped(chosen.Color)});
    });
    commands.SetCharset(chosen.Charset);
    commands.WrapEmptySelection(false);
    Attempt([&] { host.SetRedraw(true); });
    Attempt([&] { host.RefreshUIState(); });
}

}  // namespace quillmarker
