#pragma once

#include <quillmarker/body.h>
#include <quillmarker/export.h>
#include <quillmarker/format_table.h>
#include <quillmarker/paragraph.h>
#include <quillmarker/position.h>
#include <quillmarker/section.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillmarker
{

/// Where a position lies: in which paragraph, and how many units behind its start.
struct Location
{
    std::int32_t paragraph = 0;
    std::int32_t offset = 0;
};

/// A report as a value: a sequence of at least one paragraph. Copying is cheap, an edit makes a new document that
/// shares with the old one all that did not change. The mark of the last paragraph takes no room in the text.
class QUILLMARKER_CORE_EXPORT Document
{
public:
    /// One empty paragraph in the given format.
    explicit Document(const CharFormat& format = DefaultCharFormat());
    Document(Body body, std::shared_ptr<FormatTable> formats, Shared<DocumentFormat> format);

    /// The length of Text(), which is the largest position.
    std::int32_t Size() const;
    std::int32_t ParagraphCount() const;
    const Paragraph& ParagraphAt(std::int32_t index) const;
    ParagraphRef SharedParagraphAt(std::int32_t index) const;

    /// The position of a paragraph's first character; Size() behind the last one.
    Position StartOf(std::int32_t paragraph) const;

    /// Positions outside the document are moved to its nearest end. A position inside a mark stays there: its offset
    /// is then beyond the paragraph's text.
    Location Locate(Position) const;

    /// Calls `visit` for the paragraphs from `first` on, in order, until it returns false.
    void Visit(std::int32_t first, const std::function<bool(const Paragraph&)>& visit) const;

    /// The row mark that ends the row in which a paragraph stands, or -1 when it stands in none.
    std::int32_t RowMarkOf(std::int32_t paragraph) const;

    /// The text as positions count it: CR LF for a break or row, TAB for a cell, a blank for an object.
    std::u16string Text() const;
    std::u16string Text(TextRange) const;

    const FormatTable& Formats() const { return *m_formats; }
    FormatTable& SharedFormats() const { return *m_formats; }
    const std::shared_ptr<FormatTable>& FormatsPointer() const { return m_formats; }
    const CharFormat& FormatOf(CharFormatId id) const { return (*m_formats)[id]; }
    const ParagraphFormat& FormatOf(ParagraphFormatId id) const { return (*m_formats)[id]; }
    const DocumentFormat& Properties() const;
    const Shared<DocumentFormat>& SharedProperties() const { return m_properties; }

    const Body& Content() const { return m_body; }
    Document WithBody(Body body) const { return {std::move(body), m_formats, m_properties}; }
    Document WithProperties(DocumentFormat) const;

    /// A header, note or result of this document, readable as a document of its own.
    Document Nested(const Body& body) const { return {body, m_formats, {}}; }

    /// The same document with a table of formats of its own, to be edited in another thread.
    Document Detached() const;

    /// True when it is the very same value: same tree, same properties, nothing compared.
    bool IsSameAs(const Document& other) const;

private:
    Body m_body;
    std::shared_ptr<FormatTable> m_formats;
    Shared<DocumentFormat> m_properties;
};

/// True when both hold the same text, formats, objects and properties, whatever tables they use.
QUILLMARKER_CORE_EXPORT bool SameContent(const Document&, const Document&);

/// A stretch of paragraphs of an old document that a new one holds otherwise.
struct DocumentChange
{
    std::int32_t oldFirst = 0;
    std::int32_t oldCount = 0;
    std::int32_t newFirst = 0;
    std::int32_t newCount = 0;

    bool operator==(const DocumentChange&) const = default;
};

/// What differs between two versions of a document, by identity of what they share: ascending, apart from each other.
/// The work grows with what differs, not with the documents.
QUILLMARKER_CORE_EXPORT std::vector<DocumentChange> Differences(const Document& before, const Document& after);

/// The document as readable text, for tests and for people: paragraphs, runs, formats, objects.
QUILLMARKER_CORE_EXPORT std::string Dump(const Document&);

}  // namespace quillmarker
