#include "engine/rtf/header_tables.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

struct LevelFormat
{
    NumberKind kind;
    std::int32_t number;
};

constexpr std::array kLevelFormats = {
    LevelFormat{NumberKind::Decimal, 0},      LevelFormat{NumberKind::UpperRoman, 1},
    LevelFormat{NumberKind::LowerRoman, 2},   LevelFormat{NumberKind::UpperLetter, 3},
    LevelFormat{NumberKind::LowerLetter, 4},  LevelFormat{NumberKind::Ordinal, 5},
    LevelFormat{NumberKind::CardinalText, 6}, LevelFormat{NumberKind::OrdinalText, 7},
    LevelFormat{NumberKind::Bullet, 23},      LevelFormat{NumberKind::None, 255},
};

std::u16string Trimmed(std::u16string text)
{
    text.erase(0, std::min(text.find_first_not_of(u' '), text.size()));
    text.erase(text.find_last_not_of(u' ') + 1);
    return text;
}

constexpr std::size_t kMaxNameLength = 256;

}  // namespace

NumberKind NumberKindOf(std::int32_t levelFormat)
{
    const auto found = std::ranges::find(kLevelFormats, levelFormat, &LevelFormat::number);
    return found == kLevelFormats.end() ? NumberKind::Decimal : found->kind;
}

std::int32_t LevelFormatOf(NumberKind kind)
{
    return std::ranges::find(kLevelFormats, kind, &LevelFormat::kind)->number;
}

void FontTable::Begin(std::int32_t number)
{
    EndEntry();
    m_isOpen = true;
    m_number = number;
}

void FontTable::EndEntry()
{
    if (!std::exchange(m_isOpen, false))
    {
        m_name.clear();
        return;
    }
    m_name.resize(std::min(m_name.size(), kMaxNameLength));
    m_current.name = Name(Trimmed(std::move(m_name)));
    m_name = {};
    if (m_fonts.size() < kMaxFonts)
    {
        m_byNumber[m_number] = static_cast<std::int32_t>(m_fonts.size());
        m_fonts.push_back(m_current);
    }
    m_current = {};
}

std::int32_t FontTable::IndexOf(std::int32_t number) const
{
    const auto found = m_byNumber.find(number);
    return found == m_byNumber.end() ? -1 : found->second;
}

std::int32_t FontTable::IndexOf(std::u16string_view name) const
{
    // Asked for by fields, any number of them: a table longer than files have is not searched to its end.
    constexpr std::size_t kSearched = 256;
    const auto end = m_fonts.begin() + static_cast<std::ptrdiff_t>(std::min(m_fonts.size(), kSearched));
    const auto found =
        std::find_if(m_fonts.begin(), end, [&](const FontEntry& font) { return font.name.Text() == name; });
    return found == end ? -1 : static_cast<std::int32_t>(found - m_fonts.begin());
}

void ColourTable::Set(int shift, std::int32_t value)
{
    if (m_current.IsAutomatic())
        m_current.rgb = 0;
    const auto level = static_cast<std::uint32_t>(std::clamp(value, 0, 255));
    m_current.rgb = (m_current.rgb & ~(255U << shift)) | level << shift;
}

void ColourTable::EndEntry()
{
    if (m_colours.size() < kMaxColours)
        m_colours.push_back(m_current);
    m_current = {};
}

Colour ColourTable::operator[](std::int32_t number) const
{
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < m_colours.size() ? m_colours[index] : Colour();
}

void StyleSheet::Begin(StyleKind kind, std::int32_t number)
{
    m_kind = kind;
    m_number = number;
    m_current = {};
}

void StyleSheet::EndEntry()
{
    m_name.resize(std::min(m_name.size(), kMaxNameLength));
    Name name(Trimmed(std::exchange(m_name, {})));
    Entries* entries = m_kind == StyleKind::Paragraph   ? &m_paragraph
                       : m_kind == StyleKind::Character ? &m_character
                                                        : nullptr;
    // Style 0 is what text has when no style is said, so its name says nothing.
    if (entries && m_number != 0 && !name.IsEmpty() && entries->size() < kMaxStyles)
    {
        m_current.name = std::move(name);
        entries->insert_or_assign(m_number, std::move(m_current));
    }
    m_current = {};
    m_kind = StyleKind::Paragraph;
    m_number = 0;
}

Name StyleSheet::Find(const Entries& entries, std::int32_t number)
{
    const auto found = entries.find(number);
    return found == entries.end() ? Name() : found->second.name;
}

std::optional<Name> StyleSheet::Referred(StyleKind kind, std::optional<std::int32_t> number) const
{
    if (number == 0)
        return Name();
    const Name found = number ? Find(Of(kind), *number) : Name();
    return found.IsEmpty() ? std::optional<Name>() : found;
}

void ListTable::BeginLevel()
{
    if (m_levels.size() >= kMaxLevels)
        return;
    const auto number = static_cast<std::int32_t>(m_levels.size());
    m_levels.emplace_back().numbering.level = number;
}

ListLevel* ListTable::Level() { return m_levels.empty() ? nullptr : &m_levels.back(); }

void ListTable::EndList(std::int32_t id)
{
    if (m_lists.size() < kMaxLists)
        m_lists[id] = std::move(m_levels);
    m_levels.clear();
}

void ListTable::OverrideStart(std::int32_t start)
{
    const std::size_t level = m_overrideLevel > 0 ? m_overrideLevel - 1 : 0;
    if (level < m_override.size())
        m_override[level].numbering.start = start;
}

void ListTable::EndOverride(std::int32_t number)
{
    if (m_overrides.size() < kMaxLists)
        m_overrides[number] = std::move(m_override);
    m_override.clear();
    m_overrideLevel = 0;
}

const ListLevel* ListTable::Find(std::int32_t number, std::int32_t level) const
{
    const auto found = m_overrides.find(number);
    if (found == m_overrides.end() || level < 0 || static_cast<std::size_t>(level) >= found->second.size())
        return nullptr;
    return &found->second[static_cast<std::size_t>(level)];
}

}  // namespace quillmarker
