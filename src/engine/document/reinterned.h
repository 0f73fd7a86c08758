#pragma once

#include <quillmarker/document.h>

#include <map>
#include <optional>
#include <vector>

namespace quillmarker
{

/// Carries paragraphs from the table of formats of one document family into another's.
class FormatTransfer
{
public:
    FormatTransfer(const FormatTable& from, FormatTable& to) : m_from(from), m_to(to) {}

    CharFormatId operator()(CharFormatId);
    ParagraphFormatId operator()(ParagraphFormatId);
    Shared<InlineObject> operator()(const Shared<InlineObject>&);
    Shared<Section> operator()(const Shared<Section>&);
    Body operator()(const Body&);
    ParagraphMark operator()(ParagraphMark);
    ParagraphRef operator()(const ParagraphRef&);

    /// True when nothing needs to be carried: both are the same table.
    bool IsIdentity() const { return &m_from == &m_to; }

private:
    std::int32_t ListNumber(std::int32_t list);
    void CarryList(ParagraphFormat& format);
    void CarryStyle(StyleKind kind, const Name& style);

    const FormatTable& m_from;
    FormatTable& m_to;
    std::vector<std::optional<CharFormatId>> m_chars;
    std::vector<std::optional<ParagraphFormatId>> m_paragraphs;
    std::map<std::int32_t, std::int32_t> m_lists;  // a list keeps its number unless that is another list there
};

}  // namespace quillmarker
