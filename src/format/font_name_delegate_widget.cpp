#include "font_name_delegate_widget.h"

#include <QApplication>
#include <QPainter>

namespace quillmarker
{
namespace
{

constexpr qreal kFaceSize = 1.2;  // of the list's font: faces are to be told apart
constexpr qreal kRowHeight = 1.45;

/// The list's font, as large as the names are.
QFont NameFont(const QFont& list)
{
    QFont font = list;
    if (list.pointSizeF() > 0)
        font.setPointSizeF(list.pointSizeF() * kFaceSize);
    else
        font.setPixelSize(qRound(list.pixelSize() * kFaceSize));
    return font;
}

QColor TextColour(const QStyleOptionViewItem& option)
{
    QPalette::ColorGroup group = QPalette::Disabled;
    if (option.state.testFlag(QStyle::State_Enabled))
        group = option.state.testFlag(QStyle::State_Active) ? QPalette::Normal : QPalette::Inactive;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    return option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

/// Draws as much of a text as there is room for, on a baseline; how wide it was.
int DrawText(QPainter& painter, const QRect& room, int baseline, const QFont& font, const QString& text)
{
    const QFontMetrics metrics(font);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, room.width());
    painter.setFont(font);
    const int width = metrics.horizontalAdvance(shown);
    const bool isFromRight = painter.layoutDirection() == Qt::RightToLeft;
    painter.drawText(isFromRight ? room.right() + 1 - width : room.left(), baseline, shown);
    return width;
}

}  // namespace

void FontNameDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString family = item.text;
    item.text.clear();
    const QStyle* style = item.widget ? item.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    const QFont nameFont = NameFont(item.font);
    const FontLook look = m_looks.Of(family, nameFont);
    const QFontMetrics metrics(nameFont);
    // Faces are of any height: all names stand on the line that those of the list's font stand on.
    const int baseline = item.rect.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    const int margin =
        style->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + metrics.averageCharWidth() / 2;
    QRect room = item.rect.adjusted(margin, 0, -margin, 0);
    painter->save();
    painter->setClipRect(item.rect, Qt::IntersectClip);
    painter->setLayoutDirection(item.direction);
    painter->setPen(TextColour(item));
    const int width = DrawText(*painter, room, baseline, look.isLegible ? look.face : nameFont, family);
    if (!look.sample.isEmpty())
    {
        const int gone = width + metrics.averageCharWidth();
        if (item.direction == Qt::RightToLeft)
            room.setRight(room.right() - gone);
        else
            room.setLeft(room.left() + gone);
        DrawText(*painter, room, baseline, look.face, look.sample);
    }
    painter->restore();
}

QSize FontNameDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const
{
    // The same for every row, found without looking at one.
    const QFontMetrics metrics(option.font);
    return {metrics.averageCharWidth(), qRound(metrics.height() * kRowHeight)};
}

}  // namespace quillmarker
