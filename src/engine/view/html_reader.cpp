#include "html_reader.h"

#include "html_alignment.h"
#include "html_bounds.h"
#include "html_formats.h"
#include "picture_exchange.h"

#include "engine/document/paragraph_builder.h"
#include "engine/document/tree.h"
#include "engine/layout/picture_image.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextImageFormat>
#include <QTextTable>
#include <QUrl>
#include <QVariant>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

constexpr int kMaxTableDepth = 8;
constexpr qint64 kMaxTableCells = 50'000;
constexpr Twips kTableWidth{9000};

/// A document that loads nothing, wherever a style sheet or a picture is said to be.
class ClosedTextDocument : public QTextDocument
{
public:
    ClosedTextDocument()
    {
        setUndoRedoEnabled(false);
        setResourceProvider([](const QUrl&) { return QVariant(); });
    }

protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

/// The bytes of a data: URI in base 64; empty for any other.
QByteArray BytesOfUri(const QString& uri)
{
    constexpr qsizetype kLongestHead = 64;
    const qsizetype comma = uri.left(kLongestHead).indexOf(QLatin1Char(','));
    const QString head = uri.left(comma);
    if (comma < 0 || !head.startsWith(QLatin1String("data:image/"), Qt::CaseInsensitive) ||
        !head.endsWith(QLatin1String(";base64"), Qt::CaseInsensitive))
        return {};
    return QByteArray::fromBase64(QByteArray::fromPercentEncoding(uri.mid(comma + 1).toLatin1()));
}

/// Gathers the paragraphs of a text document.
class HtmlWalk
{
public:
    HtmlWalk(std::shared_ptr<FormatTable> formats, const CharFormat& base) : m_formats(std::move(formats)), m_base(base)
    {
    }

    std::optional<Document> Read(const QTextDocument& document);

private:
    enum class Ending : bool { Flow, Cell };

    void ReadFrame(QTextFrame::iterator at, const QTextFrame::iterator& end, Ending ending);
    void ReadTable(const QTextTable& table);
    void ReadCell(const QTextTable& table, int row, int column, TableRow& layout);
    void ReadBlock(const QTextBlock& block, Mark mark);
    void ReadText(const QString& text, const QTextCharFormat& format);
    void ReadPicture(const QTextImageFormat& format, CharFormatId id);
    void EndParagraph(Mark kind, const ParagraphFormat& format, const CharFormat& markFormat);

    std::shared_ptr<FormatTable> m_formats;
    CharFormat m_base;
    ParagraphBuilder m_builder;
    std::vector<ParagraphRef> m_paragraphs;
    std::uint16_t m_depth = 0;
    qint64 m_cells = 0;
    qint64 m_pixels = 0;
    bool m_isTooDeep = false;
};

std::optional<Document> HtmlWalk::Read(const QTextDocument& document)
{
    const QTextFrame* root = document.rootFrame();
    ReadFrame(root->begin(), root->end(), Ending::Flow);
    if (m_isTooDeep)
        return std::nullopt;
    // A document does not end with a row.
    if (m_paragraphs.empty() || m_paragraphs.back()->Ending().kind != Mark::Break)
        EndParagraph(Mark::Break, {}, m_base);
    return Document(Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(m_paragraphs)})), m_formats, {});
}

void HtmlWalk::ReadFrame(QTextFrame::iterator at, const QTextFrame::iterator& end, Ending ending)
{
    // Qt puts a block of its own before and behind each table.
    bool isBehindTable = false;
    while (at != end && !m_isTooDeep)
    {
        QTextFrame* frame = at.currentFrame();
        const QTextBlock block = at.currentBlock();
        ++at;
        const bool isLast = at == end;
        const auto* table = qobject_cast<QTextTable*>(frame);
        if (table)
            ReadTable(*table);
        else if (frame)
            ReadFrame(frame->begin(), frame->end(), Ending::Flow);
        else
        {
            const bool endsCell = isLast && ending == Ending::Cell;
            const bool isFiller =
                !endsCell && block.length() <= 1 && ((isBehindTable && isLast) || (!isLast && at.currentFrame()));
            if (!isFiller)
                ReadBlock(block, endsCell ? Mark::Cell : Mark::Break);
        }
        isBehindTable = table != nullptr;
    }
}

