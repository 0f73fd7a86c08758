// Laying out a document as a view shows it: what must not grow with the document, and opening one.

#include "generated_report.h"

#include "engine/document/edit.h"
#include "engine/layout/caret_motion.h"
#include "engine/layout/document_flow.h"

#include <quillmarker/rtf.h>

#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include <map>
#include <string>

using namespace quillmarker;

namespace
{

constexpr std::int64_t kMegabyte = 1'000'000;
constexpr std::int64_t kPageBytes = 4'500;  // of RTF, about
constexpr Fine kViewHeight = ToFine(Inches(10));
constexpr Twips kViewWidth = Inches(6);

FontHost& Fonts()
{
    static const std::unique_ptr<FontHost> fonts = SystemFonts();
    return *fonts;
}

const std::string& Rtf(std::int64_t bytes)
{
    static std::map<std::int64_t, std::string> made;
    std::string& rtf = made[bytes];
    if (rtf.empty())
        rtf = GeneratedReport({.bytes = static_cast<std::size_t>(bytes)});
    return rtf;
}

const Document& Sample(std::int64_t bytes)
{
    static std::map<std::int64_t, Document> read;
    const auto found = read.find(bytes);
    return found != read.end() ? found->second
                               : read.emplace(bytes, ReadRtf(std::string_view(Rtf(bytes)))).first->second;
}

/// A view on a part of the document.
struct View
{
    explicit View(const Document& document)
    {
        flow.SetWidth(kViewWidth);
        flow.SetDocument(document);
    }

    void ScrollTo(Fine y) { top = y, Settle(); }
    void Settle() { top += flow.Settle(top, top + kViewHeight, top); }

    DocumentFlow flow{Fonts()};
    Fine top = 0;
};

/// A key and one that takes it back, in the middle of the document, each followed by what a view needs to paint.
void Keystroke(benchmark::State& state)
{
    Document document = Sample(state.range(0) * kPageBytes);
    const Position at{document.Size() / 2};
    const CharFormatId format = document.ParagraphAt(document.Locate(at).paragraph).FormatAt(0);
    View view(document);
    view.ScrollTo(view.flow.BoxOf({at}).top - kViewHeight / 2);
    const std::int64_t before = view.flow.LayoutCount();
    bool isTyping = true;
    for (auto _ : state)
    {
        document =
            isTyping ? WithText(document, {at, at}, u"x", format) : WithText(document, {at, at + 1}, u"", format);
        isTyping = !isTyping;
        view.flow.SetDocument(document);
        view.Settle();
        benchmark::DoNotOptimize(view.flow.BoxOf({at}));
    }
    state.counters["paragraphs laid out"] =
        benchmark::Counter(static_cast<double>(view.flow.LayoutCount() - before), benchmark::Counter::kAvgIterations);
    state.SetItemsProcessed(state.iterations());
}

/// From RTF to all that the first page needs.
void OpenToFirstSettle(benchmark::State& state)
{
    const std::string& rtf = Rtf(state.range(0) * kMegabyte);
    for (auto _ : state)
    {
        View view(ReadRtf(std::string_view(rtf)));
        view.Settle();
        benchmark::DoNotOptimize(view.flow.Height());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(rtf.size()));
}

/// The same for a document that was read already: estimates for all of it, layouts for the first page.
void FirstSettle(benchmark::State& state)
{
    const Document& document = Sample(state.range(0) * kMegabyte);
    for (auto _ : state)
    {
        View view(document);
        view.Settle();
        benchmark::DoNotOptimize(view.flow.Height());
    }
    state.counters["paragraphs"] = document.ParagraphCount();
}

/// Every page is laid out when it is scrolled to.
void ScrollAPage(benchmark::State& state)
{
    const Document& document = Sample(state.range(0) * kPageBytes);
    auto view = std::make_unique<View>(document);
    for (auto _ : state)
    {
        view->ScrollTo(view->top + kViewHeight);
        if (view->top + kViewHeight < view->flow.Height())
            continue;
        state.PauseTiming();
        view = std::make_unique<View>(document);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
}

/// To the document's end and back: nothing between is laid out.
void JumpToTheEnds(benchmark::State& state)
{
    View view(Sample(state.range(0) * kPageBytes));
    Motion motion = Motion::DocumentEnd;
    for (auto _ : state)
    {
        const CaretPosition caret = Moved(view.flow, {}, motion).caret;
        motion = motion == Motion::DocumentEnd ? Motion::DocumentStart : Motion::DocumentEnd;
        view.ScrollTo(std::max<Fine>(view.flow.BoxOf(caret).top - kViewHeight / 2, 0));
    }
    state.SetItemsProcessed(state.iterations());
}

void CaretDown(benchmark::State& state)
{
    View view(Sample(state.range(0) * kPageBytes));
    MovedCaret moved;
    for (auto _ : state)
    {
        const CaretPosition before = moved.caret;
        moved = Moved(view.flow, before, Motion::LineDown, {.column = moved.column});
        if (moved.caret == before)
            moved = {};
    }
    state.SetItemsProcessed(state.iterations());
}

void Pages(benchmark::internal::Benchmark* bench) { bench->ArgName("pages")->Arg(10)->Arg(200)->Arg(2'000); }

void Megabytes(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("MB")->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);
}

BENCHMARK(Keystroke)->Apply(Pages)->Unit(benchmark::kMicrosecond);
BENCHMARK(ScrollAPage)->Apply(Pages)->Unit(benchmark::kMicrosecond);
BENCHMARK(JumpToTheEnds)->Apply(Pages)->Unit(benchmark::kMicrosecond);
BENCHMARK(CaretDown)->Apply(Pages)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenToFirstSettle)->Apply(Megabytes);
BENCHMARK(FirstSettle)->Apply(Megabytes);

}  // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
