#include "engine/document/field_fit.h"

#include "engine/document/format_edit.h"
#include "engine/document/format_hash.h"

#include <unordered_map>
#include <unordered_set>

namespace quillmarker
{
namespace
{

struct FieldHash
{
    std::size_t operator()(const Field& field) const { return HashOf(field); }
};

bool SameButForSerial(const Field& a, const Field& b)
{
    return a.instruction == b.instruction && a.switches == b.switches && a.outer == b.outer;
}

Shared<Field> FieldAt(const Document& document, Position at)
{
    if (at.value < 0 || at.value > document.Size())
        return {};
    const Location place = document.Locate(at);
    const CharFormatId id = document.ParagraphAt(place.paragraph).FormatAt(static_cast<std::uint32_t>(place.offset));
    return document.FormatOf(id).field;
}

class FieldFit
{
public:
    FieldFit(const Document& document, TextRange range) : m_document(document), m_range(range)
    {
        for (const Position beside : {range.begin - 1, range.end})
            for (Shared<Field> field = FieldAt(document, beside); field; field = field->outer)
                m_neighbours.insert(*field);
    }

    /// Meets a field of the fragment, `offset` units behind its start.
    void Meet(const Shared<Field>& field, std::int32_t offset)
    {
        if (field && !m_fitted.contains(*field))
        {
            const Position at = m_range.begin + offset;
            Fit(field, at < m_range.end ? FieldAt(m_document, at) : Shared<Field>());
        }
    }

    bool ChangesSomething() const { return m_changes; }

    Shared<Field> Fitted(const Shared<Field>& field) const
    {
        const auto found = field ? m_fitted.find(*field) : m_fitted.end();
        return found != m_fitted.end() ? found->second : field;
    }

private:
    /// `replaced` is the field, if any, that stood where this one will. Fields hold each other to a bounded depth.
    Shared<Field> Fit(const Shared<Field>& field, const Shared<Field>& replaced)
    {
        if (const auto known = m_fitted.find(*field); known != m_fitted.end())
            return known->second;
        Field wanted = *field;
        if (wanted.outer)
            wanted.outer = Fit(wanted.outer, replaced);
        if (!TakeReplaced(wanted, replaced))
            while (m_taken.contains(wanted) || m_neighbours.contains(wanted))
                ++wanted.serial;
        m_taken.insert(wanted);
        m_changes = m_changes || wanted != *field;
        return m_fitted.emplace(*field, Shared(std::move(wanted))).first->second;
    }

    bool TakeReplaced(Field& wanted, const Shared<Field>& replaced) const
    {
        for (Shared<Field> candidate = replaced; candidate; candidate = candidate->outer)
        {
            if (!SameButForSerial(*candidate, wanted) || m_taken.contains(*candidate))
                continue;
            wanted.serial = candidate->serial;
            return true;
        }
        return false;
    }

    const Document& m_document;
    TextRange m_range;
    std::unordered_set<Field, FieldHash> m_neighbours;
    std::unordered_set<Field, FieldHash> m_taken;
    std::unordered_map<Field, Shared<Field>, FieldHash> m_fitted;
    bool m_changes = false;
};

}  // namespace

Document WithFieldsFitted(const Document& document, TextRange range, const Document& fragment)
{
    FieldFit fit(document, range);
    std::int32_t start = 0;
    fragment.Visit(0, [&](const Paragraph& paragraph) {
        std::int32_t begin = 0;
        for (const Run& run : paragraph.Runs())
        {
            fit.Meet(fragment.FormatOf(run.format).field, start + begin);
            begin = static_cast<std::int32_t>(run.end);
        }
        fit.Meet(fragment.FormatOf(paragraph.Ending().charFormat).field, start + begin);
        start += paragraph.Length();
        return true;
    });
    if (!fit.ChangesSomething())
        return fragment;
    return WithCharFormats(fragment, {{0}, {fragment.Size()}}, [&](CharFormat format) {
        format.field = fit.Fitted(format.field);
        return format;
    });
}

}  // namespace quillmarker
