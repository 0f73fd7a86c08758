#include "tool_button_widget.h"

#include "format/accessible_tool_button_widget.h"
#include "format/tool_maps.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <limits>

namespace quillmarker
{
namespace
{

QString Translated(const char* text) { return QCoreApplication::translate(kToolbarContext, text); }

constexpr int kFirst = std::numeric_limits<int>::min();
constexpr int kLast = std::numeric_limits<int>::max();

}  // namespace

ToolButton::ToolButton(const ToolbarButton& row, QWidget* parent) : QToolButton(parent), m_row(row)
{
    MakeAccessible(*this);
    setObjectName(Key());
    setAutoRaise(true);
    setCheckable(row.IsCheckable());
    // A press of the mouse leaves the focus in the text; the toolbar lets keys reach one button at a time.
    setFocusPolicy(Qt::NoFocus);
    TakeTexts();
    TakeImage();
}

void ToolButton::TakeTexts()
{
    setToolTip(Translated(m_row.tooltip));
    setAccessibleName(toolTip());
    setAccessibleDescription(Translated(m_row.description));
    setStatusTip(accessibleDescription());
}

void ToolButton::TakeImage() { setIcon(ToolIcon(m_row.imageKey, palette())); }

void ToolButton::SetValue(int value) { setChecked(value != 0); }

void ToolButton::SetMixedState(bool mixed)
{
    if (mixed == m_isMixed)
        return;
    m_isMixed = mixed;
    update();
    QAccessible::State changed;
    changed.checkStateMixed = true;
    QAccessibleStateChangeEvent told(this, changed);
    QAccessible::updateAccessibility(&told);
}

/// One of a group stays pressed; an undecided one becomes pressed, whatever it was before.
void ToolButton::nextCheckState()
{
    if (!m_row.IsCheckable())
        return;
    const bool isPressed = m_row.style == ButtonStyle::ButtonGroup || m_isMixed || !isChecked();
    SetMixedState(false);
    setChecked(isPressed);
}

void ToolButton::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    if (isChecked() || m_isMixed)
    {
        PaintState(painter);
        option.state &= ~(QStyle::State_On | QStyle::State_Raised | QStyle::State_MouseOver);
    }
    option.state &= ~QStyle::State_HasFocus;
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    if (hasFocus())
    {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

/// Pressed is a filled frame. Undecided is a dashed frame with a bar below the image, so that it is told from the others
/// in any palette and without colours.
void ToolButton::PaintState(QPainter& painter) const
{
    constexpr int kStrong = 90;
    constexpr int kFaint = 30;
    constexpr int kBarInset = 6;
    const QColor accent = palette().color(QPalette::Highlight);
    QColor fill = accent;
    fill.setAlpha(m_isMixed ? kFaint : kStrong);
    painter.save();
    painter.setBrush(fill);
    painter.setPen(QPen(accent, 1, m_isMixed ? Qt::DashLine : Qt::SolidLine));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    if (m_isMixed)
        painter.fillRect(QRect(kBarInset, height() - 3, width() - 2 * kBarInset, 2),
                         palette().color(QPalette::ButtonText));
    painter.restore();
}

void ToolButton::keyPressEvent(QKeyEvent* event)
{
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    switch (event->key())
    {
    case Qt::Key_Left:
        return Q_EMIT MoveRequested(mirrored ? 1 : -1);
    case Qt::Key_Right:
        return Q_EMIT MoveRequested(mirrored ? -1 : 1);
    case Qt::Key_Home:
        return Q_EMIT MoveRequested(kFirst);
    case Qt::Key_End:
        return Q_EMIT MoveRequested(kLast);
    case Qt::Key_Escape:
        return Q_EMIT MoveRequested(0);
    case Qt::Key_Enter:
    case Qt::Key_Return:
        return click();
    default:
        return QToolButton::keyPressEvent(event);
    }
}

bool ToolButton::event(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        TakeImage();
    return QToolButton::event(event);
}

}  // namespace quillmarker
