#pragma once

#include <quillmarker/document.h>
#include <quillmarker/rtf.h>

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace quillmarker
{

/// The tables at the head of what is written: fonts, colours, styles and lists in the order of their first use, which
/// makes a document that was read come out the same.
class WriterTables
{
public:
    /// Gathers what the document uses, its headers, notes and objects included.
    WriterTables(const Document& document, RtfScope scope);

    std::int32_t Font(const CharFormat& format) const { return Font(format.font, format.charset, format.family); }
    std::int32_t Font(const Name& name, std::uint8_t charset, FontFamily family) const;
    std::int32_t ColourNumber(Colour colour) const;
    std::int32_t ParagraphStyle(const Name& style) const { return Number(m_paragraphStyles, style); }
    std::int32_t CharacterStyle(const Name& style) const { return Number(m_characterStyles, style); }

    /// What text has directly behind \plain.
    const CharFormat& Plain() const { return m_plain; }

    void WriteHead(std::string& out) const;

private:
    using FontKey = std::tuple<std::u16string, std::uint8_t, FontFamily>;
    using StyleNumbers = std::map<std::u16string, std::int32_t>;

    void Gather(const Body& body);
    template <class Id>
    void GatherOnce(Id id, std::vector<bool>& seen);
    void Gather(const Paragraph& paragraph);
    void GatherText(const Paragraph& paragraph);
    void Gather(const CharFormat& format);
    void Gather(const ParagraphFormat& format);
    void Gather(const Numbering& numbering);
    void Gather(const Section& section);
    void Gather(const TableRow& row);
    void Gather(const Borders& borders);
    void Gather(Colour colour);
    void GatherFont(const Name& name, std::uint8_t charset, FontFamily family);
    static std::int32_t Number(const StyleNumbers& styles, const Name& style);
    void GatherStyle(StyleKind kind, const Name& style);
    void Gather(const StyleDefinition& definition);
    std::string StyleWords(StyleKind kind, const Name& style) const;

    void WriteFonts(std::string& out) const;
    void WriteColours(std::string& out) const;
    void WriteStyles(std::string& out) const;
    void WriteLists(std::string& out) const;
    void WriteLevel(const Numbering& level, std::string& out) const;

    const Document& m_document;
    std::vector<bool> m_seenChars;
    std::vector<bool> m_seenParagraphs;
    std::map<FontKey, std::int32_t> m_fonts;
    std::vector<FontKey> m_fontList;
    std::unordered_map<std::uint32_t, std::int32_t> m_colours;
    std::vector<Colour> m_colourList;
    StyleNumbers m_paragraphStyles;
    StyleNumbers m_characterStyles;
    std::vector<Name> m_paragraphStyleList;
    std::vector<Name> m_characterStyleList;
    std::map<std::int32_t, std::map<std::int32_t, Numbering>> m_lists;  // by list, by level
    CharFormat m_plain;
};

}  // namespace quillmarker
