#include "colour_frame_widget.h"

#include "swatch_widget.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

// In pixels, outside of a swatch: the gaps are three wide.
constexpr int kRingWidth = 2;
constexpr int kHoverWidth = 1;

/// A ring around `inner`, crisp whatever the screen's scale is.
void DrawRing(QPainter& painter, const QRect& inner, int width, const QColor& colour)
{
    const QRect outer = inner.adjusted(-width, -width, width, width);
    painter.fillRect(outer, colour);
}

}  // namespace

ColFrame::ColFrame(QWidget* parent) : PickerFrame(parent)
{
    setObjectName(QStringLiteral("ColFrame"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    for (int index = 0; index < kSwatchCount; ++index)
    {
        auto* swatch = new SwatchWidget(index, this);
        connect(swatch, &SwatchWidget::Pressed, this, &ColFrame::Chosen);
        m_swatches.at(static_cast<std::size_t>(index)) = swatch;
    }
    m_swatches.front()->SetCurrent(true);
    SetNames();
    resize(sizeHint());
}

void ColFrame::Prepare(std::optional<Colour> selected)
{
    resize(sizeHint());
    Hover({});
    const std::optional<int> index = selected ? SwatchOf(*selected) : std::nullopt;
    MoveTo(index.value_or(0));
}

QSize ColFrame::sizeHint() const { return {PixelsX(PaletteSize().width()), PixelsY(PaletteSize().height())}; }

bool ColFrame::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
    {
        const auto* help = static_cast<QHelpEvent*>(event);
        ShowTip(help->pos(), help->globalPos());
        return true;
    }
    return PickerFrame::event(event);
}

void ColFrame::changeEvent(QEvent* event)
{
    PickerFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        SetNames();
}

void ColFrame::paintEvent(QPaintEvent* event)
{
    PickerFrame::paintEvent(event);
    QPainter painter(this);
    if (m_hovered)
        DrawRing(painter, PixelRectangle(*m_hovered), kHoverWidth, palette().color(QPalette::WindowText));
    if (hasFocus())
        DrawRing(painter, PixelRectangle(m_current), kRingWidth, palette().color(QPalette::Highlight));
}

void ColFrame::resizeEvent(QResizeEvent* event)
{
    PickerFrame::resizeEvent(event);
    for (SwatchWidget* swatch : m_swatches)
        swatch->setGeometry(PixelRectangle(swatch->Index()));
}

void ColFrame::keyPressEvent(QKeyEvent* event)
{
    switch (event->key())
    {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Q_EMIT Chosen(m_current);
        return;
    case Qt::Key_Escape:
        Q_EMIT LeaveRequested();
        return;
    default:
        break;
    }
    if (const std::optional<int> moved = MovedSwatch(m_current, static_cast<Qt::Key>(event->key())))
        MoveTo(*moved);
    else
        PickerFrame::keyPressEvent(event);
}

void ColFrame::mouseMoveEvent(QMouseEvent* event)
{
    PickerFrame::mouseMoveEvent(event);
    Hover(SwatchUnder(event->position()));
}

void ColFrame::mouseReleaseEvent(QMouseEvent* event)
{
    PickerFrame::mouseReleaseEvent(event);
    if (const std::optional<int> index = SwatchUnder(event->position()))
        Q_EMIT Chosen(*index);
}

void ColFrame::leaveEvent(QEvent* event)
{
    PickerFrame::leaveEvent(event);
    Hover({});
}

void ColFrame::focusInEvent(QFocusEvent* event)
{
    PickerFrame::focusInEvent(event);
    update();
    m_swatches.at(static_cast<std::size_t>(m_current))->Announce();
}

void ColFrame::focusOutEvent(QFocusEvent* event)
{
    PickerFrame::focusOutEvent(event);
    update();
    TellFocusLost(event->reason());
}

std::optional<int> ColFrame::SwatchUnder(QPointF position) const
{
    const QPoint twips = TwipsAt(position);
    return SwatchAt(twips.x(), twips.y());
}

QRect ColFrame::PixelRectangle(int index) const
{
    const QRect twips = SwatchRectangle(index);
    const QPoint topLeft(PixelsX(twips.x()), PixelsY(twips.y()));
    const QPoint bottomRight(PixelsX(twips.x() + twips.width()), PixelsY(twips.y() + twips.height()));
    return {topLeft, bottomRight - QPoint(1, 1)};
}

void ColFrame::MoveTo(int index)
{
    if (index == m_current)
        return;
    m_swatches.at(static_cast<std::size_t>(m_current))->SetCurrent(false);
    m_current = index;
    SwatchWidget& current = *m_swatches.at(static_cast<std::size_t>(index));
    current.SetCurrent(true);
    if (hasFocus())
        current.Announce();
    update();
}

void ColFrame::Hover(std::optional<int> index)
{
    if (index == m_hovered)
        return;
    m_hovered = index;
    update();
}

void ColFrame::ShowTip(QPoint position, QPoint onScreen)
{
    if (const std::optional<int> index = SwatchUnder(position))
        QToolTip::showText(onScreen, SwatchName(*index), this, PixelRectangle(*index));
    else
        QToolTip::hideText();
}

void ColFrame::SetNames()
{
    setAccessibleName(tr("Text colour"));
    for (SwatchWidget* swatch : m_swatches)
        swatch->NameIt();
}

}  // namespace quillmarker
