// Editing, undoing and searching in a text box: what must not grow with the report, and what grows with the text.

#include "generated_report.h"
#include "sample_report.h"

#include <quillmarker/text_box.h>

using namespace quillmarker;

namespace
{

/// One key and one key that takes it back, in the middle: two edits, one typing run.
void TypeAndDelete(benchmark::State& state)
{
    TextBox box;
    box.OpenValue(SampleDocument(state.range(0)));
    box.SetSelStart(box.TextLength() / 2);
    for (auto _ : state)
    {
        box.Type(u"x");
        box.TypeBackspace();
    }
    state.SetItemsProcessed(state.iterations() * 2);
}

/// Edits far from each other: each is a step of its own.
void EditHereAndThere(benchmark::State& state)
{
    TextBox box;
    box.OpenValue(SampleDocument(state.range(0)));
    const std::int64_t size = box.TextLength();
    std::int64_t place = size / 2;
    for (auto _ : state)
    {
        place = (place * 31 + 7'919) % size;
        box.SetSelStart(static_cast<std::int32_t>(place));
        box.SetSelText(u"x");
    }
    state.SetItemsProcessed(state.iterations());
}

void BoldAWord(benchmark::State& state)
{
    TextBox box;
    box.OpenValue(SampleDocument(state.range(0)));
    box.SetSelStart(box.TextLength() / 2);
    box.SetSelLength(7);
    int on = 0;
    for (auto _ : state)
        box.SetSelBold(on ^= 1);
    state.SetItemsProcessed(state.iterations());
}

void UndoAndRedo(benchmark::State& state)
{
    TextBox box;
    box.OpenValue(SampleDocument(state.range(0)));
    box.SetSelStart(box.TextLength() / 2);
    box.SetSelText(u"a change");
    for (auto _ : state)
    {
        box.Undo();
        box.Redo();
    }
    state.SetItemsProcessed(state.iterations() * 2);
}

void CopyDocument(benchmark::State& state)
{
    const Document& document = SampleDocument(state.range(0));
    for (auto _ : state)
    {
        const Document copy = document;
        benchmark::DoNotOptimize(copy.Size());
    }
}

void Search(benchmark::State& state, std::u16string_view needle, int options)
{
    TextBox box;
    box.OpenValue(SampleDocument(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(box.Find(needle, 0, -1, options));
    state.SetBytesProcessed(state.iterations() * std::int64_t{box.TextLength()} * 2);
}

void FindAtTheEnd(benchmark::State& state) { Search(state, kLastWords, 0); }
void FindAtTheEndMatchingCase(benchmark::State& state) { Search(state, kLastWords, kFindMatchCase); }
void FindNothing(benchmark::State& state) { Search(state, u"report of the zyzzyva", 0); }
void FindNothingMatchingCase(benchmark::State& state) { Search(state, u"report of the zyzzyva", kFindMatchCase); }

}  // namespace

BENCHMARK(TypeAndDelete)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(EditHereAndThere)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(BoldAWord)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(UndoAndRedo)->Apply(Sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyDocument)->Apply(Sizes)->Unit(benchmark::kNanosecond);
BENCHMARK(FindAtTheEnd)->Apply(Sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(FindAtTheEndMatchingCase)->Apply(Sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(FindNothing)->Apply(Sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(FindNothingMatchingCase)->Apply(Sizes)->Unit(benchmark::kMillisecond);
