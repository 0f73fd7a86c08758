#pragma once

#include <quillmarker/document.h>
#include <quillmarker/numbering_text.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace quillmarker
{

/// The numbers and bullets in front of paragraphs, for any paragraph without counting from the document's start each
/// time: the count is kept every few hundred paragraphs. Follows edits; an edit that leaves the numbering alone keeps
/// what was counted.
class NumberIndex
{
public:
    /// What stands before a paragraph; empty when it is not numbered.
    std::u16string NumberOf(const Document& document, std::int32_t paragraph);

    /// The document became another one; `changes` are their Differences.
    void Follow(const Document& before, const Document& after, const std::vector<DocumentChange>& changes);
    void Reset();

private:
    using Counters = std::map<std::int32_t, NumberCounter>;
    struct Running
    {
        std::int32_t paragraph = 0;
        NumberCounter counter;
    };

    /// The count before `paragraph`, kept now and then on the way there.
    Running& CountTo(const Document& document, std::int32_t paragraph);

    Counters m_counted;  // the count before these paragraphs
    Running m_running;   // the count before the paragraph that will probably be asked for next
};

}  // namespace quillmarker
