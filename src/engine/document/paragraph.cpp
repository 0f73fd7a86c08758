#include <quillmarker/paragraph.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace quillmarker
{

static_assert(alignof(Run) <= alignof(Paragraph) && sizeof(Paragraph) % alignof(Run) == 0,
              "runs follow the paragraph in its block, and the text follows the runs");

const ParagraphExtras& Paragraph::Extras() const
{
    static const ParagraphExtras none;
    return m_extras ? *m_extras : none;
}

CharFormatId Paragraph::FormatAt(std::uint32_t offset) const
{
    if (offset >= m_textLength)
        return m_mark.charFormat;
    const auto runs = Runs();
    return std::ranges::upper_bound(runs, offset, {}, &Run::end)->format;
}

const InlineObject* Paragraph::ObjectAt(std::uint32_t offset) const
{
    if (!m_extras)
        return nullptr;
    const auto& objects = m_extras->objects;
    const auto found = std::ranges::lower_bound(objects, offset, {}, &PlacedObject::offset);
    return found != objects.end() && found->offset == offset ? &*found->object : nullptr;
}

ParagraphRef Paragraph::Make(std::u16string_view text, std::span<const Run> runs, const ParagraphMark& mark,
                             ParagraphExtras extras)
{
    const std::size_t size = sizeof(Paragraph) + runs.size_bytes() + text.size() * sizeof(char16_t);
    auto* paragraph = new (::operator new(size)) Paragraph;
    paragraph->m_textLength = static_cast<std::uint32_t>(text.size());
    paragraph->m_runCount = static_cast<std::uint32_t>(runs.size());
    paragraph->m_mark = mark;
    auto* behind = reinterpret_cast<char*>(paragraph + 1);
    if (!runs.empty())
        std::memcpy(behind, runs.data(), runs.size_bytes());
    if (!text.empty())
        std::memcpy(behind + runs.size_bytes(), text.data(), text.size() * sizeof(char16_t));
    ParagraphRef owned = ParagraphRef::Adopt(paragraph);
    if (!extras.IsEmpty())
        paragraph->m_extras = std::make_unique<const ParagraphExtras>(std::move(extras));
    return owned;
}

void Paragraph::Release() const
{
    if (!m_references.DropWasLast())
        return;
    this->~Paragraph();
    ::operator delete(const_cast<Paragraph*>(this));
}

}  // namespace quillmarker
