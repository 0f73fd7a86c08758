#include "output.h"

#include "command.h"
#include "files.h"
#include "graphics.h"
#include "interruption.h"
#include "page_writing.h"
#include "progress.h"
#include "standard_streams.h"
#include "terminal_line.h"

#include <chrono>

namespace quillmarker::tool
{
namespace
{

Result<bool> WriteOnPages(const Document& document, const std::string& name, const OutputForm& form,
                          const std::function<PageProgress(PagedDocument&)>& progressOf)
{
    const auto setup = SetupFor(document, form.pages);
    if (!setup)
        return Failure{setup.Message()};
    PagedDocument pages(document, *setup);
    return WritePages(pages, name, form, progressOf ? progressOf(pages) : PageProgress());
}

/// Shows on a terminal how far the pages are, and stops them on a signal.
class PageWatch
{
public:
    /// Work that takes less than a blink shows nothing.
    static constexpr double kQuietSeconds = 0.5;

    PageProgress For(PagedDocument& pages)
    {
        return [this, &pages](int page) {
            Show(pages, page);
            return Interruption::Signal() == 0;
        };
    }

    void Finish() { m_line.Erase(); }

private:
    void Show(PagedDocument& pages, int page)
    {
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
        if (seconds < kQuietSeconds || !m_line.IsDue())
            return;
        const double size = std::max(pages.Value().Size(), 1);
        const Progress progress{page - 1, seconds, pages.StartOfPage(page).value / size, "pages"};
        m_line.Draw(ProgressLine(progress, TerminalLine::Columns()));
    }

    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    TerminalLine m_line;
};

int ExitCodeOf(const Result<bool>& written)
{
    if (written)
        return kDone;
    Complain(written.Message());
    return kFailed;
}

FileKind FileKindOf(OutputKind kind) { return kind == OutputKind::Text ? FileKind::Text : FileKind::Rtf; }

}  // namespace

Result<bool> WriteOutput(const Document& document, const std::string& name, const OutputForm& form)
{
    return IsOnPages(form.kind) ? WriteOnPages(document, name, form, {})
                                : WriteDocument(document, name, FileKindOf(form.kind));
}

int WriteOnlyOutput(const Document& document, const std::string& name, const OutputForm& form)
{
    if (!IsOnPages(form.kind))
        return ExitCodeOf(WriteOutput(document, name, form));
    const Graphics graphics;
    const Interruption interruption;
    PageWatch watch;
    const auto written = WriteOnPages(document, name, form, [&](PagedDocument& pages) { return watch.For(pages); });
    watch.Finish();
    const int signal = Interruption::Signal();
    if (!written && signal != 0)
    {
        Complain("stopped by a signal");
        return kEndedBySignal + signal;
    }
    return ExitCodeOf(written);
}

}  // namespace quillmarker::tool
