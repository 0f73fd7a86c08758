// Documents on pages: cutting, PDF, and the platform's own text document doing the same with the same text.

#include "generated_report.h"

#include "engine/layout/page_cutter.h"

#include <quillmarker/pages/paged_document.h>
#include <quillmarker/rtf.h>

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTextDocument>

#include <map>
#include <string>

using namespace quillmarker;

namespace
{

constexpr std::int64_t kPageBytes = 4'500;  // of RTF, about

const Document& Report(std::int64_t pages)
{
    static std::map<std::int64_t, Document> made;
    const auto found = made.find(pages);
    if (found != made.end())
        return found->second;
    const std::string rtf = GeneratedReport({.bytes = static_cast<std::size_t>(pages * kPageBytes)});
    return made.emplace(pages, ReadRtf(std::string_view(rtf))).first->second;
}

QString TextOf(const Document& document)
{
    const std::u16string text = document.Text();
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

void Count(benchmark::State& state, int pages)
{
    state.counters["pages"] = pages;
    state.counters["pages/s"] = benchmark::Counter(pages, benchmark::Counter::kIsIterationInvariantRate);
}

void CutPages(benchmark::State& state)
{
    const Document& document = Report(state.range(0));
    int pages = 0;
    for (auto _ : state)
    {
        PagedDocument paged(document);
        pages = paged.PageCount();
    }
    Count(state, pages);
}
BENCHMARK(CutPages)->ArgName("pages")->Arg(200)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

/// Until the first page is painted, with everything that a first page needs.
void FirstPage(benchmark::State& state)
{
    const Document& document = Report(state.range(0));
    constexpr double kDotsPerInch = 96;
    for (auto _ : state)
    {
        PagedDocument paged(document);
        benchmark::DoNotOptimize(paged.Image(1, kDotsPerInch));
    }
}
BENCHMARK(FirstPage)->ArgName("pages")->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);

void WritePagesAsPdf(benchmark::State& state)
{
    const Document& document = Report(state.range(0));
    int pages = 0;
    for (auto _ : state)
    {
        PagedDocument paged(document);
        benchmark::DoNotOptimize(ToPdf(paged));
        pages = paged.PageCount();
    }
    Count(state, pages);
}
BENCHMARK(WritePagesAsPdf)->ArgName("pages")->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);

/// The peer in the same process: the plain text, one format, the same paper.
void PeerCutsPages(benchmark::State& state)
{
    const QString text = TextOf(Report(state.range(0)));
    constexpr QSizeF kRoom(432, 648);  // points: Letter less RTF's margins
    int pages = 0;
    for (auto _ : state)
    {
        QTextDocument document;
        document.setPlainText(text);
        document.setPageSize(kRoom);
        pages = document.pageCount();
    }
    Count(state, pages);
}
BENCHMARK(PeerCutsPages)->ArgName("pages")->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);

void PeerWritesPdf(benchmark::State& state)
{
    const QString text = TextOf(Report(state.range(0)));
    for (auto _ : state)
    {
        QTextDocument document;
        document.setPlainText(text);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        document.print(&writer);
        benchmark::DoNotOptimize(buffer.size());
    }
}
BENCHMARK(PeerWritesPdf)->ArgName("pages")->Arg(200)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
