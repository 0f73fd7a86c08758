// The control as a host and a user drive it: many insertions with and without Redraw, and keystrokes in long reports.

#include "generated_report.h"

#include <quillmarker/rich_text_editor.h>
#include <quillmarker/rtf.h>
#include <quillmarker/widgets/rich_text_view.h>

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

#include <memory>

using namespace quillmarker;

namespace
{

constexpr std::int64_t kPageBytes = 4'500;  // of RTF, about
constexpr int kInsertions = 10'000;

RichTextView& TextOf(RichTextEditor& editor) { return *qobject_cast<RichTextView*>(editor.RTFObj()); }

std::unique_ptr<RichTextEditor> ShownEditor()
{
    auto editor = std::make_unique<RichTextEditor>();
    editor->resize(800, 600);
    editor->show();
    QApplication::setActiveWindow(editor.get());
    TextOf(*editor).setFocus();
    QApplication::processEvents();
    return editor;
}

/// With the argument 0 inside a bracket of Redraw, which is painted at its end; with 1 with Redraw true throughout.
void Insertions(benchmark::State& state)
{
    for (auto _ : state)
    {
        state.PauseTiming();
        auto editor = ShownEditor();
        state.ResumeTiming();
        editor->SetRedraw(state.range(0) != 0);
        for (int i = 0; i < kInsertions; ++i)
            editor->InsertStringRTF(QStringLiteral("{\\rtf1 a {\\b part} of a report\\par}"), {});
        editor->SetRedraw(true);
        QApplication::processEvents();
        state.PauseTiming();
        editor.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kInsertions);
}

/// A key pressed and released in the middle of the report: the edit, the refreshes, and the painting that follows.
void Keystroke(benchmark::State& state)
{
    const std::string rtf = GeneratedReport({.bytes = static_cast<std::size_t>(state.range(0) * kPageBytes)});
    auto editor = ShownEditor();
    RichTextView& text = TextOf(*editor);
    text.Box().OpenValue(ReadRtf(std::string_view(rtf)));
    const int middle = text.Box().TextLength() / 2;
    text.SelectFromTo(middle, middle);
    QApplication::processEvents();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    const int before = text.Box().TextLength();
    for (auto _ : state)
    {
        QApplication::sendEvent(&text, &press);
        QApplication::sendEvent(&text, &release);
        QApplication::processEvents();
    }
    if (text.Box().TextLength() != before + state.iterations())
        state.SkipWithError("a key was not typed");
}

/// What every change of the selection costs when all of the report is selected: toolbar, combos, ruler and status bar.
void RefreshOverAll(benchmark::State& state)
{
    const std::string rtf = GeneratedReport({.bytes = static_cast<std::size_t>(state.range(0) * kPageBytes)});
    auto editor = ShownEditor();
    RichTextView& text = TextOf(*editor);
    text.Box().OpenValue(ReadRtf(std::string_view(rtf)));
    // From one character less: each round is a selection that nothing is known of.
    int length = text.Box().TextLength();
    for (auto _ : state)
    {
        length ^= 1;
        text.Box().Select({0, length});
    }
    if (!text.Box().SelFontName() && !text.Box().SelBold() && text.Box().SelLength() < 2)
        state.SkipWithError("nothing is selected");
}

BENCHMARK(Insertions)->ArgName("redraw")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(RefreshOverAll)->ArgName("pages")->Arg(10)->Arg(200)->Arg(2'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Keystroke)->ArgName("pages")->Arg(10)->Arg(200)->Arg(2'000)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
