#include "link_writing.h"

#include <QPaintEngine>
#include <QTextLayout>
#include <QUrl>

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr std::array kSchemes = {"http", "https", "ftp", "mailto"};
constexpr int kFontSize = 100;
constexpr QChar kInvisible(0xA0);

bool MayLeadTo(const QUrl& url)
{
    const QString scheme = url.scheme();
    return url.isValid() && std::ranges::any_of(kSchemes, [&](const char* s) { return scheme == QLatin1String(s); });
}

// Qt writes an address into the PDF as it is, and brackets end it there.
QString WithoutBrackets(const QUrl& url)
{
    QByteArray address = url.toEncoded();
    address.replace("(", "%28").replace(")", "%29");
    return QString::fromLatin1(address);
}

QTextLayout::FormatRange AnchorFormat(const QUrl& url)
{
    QTextLayout::FormatRange range;
    range.start = 0;
    range.length = 1;
    range.format.setAnchor(true);
    range.format.setAnchorHref(WithoutBrackets(url));
    range.format.setForeground(Qt::transparent);
    return range;
}

}  // namespace

void WriteLink(QPainter& painter, const QRectF& rectangle, std::u16string_view target)
{
    const QPaintEngine* engine = painter.paintEngine();
    if (engine == nullptr || engine->type() != QPaintEngine::Pdf || rectangle.isEmpty())
        return;
    const QUrl url(QStringView(target.data(), static_cast<qsizetype>(target.size())).toString());
    if (!MayLeadTo(url))
        return;

    // Qt's one public way to a link in a PDF is a text that is an anchor. One character that leaves nothing to be seen is
    // stretched over the rectangle.
    QFont font;
    font.setPixelSize(kFontSize);
    QTextLayout layout(kInvisible, font, painter.device());
    layout.setFormats({AnchorFormat(url)});
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    // What Qt makes active begins a descent below the line's top and ends as much above its bottom.
    const qreal active = line.ascent() - line.descent();
    if (line.naturalTextWidth() <= 0 || active <= 0)
        return;
    painter.save();
    painter.translate(rectangle.topLeft());
    painter.scale(rectangle.width() / line.naturalTextWidth(), rectangle.height() / active);
    layout.draw(&painter, QPointF(0, -line.descent()));
    painter.restore();
}

}  // namespace quillmarker
