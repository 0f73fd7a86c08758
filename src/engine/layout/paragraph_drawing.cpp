// What a paragraph's lines show, as items of a display list.

#include "line_pieces.h"
#include "paragraph_frame.h"
#include "paragraph_layout.h"

#include <algorithm>
#include <optional>

namespace quillmarker
{
namespace
{

constexpr double kLeastThickness = 8;  // twips, of a line under text

// Addresses longer than this lead nowhere in the programs that show pages; in units.
constexpr std::size_t kMostTarget = 2083;

class PieceDrawing
{
public:
    PieceDrawing(const ParagraphLayout& layout, DisplayList& list, QPointF origin, std::uint32_t line)
        : m_layout(layout),
          m_shapes(layout.Shapes()),
          m_list(list),
          m_line(layout.Lines()[line]),
          m_pieces(layout, line)
    {
        m_left = origin.x();
        m_baseline = origin.y() + InTwips(m_line.top + m_line.baseline);
        m_textTop = origin.y() + InTwips(m_line.top + m_line.textTop);
    }

    void DrawHighlights()
    {
        for (const Piece& piece : m_pieces.Pieces())
            if (!piece.segment->format->highlight.IsAutomatic() && piece.width > 0)
                AddHighlight(piece);
    }

    void DrawNumber()
    {
        if (m_shapes.number.glyphs.empty())
            return;
        const double width = InTwips(m_shapes.numberWidth);
        double x = InTwips(m_pieces.Room().numberAt);
        if (IsMirrored(m_layout))
            x = m_layout.Context().width.value - x - width;
        const RunFont& font = m_shapes.numberFont;
        const std::vector<ShapedGlyph>& glyphs = m_shapes.number.glyphs;
        std::vector<float> places(glyphs.size());
        std::transform(glyphs.begin(), glyphs.end(), places.begin(),
                       [&](const ShapedGlyph& glyph) { return static_cast<float>(glyph.x * UnitLength(font)); });
        AddShaped(glyphs, places, font, 1, {m_left + x, m_baseline}, m_shapes.markFormat->colour,
                  m_shapes.isRightToLeft, m_layout.Context().number);
    }

    void DrawText()
    {
        for (const Piece& piece : m_pieces.Pieces())
            Draw(piece);
        FlushLines();
    }

private:
    double X(const Piece& piece) const { return m_left + InTwips(piece.x); }
    double Baseline(const Segment& segment) const { return m_baseline - InTwips(segment.font.raise); }

    void AddHighlight(const Piece& piece)
    {
        const QRectF rectangle(X(piece), m_textTop, InTwips(piece.width), InTwips(m_line.textHeight));
        if (!m_list.items.empty())
        {
            // Neighbours are one rectangle, so that no seam shows between them.
            auto* before = std::get_if<FilledRectangle>(&m_list.items.back());
            if (before && before->colour == piece.segment->format->highlight && before->mixed == 0 &&
                before->rectangle.top() == rectangle.top() && before->rectangle.right() == rectangle.left())
            {
                before->rectangle.setRight(rectangle.right());
                return;
            }
        }
        m_list.Add(FilledRectangle{.rectangle = rectangle, .colour = piece.segment->format->highlight});
    }

    void Draw(const Piece& piece)
    {
        switch (piece.segment->kind)
        {
        case SegmentKind::Hidden:
        case SegmentKind::Break:
            return;
        case SegmentKind::Control:
            if (piece.isHyphen)
                AddSimple(piece, u"-");
            break;
        case SegmentKind::Object:
            DrawObject(piece);
            break;
        case SegmentKind::Tab:
            DrawLeader(piece);
            break;
        case SegmentKind::Text:
            if (piece.part)
                AddPart(piece);
            else
                AddSimple(piece, m_shapes.Text().substr(piece.begin, piece.end - piece.begin));
            break;
        }
        AddLines(piece);
        AddLink(piece);
    }

    float Stretch(const CharFormat& format) const
    {
        return format.widthPercent == 0 ? 1.0F : static_cast<float>(format.widthPercent) / 100;
    }

    GlyphRun RunOf(const RunFont& font, QPointF origin, Colour colour)
    {
        GlyphRun run;
        run.size = static_cast<float>(font.size.value);
        run.origin = origin;
        run.colour = colour;
        return run;
    }

