#include "number_index.h"

#include <algorithm>
#include <utility>

namespace quillmarker
{
namespace
{

constexpr std::int32_t kKeptEvery = 256;

const Numbering* NumberingOf(const Document& document, const Paragraph& paragraph)
{
    const Shared<Numbering>& numbering = document.FormatOf(paragraph.Ending().format).numbering;
    return numbering ? &*numbering : nullptr;
}

std::vector<ParagraphFormatId> FormatsOf(const Document& document, std::int32_t first, std::int32_t count)
{
    std::vector<ParagraphFormatId> formats;
    if (count == 0)
        return formats;
    document.Visit(first, [&](const Paragraph& paragraph) {
        formats.push_back(paragraph.Ending().format);
        return static_cast<std::int32_t>(formats.size()) < count;
    });
    return formats;
}

/// Typing changes paragraphs, not their formats: then every count stays.
bool KeepsNumbers(const Document& before, const Document& after, const DocumentChange& change)
{
    return change.oldCount == change.newCount && before.FormatsPointer() == after.FormatsPointer() &&
           FormatsOf(before, change.oldFirst, change.oldCount) == FormatsOf(after, change.newFirst, change.newCount);
}

}  // namespace

NumberIndex::Running& NumberIndex::CountTo(const Document& document, std::int32_t paragraph)
{
    auto kept = m_counted.upper_bound(paragraph);
    const std::int32_t from = kept == m_counted.begin() ? 0 : std::prev(kept)->first;
    if (m_running.paragraph < from || m_running.paragraph > paragraph)
        m_running = {from, kept == m_counted.begin() ? NumberCounter() : std::prev(kept)->second};
    if (m_running.paragraph == paragraph)
        return m_running;
    std::int32_t lastKept = from;
    document.Visit(m_running.paragraph, [&](const Paragraph& passed) {
        m_running.counter.Next(NumberingOf(document, passed));
        ++m_running.paragraph;
        if (m_running.paragraph - lastKept >= kKeptEvery)
        {
            lastKept = m_running.paragraph;
            m_counted.insert_or_assign(lastKept, m_running.counter);
        }
        return m_running.paragraph < paragraph;
    });
    return m_running;
}

std::u16string NumberIndex::NumberOf(const Document& document, std::int32_t paragraph)
{
    const Numbering* numbering = NumberingOf(document, document.ParagraphAt(paragraph));
    if (!numbering)
        return {};
    Running& running = CountTo(document, paragraph);
    ++running.paragraph;
    return running.counter.Next(numbering);
}

void NumberIndex::Follow(const Document& before, const Document& after, const std::vector<DocumentChange>& changes)
{
    const Counters counted = std::exchange(m_counted, {});
    m_running = {};
    std::int32_t shift = 0;
    bool isDoubtful = false;  // whether the counts from here on may have changed
    auto change = changes.begin();
    for (const auto& [paragraph, counter] : counted)
    {
        for (; change != changes.end() && change->oldFirst + change->oldCount <= paragraph; ++change)
        {
            if (change->oldFirst == paragraph)
                break;  // put in before this paragraph: the count before what was put in is the same
            isDoubtful = isDoubtful || !KeepsNumbers(before, after, *change);
            shift += change->newCount - change->oldCount;
        }
        if (change != changes.end() && change->oldFirst < paragraph)
            continue;  // inside of what changed
        if (isDoubtful)
            isDoubtful = CountTo(after, paragraph + shift).counter != counter;
        if (isDoubtful)
            return;  // what was counted behind is wrong
        m_counted.insert_or_assign(paragraph + shift, counter);
    }
}

void NumberIndex::Reset()
{
    m_counted.clear();
    m_running = {};
}

}  // namespace quillmarker