void HtmlWalk::ReadTable(const QTextTable& table)
{
    m_cells += qint64(table.rows()) * table.columns();
    if (m_depth >= kMaxTableDepth || m_cells > kMaxTableCells || table.columns() > int(kMaxCells))
    {
        m_isTooDeep = true;
        return;
    }
    ++m_depth;
    for (int row = 0; row < table.rows() && !m_isTooDeep; ++row)
    {
        TableRow layout;
        layout.gap = Twips{108};
        for (int column = 0; column < table.columns() && !m_isTooDeep; ++column)
            ReadCell(table, row, column, layout);
        ParagraphMark mark;
        mark.kind = Mark::Row;
        mark.tableDepth = m_depth;
        mark.charFormat = m_formats->Intern(m_base);
        mark.format = m_formats->Intern(ParagraphFormat());
        m_paragraphs.push_back(m_builder.Finish(mark, Shared(std::move(layout)), {}));
    }
    --m_depth;
}

void HtmlWalk::ReadCell(const QTextTable& table, int row, int column, TableRow& layout)
{
    const QTextTableCell from = table.cellAt(row, column);
    if (from.column() != column)
        return;  // part of the cell to its left
    const Twips width = kTableWidth / (1 << (m_depth - 1));
    TableCell cell;
    cell.right = width * (column + from.columnSpan()) / table.columns();
    if (from.rowSpan() > 1)
        cell.vertical = from.row() == row ? CellMerge::First : CellMerge::Continued;
    if (table.format().border() > 0)
    {
        for (const BorderSide side : {BorderSide::Top, BorderSide::Left, BorderSide::Bottom, BorderSide::Right})
            cell.borders[side] = {BorderStyle::Single, Twips{15}, {}, {}};
    }
    layout.cells.push_back(std::move(cell));
    if (from.row() == row)
        ReadFrame(from.begin(), from.end(), Ending::Cell);
    else
        EndParagraph(Mark::Cell, {}, m_base);
}

void HtmlWalk::ReadBlock(const QTextBlock& block, Mark mark)
{
    for (auto at = block.begin(); !at.atEnd(); ++at)
    {
        const QTextFragment fragment = at.fragment();
        ReadText(fragment.text(), fragment.charFormat());
    }
    EndParagraph(mark, ParagraphFormatOf(block), CharFormatOf(block.charFormat(), m_base));
}

void HtmlWalk::ReadText(const QString& text, const QTextCharFormat& format)
{
    const CharFormatId id = m_formats->Intern(CharFormatOf(format, m_base));
    for (const QChar unit : text)
    {
        if (unit == QChar::ObjectReplacementCharacter)
            ReadPicture(format.toImageFormat(), id);
        else if (unit == QChar::LineSeparator)
            m_builder.Append(kLineBreak, id);
        else if (unit >= u' ' || unit == u'\t')
            m_builder.Append(unit.unicode(), id);
    }
}

void HtmlWalk::ReadPicture(const QTextImageFormat& format, CharFormatId id)
{
    if (m_pixels > kMaxPicturePixels)
        return;  // small files can hold a great many pixels
    std::optional<InlinePicture> picture = PictureOfBytes(BytesOfUri(format.name()));
    if (!picture)
        return;
    m_pixels += qint64(picture->width) * picture->height;
    const auto stated = [](qreal pixels, Twips goal) {
        const qreal twips = pixels * 1440 / 96;
        return twips >= 1 && twips <= kMaxPictureTwips ? Twips{static_cast<std::int32_t>(std::lround(twips))} : goal;
    };
    picture->goalWidth = stated(format.width(), picture->goalWidth);
    picture->goalHeight = stated(format.height(), picture->goalHeight);
    m_builder.Append(Shared<InlineObject>(std::move(*picture)), id);
}

void HtmlWalk::EndParagraph(Mark kind, const ParagraphFormat& format, const CharFormat& markFormat)
{
    ParagraphMark mark;
    mark.kind = kind;
    mark.tableDepth = m_depth;
    mark.charFormat = m_formats->Intern(markFormat);
    mark.format = m_formats->Intern(format);
    m_paragraphs.push_back(m_builder.Finish(mark));
}

}  // namespace

std::optional<Document> ReadHtml(const QString& html, const RtfReading& reading)
{
    if (html.size() > kMaxHtmlUnits || !IsWithinBounds(html))
        return std::nullopt;
    ClosedTextDocument document;
    document.setHtml(WithAlignAttributes(html));
    HtmlWalk walk(reading.formats ? reading.formats : std::make_shared<FormatTable>(), reading.defaultFormat);
    return walk.Read(document);
}

}  // namespace quillmarker
