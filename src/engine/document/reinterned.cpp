#include "engine/document/reinterned.h"

#include "engine/document/tree.h"

#include <utility>

namespace quillmarker
{
namespace
{

template <class Id, class Make>
Id Carried(Id id, std::vector<std::optional<Id>>& known, Make make)
{
    const auto number = static_cast<std::size_t>(id);
    if (number >= known.size())
        known.resize(number + 1);
    if (!known[number])
        known[number] = make();
    return *known[number];
}

}  // namespace

std::int32_t FormatTransfer::ListNumber(std::int32_t list)
{
    const auto [entry, isNew] = m_lists.try_emplace(list, list);
    if (isNew)
        entry->second = m_to.ListNumberFor(list, m_from.ListLevels(list));
    return entry->second;
}

void FormatTransfer::CarryList(ParagraphFormat& format)
{
    if (!format.numbering || format.numbering->list == 0)
        return;
    Numbering numbering = *format.numbering;
    numbering.list = ListNumber(numbering.list);
    format.numbering = Shared(std::move(numbering));
}

/// A style means what it means there; only one that is new there brings its definition, and those it is based on.
void FormatTransfer::CarryStyle(StyleKind kind, const Name& style)
{
    for (Name at = style; !at.IsEmpty();)
    {
        const StyleDefinition* definition = m_from.StyleOf(kind, at);
        if (!definition || m_to.StyleOf(kind, at))
            return;
        StyleDefinition carried = *definition;
        CarryList(carried.paragraph);
        m_to.DefineStyle(kind, at, std::move(carried));
        at = definition->basedOn.value_or(Name());
    }
}

CharFormatId FormatTransfer::operator()(CharFormatId id)
{
    if (IsIdentity())
        return id;
    return Carried(id, m_chars, [&] {
        CarryStyle(StyleKind::Character, m_from[id].style);
        return m_to.Intern(m_from[id]);
    });
}

ParagraphFormatId FormatTransfer::operator()(ParagraphFormatId id)
{
    if (IsIdentity())
        return id;
    return Carried(id, m_paragraphs, [&] {
        ParagraphFormat format = m_from[id];
        CarryList(format);
        CarryStyle(StyleKind::Paragraph, format.style);
        return m_to.Intern(format);
    });
}

Body FormatTransfer::operator()(const Body& body)
{
    if (body.IsAbsent() || IsIdentity())
        return body;
    std::vector<ParagraphRef> paragraphs;
    body.Content()->tree.Visit(0, [&](const ParagraphRef& paragraph) {
        paragraphs.push_back((*this)(paragraph));
        return true;
    });
    return Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(paragraphs)}));
}

Shared<InlineObject> FormatTransfer::operator()(const Shared<InlineObject>& object)
{
    if (!object || IsIdentity() || std::holds_alternative<InlinePicture>(*object))
        return object;
    InlineObject carried = *object;
    if (auto* embedded = std::get_if<EmbeddedObject>(&carried))
        embedded->result = (*this)(embedded->result);
    else if (auto* note = std::get_if<Note>(&carried))
        note->body = (*this)(note->body);
    return Shared(std::move(carried));
}

Shared<Section> FormatTransfer::operator()(const Shared<Section>& section)
{
    if (!section || IsIdentity())
        return section;
    Section carried = *section;
    for (Body& header : carried.headers)
        header = (*this)(header);
    return Shared(std::move(carried));
}

ParagraphMark FormatTransfer::operator()(ParagraphMark mark)
{
    mark.charFormat = (*this)(mark.charFormat);
    mark.format = (*this)(mark.format);
    return mark;
}

ParagraphRef FormatTransfer::operator()(const ParagraphRef& paragraph)
{
    if (IsIdentity())
        return paragraph;
    std::vector<Run> runs(paragraph->Runs().begin(), paragraph->Runs().end());
    for (Run& run : runs)
        run.format = (*this)(run.format);
    ParagraphExtras extras = paragraph->Extras();
    for (PlacedObject& placed : extras.objects)
        placed.object = (*this)(placed.object);
    extras.section = (*this)(extras.section);
    return Paragraph::Make(paragraph->Text(), runs, (*this)(paragraph->Ending()), std::move(extras));
}

}  // namespace quillmarker
