#pragma once

#include "engine/rtf/format_words.h"
#include "engine/rtf/writer_tables.h"

#include <quillmarker/numbering_text.h>
#include <quillmarker/rtf.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillmarker
{

/// Writes one document. What the source says up to a place is kept beside it, so that only changes are written.
class Writer
{
public:
    Writer(const Document& document, RtfScope scope) : m_document(document), m_scope(scope), m_tables(document, scope)
    {
    }

    std::string Write();

private:
    /// The formats that hold at a place of the source; a closing brace brings back those of its partner.
    struct Place
    {
        std::optional<CharFormatId> chars;
        std::optional<ParagraphFormatId> paragraph;
        int tableDepth = 0;
        bool isFresh = true;  // nothing is known: \pard\plain has to come first
    };

    struct OpenedField
    {
        Shared<Field> field;
        Place outside;
    };

    /// Whether the last paragraph's mark is written.
    enum class LastMark : std::uint8_t { Written, LeftOut, LeftOutUnlessEmpty };

    using Paragraphs = std::vector<const Paragraph*>;

    void WriteBody(const Body& body, LastMark lastMark);
    void WriteNested(const char* word, const Body& body, LastMark lastMark);
    void WriteParagraph(const Paragraph& paragraph);
    void UseMark(const Paragraph& paragraph);
    void WriteRowStart(const Paragraphs& paragraphs, std::size_t index);
    void WriteNumber(const ParagraphFormat& format);
    void WriteText(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end);
    void WriteMark(const Paragraph& paragraph);
    void WriteSection(const Section& section);
    void WriteObject(const InlineObject& object);
    void WritePicture(const InlinePicture& picture);
    void WriteEmbedded(const EmbeddedObject& object);
    void WriteNote(const Note& note);

    void UseParagraph(const ParagraphMark& mark);
    void UseChars(CharFormatId id);
    void UseField(const Shared<Field>& field);
    void CloseFields(std::span<const Shared<Field>> path);
    void OpenField(const Shared<Field>& field);
    void CloseField();

    const Document& m_document;
    RtfScope m_scope;
    WriterTables m_tables;
    std::string m_out;
    Place m_place;
    std::vector<OpenedField> m_fields;
    NumberCounter m_numbers;
    std::vector<Shared<Section>> m_sections;  // in order; each is written where it begins
    std::size_t m_section = 0;
    std::unordered_map<std::uint64_t, std::string> m_charWords;
    std::unordered_map<std::uint64_t, std::string> m_paragraphWords;
};

}  // namespace quillmarker
