#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/export.h>
#include <quillmarker/paragraph.h>
#include <quillmarker/paragraph_format.h>
#include <quillmarker/style_definition.h>

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillmarker
{

/// The formats of a family of documents, each held once. It only grows, so a number stays valid; it is not safe to
/// share between threads while one of them may add to it.
class QUILLMARKER_CORE_EXPORT FormatTable
{
public:
    CharFormatId Intern(const CharFormat&);
    ParagraphFormatId Intern(const ParagraphFormat&);

    const CharFormat& operator[](CharFormatId id) const { return m_chars[static_cast<std::uint32_t>(id)]; }
    const ParagraphFormat& operator[](ParagraphFormatId id) const
    {
        return m_paragraphs[static_cast<std::uint32_t>(id)];
    }

    /// How a level of a list is numbered, as the first format of that list and level says; none: nobody said.
    Shared<Numbering> ListLevel(std::int32_t list, std::int32_t level) const;

    /// The number for a list that comes from elsewhere and is numbered as `levels` say: `list` itself, unless that is
    /// already another list here.
    std::int32_t ListNumberFor(std::int32_t list, const std::vector<Numbering>& levels) const;

    /// Every level of a list that formats have stated.
    std::vector<Numbering> ListLevels(std::int32_t list) const;

    /// What a style means; the first definition of a name holds.
    void DefineStyle(StyleKind kind, const Name& name, StyleDefinition definition);
    const StyleDefinition* StyleOf(StyleKind kind, const Name& name) const;

    std::size_t CharFormatCount() const { return m_chars.size(); }
    std::size_t ParagraphFormatCount() const { return m_paragraphs.size(); }

private:
    std::map<std::pair<std::int32_t, std::int32_t>, Shared<Numbering>> m_lists;  // by list and level
    std::map<std::pair<StyleKind, std::u16string>, Shared<StyleDefinition>> m_styles;
    std::deque<CharFormat> m_chars;
    std::deque<ParagraphFormat> m_paragraphs;
    std::unordered_multimap<std::size_t, std::uint32_t> m_charsByHash;
    std::unordered_multimap<std::size_t, std::uint32_t> m_paragraphsByHash;
};

}  // namespace quillmarker
