#include "engine/document/format_edit.h"

#include "engine/document/edit.h"
#include "engine/document/tree.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <vector>

namespace quillmarker
{
namespace
{

struct ParagraphSpan
{
    std::int32_t first = 0;
    std::int32_t last = 0;  // included
};

ParagraphSpan TouchedBy(const Document& document, TextRange range)
{
    const TextRange snapped = Snapped(document, range);
    const Location begin = document.Locate(snapped.begin);
    const Location end = document.Locate(snapped.end);
    const bool stopsBefore = end.paragraph > begin.paragraph && end.offset == 0;
    return {begin.paragraph, stopsBefore ? end.paragraph - 1 : end.paragraph};
}

/// The last mark takes no room in the text, so no range holds it. It belongs to a range that comes from an earlier
/// paragraph when its own is empty: nothing else there could show or take a format.
bool ReachesLastMark(const Document& document, const Location& begin, const Location& end)
{
    const bool isLast = end.paragraph == document.ParagraphCount() - 1;
    return isLast && begin.paragraph < end.paragraph && document.ParagraphAt(end.paragraph).Text().empty();
}

template <class Full, class Partial, class Fields>
Full PatchedBy(Full format, const Partial& patch, const Fields& fields)
{
    const auto apply = [&](const auto& field) {
        if (patch.*field.partial)
            format.*field.full = *(patch.*field.partial);
    };
    std::apply([&](const auto&... field) { (apply(field), ...); }, fields);
    return format;
}

template <class Partial, class Full, class Fields>
Partial Stating(const Full& format, const Fields& fields)
{
    Partial partial;
    std::apply([&](const auto&... field) { ((partial.*field.partial = format.*field.full), ...); }, fields);
    return partial;
}

/// Lets each format through once.
template <class Id>
class Distinct
{
public:
    bool IsNew(Id id)
    {
        const auto number = static_cast<std::size_t>(id);
        if (id == m_latest || (number < m_seen.size() && m_seen[number]))
            return false;
        m_latest = id;
        m_seen.resize(std::max(m_seen.size(), number + 1));
        m_seen[number] = true;
        return true;
    }

private:
    std::optional<Id> m_latest;
    std::vector<bool> m_seen;
};

/// Merges formats: a field that differs among them becomes empty.
template <class Full, class Partial, class Fields>
class FormatMerge
{
public:
    explicit FormatMerge(const Fields& fields) : m_fields(fields) {}

    void Add(const Full& format)
    {
        if (std::exchange(m_isFirst, false))
            m_merged = Stating<Partial>(format, m_fields);
        else
            std::apply([&](const auto&... field) { (Meet(format, field), ...); }, m_fields);
    }

    const Partial& Result() const { return m_merged; }

private:
    template <class FieldType>
    void Meet(const Full& format, const FieldType& field)
    {
        auto& value = m_merged.*field.partial;
        if (value && !(*value == format.*field.full))
            value.reset();
    }

    const Fields& m_fields;
    bool m_isFirst = true;
    Partial m_merged;
};

/// Applies a change to formats, each of them once.
template <class Id, class Change>
class FormatMap
{
public:
    FormatMap(FormatTable& table, const Change& change) : m_table(table), m_change(change) {}

