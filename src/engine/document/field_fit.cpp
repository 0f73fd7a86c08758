#include "engine/document/field_fit.h"

#include "engine/document/format_edit.h"
#include "engine/document/format_hash.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <vector>

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

/// Walks the fields of a fragment as they are met. Equal fields are one as long as nothing stands between them.
class FieldFit
{
public:
    FieldFit(const Document& document, TextRange range) : m_document(document), m_range(range)
    {
        for (const Position beside : {range.begin - 1, range.end})
            for (Shared<Field> field = FieldAt(document, beside); field; field = field->outer)
                m_neighbours.insert(*field);
    }

    /// The field to put in place of the next one in the fragment, which begins `offset` units behind its start.
    Shared<Field> Fitted(const Shared<Field>& field, std::int32_t offset)
    {
        std::vector<Shared<Field>> chain;
        for (Shared<Field> part = field; part; part = part->outer)
            chain.push_back(part);
        std::ranges::reverse(chain);

        const auto differing = std::ranges::mismatch(m_open, chain, {}, &OpenField::given).in1;
        const auto kept = static_cast<std::size_t>(differing - m_open.begin());
        const Shared<Field> closed = differing != m_open.end() ? differing->fitted : Shared<Field>();
        m_open.erase(differing, m_open.end());
        if (kept == chain.size())
            return m_open.empty() ? field : m_open.back().fitted;

        const Position at = m_range.begin + offset;
        const Shared<Field> replaced = at < m_range.end ? FieldAt(m_document, at) : Shared<Field>();
        Open(chain[kept], replaced, closed);
        for (std::size_t level = kept + 1; level < chain.size(); ++level)
            Open(chain[level], replaced, {});
        return m_open.back().fitted;
    }

private:
    struct OpenField
    {
        Shared<Field> given;
        Shared<Field> fitted;
    };

    /// `replaced` is the field, if any, that stood where this one will; `before` the one that this one stands next to.
    void Open(const Shared<Field>& given, const Shared<Field>& replaced, const Shared<Field>& before)
    {
        Field wanted = *given;
        if (!m_open.empty())
            wanted.outer = m_open.back().fitted;
        const auto isBefore = [&](const Field& field) { return before && *before == field; };
        if (const std::optional<std::uint32_t> serial = SerialOf(wanted, replaced, isBefore))
            wanted.serial = *serial;
        else
            while (isBefore(wanted) || m_neighbours.contains(wanted))
                ++wanted.serial;
        m_open.push_back({given, wanted == *given ? given : Shared(std::move(wanted))});
    }

    /// The number of the field among `replaced` and those around it that is put back.
    template <class IsBefore>
    static std::optional<std::uint32_t> SerialOf(const Field& wanted, const Shared<Field>& replaced, IsBefore isBefore)
    {
        for (Shared<Field> candidate = replaced; candidate; candidate = candidate->outer)
            if (SameButForSerial(*candidate, wanted) && !isBefore(*candidate))
                return candidate->serial;
        return std::nullopt;
    }

    const Document& m_document;
    TextRange m_range;
    std::unordered_set<Field, FieldHash> m_neighbours;
    std::vector<OpenField> m_open;  // those around the latest unit, the outermost first
};

}  // namespace

Document WithFieldsFitted(const Document& document, TextRange range, const Document& fragment)
{
    FieldFit fit(document, range);
    return WithCharFormatsAlong(fragment, [&](CharFormatId id, Position at) {
        const CharFormat& format = fragment.FormatOf(id);
        Shared<Field> fitted = fit.Fitted(format.field, at.value);
        if (fitted == format.field)
            return id;
        CharFormat changed = format;
        changed.field = std::move(fitted);
        return fragment.SharedFormats().Intern(changed);
    });
}

}  // namespace quillmarker