    /// Glyphs that needed no shaping, each at the sum of the advances before it.
    void AddSimple(const Piece& piece, std::u16string_view text)
    {
        const Segment& segment = *piece.segment;
        GlyphRun run = RunOf(segment.font, {X(piece), Baseline(segment)}, segment.format->colour);
        run.face = m_list.FaceIndex(*segment.font.face);
        run.stretch = Stretch(*segment.format);
        run.text = text;
        run.glyphs.reserve(text.size());
        Fine x = 0;
        for (std::size_t i = 0; i < text.size(); ++i)
        {
            const SimpleGlyph glyph = segment.font.face->Simple(text[i]);
            if (glyph.isSimple)
                run.glyphs.push_back({glyph.glyph, static_cast<float>(InTwips(x)), 0});
            x += m_pieces.Advance(piece.begin + static_cast<std::uint32_t>(i));
        }
        if (text.find_first_not_of(u' ') != std::u16string_view::npos && !run.glyphs.empty())
            m_list.Add(std::move(run));
    }

    /// A shaped part, or as much of it as stands on this line.
    void AddPart(const Piece& piece)
    {
        const ShapedPart& part = *piece.part;
        const Segment& segment = *piece.segment;
        std::int64_t before = 0;
        std::int64_t within = 0;
        for (std::uint32_t at = part.begin; at < piece.end; ++at)
            (at < piece.begin ? before : within) += part.shaped.advances[at - part.begin];
        const std::int64_t left = piece.IsRightToLeft() ? part.shaped.width - before - within : before;
        const bool isWhole = piece.begin == part.begin && piece.end == part.end;
        std::vector<ShapedGlyph> glyphs = part.shaped.glyphs;
        if (!isWhole)
            std::erase_if(glyphs, [&](const ShapedGlyph& glyph) { return glyph.x < left || glyph.x >= left + within; });
        std::vector<float> places(glyphs.size());
        const std::vector<UnitEdge> edges = EdgesOf(piece);
        std::transform(glyphs.begin(), glyphs.end(), places.begin(),
                       [&](const ShapedGlyph& glyph) { return PlaceOf(glyph.x - left, piece, edges); });
        AddShaped(glyphs, places, segment.font, Stretch(*segment.format), {X(piece), Baseline(segment)},
                  segment.format->colour, piece.IsRightToLeft(),
                  m_shapes.Text().substr(piece.begin, piece.end - piece.begin));
    }

    /// Where a unit of a shaped piece begins, from the side where its text begins: as it was shaped, and as it is set.
    struct UnitEdge
    {
        std::int64_t natural;
        Fine set;
    };

    /// Of the units that have room, and of the piece's end.
    std::vector<UnitEdge> EdgesOf(const Piece& piece) const
    {
        std::vector<UnitEdge> edges;
        UnitEdge edge{0, 0};
        for (std::uint32_t at = piece.begin; at < piece.end; ++at)
        {
            const std::int32_t natural = piece.part->shaped.advances[at - piece.part->begin];
            if (natural > 0)
                edges.push_back(edge);
            edge.natural += natural;
            edge.set += m_pieces.Advance(at);
        }
        edges.push_back(edge);
        return edges;
    }

    /// Where a glyph stands that was shaped at `x` from the piece's left: as far from its unit's start as it was there,
    /// and the room between characters behind each unit.
    float PlaceOf(std::int64_t x, const Piece& piece, const std::vector<UnitEdge>& edges) const
    {
        const Segment& segment = *piece.segment;
        const double scale = UnitLength(segment.font) * static_cast<double>(Stretch(*segment.format));
        if (!piece.IsRightToLeft())
        {
            const auto next = std::upper_bound(edges.begin(), edges.end() - 1, x,
                                               [](std::int64_t at, const UnitEdge& edge) { return at < edge.natural; });
            const UnitEdge& edge = next == edges.begin() ? *next : *std::prev(next);
            return static_cast<float>(InTwips(edge.set) + static_cast<double>(x - edge.natural) * scale);
        }
        // The glyph's left is where its unit ends: the unit is the last that begins before it.
        const std::int64_t before = edges.back().natural - x;
        const auto next = std::lower_bound(edges.begin(), edges.end() - 1, before,
                                           [](const UnitEdge& edge, std::int64_t at) { return edge.natural < at; });
        const UnitEdge& edge = next == edges.begin() ? *next : *std::prev(next);
        return static_cast<float>(InTwips(piece.width - edge.set) - static_cast<double>(before - edge.natural) * scale);
    }

