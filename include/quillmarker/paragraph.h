#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/export.h>
#include <quillmarker/inline_object.h>
#include <quillmarker/paragraph_format.h>
#include <quillmarker/ref.h>
#include <quillmarker/section.h>
#include <quillmarker/table_row.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// Numbers of formats in the document's FormatTable; equal numbers mean equal formats.
enum class CharFormatId : std::uint32_t {};
enum class ParagraphFormatId : std::uint32_t {};

/// What ends a paragraph.
enum class Mark : std::uint8_t { Break, Cell, Row };

/// Units a mark takes in the text: CR LF for a break or a row, TAB for a cell.
constexpr std::int32_t MarkLength(Mark mark) { return mark == Mark::Cell ? 1 : 2; }

/// Text up to `end` (from the paragraph's start) that has one format.
struct Run
{
    std::uint32_t end = 0;
    CharFormatId format{};

    bool operator==(const Run&) const = default;
};

/// The character that stands for an inline object, and the object.
struct PlacedObject
{
    std::uint32_t offset = 0;
    Shared<InlineObject> object;

    bool operator==(const PlacedObject&) const = default;
};

constexpr char16_t kObjectCharacter = u'\uFFFC';
constexpr char16_t kLineBreak = u'\v';
constexpr char16_t kPageBreak = u'\f';
constexpr char16_t kColumnBreak = u'\x0E';

/// What few paragraphs have.
struct ParagraphExtras
{
    std::vector<PlacedObject> objects;  // ascending
    Shared<TableRow> row;               // of a row's mark
    Shared<Section> section;            // of a break that ends a section

    bool IsEmpty() const { return objects.empty() && !row && !section; }
    bool operator==(const ParagraphExtras&) const = default;
};

/// A paragraph's mark: what ends it, and the formats that it carries.
struct ParagraphMark
{
    Mark kind = Mark::Break;
    std::uint16_t tableDepth = 0;  // 0 outside tables; a cell and a row belong to the table of this depth
    CharFormatId charFormat{};
    ParagraphFormatId format{};

    bool operator==(const ParagraphMark&) const = default;
};

/// An immutable paragraph in one block of memory: text without its mark, runs, mark. Made by ParagraphBuilder.
class QUILLMARKER_CORE_EXPORT Paragraph
{
public:
    std::u16string_view Text() const { return {TextData(), m_textLength}; }
    std::span<const Run> Runs() const { return {RunData(), m_runCount}; }
    const ParagraphMark& Ending() const { return m_mark; }
    const ParagraphExtras& Extras() const;
    bool HasExtras() const { return m_extras != nullptr; }

    /// Units of the text and of the mark.
    std::int32_t Length() const { return static_cast<std::int32_t>(m_textLength) + MarkLength(m_mark.kind); }

    /// The format of the character at `offset`, of the mark when that is the text's length or more.
    CharFormatId FormatAt(std::uint32_t offset) const;

    /// The object that the character at `offset` stands for, or none.
    const InlineObject* ObjectAt(std::uint32_t offset) const;

    void AddRef() const { m_references.Add(); }
    void Release() const;

    Paragraph(const Paragraph&) = delete;
    Paragraph& operator=(const Paragraph&) = delete;

    static Ref<const Paragraph> Make(std::u16string_view text, std::span<const Run> runs, const ParagraphMark& mark,
                                     ParagraphExtras extras);

private:
    Paragraph() = default;
    ~Paragraph() = default;

    const Run* RunData() const { return reinterpret_cast<const Run*>(this + 1); }
    const char16_t* TextData() const { return reinterpret_cast<const char16_t*>(RunData() + m_runCount); }

    RefCount m_references;
    std::uint32_t m_textLength = 0;
    std::uint32_t m_runCount = 0;
    ParagraphMark m_mark;
    std::unique_ptr<const ParagraphExtras> m_extras;
};

using ParagraphRef = Ref<const Paragraph>;

}  // namespace quillmarker
