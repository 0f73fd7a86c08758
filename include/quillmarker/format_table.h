#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/export.h>
#include <quillmarker/paragraph.h>
#include <quillmarker/paragraph_format.h>

#include <cstdint>
#include <deque>
#include <unordered_map>

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
    const ParagraphFormat& operator[](ParagraphFormatId id) const { return m_paragraphs[static_cast<std::uint32_t>(id)]; }

    std::size_t CharFormatCount() const { return m_chars.size(); }
    std::size_t ParagraphFormatCount() const { return m_paragraphs.size(); }

private:
    std::deque<CharFormat> m_chars;
    std::deque<ParagraphFormat> m_paragraphs;
    std::unordered_multimap<std::size_t, std::uint32_t> m_charsByHash;
    std::unordered_multimap<std::size_t, std::uint32_t> m_paragraphsByHash;
};

}  // namespace quillmarker
