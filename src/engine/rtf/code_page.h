#pragma once

#include "engine/rtf/ansi_page.h"
#include "engine/rtf/charset.h"
#include "engine/rtf/page_table.h"

#include <quillmarker/export.h>

#include <string>
#include <string_view>

namespace quillmarker
{

/// How the bytes of one code page become UTF-16. Immutable: any number of threads may use one.
///
/// Bytes below 0x80 are ASCII in every page except the symbol page, where 0x20 and up are U+F000 + byte.
/// A byte the page leaves undefined is the C1 control of the same number between 0x80 and 0x9F, else U+FFFD.
class Decoder
{
public:
    /// Prefer DecoderFor, which builds each page once.
    explicit Decoder(CodePage page);

    /// Puts the characters of `bytes` behind `out`. A pair the page does not define, or a lead byte at the end, is one
    /// U+FFFD; a byte below 0x80 is never swallowed by a lead byte it does not belong to.
    QUILLMARKER_CORE_EXPORT void Append(std::string_view bytes, std::u16string& out) const;

    /// The character of one byte that is no lead byte and, in UTF-8, below 0x80.
    char16_t UnitOf(unsigned char byte) const { return m_table.units[byte]; }

    /// The character of two bytes of a double-byte page; U+FFFD when the page defines none.
    char16_t UnitOf(unsigned char lead, unsigned char trail) const { return m_table.Pair(lead, trail); }

    bool IsDoubleByte() const { return !m_table.pairs.empty(); }
    bool IsLeadByte(unsigned char byte) const { return m_table.lead[byte]; }
    bool IsUtf8() const { return m_utf8; }

private:
    void AppendSingles(std::string_view bytes, std::u16string& out) const;
    void AppendPairs(std::string_view bytes, std::u16string& out) const;

    PageTable m_table;
    bool m_utf8;
};

/// The decoder of `page`, built at its first use and kept for the process: cheap to ask for, valid for ever, safe
/// from any thread. 0 and unknown pages give the one of 1252.
QUILLMARKER_CORE_EXPORT const Decoder& DecoderFor(CodePage page);

}  // namespace quillmarker
