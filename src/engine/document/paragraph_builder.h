#pragma once

#include <quillmarker/export.h>
#include <quillmarker/paragraph.h>

#include <string>
#include <vector>

namespace quillmarker
{

/// Gathers a paragraph piece by piece. Neighbouring pieces of one format become one run. After Finish it is empty
/// again and may be used for the next paragraph; its memory is kept.
class QUILLMARKER_CORE_EXPORT ParagraphBuilder
{
public:
    void Append(std::u16string_view text, CharFormatId format);
    void Append(char16_t unit, CharFormatId format) { Append(std::u16string_view(&unit, 1), format); }
    void Append(Shared<InlineObject> object, CharFormatId format);

    /// The text of `from` between two offsets, with its formats and objects.
    void Append(const Paragraph& from, std::uint32_t begin, std::uint32_t end);

    /// Room at the end for `size` units that the caller fills in at once.
    char16_t* Extend(std::size_t size, CharFormatId format);

    bool IsEmpty() const { return m_text.empty(); }
    std::size_t Size() const { return m_text.size(); }
    std::u16string_view Text() const { return m_text; }
    std::span<const Run> Runs() const { return m_runs; }

    ParagraphRef Finish(const ParagraphMark&);
    ParagraphRef Finish(const ParagraphMark&, Shared<TableRow>, Shared<Section>);

    /// Finishes with the mark of `like`, and what that mark carries.
    ParagraphRef FinishLike(const Paragraph& like);

private:
    void CloseRun(CharFormatId format);

    std::u16string m_text;
    std::vector<Run> m_runs;
    std::vector<PlacedObject> m_objects;
};

}  // namespace quillmarker