    Id operator()(Id id)
    {
        const auto number = static_cast<std::size_t>(id);
        if (number >= m_known.size())
            m_known.resize(number + 1);
        if (!m_known[number])
            m_known[number] = m_table.Intern(m_change(m_table[id]));
        return *m_known[number];
    }

private:
    FormatTable& m_table;
    const Change& m_change;
    std::vector<std::optional<Id>> m_known;
};

template <class Reformat>
Document Reformatted(const Document& document, ParagraphSpan span, Reformat reformat)
{
    const ParagraphTree& tree = document.Content().Content()->tree;
    std::vector<ParagraphRef> paragraphs;
    bool changed = false;
    std::int32_t index = span.first;
    tree.Visit(index, [&](const ParagraphRef& paragraph) {
        paragraphs.push_back(reformat(paragraph, index));
        changed = changed || paragraphs.back() != paragraph;
        return ++index <= span.last;
    });
    if (!changed)
        return document;
    return document.WithBody(
        Body(std::make_shared<BodyContent>(BodyContent{tree.Replaced(span.first, span.last + 1, paragraphs)})));
}

/// The runs of a paragraph with `map` applied from `begin` to `end`.
template <class Map>
std::vector<Run> MappedRuns(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end, Map& map)
{
    std::vector<Run> runs;
    const auto put = [&](std::uint32_t stop, CharFormatId format) {
        if (!runs.empty() && runs.back().format == format)
            runs.back().end = stop;
        else
            runs.push_back({stop, format});
    };
    std::uint32_t start = 0;
    for (const Run& run : paragraph.Runs())
    {
        if (start < begin)
            put(std::min(run.end, begin), run.format);
        if (start < end && run.end > begin)
            put(std::min(run.end, end), map(run.format));
        if (run.end > end)
            put(run.end, run.format);
        start = run.end;
    }
    return runs;
}

}  // namespace

CharFormat Patched(CharFormat format, const PartialCharFormat& patch)
{
    return PatchedBy(std::move(format), patch, kCharFields);
}

ParagraphFormat Patched(ParagraphFormat format, const PartialParagraphFormat& patch)
{
    return PatchedBy(std::move(format), patch, kParagraphFields);
}

PartialCharFormat AllOf(const CharFormat& format) { return Stating<PartialCharFormat>(format, kCharFields); }

void VisitCharFormats(const Document& document, TextRange range, const std::function<void(const CharFormat&)>& visit)
{
    range = Snapped(document, range);
    if (range.IsEmpty())
        return;
    Distinct<CharFormatId> distinct;
    const auto meet = [&](CharFormatId id) {
        if (distinct.IsNew(id))
            visit(document.FormatOf(id));
    };
    const auto meetRuns = [&](const Paragraph& paragraph, std::uint32_t from, std::uint32_t to) {
        const auto runs = paragraph.Runs();
        auto run = std::ranges::upper_bound(runs, from, {}, &Run::end);
        for (std::uint32_t at = from; at < to && run != runs.end(); at = run->end, ++run)
            meet(run->format);
        if (to > paragraph.Text().size())
            meet(paragraph.Ending().charFormat);
    };
    const auto meetAll = [&](const ParagraphRef& paragraph) {
        meetRuns(*paragraph, 0, static_cast<std::uint32_t>(paragraph->Length()));
    };
    const auto meetFew = [&](const ParagraphTree::Node& node) {
        const FewIds<CharFormatId>& chars = node.Formats().chars;
        if (chars.IsComplete())
            std::ranges::for_each(chars.Ids(), meet);
        return chars.IsComplete();
    };

    const Location begin = document.Locate(range.begin);
    const Location end = document.Locate(range.end);
    const auto length = [&](std::int32_t index) {
        return static_cast<std::uint32_t>(document.ParagraphAt(index).Length());
    };
    const auto from = static_cast<std::uint32_t>(begin.offset);
    const auto to = static_cast<std::uint32_t>(end.offset);
    const bool isInOne = begin.paragraph == end.paragraph;
    meetRuns(document.ParagraphAt(begin.paragraph), from, isInOne ? to : length(begin.paragraph));
    if (isInOne)
        return;
    document.Content().Content()->tree.VisitStretch(begin.paragraph + 1, end.paragraph, meetFew, meetAll);
    const bool reachesMark = ReachesLastMark(document, begin, end);
    meetRuns(document.ParagraphAt(end.paragraph), 0, reachesMark ? length(end.paragraph) : to);
}

void VisitParagraphFormats(const Document& document, TextRange range,
                           const std::function<void(const ParagraphFormat&)>& visit)
{
    Distinct<ParagraphFormatId> distinct;
    const auto meet = [&](ParagraphFormatId id) {
        if (distinct.IsNew(id))
            visit(document.FormatOf(id));
    };
    const auto meetFew = [&](const ParagraphTree::Node& node) {
        const FewIds<ParagraphFormatId>& paragraphs = node.Formats().paragraphs;
        if (paragraphs.IsComplete())
            std::ranges::for_each(paragraphs.Ids(), meet);
        return paragraphs.IsComplete();
    };
    const ParagraphSpan span = TouchedBy(document, range);
    document.Content().Content()->tree.VisitStretch(
        span.first, span.last + 1, meetFew, [&](const ParagraphRef& paragraph) { meet(paragraph->Ending().format); });
}

PartialCharFormat CharFormatOver(const Document& document, TextRange range)
{
    FormatMerge<CharFormat, PartialCharFormat, decltype(kCharFields)> merge(kCharFields);
    VisitCharFormats(document, range, [&](const CharFormat& format) { merge.Add(format); });
    return merge.Result();
}

PartialParagraphFormat ParagraphFormatOver(const Document& document, TextRange range)
{
    FormatMerge<ParagraphFormat, PartialParagraphFormat, decltype(kParagraphFields)> merge(kParagraphFields);
    VisitParagraphFormats(document, range, [&](const ParagraphFormat& format) { merge.Add(format); });
    return merge.Result();
}

Document WithCharFormats(const Document& document, TextRange range, const CharFormatChange& change)
{
    range = Snapped(document, range);
    if (range.IsEmpty())
        return document;
    FormatMap<CharFormatId, CharFormatChange> map(document.SharedFormats(), change);
    const Location begin = document.Locate(range.begin);
    const Location end = document.Locate(range.end);
    const bool reachesLastMark = ReachesLastMark(document, begin, end);
    return Reformatted(
        document, {begin.paragraph, end.paragraph}, [&](const ParagraphRef& paragraph, std::int32_t index) {
            const auto length = static_cast<std::uint32_t>(paragraph->Text().size());
            const std::uint32_t from = index == begin.paragraph ? static_cast<std::uint32_t>(begin.offset) : 0;
            const bool toMark = index < end.paragraph || reachesLastMark;
            const std::uint32_t to = index < end.paragraph ? length : static_cast<std::uint32_t>(end.offset);
            const std::vector<Run> runs = MappedRuns(*paragraph, from, to, map);
            ParagraphMark mark = paragraph->Ending();
            if (toMark)
                mark.charFormat = map(mark.charFormat);
            if (mark == paragraph->Ending() && std::ranges::equal(runs, paragraph->Runs()))
                return paragraph;
            return Paragraph::Make(paragraph->Text(), runs, mark, paragraph->Extras());
        });
}

Document WithCharFormatsAlong(const Document& document, const FormatAlong& change)
{
    Position start;
    const auto reformat = [&](const ParagraphRef& paragraph, std::int32_t) {
        Position at = start;
        auto map = [&](CharFormatId id) { return change(id, at); };
        std::vector<Run> runs;
        for (const Run& run : paragraph->Runs())
        {
            runs.push_back({run.end, map(run.format)});
            at = start + static_cast<std::int32_t>(run.end);
        }
        ParagraphMark mark = paragraph->Ending();
        mark.charFormat = map(mark.charFormat);
        start = start + paragraph->Length();
        if (mark == paragraph->Ending() && std::ranges::equal(runs, paragraph->Runs()))
            return paragraph;
        return Paragraph::Make(paragraph->Text(), runs, mark, paragraph->Extras());
    };
    return Reformatted(document, {0, document.ParagraphCount() - 1}, reformat);
}

Document WithParagraphFormats(const Document& document, TextRange range, const ParagraphFormatChange& change)
{
    FormatMap<ParagraphFormatId, ParagraphFormatChange> map(document.SharedFormats(), change);
    return Reformatted(document, TouchedBy(document, range), [&](const ParagraphRef& paragraph, std::int32_t) {
        ParagraphMark mark = paragraph->Ending();
        mark.format = map(mark.format);
        if (mark == paragraph->Ending())
            return paragraph;
        return Paragraph::Make(paragraph->Text(), paragraph->Runs(), mark, paragraph->Extras());
    });
}

Document WithCharFormat(const Document& document, TextRange range, const PartialCharFormat& patch)
{
    return WithCharFormats(document, range, [&](CharFormat format) { return Patched(std::move(format), patch); });
}

Document WithParagraphFormat(const Document& document, TextRange range, const PartialParagraphFormat& patch)
{
    return WithParagraphFormats(document, range,
                                [&](ParagraphFormat format) { return Patched(std::move(format), patch); });
}

}  // namespace quillmarker
