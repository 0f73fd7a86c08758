#include <quillmarker/pages/paged_document.h>

#include "page_cutter.h"
#include "paint_list.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillmarker
{
namespace
{

constexpr double kTwipsPerInch = 1440;

TwipsRectangle PageOf(const PageSetup& setup) { return {{}, {}, setup.paper.width, setup.paper.height}; }

TwipsRectangle PrintableOf(const PageSetup& setup)
{
    return {setup.left, setup.top, setup.paper.width - setup.right, setup.paper.height - setup.bottom};
}

}  // namespace

struct PagedDocument::State
{
    State(Document value, const PageSetup& wanted)
        : document(std::move(value)),
          setup(WithRoom(wanted)),
          printable(PrintableOf(setup)),
          fonts(SystemFonts()),
          cutter(document, *fonts, printable.Width(), printable.Height())
    {
    }

    /// Cuts until a page is known, or all are.
    void CutUpTo(int page)
    {
        while (!isComplete && std::ssize(starts) <= page)
            CutNext();
    }

    CutPage CutNext()
    {
        CutPage cut = cutter.Cut(starts.back(), Position{document.Size()});
        if (cut.isLast)
            isComplete = true;
        else
            starts.push_back(cut.next);
        return cut;
    }

    /// The page, cut again: keeping the layouts of all pages would cost more than the document.
    CutPage Cut(int page) { return cutter.Cut(starts[static_cast<std::size_t>(page - 1)], Position{document.Size()}); }

    Document document;
    PageSetup setup;
    TwipsRectangle printable;
    std::unique_ptr<FontHost> fonts;
    PageCutter cutter;
    std::vector<PageStart> starts{PageStart{}};
    bool isComplete = false;
};

PagedDocument::PagedDocument(const Document& document) : PagedDocument(document, PageSetupOf(document)) {}

PagedDocument::PagedDocument(Document document, const PageSetup& setup)
    : m_state(std::make_unique<State>(std::move(document), setup))
{
}

PagedDocument::~PagedDocument() = default;

const Document& PagedDocument::Value() const { return m_state->document; }

const PageSetup& PagedDocument::Setup() const { return m_state->setup; }

int PagedDocument::PageCount()
{
    while (!m_state->isComplete)
        m_state->CutNext();
    return static_cast<int>(m_state->starts.size());
}

bool PagedDocument::HasPage(int page)
{
    if (page < 1)
        return false;
    m_state->CutUpTo(page - 1);
    return page <= std::ssize(m_state->starts);
}

Position PagedDocument::StartOfPage(int page)
{
    return HasPage(page) ? m_state->starts[static_cast<std::size_t>(page - 1)].position
                         : Position{m_state->document.Size()};
}

void PagedDocument::Paint(QPainter& painter, int page, double scale)
{
    if (!HasPage(page))
        return;
    const PageRecord record = RecordOf(m_state->Cut(page), m_state->printable, PageOf(m_state->setup));
    quillmarker::Paint(painter, record.list, {}, scale);
}

QImage PagedDocument::Image(int page, double dotsPerInch)
{
    const double scale = dotsPerInch / kTwipsPerInch;
    const double width = m_state->setup.paper.width.value * scale;
    const double height = m_state->setup.paper.height.value * scale;
    // Before anything is rounded: what is infinite or no number has no whole number.
    if (!(scale > 0) || !(std::max(width, height) < kMostImagePixels + 0.5) || !HasPage(page))
        return {};
    const auto pixels = [](double length) { return std::max(static_cast<int>(std::lround(length)), 1); };
    QImage image(pixels(width), pixels(height), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::white);
    constexpr double kMetresPerInch = 0.0254;
    image.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerInch / kMetresPerInch)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    QPainter painter(&image);
    Paint(painter, page, scale);
    return image;
}

}  // namespace quillmarker
