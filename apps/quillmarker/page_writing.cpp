#include "page_writing.h"

#include "files.h"
#include "standard_streams.h"

#include <quillmarker/file_error.h>

#include <algorithm>
#include <filesystem>

namespace quillmarker::tool
{
namespace
{

/// What a library's function gave: bytes for standard output, or what came of writing the file.
Result<bool> PrintBytes(const std::string& bytes)
{
    if (bytes.empty())
        return FailureOf(kStandardStream, FileError::OutOfMemory, "standard output");
    Print(bytes);
    return true;
}

Result<bool> Outcome(const std::string& name, FileError error)
{
    return error == FileError::None ? Result<bool>(true) : FailureOf(name, error);
}

Failure Stopped(int page) { return {"stopped before page " + std::to_string(page)}; }

class Images
{
public:
    Images(PagedDocument& pages, std::string name, const PageWishes& wishes, const PageProgress& progress)
        : m_pages(pages), m_name(std::move(name)), m_wishes(wishes), m_progress(progress)
    {
    }

    Result<bool> Write()
    {
        if (!CanBeImage(m_pages.Setup().paper, m_wishes.dotsPerInch))
            return Failure{"the image would be too large; say less for --dpi"};
        if (!m_wishes.page)
            return WriteAll();
        const int page = *m_wishes.page;
        if (!m_pages.HasPage(page))
            return Failure{"there is no page " + std::to_string(page) + "; the last one is " +
                           std::to_string(m_pages.PageCount())};
        return WriteOne(page, m_name);
    }

private:
    Result<bool> WriteAll()
    {
        for (int page = 1; m_pages.HasPage(page); ++page)
            if (auto written = WriteOne(page, NameOfPage(m_name, page)); !written)
                return written;
        return true;
    }

    Result<bool> WriteOne(int page, const std::string& name)
    {
        if (m_progress && !m_progress(page))
            return Stopped(page);
        const double dotsPerInch = m_wishes.dotsPerInch;
        return name == kStandardStream ? PrintBytes(ToPng(m_pages, page, dotsPerInch))
                                       : Outcome(name, WritePng(m_pages, page, dotsPerInch, name));
    }

    PagedDocument& m_pages;
    std::string m_name;
    const PageWishes& m_wishes;
    const PageProgress& m_progress;
};

Result<bool> WriteAsPdf(PagedDocument& pages, const std::string& name, const PageProgress& progress)
{
    int stoppedAt = 0;
    const PageProgress watched = [&](int page) {
        if (progress && !progress(page))
            stoppedAt = page;
        return stoppedAt == 0;
    };
    Result<bool> written =
        name == kStandardStream ? PrintBytes(ToPdf(pages, watched)) : Outcome(name, WritePdf(pages, name, watched));
    return stoppedAt == 0 ? written : Stopped(stoppedAt);
}

}  // namespace

bool CanBeImage(const PaperSize& paper, double dotsPerInch)
{
    constexpr double kTwipsPerInch = 1440;
    return std::max(paper.width, paper.height).value * dotsPerInch / kTwipsPerInch <= kMostImagePixels;
}

std::string NameOfPage(const std::string& name, int page)
{
    const std::filesystem::path path(name);
    const std::string stem = path.stem().string() + "-" + std::to_string(page) + path.extension().string();
    return (path.parent_path() / stem).string();
}

Result<bool> WritePages(PagedDocument& pages, const std::string& name, const OutputForm& form,
                        const PageProgress& progress)
{
    if (form.kind == OutputKind::Pdf)
        return WriteAsPdf(pages, name, progress);
    return Images(pages, name, form.pages, progress).Write();
}

}  // namespace quillmarker::tool