    /// Twips of a length in 64ths of a font's units.
    static double UnitLength(const RunFont& font)
    {
        return static_cast<double>(font.size.value) / static_cast<double>(UnitsOf(font));
    }

    static std::int64_t UnitsOf(const RunFont& font)
    {
        return std::int64_t{font.face->Metrics().unitsPerEm} * kAdvancesPerUnit;
    }

    void AddShaped(const std::vector<ShapedGlyph>& glyphs, const std::vector<float>& places, const RunFont& font,
                   float stretch, QPointF origin, Colour colour, bool rightToLeft, std::u16string_view text)
    {
        for (std::size_t i = 0; i < glyphs.size();)
        {
            const FontFace* face = glyphs[i].face;
            GlyphRun run = RunOf(font, origin, colour);
            run.face = m_list.FaceIndex(*face);
            run.stretch = stretch;
            run.rightToLeft = rightToLeft;
            if (i == 0)
                run.text = text;
            for (; i < glyphs.size() && glyphs[i].face == face; ++i)
                run.glyphs.push_back({glyphs[i].glyph, places[i], static_cast<float>(-glyphs[i].y * UnitLength(font))});
            m_list.Add(std::move(run));
        }
    }

    void DrawObject(const Piece& piece)
    {
        const auto& objects = m_shapes.objects;
        auto measured =
            std::lower_bound(objects.begin(), objects.end(), piece.begin,
                             [](const MeasuredObject& other, std::uint32_t at) { return other.offset < at; });
        for (; measured != objects.end() && measured->offset == piece.begin; ++measured)
        {
            if (measured->size.width <= 0 || measured->size.height <= 0)
                continue;
            const double height = InTwips(measured->size.height);
            m_list.Add(PlacedPicture{QRectF(X(piece), Baseline(*piece.segment) - height, InTwips(piece.width), height),
                                     ShownObject(measured->object)});
        }
    }

    void DrawLeader(const Piece& piece)
    {
        struct LeaderLine
        {
            TabLeader leader;
            Underline kind;
            double height;  // above the baseline, of the font's size
        };
        constexpr LeaderLine kLeaders[] = {
            {TabLeader::Dots, Underline::Dotted, 0.03},  {TabLeader::MiddleDots, Underline::Dotted, 0.25},
            {TabLeader::Hyphens, Underline::Dash, 0.25}, {TabLeader::Underline, Underline::Single, -0.1},
            {TabLeader::Thick, Underline::Thick, -0.1},  {TabLeader::Equals, Underline::Double, 0.25},
        };
        for (const LeaderLine& leader : kLeaders)
        {
            if (leader.leader != piece.leader || piece.width <= 0)
                continue;
            const double size = piece.segment->font.size.value;
            const float thickness = static_cast<float>(std::max(size / 18, kLeastThickness));
            m_list.Add(TextLine{{X(piece), Baseline(*piece.segment) - size * leader.height},
                                static_cast<float>(InTwips(piece.width)),
                                thickness,
                                leader.kind,
                                piece.segment->format->colour});
        }
    }

    /// Lines under and through a piece; those of neighbours are one, so that waves and dots go through.
    void AddLines(const Piece& piece)
    {
        const CharFormat& format = *piece.segment->format;
        if (piece.width <= 0 || piece.begin >= LastShown())
            return;
        const RunFont& font = piece.segment->font;
        const FaceMetrics& metrics = font.face->Metrics();
        const double unit = static_cast<double>(font.size.value) / metrics.unitsPerEm;
        const double baseline = Baseline(*piece.segment);
        const double thickness = std::max(metrics.underlineThickness * unit, kLeastThickness);
        const Colour underlineColour = format.underlineColour.IsAutomatic() ? format.colour : format.underlineColour;
        if (format.underline == Underline::Words)
            AddWordLines(piece, baseline + metrics.underlinePosition * unit, thickness, underlineColour);
        else if (format.underline != Underline::None)
            Extend(m_under, piece, baseline + metrics.underlinePosition * unit, thickness, format.underline,
                   underlineColour);
        if (format.strike || format.doubleStrike)
            Extend(m_through, piece, baseline - metrics.strikeoutPosition * unit, thickness,
                   format.doubleStrike ? Underline::Double : Underline::Single, format.colour);
    }

    /// Lines go on under the blanks at a line's end only where text follows them.
    std::uint32_t LastShown() const { return m_line.ending == LineEnd::Wrapped ? m_pieces.TextEnd() : m_line.end; }

