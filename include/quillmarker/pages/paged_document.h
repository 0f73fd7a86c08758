#pragma once

#include <quillmarker/document.h>
#include <quillmarker/file_error.h>
#include <quillmarker/pages/export.h>
#include <quillmarker/pages/page_setup.h>
#include <quillmarker/position.h>

#include <QImage>
#include <QPainter>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace quillmarker
{

/// A side of the largest image of a page.
inline constexpr int kMostImagePixels = 20'000;

/// A document on pages. Pages are cut when they are asked for, and break at the same places whatever they are painted
/// on. Needs a QGuiApplication (the platform "offscreen" serves); used in one thread at a time. Documents share their table
/// of formats with those they come from: one that goes to another thread is Detached() first.
class QUILLMARKER_PAGES_EXPORT PagedDocument
{
public:
    explicit PagedDocument(const Document& document);
    PagedDocument(Document document, const PageSetup& setup);
    ~PagedDocument();
    PagedDocument(const PagedDocument&) = delete;
    PagedDocument& operator=(const PagedDocument&) = delete;

    const Document& Value() const;
    const PageSetup& Setup() const;

    /// Cuts all pages. There is at least one.
    int PageCount();
    /// Whether there is such a page, counted from 1; cuts no more than needed to know.
    bool HasPage(int page);
    /// The first position on a page; the document's end when there is no such page.
    Position StartOfPage(int page);

    /// Paints a page, the corner of the paper at the painter's origin; `scale` is painter units a twip. Paints nothing
    /// when there is no such page, and no paper: the ground is whatever is there.
    void Paint(QPainter& painter, int page, double scale);

    /// A page on white paper; null when there is no such page, or when it would be larger than kMostImagePixels a side.
    QImage Image(int page, double dotsPerInch);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// Called before each page is written; false stops.
using PageProgress = std::function<bool(int page)>;

/// The document as PDF: text that can be selected and searched, and what \info says as its properties. Empty when
/// `progress` stopped it.
QUILLMARKER_PAGES_EXPORT std::string ToPdf(PagedDocument& pages, const PageProgress& progress = {});

/// The same into a file, which is replaced as a whole or not at all. What `progress` stopped is no error: the file stays
/// as it was.
QUILLMARKER_PAGES_EXPORT FileError WritePdf(PagedDocument& pages, const std::filesystem::path& path,
                                            const PageProgress& progress = {});

/// A page on white paper as PNG, which says how large the page is; empty when there is no such page, when it would be
/// larger than kMostImagePixels a side, or when there is no memory for the image.
QUILLMARKER_PAGES_EXPORT std::string ToPng(PagedDocument& pages, int page, double dotsPerInch);

/// The same into a file, which is replaced as a whole or not at all.
QUILLMARKER_PAGES_EXPORT FileError WritePng(PagedDocument& pages, int page, double dotsPerInch,
                                            const std::filesystem::path& path);

}  // namespace quillmarker
