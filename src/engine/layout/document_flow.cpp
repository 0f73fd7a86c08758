#include "document_flow.h"

#include "height_estimate.h"
#include "height_index.h"
#include "layout_cache.h"
#include "number_index.h"
#include "paragraph_context.h"

#include <algorithm>
#include <utility>

namespace quillmarker
{
namespace
{

/// What layouts may weigh: a few thousand paragraphs.
constexpr std::size_t kMostLayouts = 16 * 1024 * 1024;

/// The height of a column in which nothing is shown.
constexpr Fine kLeastHeight = 240 * kFinePerTwip;

}  // namespace

struct DocumentFlow::State
{
    explicit State(FontHost& host) : fonts(host) { EstimateAll(); }

    void EstimateAll()
    {
        extent = 0;
        heights.Assign(HeightEstimate(document, width).Of(0, document.ParagraphCount()));
    }

    void Replace(const Document& next)
    {
        const bool isFamily = next.FormatsPointer() == document.FormatsPointer();
        const bool hasSameTabs = next.Properties().defaultTab == document.Properties().defaultTab;
        if (!isFamily)
        {
            layouts.Clear();  // they look into the other table of formats
            numbers.Reset();
        }
        const std::vector<DocumentChange> changes =
            isFamily ? Differences(document, next) : std::vector<DocumentChange>();
        if (isFamily)
            numbers.Follow(document, next, changes);
        const Document before = std::exchange(document, next);
        if (!isFamily || !hasSameTabs)
            return EstimateAll();
        HeightEstimate estimate(document, width);
        for (const DocumentChange& change : changes)
        {
            if (change.oldCount != 1 || change.newCount != 1)
                heights.Replace(change.newFirst, change.oldCount, estimate.Of(change.newFirst, change.newCount));
            else
                Correct(change.newFirst, estimate.Of(before.ParagraphAt(change.oldFirst)),
                        estimate.Of(document.ParagraphAt(change.newFirst)));
        }
    }

    /// A height changes as its estimate does: with most keystrokes not at all.
    void Correct(std::int32_t paragraph, ParagraphHeight before, ParagraphHeight after)
    {
        const ParagraphHeight known = heights.At(paragraph);
        if (before.height == after.height && known.height > 0)
            return;
        const Fine corrected = std::max<Fine>(known.height + after.height - before.height, 1);
        heights.Set(paragraph, after.height > 0 && known.height > 0 ? ParagraphHeight{corrected, true} : after);
    }

    const ParagraphLayout& LayoutOf(std::int32_t paragraph)
    {
        const ParagraphContext context = ContextOf(document, paragraph, width, numbers);
        const ParagraphLayout* layout = layouts.Find(document.ParagraphAt(paragraph), context);
        if (!layout)
        {
            ++layoutCount;
            layout = &layouts.Add(std::make_unique<ParagraphLayout>(document.SharedParagraphAt(paragraph),
                                                                    document.Formats(), fonts, context));
        }
        const ParagraphHeight exact{layout->Height(), false};
        if (heights.At(paragraph) != exact)
        {
            ++heightCount;
            heights.Set(paragraph, exact);
        }
        extent = std::max(extent, layout->Extent());
        return *layout;
    }

    Fine TopOf(std::int32_t paragraph) const { return heights.Before(paragraph); }
    Fine BottomOf(std::int32_t paragraph) const { return TopOf(paragraph) + heights.At(paragraph).height; }

    FontHost& fonts;
    Document document;
    Twips width;
    HeightIndex heights;
    LayoutCache layouts;
    NumberIndex numbers;
    Fine extent = 0;
    std::int64_t layoutCount = 0;
    std::int64_t heightCount = 0;  // heights that laying out made exact
};

namespace
{

/// What stands at a place of the column while heights change.
template <class State>
class Anchor
{
public:
    Anchor(const State& state, Fine place)
        : m_state(state),
          m_place(place),
          m_paragraph(state.heights.Find(place)),
          m_before(state.heights.At(m_paragraph)),
          m_into(place - state.TopOf(m_paragraph))
    {
    }

    Fine Moved() const { return m_state.TopOf(m_paragraph) + Into() - m_place; }

private:
    /// How far below its paragraph's top the place is now. Where nothing was laid out, it stays at the same part.
    Fine Into() const
    {
        const Fine height = m_state.heights.At(m_paragraph).height;
        if (m_into <= 0 || height == m_before.height)
            return m_into;
        if (m_into >= m_before.height)
            return m_into - m_before.height + height;
        if (!m_before.isEstimate)
            return std::min(m_into, height);
        const double part = static_cast<double>(m_into) / static_cast<double>(m_before.height);
        return static_cast<Fine>(part * static_cast<double>(height));
    }

    const State& m_state;
    Fine m_place;
    std::int32_t m_paragraph;
    ParagraphHeight m_before;
    Fine m_into;
};

}  // namespace

DocumentFlow::DocumentFlow(FontHost& fonts) : m_state(std::make_unique<State>(fonts)) {}

DocumentFlow::~DocumentFlow() = default;

const Document& DocumentFlow::Value() const { return m_state->document; }

void DocumentFlow::SetDocument(const Document& document)
{
    if (!document.IsSameAs(m_state->document))
        m_state->Replace(document);
}

Twips DocumentFlow::Width() const { return m_state->width; }

void DocumentFlow::SetWidth(Twips width)
{
    if (width == m_state->width)
        return;
    m_state->width = width;
    m_state->EstimateAll();
}

Fine DocumentFlow::Height() const
{
    const Fine total = m_state->heights.Total();
    return total > 0 ? total : kLeastHeight;
}

Fine DocumentFlow::Extent() const { return m_state->extent; }

const ParagraphLayout& DocumentFlow::LayoutOf(std::int32_t paragraph) { return m_state->LayoutOf(paragraph); }

Fine DocumentFlow::TopOf(std::int32_t paragraph) const { return m_state->TopOf(paragraph); }

std::int32_t DocumentFlow::ParagraphAt(Fine y) const
{
    const Fine total = m_state->heights.Total();
    return m_state->heights.Find(std::min(y, std::max<Fine>(total - 1, 0)));
}

Fine DocumentFlow::Settle(Fine top, Fine bottom, Fine anchor)
{
    State& state = *m_state;
    state.layouts.BeginTurn(kMostLayouts);
    const Anchor<State> standing(state, anchor);
    // From where the anchor is, or nearest to it, outwards: what is laid out there pushes the rest out of the stretch.
    const std::int32_t middle = ParagraphAt(std::clamp(anchor, top, std::max(top, bottom)));
    bool isSettled = false;
    while (!isSettled)
    {
        const std::int64_t before = state.heightCount;
        state.LayoutOf(middle);
        for (std::int32_t at = middle; state.BottomOf(at) < std::min(bottom + standing.Moved(), state.heights.Total());)
        {
            at = state.heights.Find(state.BottomOf(at));
            state.LayoutOf(at);
        }
        for (std::int32_t at = middle; state.TopOf(at) > std::max<Fine>(top + standing.Moved(), 0);)
        {
            at = state.heights.Find(state.TopOf(at) - 1);
            state.LayoutOf(at);
        }
        isSettled = state.heightCount == before;
    }
    return standing.Moved();
}

std::int64_t DocumentFlow::LayoutCount() const { return m_state->layoutCount; }

}  // namespace quillmarker
