#include "page_cutter.h"

#include "paragraph_context.h"
#include "section_breaks.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace quillmarker
{
namespace
{

/// A line of the document.
struct LinePlace
{
    std::int32_t paragraph = 0;
    std::uint32_t line = 0;
};

/// A page break within a table ends a line, as in word processors: a row stays whole.
bool EndsPage(const Line& line, const ParagraphMark& mark)
{
    return mark.tableDepth == 0 && (line.ending == LineEnd::Page || line.ending == LineEnd::Column);
}

}  // namespace

struct PageCutter::State
{
    State(Document value, FontHost& host, Twips lineWidth, Twips pageHeight)
        : document(std::move(value)), fonts(host), width(lineWidth), height(ToFine(pageHeight)), sections(document)
    {
    }

    std::shared_ptr<const ParagraphLayout> LayoutOf(std::int32_t paragraph);

    Document document;
    FontHost& fonts;
    Twips width;
    Fine height;
    NumberIndex numbers;
    SectionBreaks sections;

    /// The layouts made last: a page goes on in the paragraph in which the page before it ended.
    struct Kept
    {
        std::int32_t paragraph;
        std::shared_ptr<const ParagraphLayout> layout;
    };
    std::deque<Kept> kept;
};

std::shared_ptr<const ParagraphLayout> PageCutter::State::LayoutOf(std::int32_t paragraph)
{
    constexpr std::size_t kMostKept = 16;
    for (const Kept& candidate : kept)
        if (candidate.paragraph == paragraph)
            return candidate.layout;
    auto layout = std::make_shared<const ParagraphLayout>(document.SharedParagraphAt(paragraph), document.Formats(),
                                                          fonts, ContextOf(document, paragraph, width, numbers));
    kept.push_front({paragraph, layout});
    if (kept.size() > kMostKept)
        kept.pop_back();
    return layout;
}

namespace
{

/// Fills one page from top to bottom, then finds the best place for its end.
template <class State>
class PageFiller
{
public:
    PageFiller(State& state, PageStart start, Position end) : m_state(state), m_start(start), m_end(end) {}

    CutPage Fill()
    {
        const Location from = m_state.document.Locate(m_start.position);
        LinePlace at{from.paragraph, 0};
        auto layout = m_state.LayoutOf(at.paragraph);
        at.line = layout->LineOf(static_cast<std::uint32_t>(from.offset));
        while (AddParagraph(at, layout))
        {
            if (++at.paragraph >= m_state.document.ParagraphCount())
            {
                Finish();
                break;
            }
            at.line = 0;
            if (MustBreakBefore(at.paragraph))
            {
                EndBefore(at);
                break;
            }
            layout = m_state.LayoutOf(at.paragraph);
        }
        return std::move(m_page);
    }

private:
    /// Puts the lines from `at` on into the page. False when the page has its end.
    bool AddParagraph(LinePlace at, const std::shared_ptr<const ParagraphLayout>& layout)
    {
        const auto lines = layout->Lines();
        const Position start = m_state.document.StartOf(at.paragraph);
        PlacedLines placed{at.paragraph, at.line, at.line, 0, layout};
        const Fine offset = Top(at, *layout) - lines[at.line].top;
        placed.top = offset + lines[at.line].top;
        for (std::uint32_t i = at.line; i < lines.size(); ++i)
        {
            const bool isBehindEnd = start + static_cast<std::int32_t>(lines[i].begin) >= m_end && !IsEmpty(placed);
            const bool fits = offset + lines[i].Bottom() <= m_state.height;
            if (isBehindEnd && (!fits || !IsLastMark(at.paragraph)))
                return Keep(placed), Finish(), false;
            if (!fits && !IsEmpty(placed))
                return BreakAt({at.paragraph, i}, placed, *layout), false;
            placed.last = i + 1;
            m_y = offset + lines[i].Bottom();
            if (EndsPage(lines[i], layout->Source().Ending()))
                return EndBehind(at.paragraph, i, placed), false;
            if (!fits)
                return EndBehind(at.paragraph, i, placed), false;  // taller than the page: alone, and clipped
        }
        m_y += layout->SpaceAfter();
        Keep(placed);
        return true;
    }

    /// Where a line goes. No room above it pushes the first line of a page off the page.
    Fine Top(LinePlace at, const ParagraphLayout& layout)
    {
        if (at.line > 0)
            return 0;
        const Line& line = layout.Lines()[0];
        if (!m_page.lines.empty())
            return m_y + line.top;
        const Fine top = DropsSpaceBefore(at.paragraph, layout) ? line.top - layout.SpaceBetween() : line.top;
        return std::min(top, std::max<Fine>(m_state.height - line.height, 0));
    }

    /// The space before a paragraph is dropped at the top of a page that the text flowed onto. (Behind a break character
    /// a paragraph goes on: its first line never follows one.)
    bool DropsSpaceBefore(std::int32_t paragraph, const ParagraphLayout& layout)
    {
        return m_start.position.value > 0 && layout.Height() > 0 && !MustBreakBefore(paragraph);
    }

    bool IsEmpty(const PlacedLines& placed) const { return m_page.lines.empty() && placed.first == placed.last; }

    /// The document's last mark shows although it begins where the last page ends; not so in a range that ends before.
    bool IsLastMark(std::int32_t paragraph) const
    {
        return m_end.value >= m_state.document.Size() && paragraph == m_state.document.ParagraphCount() - 1;
    }

    bool MustBreakBefore(std::int32_t paragraph)
    {
        if (m_state.document.StartOf(paragraph) >= m_end)
            return false;
        const Paragraph& next = m_state.document.ParagraphAt(paragraph);
        return m_state.document.FormatOf(next.Ending().format).pageBreakBefore ||
               m_state.sections.StartsPage(paragraph);
    }

    void Keep(const PlacedLines& placed)
    {
        if (placed.first < placed.last)
            m_page.lines.push_back(placed);
    }

    void Finish()
    {
        m_page.next = {m_end, m_start.number + 1};
        m_page.isLast = true;
    }

    void EndBehind(std::int32_t paragraph, std::uint32_t line, const PlacedLines& placed)
    {
        Keep(placed);
        const Paragraph& source = placed.layout->Source();
        const bool isWhole = line + 1 == placed.layout->Lines().size();
        const Position start = m_state.document.StartOf(paragraph);
        EndAt(isWhole ? start + source.Length()
                      : start + static_cast<std::int32_t>(placed.layout->Lines()[line + 1].begin));
    }

    /// The line at `at` does not fit: ends the page before it, or earlier where the paragraphs ask for it.
    void BreakAt(LinePlace at, PlacedLines placed, const ParagraphLayout& layout)
    {
        const std::uint32_t line = LineToKeepTogether(at.line, placed.first, layout);
        placed.last = line;
        const bool movesWhole = line == 0;
        LinePlace next{at.paragraph, line};
        if (movesWhole)
            next = BeforeThoseKeptWith(next);
        if (movesWhole && m_page.lines.empty())
        {
            // Nothing would be left on the page: the wishes cannot be met.
            placed.last = at.line;
            next = at;
        }
        Keep(placed);
        EndBefore(next);
    }

    void EndBefore(LinePlace at)
    {
        const auto layout = m_state.LayoutOf(at.paragraph);
        const Position next =
            m_state.document.StartOf(at.paragraph) + static_cast<std::int32_t>(layout->Lines()[at.line].begin);
        EndAt(next);
    }

    void EndAt(Position next)
    {
        m_page.next = {std::min(next, m_end), m_start.number + 1};
        m_page.isLast = m_page.next.position >= m_end;
    }

    /// The first line that goes to the next page when the one at `line` does not fit; `first` is the paragraph's first
    /// on this page. The first possible place when nothing can be kept together.
    static std::uint32_t LineToKeepTogether(std::uint32_t line, std::uint32_t first, const ParagraphLayout& layout)
    {
        const ParagraphFormat& format = layout.Format();
        const auto count = static_cast<std::uint32_t>(layout.Lines().size());
        if (format.keepLines && first == 0)
            return 0;
        if (!format.widowControl || line <= first)
            return line;
        std::uint32_t best = line;
        if (count - best == 1 && best - first >= 2)
            --best;
        const bool leavesOrphan = first == 0 && best == 1;
        return leavesOrphan ? 0 : best;
    }

    /// Takes paragraphs that must stand with their next one off the page's end, as long as something is left.
    LinePlace BeforeThoseKeptWith(LinePlace at)
    {
        std::size_t count = m_page.lines.size();
        while (count > 0 && m_page.lines[count - 1].layout->Format().keepWithNext && m_page.lines[count - 1].first == 0)
            --count;
        if (count == 0 || count == m_page.lines.size())
            return at;
        at = {m_page.lines[count].paragraph, 0};
        m_page.lines.resize(count);
        return at;
    }

    State& m_state;
    PageStart m_start;
    Position m_end;
    CutPage m_page;
    Fine m_y = 0;
};

}  // namespace

PageCutter::PageCutter(Document document, FontHost& fonts, Twips width, Twips height)
    : m_state(
          std::make_unique<State>(std::move(document), fonts, std::max(width, Twips{1}), std::max(height, Twips{1})))
{
}

PageCutter::~PageCutter() = default;

CutPage PageCutter::Cut(PageStart start, Position end)
{
    const Position last{std::clamp(end.value, 0, m_state->document.Size())};
    start.position = {std::clamp(start.position.value, 0, last.value)};
    return PageFiller(*m_state, start, last).Fill();
}

PageRecord RecordOf(const CutPage& cut, const TwipsRectangle& printable, const TwipsRectangle& page)
{
    PageRecord record{page.Width(), page.Height(), {}};
    const QPointF corner(printable.left.value - page.left.value, printable.top.value - page.top.value);
    const auto originOf = [&](const PlacedLines& placed) {
        return corner + QPointF(0, InTwips(placed.top - placed.layout->Lines()[placed.first].top));
    };
    const bool isTooTall = std::any_of(cut.lines.begin(), cut.lines.end(), [&](const PlacedLines& placed) {
        const auto lines = placed.layout->Lines();
        return placed.top + lines[placed.last - 1].Bottom() - lines[placed.first].top > ToFine(printable.Height());
    });
    if (isTooTall)
        record.list.Add(BeginClip{QRectF(0, corner.y(), page.Width().value, printable.Height().value)});
    for (const PlacedLines& placed : cut.lines)
        placed.layout->DrawBackground(record.list, originOf(placed), placed.first, placed.last,
                                      {.above = &placed != &cut.lines.front(), .below = &placed != &cut.lines.back()});
    for (const PlacedLines& placed : cut.lines)
        placed.layout->DrawText(record.list, originOf(placed), placed.first, placed.last);
    if (isTooTall)
        record.list.Add(EndClip{});
    return record;
}

FormattedPage FormatRange(const Document& document, TextRange range, const TwipsRectangle& printable,
                          const TwipsRectangle& page, FontHost& fonts)
{
    PageCutter cutter(document, fonts, printable.Width(), printable.Height());
    const CutPage cut = cutter.Cut({range.begin, 1}, range.end);
    return {RecordOf(cut, printable, page), cut.next.position};
}

}  // namespace quillmarker
