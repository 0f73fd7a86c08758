#pragma once

#include "engine/rtf/charset.h"
#include "engine/rtf/code_page.h"

#include <quillmarker/char_format.h>
#include <quillmarker/paragraph_format.h>
#include <quillmarker/style_definition.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillmarker
{

// The tables at the head of an RTF document. Each takes what its part of the source says as it is read, and answers by
// the numbers that the text uses. All are bounded: what exceeds a bound is left out.

struct FontEntry
{
    Name name;
    FontFamily family = FontFamily::Nil;
    int charset = -1;   // -1: not stated
    CodePage page = 0;  // \cpg; 0: not stated
};

class FontTable
{
public:
    static constexpr std::size_t kMaxFonts = 32'768;

    void Begin(std::int32_t number);
    void EndEntry();

    FontEntry& Current() { return m_current; }
    std::u16string& CurrentName() { return m_name; }
    bool HasName() const { return !m_name.empty(); }

    /// The index of font `number`, -1 when the table lacks it.
    std::int32_t IndexOf(std::int32_t number) const;
    std::int32_t IndexOf(std::u16string_view name) const;
    const FontEntry& operator[](std::int32_t index) const { return m_fonts[static_cast<std::size_t>(index)]; }
    bool IsEmpty() const { return m_fonts.empty(); }

private:
    bool m_isOpen = false;
    std::int32_t m_number = 0;
    FontEntry m_current;
    std::u16string m_name;
    std::vector<FontEntry> m_fonts;
    std::unordered_map<std::int32_t, std::int32_t> m_byNumber;
};

class ColourTable
{
public:
    static constexpr std::size_t kMaxColours = 65'536;

    void Red(std::int32_t value) { Set(16, value); }
    void Green(std::int32_t value) { Set(8, value); }
    void Blue(std::int32_t value) { Set(0, value); }
    void EndEntry();

    /// The automatic colour for an entry that states none, or that the table lacks.
    Colour operator[](std::int32_t number) const;

private:
    void Set(int shift, std::int32_t value);

    Colour m_current;
    std::vector<Colour> m_colours;
};

/// A style as its entry states it; other styles by their numbers.
struct StyleEntry
{
    Name name;
    CharFormat chars;
    ParagraphFormat paragraph;
    std::int32_t list = 0;  // \ls: the table of lists stands behind that of styles
    std::int32_t listLevel = 0;
    std::optional<std::int32_t> basedOn;
    std::optional<std::int32_t> next;
    std::string kept;
};

class StyleSheet
{
public:
    static constexpr std::size_t kMaxStyles = 10'000;

    void Begin(StyleKind kind, std::int32_t number);
    void EndEntry();
    StyleEntry& Current() { return m_current; }
    std::u16string& CurrentName() { return m_name; }

    Name ParagraphStyle(std::int32_t number) const { return Find(m_paragraph, number); }
    Name CharacterStyle(std::int32_t number) const { return Find(m_character, number); }

    /// The styles of a kind, by their numbers.
    using Entries = std::map<std::int32_t, StyleEntry>;
    const Entries& Of(StyleKind kind) const { return kind == StyleKind::Paragraph ? m_paragraph : m_character; }

    /// The style that another one of its kind refers to: an empty name is the normal style; none when there is no such.
    std::optional<Name> Referred(StyleKind kind, std::optional<std::int32_t> number) const;

private:
    static Name Find(const Entries& entries, std::int32_t number);

    StyleKind m_kind = StyleKind::Paragraph;
    std::int32_t m_number = 0;
    std::u16string m_name;
    StyleEntry m_current;
    Entries m_paragraph;
    Entries m_character;
};

struct ListLevel
{
    Numbering numbering;
    std::int32_t font = -1;  // index into the table of fonts
    std::u16string text;     // as in the source: its length, then the text
};

class ListTable
{
public:
    static constexpr std::size_t kMaxLists = 4'096;
    static constexpr std::size_t kMaxLevels = 9;

    void BeginList() { m_levels.clear(); }
    void BeginLevel();
    ListLevel* Level();
    void EndList(std::int32_t id);

    void BeginOverride() { m_override = {}; }
    void OverrideOf(std::int32_t id) { m_override = m_lists.contains(id) ? m_lists[id] : std::vector<ListLevel>(); }
    void BeginOverrideLevel() { ++m_overrideLevel; }
    void OverrideStart(std::int32_t start);
    void EndOverride(std::int32_t number);

    /// What level `level` of list `number` (\ls) shows; none when the tables do not say.
    const ListLevel* Find(std::int32_t number, std::int32_t level) const;

private:
    std::vector<ListLevel> m_levels;
    std::vector<ListLevel> m_override;
    std::size_t m_overrideLevel = 0;
    std::map<std::int32_t, std::vector<ListLevel>> m_lists;
    std::map<std::int32_t, std::vector<ListLevel>> m_overrides;
};

/// The kind of numbers that a list's \levelnfc or an old list's words mean, and back.
NumberKind NumberKindOf(std::int32_t levelFormat);
std::int32_t LevelFormatOf(NumberKind kind);

}  // namespace quillmarker
