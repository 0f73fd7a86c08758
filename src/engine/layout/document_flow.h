#pragma once

#include "paragraph_layout.h"

#include <quillmarker/document.h>
#include <quillmarker/pages/export.h>
#include <quillmarker/position.h>

#include <memory>
#include <optional>

namespace quillmarker
{

/// Where a caret stands: a position, and the line it belongs to where a line was wrapped.
struct CaretPosition
{
    Position position;
    LineSide side = LineSide::After;

    bool operator==(const CaretPosition&) const = default;
};

/// A caret's line in the coordinates of the flow.
struct CaretBox
{
    Fine x = 0;
    Fine top = 0;
    Fine height = 0;
    bool rightToLeft = false;
};

/// A line of the flow.
struct FlowLine
{
    std::int32_t paragraph = 0;
    std::uint32_t line = 0;

    auto operator<=>(const FlowLine&) const = default;
};

/// A place under the mouse; the nearest one for a point beside, above or below all text.
struct FlowHit
{
    CaretPosition caret;
    Position character;  // the character under the point, where isInside
    bool isInside = false;
};

/// A document laid out as one endless column, as a view shows it: only what is asked for is laid out, the heights of
/// all else are estimated until then. Lengths are in 1024ths of a twip from the column's upper left corner. A change
/// of the document costs what differs, never what does not.
class QUILLMARKER_PAGES_EXPORT DocumentFlow
{
public:
    explicit DocumentFlow(FontHost& fonts);
    ~DocumentFlow();
    DocumentFlow(const DocumentFlow&) = delete;
    DocumentFlow& operator=(const DocumentFlow&) = delete;

    const Document& Value() const;
    /// Lays out nothing. A paragraph that is replaced by one keeps about its height until it is laid out again.
    void SetDocument(const Document& document);

    /// Of the lines: see ParagraphContext.
    Twips Width() const;
    void SetWidth(Twips width);

    /// The column's height as far as it is known, estimates included; never less than a line.
    Fine Height() const;
    /// The right end of the widest line that was laid out since the width was last set.
    Fine Extent() const;

    /// The layout of a paragraph; valid until SetDocument, SetWidth or Settle is called. Asking makes its height exact.
    const ParagraphLayout& LayoutOf(std::int32_t paragraph);
    Fine TopOf(std::int32_t paragraph) const;
    /// The paragraph at a height, never one that takes no room unless all do; the first above and the last below the column.
    std::int32_t ParagraphAt(Fine y) const;

    /// Makes the heights of all paragraphs that meet the stretch exact and returns how far what stood at `anchor` moved
    /// by that: a view that scrolls by as much stands still. The stretch moves along: what was laid out fills it then.
    /// Layouts that were not used since the call before may be dropped.
    Fine Settle(Fine top, Fine bottom, Fine anchor);

    /// How many paragraphs were laid out so far, for tests and benchmarks.
    std::int64_t LayoutCount() const;

    CaretBox BoxOf(CaretPosition caret);
    /// A line with a height, if the caret's paragraph has one.
    FlowLine LineOf(CaretPosition caret);
    FlowHit HitAt(Fine x, Fine y);

    /// The line above or below; none at the document's ends. Lines of no height are passed over.
    std::optional<FlowLine> LineAbove(FlowLine line);
    std::optional<FlowLine> LineBelow(FlowLine line);
    Fine TopOf(FlowLine line);
    const Line& LineAt(FlowLine line);
    CaretPosition StartOf(FlowLine line);
    /// Behind the last character that is not the line's break.
    CaretPosition EndOf(FlowLine line);
    CaretPosition NearestIn(FlowLine line, Fine x);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace quillmarker
