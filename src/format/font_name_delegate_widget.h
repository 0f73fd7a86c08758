#pragma once

#include "font_looks.h"

#include <QStyledItemDelegate>

namespace quillmarker
{

/// Paints names of font families, each in its own face; a font of signs shows some of them behind its name. Only rows that
/// are painted cost anything.
class FontNameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    mutable FontLooks m_looks;
};

}  // namespace quillmarker
