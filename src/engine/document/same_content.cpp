#include "engine/document/tree.h"

#include <quillmarker/document.h>

#include <algorithm>
#include <unordered_map>

namespace quillmarker
{
namespace
{

bool SameField(const Shared<Field>& a, const Shared<Field>& b)
{
    if (!a || !b)
        return !a && !b;
    return a->instruction == b->instruction && a->switches == b->switches && SameField(a->outer, b->outer);
}

/// Compares documents that may use different tables; each pair of formats is compared once.
class Comparison
{
public:
    Comparison(const Document& a, const Document& b) : m_a(a), m_b(b) {}

    bool Same(const Body& a, const Body& b)
    {
        if (a.IsAbsent() || b.IsAbsent())
            return a.IsAbsent() && b.IsAbsent();
        const ParagraphTree& left = a.Content()->tree;
        const ParagraphTree& right = b.Content()->tree;
        if (left.Total().units != right.Total().units || left.Count() != right.Count())
            return false;
        std::vector<const Paragraph*> all;
        all.reserve(static_cast<std::size_t>(right.Count()));
        right.Visit(0, [&](const ParagraphRef& paragraph) {
            all.push_back(paragraph.Identity());
            return true;
        });
        std::size_t next = 0;
        return left.Visit(0, [&](const ParagraphRef& paragraph) { return Same(*paragraph, *all[next++]); });
    }

    bool Same(const Section& a, const Section& b)
    {
        Section left = a;
        Section right = b;
        left.headers = right.headers = {};
        return left == right &&
               std::ranges::equal(a.headers, b.headers, [&](const Body& x, const Body& y) { return Same(x, y); });
    }

private:
    bool Same(const Paragraph& a, const Paragraph& b)
    {
        if (&a == &b && &m_a.Formats() == &m_b.Formats())
            return true;
        const ParagraphMark& left = a.Ending();
        const ParagraphMark& right = b.Ending();
        return a.Text() == b.Text() && left.kind == right.kind && left.tableDepth == right.tableDepth &&
               Same(left.charFormat, right.charFormat) && Same(left.format, right.format) &&
               std::ranges::equal(
                   a.Runs(), b.Runs(),
                   [&](const Run& x, const Run& y) { return x.end == y.end && Same(x.format, y.format); }) &&
               Same(a.Extras(), b.Extras());
    }

    bool Same(const ParagraphExtras& a, const ParagraphExtras& b)
    {
        const bool sameSection = a.section && b.section ? Same(*a.section, *b.section) : !a.section && !b.section;
        return sameSection && a.row == b.row &&
               std::ranges::equal(a.objects, b.objects, [&](const PlacedObject& x, const PlacedObject& y) {
                   return x.offset == y.offset && Same(*x.object, *y.object);
               });
    }

    bool Same(const InlineObject& a, const InlineObject& b)
    {
        if (a.index() != b.index())
            return false;
        if (const auto* left = std::get_if<EmbeddedObject>(&a))
        {
            EmbeddedObject right = std::get<EmbeddedObject>(b);
            const Body result = std::exchange(right.result, left->result);
            return *left == right && Same(left->result, result);
        }
        if (const auto* left = std::get_if<Note>(&a))
        {
            Note right = std::get<Note>(b);
            const Body body = std::exchange(right.body, left->body);
            return *left == right && Same(left->body, body);
        }
        return a == b;
    }

    template <class Id>
    bool Same(Id a, Id b)
    {
        constexpr bool kIsChar = std::is_same_v<Id, CharFormatId>;
        auto& known = kIsChar ? m_chars : m_paragraphs;
        const auto key = std::uint64_t{static_cast<std::uint32_t>(a)} << 32 | static_cast<std::uint32_t>(b);
        const auto [entry, isNew] = known.try_emplace(key, false);
        if (isNew)
            entry->second = SameFormat(m_a.FormatOf(a), m_b.FormatOf(b));
        return entry->second;
    }

    static bool SameFormat(const CharFormat& a, const CharFormat& b)
    {
        CharFormat other = b;
        other.field = a.field;  // compared apart: numbers that only tell neighbours apart do not count
        return a == other && SameField(a.field, b.field);
    }

    static bool SameFormat(const ParagraphFormat& a, const ParagraphFormat& b) { return a == b; }

    const Document& m_a;
    const Document& m_b;
    std::unordered_map<std::uint64_t, bool> m_chars;
    std::unordered_map<std::uint64_t, bool> m_paragraphs;
};

}  // namespace

bool SameContent(const Document& a, const Document& b)
{
    if (a.IsSameAs(b))
        return true;
    Comparison comparison(a, b);
    DocumentFormat left = a.Properties();
    DocumentFormat right = b.Properties();
    left.lastSection = right.lastSection = {};
    return left == right && comparison.Same(a.Properties().lastSection, b.Properties().lastSection) &&
           comparison.Same(a.Content(), b.Content());
}

}  // namespace quillmarker
