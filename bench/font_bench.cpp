#include "engine/layout/font_host.h"
#include "engine/layout/line_breaks.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include <memory>
#include <string>
#include <string_view>

namespace quillmarker
{
namespace
{

/// About a megabyte of words that come again, as in any language.
std::u16string Repeated(std::u16string_view sentence)
{
    std::u16string text;
    while (text.size() < 500'000)
        text += sentence;
    return text;
}

const std::u16string& English()
{
    static const std::u16string text = Repeated(u"The patient reports no pain since the last visit; blood pressure was "
                                                u"120 over 80, and the follow-up is due in "
                                                u"six weeks (or earlier if anything changes). ");
    return text;
}

const std::u16string& Greek()
{
    static const std::u16string text = Repeated(u"Ο ασθενής δεν αναφέρει πόνο μετά την τελευταία επίσκεψη. ");
    return text;
}

const std::u16string& Arabic()
{
    static const std::u16string text = Repeated(u"لا يشكو المريض من أي ألم منذ الزيارة الأخيرة للعيادة ");
    return text;
}

const FontFace& Face(const char16_t* family)
{
    static int count = 1;
    static std::string name = "font_bench";
    static char* arguments[] = {name.data(), nullptr};
    static const QGuiApplication application(count, arguments);
    static const std::unique_ptr<FontHost> fonts = SystemFonts();
    return fonts->Face(FontRequest{.name = family});
}

void Simple(benchmark::State& state)
{
    const FontFace& face = Face(u"Liberation Serif");
    for (auto _ : state)
    {
        std::int64_t width = 0;
        for (const char16_t unit : English())
            width += face.Simple(unit).advance;
        benchmark::DoNotOptimize(width);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(English().size()));
}
BENCHMARK(Simple);

void Shape(benchmark::State& state, const std::u16string& (*text)(), TextDirection direction, Kerning kerning)
{
    const FontFace& face = Face(u"DejaVu Sans");
    for (auto _ : state)
    {
        // A line at a time, as layout does.
        for (std::size_t at = 0; at < text().size(); at += 80)
            benchmark::DoNotOptimize(face.Shape(std::u16string_view(text()).substr(at, 80), direction, kerning));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(text().size()));
}
BENCHMARK_CAPTURE(Shape, SimpleText, English, TextDirection::LeftToRight, Kerning::Off);
BENCHMARK_CAPTURE(Shape, KernedText, English, TextDirection::LeftToRight, Kerning::On);
BENCHMARK_CAPTURE(Shape, ArabicText, Arabic, TextDirection::RightToLeft, Kerning::Off);

void BreakLines(benchmark::State& state, const std::u16string& (*text)(), LineBreaks::Means means)
{
    for (auto _ : state)
    {
        LineBreaks breaks(text(), 1033, means);
        for (std::uint32_t at = 0; at < text().size();)
            at = breaks.LastUpTo(at + 80, at);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(text().size()));
}
BENCHMARK_CAPTURE(BreakLines, English, English, LineBreaks::Means::FastWherePossible);
BENCHMARK_CAPTURE(BreakLines, EnglishByTheRules, English, LineBreaks::Means::RulesOnly);
BENCHMARK_CAPTURE(BreakLines, Greek, Greek, LineBreaks::Means::FastWherePossible);

}  // namespace
}  // namespace quillmarker
