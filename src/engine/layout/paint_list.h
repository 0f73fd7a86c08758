#pragma once

#include "display_list.h"

#include <quillmarker/pages/export.h>

#include <QColor>
#include <QPainter>

namespace quillmarker
{

/// What automatic colours are: on paper black on white, on screen as the palette says.
struct GroundColours
{
    QColor text = Qt::black;
    QColor background = Qt::white;
};

/// Paints a list. `scale` is device pixels a twip before the painter's own transform; `origin` is where the list's
/// origin falls, in the painter's coordinates. On a painter without scaling the text is set in its real pixel size.
/// Items that lie wholly outside the painter's clip are left out. Text of automatic colour that stands on a ground which
/// the list itself painted, or before it the list `behind` at the same origin, is black or white where it could not be
/// read otherwise. In a PDF link areas become links; elsewhere they are nothing.
QUILLMARKER_PAGES_EXPORT void Paint(QPainter& painter, const DisplayList& list, QPointF origin, qreal scale,
                                    const GroundColours& colours = {}, const DisplayList* behind = nullptr);

}  // namespace quillmarker
