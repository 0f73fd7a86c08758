#pragma once

#include "engine/document/text_search.h"

#include <quillmarker/document.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillmarker
{

enum class WholeWord : bool { No, Yes };

/// Searches a document for a text without copying it: paragraphs are scanned where they lie. Positions and line ends are
/// those of Document::Text().
class DocumentSearch
{
public:
    DocumentSearch(std::u16string_view text, MatchCase matchCase, WholeWord wholeWord = WholeWord::No);

    /// The first match that lies in `range`; empty when there is none, or the text searched for is empty.
    std::optional<Position> First(const Document& document, TextRange range) const;

    /// The last match that lies in `range`.
    std::optional<Position> Last(const Document& document, TextRange range) const;

private:
    struct Place
    {
        std::int32_t paragraph = 0;
        Position start;
    };

    std::optional<Position> FirstIn(const Document& document, const ParagraphRef& paragraph, const Place& place,
                                    TextRange range) const;
    std::optional<std::int32_t> FirstInText(const Paragraph& paragraph, std::int32_t from) const;
    std::optional<Position> FirstAcrossMark(const Document& document, const Paragraph& paragraph, const Place& place,
                                            TextRange range) const;
    bool IsMatch(const Document& document, Position at) const;
    bool IsWord(const Document& document, Position at) const;
    std::int32_t Length() const { return static_cast<std::int32_t>(m_text.size()); }

    std::u16string m_text;
    MatchCase m_matchCase;
    WholeWord m_wholeWord;
    Needle m_needle;
    bool m_mayCrossMarks;  // it holds what a mark is in the text
    bool m_isOnlyAcross;   // it holds a line end, which stands nowhere else
};

}  // namespace quillmarker
