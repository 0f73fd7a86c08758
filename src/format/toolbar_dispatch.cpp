#include "toolbar_dispatch.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

enum class Right : std::uint8_t { Any, ToFormat };

struct Action
{
    std::string_view key;
    Right right;
    void (*run)(FormatCommands& commands, int value);
};

template <void (TextBox::*Put)(int)>
void PutOnCharacters(FormatCommands& commands, int value)
{
    commands.WrapEmptySelection(true);
    commands.Try([value](TextBox& box) { (box.*Put)(value); });
    commands.WrapEmptySelection(false);
}

template <int Factor>
void PutOffset(FormatCommands& commands, int value)
{
    commands.ApplyScriptOffset(static_cast<std::int16_t>(value), Factor);
}

/// A paragraph is aligned without a selection too.
template <int Alignment>
void Align(FormatCommands& commands, int /*value*/)
{
    commands.Try([](TextBox& box) { box.SetSelAlignment(Alignment); });
}

/// Bullets come and go without moving the hanging indent; where it is mixed, each paragraph keeps its own.
void PutBullet(FormatCommands& commands, int value)
{
    std::optional<std::int32_t> hanging;
    commands.Try([&](TextBox& box) { box.BeginStep(); });
    commands.Try([&](const TextBox& box) { hanging = box.SelHangingIndent(); });
    commands.Try([&](TextBox& box) { box.SetSelBullet(value); });
    commands.Try([&](TextBox& box) {
        if (hanging)
            box.SetSelHangingIndent(*hanging);
    });
    commands.Try([&](TextBox& box) { box.EndStep(); });
}

template <void (FormatHost::*Command)()>
void Run(FormatCommands& commands, int /*value*/)
{
    (commands.Host().*Command)();
}

// The first match wins. What is not here is the host's alone: new, open, save, print, preview, spell, help; and the three
// that open a picker, which the press of the mouse has done.
constexpr std::array kActions = {
    Action{"undo", Right::Any, Run<&FormatHost::Undo>},
    Action{"redo", Right::Any, [](FormatCommands&, int) {}},  // the control keeps no redo history of its own
    Action{"cut", Right::Any, Run<&FormatHost::Cut>},
    Action{"copy", Right::Any, Run<&FormatHost::Copy>},
    Action{"paste", Right::Any, Run<&FormatHost::Paste>},
    Action{"delete", Right::Any, Run<&FormatHost::Delete>},
    Action{"search", Right::Any, Run<&FormatHost::ShowSearchDialog>},
    Action{"bold", Right::ToFormat, PutOnCharacters<&TextBox::SetSelBold>},
    Action{"italic", Right::ToFormat, PutOnCharacters<&TextBox::SetSelItalic>},
    Action{"uline", Right::ToFormat, PutOnCharacters<&TextBox::SetSelUnderline>},
    Action{"strike", Right::ToFormat, PutOnCharacters<&TextBox::SetSelStrikeThru>},
    Action{"super", Right::ToFormat, PutOffset<8>},
    Action{"sub", Right::ToFormat, PutOffset<-4>},
    Action{"left", Right::ToFormat, Align<kAlignLeft>},
    Action{"right", Right::ToFormat, Align<kAlignRight>},
    Action{"centre", Right::ToFormat, Align<kAlignCentre>},
    Action{"bullet", Right::ToFormat, PutBullet},
};

char Lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

bool IsSameKey(std::string_view a, std::string_view b) { return std::ranges::equal(a, b, {}, Lower, Lower); }

}  // namespace

void ButtonClick(FormatCommands& commands, std::string_view key, int value)
{
    FormatHost& host = commands.Host();
    Attempt([&] {
        const auto* action = std::ranges::find_if(kActions, [&](const Action& a) { return IsSameKey(a.key, key); });
        if (action != kActions.end() && (action->right == Right::Any || host.MayFormat()))
            action->run(commands, value);
    });
    Attempt([&] { host.ToolbarClick(key); });
    Attempt([&] { host.RefreshUIState(); });
}

}  // namespace quillmarker
