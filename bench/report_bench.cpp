// Filling a report: 10,000 markers in 10 megabytes of RTF, in the order in which they stand, while Redraw is false.

#include "generated_report.h"
#include "sample_report.h"

#include <quillmarker/report.h>
#include <quillmarker/rtf.h>

#include <vector>

using namespace quillmarker;

namespace
{

constexpr int kMarkers = 10'000;

const Document& Template()
{
    static const Document document =
        ReadRtf(std::string_view(GeneratedReport({.bytes = 10 * kMegabyte, .markers = kMarkers})));
    return document;
}

std::vector<std::u16string> Markers()
{
    std::vector<std::u16string> markers;
    for (int i = 0; i < kMarkers; ++i)
    {
        const std::string name = MarkerName(i);
        markers.emplace_back(name.begin(), name.end());
    }
    return markers;
}

/// Fills each marker with what `insert(report, marker)` puts there.
template <class Insertion>
void Fill(benchmark::State& state, Insertion insert)
{
    const std::vector<std::u16string> markers = Markers();
    Template();
    for (auto _ : state)
    {
        state.PauseTiming();
        auto report = std::make_unique<Report>();
        report->Box().OpenValue(Template());
        report->CursorStart();
        state.ResumeTiming();
        report->SetRedraw(false);
        int found = 0;
        for (const std::u16string& marker : markers)
            found += insert(*report, marker) >= 0 ? 1 : 0;
        report->SetRedraw(true);
        state.PauseTiming();
        if (found != kMarkers)
            state.SkipWithError("a marker was not found");
        report.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kMarkers);
}

void FillWithRtf(benchmark::State& state)
{
    Fill(state, [](Report& report, std::u16string_view marker) {
        return report.InsertStringRTF(u"{\\rtf1 a {\\b filled} value}", marker);
    });
}

void FillWithText(benchmark::State& state)
{
    Fill(state,
         [](Report& report, std::u16string_view marker) { return report.InsertStringText(u"a filled value", marker); });
}

void TakeSnapshot(benchmark::State& state)
{
    Report report;
    report.Box().OpenValue(SampleDocument(state.range(0)));
    for (auto _ : state)
    {
        report.SaveUndoSnapshot();
        report.DropUndoSnapshot();
    }
}

}  // namespace

BENCHMARK(FillWithRtf)->Unit(benchmark::kMillisecond);
BENCHMARK(FillWithText)->Unit(benchmark::kMillisecond);
BENCHMARK(TakeSnapshot)->Apply(Sizes)->Unit(benchmark::kNanosecond);
