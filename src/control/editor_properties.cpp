#include "editor_state.h"

#include <array>

namespace quillmarker
{
namespace
{

struct FlagRow
{
    const char* key;
    bool EditorState::*field;
    bool usual;
};

constexpr std::array kFlags = {
    FlagRow{"Toolbar", &EditorState::showsToolbar, true},
    FlagRow{"Ruler", &EditorState::showsRuler, true},
    FlagRow{"Statusbar", &EditorState::showsStatusbar, true},
    FlagRow{"Inches", &EditorState::inches, false},
};

struct MarginRow
{
    const char* key;
    int Margins::*field;
};

constexpr std::array kMargins = {
    MarginRow{"LeftMargin", &Margins::left},
    MarginRow{"RightMargin", &Margins::right},
    MarginRow{"TopMargin", &Margins::top},
    MarginRow{"BottomMargin", &Margins::bottom},
};

}  // namespace

void EditorState::ReadProperties(const PropertyBag& bag)
{
    for (const FlagRow& row : kFlags)
        Attempt([&] { this->*row.field = ToBoolean(bag.ReadProperty(QLatin1String(row.key), row.usual), row.usual); });
    for (const MarginRow& row : kMargins)
    {
        const int usual = Margins().*row.field;
        Attempt([&] { margins.*row.field = ToLong(bag.ReadProperty(QLatin1String(row.key), usual), usual); });
    }
    // They are read before the control is shown; a host may read them again later.
    bool isShown = false;
    Try([&] { isShown = editor->isVisible(); });
    if (isShown)
        Resize();
}

void EditorState::WriteProperties(PropertyBag& bag) const
{
    for (const FlagRow& row : kFlags)
        Attempt([&] { bag.WriteProperty(QLatin1String(row.key), this->*row.field, row.usual); });
    for (const MarginRow& row : kMargins)
        Attempt([&] { bag.WriteProperty(QLatin1String(row.key), margins.*row.field, Margins().*row.field); });
}

}  // namespace quillmarker
