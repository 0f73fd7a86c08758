#include "paint_lock.h"

#include <utility>

namespace quillmarker
{

PaintLock& PaintLock::OfTheProcess()
{
    static PaintLock lock;
    return lock;
}

bool PaintLock::Lock(QWidget& widget, std::function<void()> released)
{
    if (m_widget && m_widget != &widget)
        return false;
    if (!m_widget)
        m_wasPainted = !widget.testAttribute(Qt::WA_ForceUpdatesDisabled);
    m_widget = &widget;
    m_released = std::move(released);
    widget.setUpdatesEnabled(false);
    return true;
}

void PaintLock::Unlock()
{
    const QPointer<QWidget> widget = std::exchange(m_widget, {});
    const std::function<void()> released = std::exchange(m_released, {});
    if (!widget || !m_wasPainted)
        return;
    widget->setUpdatesEnabled(true);
    if (released)
        released();
}

}  // namespace quillmarker
