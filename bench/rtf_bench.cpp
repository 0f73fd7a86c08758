// RTF into a document and back. Bytes are those of the RTF.

#include "sample_report.h"

#include <quillmarker/rtf.h>

#include <optional>

using namespace quillmarker;

namespace
{

void Load(benchmark::State& state)
{
    const std::string& rtf = SampleRtf(state.range(0));
    std::optional<Document> document;
    for (auto _ : state)
    {
        document = ReadRtf(std::string_view(rtf));
        // Giving the document back is measured on its own.
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(rtf.size()));
}

void Release(benchmark::State& state)
{
    const std::string& rtf = SampleRtf(state.range(0));
    std::optional<Document> document;
    for (auto _ : state)
    {
        state.PauseTiming();
        document = ReadRtf(std::string_view(rtf));
        state.ResumeTiming();
        document.reset();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(rtf.size()));
}

void Save(benchmark::State& state)
{
    const Document& document = SampleDocument(state.range(0));
    std::size_t bytes = 0;
    for (auto _ : state)
    {
        const std::string rtf = WriteRtf(document);
        benchmark::DoNotOptimize(rtf.data());
        bytes = rtf.size();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void LoadAndSave(benchmark::State& state)
{
    const std::string& rtf = SampleRtf(state.range(0));
    for (auto _ : state)
    {
        const std::string again = WriteRtf(ReadRtf(std::string_view(rtf)));
        benchmark::DoNotOptimize(again.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(rtf.size()));
}

void ExtractText(benchmark::State& state)
{
    const Document& document = SampleDocument(state.range(0));
    for (auto _ : state)
    {
        const std::u16string text = document.Text();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t{document.Size()} * 2);
}

}  // namespace

BENCHMARK(Load)->Apply(Sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->Apply(Sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadAndSave)->Apply(Sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(Release)->Apply(Sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(ExtractText)->Apply(Sizes)->Unit(benchmark::kMillisecond);
