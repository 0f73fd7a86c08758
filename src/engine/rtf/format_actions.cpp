#include "engine/rtf/keyword_actions.h"

#include <algorithm>
#include <vector>

namespace quillmarker
{
namespace
{

/// \sl counts 240ths of a line when \slmult says so, else twips: negative ones exactly, positive ones at least.
void UpdateLineSpacing(Reader& reader)
{
    const ReaderState& state = reader.State();
    const std::int32_t distance = std::clamp(state.lineDistance, -kMaxLength, kMaxLength);
    LineSpacing spacing;
    if (distance != 0 && state.isMultiple)
        spacing = {LineRule::Multiple, std::abs(distance)};
    else if (distance != 0)
        spacing = {distance < 0 ? LineRule::Exactly : LineRule::AtLeast, std::abs(distance)};
    reader.ParagraphProperties().lineSpacing = spacing;
}

void PutTab(Reader& reader, TabStop tab)
{
    Shared<std::vector<TabStop>>& tabs = reader.ParagraphProperties().tabs;
    std::vector<TabStop> changed = tabs ? *tabs : std::vector<TabStop>();
    const auto place = std::ranges::lower_bound(changed, tab.position, {}, &TabStop::position);
    const bool isTaken = place != changed.end() && place->position == tab.position;
    if (!isTaken && changed.size() >= kMaxTabStops)
        return;
    if (isTaken)
        *place = tab;
    else
        changed.insert(place, tab);
    tabs = Shared(std::move(changed));
}

template <class Change>
void ChangeSides(Borders& borders, const BorderReading& target, const Change& change)
{
    if (!target.isBox)
        return change(borders[target.side]);
    for (const BorderSide side : {BorderSide::Top, BorderSide::Left, BorderSide::Bottom, BorderSide::Right})
        change(borders[side]);
}

}  // namespace

void SetSize(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (parameter.Or(24) > 0)
        reader.Chars().size = Length(parameter.Or(24), 10);
}

void SetFont(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Fonts))
        reader.Fonts().Begin(parameter.value);
    else if (reader.IsIn(Destination::ListTable) && reader.Lists().Level())
        reader.Lists().Level()->font = reader.Fonts().IndexOf(parameter.value);
    else
        reader.SelectFont(parameter.value);
}

void SetLanguage(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Chars().language = static_cast<std::uint16_t>(parameter.value);
}

void SetWidth(Reader& reader, const Keyword&, const Parameter& parameter)
{
    const std::int32_t percent = std::clamp(parameter.Or(100), 1, 600);
    reader.Chars().widthPercent = static_cast<std::uint16_t>(percent == 100 ? 0 : percent);
}

void ResetCharacters(Reader& reader, const Keyword&, const Parameter&) { reader.ResetChars(); }

void ResetParagraphWord(Reader& reader, const Keyword&, const Parameter&) { reader.ResetParagraph(); }

void SetLineDistance(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.ChangeState().lineDistance = parameter.value;
    UpdateLineSpacing(reader);
}

void SetLineMultiple(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.ChangeState().isMultiple = parameter.Or(1) != 0;
    UpdateLineSpacing(reader);
}

void AddTab(Reader& reader, const Keyword&, const Parameter& parameter)
{
    TabStop tab = std::exchange(reader.NextTab(), {});
    tab.position = Length(parameter.value);
    PutTab(reader, tab);
}

void AddBarTab(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    reader.NextTab() = {{}, TabKind::Bar, TabLeader::None};
    AddTab(reader, keyword, parameter);
}

void SetHyphenation(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.ParagraphProperties().noHyphenation = parameter.Or(1) == 0;
}

void SetOutlineLevel(Reader& reader, const Keyword&, const Parameter& parameter)
{
    const bool isHeading = parameter.value >= 0 && parameter.value < 9;
    reader.ParagraphProperties().outlineLevel = static_cast<std::uint8_t>(isHeading ? parameter.value + 1 : 0);
}

void KeepInParagraph(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    Shared<std::string>& kept = reader.ParagraphProperties().kept;
    std::string changed = kept ? *kept : std::string();
    KeepWord(changed, keyword.name, parameter, kMaxKeptRepeated);
    kept = Shared(std::move(changed));
}

void SetStyle(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Styles))
        reader.BeginStyle(StyleKind::Paragraph, parameter.value);
    else
        reader.ParagraphProperties().style = reader.Styles().ParagraphStyle(parameter.value);
}

void SetCharacterStyle(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Styles))
        reader.BeginStyle(StyleKind::Character, parameter.value);
    else
        reader.Chars().style = reader.Styles().CharacterStyle(parameter.value);
}

void SetOtherStyle(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Styles))
        reader.BeginStyle(StyleKind::Other, parameter.value);
}

void SetList(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::ListOverrides))
        return reader.SetOverrideNumber(parameter.value);
    reader.ParagraphProperties();
    reader.ChangeState().list = parameter.value;
}

void SetListLevel(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.ParagraphProperties();
    reader.ChangeState().listLevel = std::clamp(parameter.value, 0, 8);
}

void SetInTable(Reader& reader, const Keyword&, const Parameter&)
{
    if (reader.State().tableDepth == 0)
        reader.ChangeState().tableDepth = -1;
}

void SetTableDepth(Reader& reader, const Keyword&, const Parameter& parameter)
{
    constexpr std::int32_t kMaxTableDepth = 64;
    if (parameter.value > 0)
        reader.ChangeState().tableDepth = std::min(parameter.value, kMaxTableDepth);
}

void ChangeBorder(Reader& reader, const std::function<void(Border&)>& change)
{
    const BorderReading target = reader.BorderTarget();
    switch (target.owner)
    {
    case BorderOwner::None:
        return;
    case BorderOwner::Row:
        return ChangeSides(reader.Table().row.borders, target, change);
    case BorderOwner::Cell:
        return ChangeSides(reader.Table().cell.borders, target, change);
    case BorderOwner::Paragraph:
    {
        Shared<Borders>& borders = reader.ParagraphProperties().borders;
        Borders changed = borders ? *borders : Borders();
        ChangeSides(changed, target, change);
        borders = changed == Borders() ? Shared<Borders>() : Shared(changed);
    }
    }
}

void BorderBox(Reader& reader, const Keyword&, const Parameter&)
{
    reader.BorderTarget() = {BorderOwner::Paragraph, BorderSide::Top, true};
}

void BorderElsewhere(Reader& reader, const Keyword&, const Parameter&) { reader.BorderTarget() = {}; }

void BorderColour(Reader& reader, const Keyword&, const Parameter& parameter)
{
    const Colour colour = reader.Colours()[parameter.value];
    ChangeBorder(reader, [&](Border& border) { border.colour = colour; });
}

}  // namespace quillmarker
