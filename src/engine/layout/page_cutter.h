#pragma once

#include "page_record.h"
#include "paragraph_layout.h"

#include <quillmarker/document.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace quillmarker
{

struct TwipsRectangle
{
    Twips left, top, right, bottom;

    constexpr Twips Width() const { return right - left; }
    constexpr Twips Height() const { return bottom - top; }
    bool operator==(const TwipsRectangle&) const = default;
};

/// Where a page begins.
struct PageStart
{
    Position position;
    std::int32_t number = 1;  // of the page, from 1

    bool operator==(const PageStart&) const = default;
};

/// Lines of one paragraph that stand on a page.
struct PlacedLines
{
    std::int32_t paragraph = 0;
    std::uint32_t first = 0;
    std::uint32_t last = 0;  // not included
    Fine top = 0;            // of the first of them, from the printable rectangle's top
    std::shared_ptr<const ParagraphLayout> layout;
};

struct CutPage
{
    std::vector<PlacedLines> lines;
    PageStart next;       // position: the first that did not fit, or the range's end
    bool isLast = false;  // nothing is left
};

/// Cuts a document into pages, each without laying out what follows it. Lines are never cut; a paragraph's own wishes
/// (keep lines, keep with next, page break before, widows) are respected as far as a page can hold them; a line taller
/// than the page stands alone and is clipped; each page takes at least one line.
class PageCutter
{
public:
    PageCutter(Document document, FontHost& fonts, Twips width, Twips height);
    ~PageCutter();
    PageCutter(const PageCutter&) = delete;
    PageCutter& operator=(const PageCutter&) = delete;

    CutPage Cut(PageStart start, Position end);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// A page as it is painted: the cut lines in the printable rectangle of a page.
PageRecord RecordOf(const CutPage& cut, const TwipsRectangle& printable, const TwipsRectangle& page);

struct FormattedPage
{
    PageRecord record;
    Position next;  // the first position that did not fit; the range's end when all did
};

/// Records the page that begins at the range's start, cut at its end, in `printable` on `page`.
FormattedPage FormatRange(const Document& document, TextRange range, const TwipsRectangle& printable,
                          const TwipsRectangle& page, FontHost& fonts);

}  // namespace quillmarker
