#include "engine/rtf/keyword_actions.h"

namespace quillmarker
{
namespace
{

template <class Change>
void ChangeLevel(Reader& reader, Change change)
{
    if (ListLevel* level = reader.IsIn(Destination::ListTable) ? reader.Lists().Level() : nullptr)
        change(level->numbering);
}

}  // namespace

void SetAnsiPage(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (parameter.value > 0 && parameter.value <= 0xFFFF)
        reader.SetCodePage(static_cast<CodePage>(parameter.value));
}

void SetDefaultFontWord(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SetDefaultFont(parameter.value);
}

void SetDefaultLanguageWord(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SetDefaultLanguage(parameter.value);
    reader.Chars().language = static_cast<std::uint16_t>(parameter.value);
}

void SetFontCharset(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Fonts))
        reader.Fonts().Current().charset = std::clamp(parameter.value, 0, 255);
}

void SetFontPage(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Fonts))
        reader.Fonts().Current().page = static_cast<CodePage>(std::clamp(parameter.value, 0, 0xFFFF));
}

void BeginList(Reader& reader, const Keyword&, const Parameter&)
{
    if (reader.Enter(Destination::ListTable))
        reader.Lists().BeginList();
}

void BeginListLevel(Reader& reader, const Keyword&, const Parameter&)
{
    if (reader.IsIn(Destination::ListTable))
        reader.Lists().BeginLevel();
}

void SetListIdWord(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::ListOverrides))
        reader.Lists().OverrideOf(parameter.value);
    else
        reader.SetListId(parameter.value);
}

void SetLevelKind(Reader& reader, const Keyword&, const Parameter& parameter)
{
    ChangeLevel(reader, [&](Numbering& numbering) { numbering.kind = NumberKindOf(parameter.value); });
}

void SetLevelStart(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::ListOverrides))
        reader.Lists().OverrideStart(parameter.value);
    else
        ChangeLevel(reader, [&](Numbering& numbering) { numbering.start = parameter.value; });
}

void SetLevelAlign(Reader& reader, const Keyword&, const Parameter& parameter)
{
    ChangeLevel(reader, [&](Numbering& n) { n.align = static_cast<std::uint8_t>(std::clamp(parameter.value, 0, 2)); });
}

void SetLevelFollow(Reader& reader, const Keyword&, const Parameter& parameter)
{
    ChangeLevel(reader, [&](Numbering& n) { n.follow = static_cast<std::uint8_t>(std::clamp(parameter.value, 0, 2)); });
}

void SetLevelIndent(Reader& reader, const Keyword&, const Parameter& parameter)
{
    ChangeLevel(reader, [&](Numbering& numbering) { numbering.indent = Length(parameter.value); });
}

void BeginListOverride(Reader& reader, const Keyword&, const Parameter&)
{
    if (reader.Enter(Destination::ListOverrides))
        reader.Lists().BeginOverride();
}

void BeginOverrideLevel(Reader& reader, const Keyword&, const Parameter&)
{
    if (reader.IsIn(Destination::ListOverrides))
        reader.Lists().BeginOverrideLevel();
}

void BeginNumbering(Reader& reader, const Keyword&, const Parameter&) { reader.BeginNumbering(); }

void SetNumberLevel(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.NumberingNow().numbering.level = std::clamp(parameter.value - 1, 0, 8);
    reader.NumberingNow().numbering.kind = NumberKind::None;
}

void SetNumberBody(Reader& reader, const Keyword&, const Parameter&)
{
    reader.NumberingNow().numbering.kind = NumberKind::None;  // a word of its own says which
}

void SetNumberContinues(Reader& reader, const Keyword&, const Parameter&) { reader.NumberingNow().continues = true; }

void SetNumberStart(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.NumberingNow().numbering.start = parameter.value;
}

void SetNumberIndent(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.NumberingNow().numbering.indent = Length(parameter.value);
}

void SetNumberHanging(Reader& reader, const Keyword&, const Parameter&)
{
    reader.NumberingNow().numbering.hanging = true;
}

void SetNumberFont(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.NumberingNow().font = reader.Fonts().IndexOf(parameter.value);
}

/// What text has anyway; a style that states it is taken for one that states none.
constexpr Twips kUnstatedSize = Points(12);

/// What stands before it says nothing of the style, so that no entry makes another one longer.
void Reader::BeginStyle(StyleKind kind, std::int32_t number)
{
    m_styles.Begin(kind, number);
    ResetParagraph();
    ResetChars();
    Chars().size = kUnstatedSize;
    Chars().language = 0;
}

void Reader::EndStyle()
{
    const ReaderState& state = State();
    StyleEntry& entry = m_styles.Current();
    entry.chars = state.chars;
    entry.chars.field = {};
    entry.chars.font = {};
    entry.chars.charset = {};
    entry.chars.family = {};
    SetFontOf(entry.chars, state.font);
    if (entry.chars.size == kUnstatedSize)
        entry.chars.size = {};
    entry.paragraph = state.paragraph;
    entry.list = state.list;
    entry.listLevel = state.listLevel;
    m_styles.EndEntry();
}

/// Once all is read, also the lists, which stand behind the styles.
void Reader::DefineStyles()
{
    for (const StyleKind kind : {StyleKind::Paragraph, StyleKind::Character})
    {
        for (const auto& [number, entry] : m_styles.Of(kind))
        {
            StyleDefinition definition{.chars = entry.chars,
                                       .paragraph = entry.paragraph,
                                       .basedOn = m_styles.Referred(kind, entry.basedOn),
                                       .next = m_styles.Referred(kind, entry.next),
                                       .kept = entry.kept};
            definition.paragraph.numbering =
                entry.list != 0 ? ListNumbering(entry.list, entry.listLevel) : Shared<Numbering>();
            m_formats->DefineStyle(kind, entry.name, std::move(definition));
        }
    }
}

void KeepInStyle(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Styles))
        KeepWord(reader.Styles().Current().kept, keyword.name, parameter, kMaxKeptRepeated);
}

void SetBaseStyle(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Styles))
        reader.Styles().Current().basedOn = parameter.value;
}

void SetNextStyle(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Styles))
        reader.Styles().Current().next = parameter.value;
}

}  // namespace quillmarker
