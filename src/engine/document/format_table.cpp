#include <quillmarker/format_table.h>

#include "engine/document/format_hash.h"

namespace quillmarker
{
namespace
{

template <class Id, class Format>
Id InternIn(std::deque<Format>& formats, std::unordered_multimap<std::size_t, std::uint32_t>& byHash,
            const Format& format, std::size_t hash)
{
    const auto [begin, end] = byHash.equal_range(hash);
    for (auto candidate = begin; candidate != end; ++candidate)
    {
        if (formats[candidate->second] == format)
            return Id{candidate->second};
    }
    const auto number = static_cast<std::uint32_t>(formats.size());
    formats.push_back(format);
    byHash.emplace(hash, number);
    return Id{number};
}

}  // namespace

CharFormatId FormatTable::Intern(const CharFormat& format)
{
    return InternIn<CharFormatId>(m_chars, m_charsByHash, format, HashOfFields(format, kCharFields));
}

ParagraphFormatId FormatTable::Intern(const ParagraphFormat& format)
{
    return InternIn<ParagraphFormatId>(m_paragraphs, m_paragraphsByHash, format,
                                       HashOfFields(format, kParagraphFields));
}

}  // namespace quillmarker