    void AddWordLines(const Piece& piece, double y, double thickness, Colour colour)
    {
        const std::u16string_view source = m_shapes.source;
        Fine before = 0;
        for (std::uint32_t at = piece.begin; at < piece.end; ++at)
        {
            Fine width = 0;
            for (; at < piece.end && source[at] != u' ' && source[at] != u'\t'; ++at)
                width += m_pieces.Advance(at);
            const Fine left = piece.IsRightToLeft() ? piece.width - before - width : before;
            if (width > 0)
                m_list.Add(TextLine{{X(piece) + InTwips(left), y},
                                    static_cast<float>(InTwips(width)),
                                    static_cast<float>(thickness),
                                    Underline::Single,
                                    colour});
            before += width + (at < piece.end ? m_pieces.Advance(at) : 0);
        }
    }

    void Extend(std::vector<TextLine>& lines, const Piece& piece, double y, double thickness, Underline kind,
                Colour colour)
    {
        TextLine line{
            {X(piece), y}, static_cast<float>(InTwips(piece.width)), static_cast<float>(thickness), kind, colour};
        if (!lines.empty())
        {
            TextLine& before = lines.back();
            const double gap = before.from.x() + static_cast<double>(before.length) - line.from.x();
            constexpr double kSeam = 1;
            if (before.from.y() == line.from.y() && before.thickness == line.thickness && before.kind == kind &&
                before.colour == colour && gap > -kSeam && gap < kSeam)
            {
                before.length = static_cast<float>(line.from.x() + static_cast<double>(line.length) - before.from.x());
                return;
            }
        }
        lines.push_back(line);
    }

    void FlushLines()
    {
        for (const std::vector<TextLine>* lines : {&m_under, &m_through})
            for (const TextLine& line : *lines)
                m_list.Add(line);
    }

    void AddLink(const Piece& piece)
    {
        const Shared<Field>& field = piece.segment->format->field;
        if (!field || piece.width <= 0)
            return;
        const QRectF rectangle(X(piece), m_textTop, InTwips(piece.width), InTwips(m_line.textHeight));
        if (&*field != m_field)
        {
            m_field = &*field;
            m_target = LinkTarget(*field);
            if (m_target.size() > kMostTarget)
                m_target.clear();
        }
        else if (m_link && piece.x == m_linkEnd)
        {
            auto& before = std::get<LinkArea>(m_list.items[*m_link]);
            before.rectangle.setRight(rectangle.right());
            m_linkEnd += piece.width;
            return;
        }
        m_link.reset();
        if (m_target.empty())
            return;
        m_link = m_list.items.size();
        m_linkEnd = piece.x + piece.width;
        m_list.Add(LinkArea{rectangle, m_target});
    }

    const ParagraphLayout& m_layout;
    const ParagraphShapes& m_shapes;
    DisplayList& m_list;
    const Line& m_line;
    LinePieces m_pieces;
    double m_left = 0;
    double m_baseline = 0;
    double m_textTop = 0;
    std::vector<TextLine> m_under;
    std::vector<TextLine> m_through;
    // The link that was drawn last: the pieces of one field are one area.
    const Field* m_field = nullptr;
    std::u16string m_target;
    std::optional<std::size_t> m_link;  // its item
    Fine m_linkEnd = 0;
};

}  // namespace

void ParagraphLayout::DrawBackground(DisplayList& list, QPointF origin, std::uint32_t first, std::uint32_t last,
                                     FrameNeighbours neighbours) const
{
    if (first >= last || m_height == 0)
        return;
    if (m_format->shading)
        DrawShading(*this, list, origin, first, last, neighbours);
    for (std::uint32_t line = first; line < last; ++line)
        PieceDrawing(*this, list, origin, line).DrawHighlights();
    if (m_format->borders)
        DrawBorders(*this, list, origin, first, last, neighbours);
}

void ParagraphLayout::DrawText(DisplayList& list, QPointF origin, std::uint32_t first, std::uint32_t last) const
{
    if (m_height == 0)
        return;
    if (m_format->tabs && first < last)
        DrawBars(*this, list, origin, first, last);
    for (std::uint32_t line = first; line < last; ++line)
    {
        PieceDrawing drawing(*this, list, origin, line);
        if (line == 0)
            drawing.DrawNumber();
        drawing.DrawText();
    }
}

}  // namespace quillmarker
