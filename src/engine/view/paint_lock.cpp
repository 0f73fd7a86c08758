#include "paint_lock.h"

namespace quillmarker
{

PaintLock& PaintLock::OfTheProcess()
{
    static PaintLock lock;
    return lock;
}

bool PaintLock::Lock(QWidget& widget)
{
    if (m_widget && m_widget != &widget)
        return false;
    if (!m_widget)
        m_wasPainted = !widget.testAttribute(Qt::WA_ForceUpdatesDisabled);
    m_widget = &widget;
    widget.setUpdatesEnabled(false);
    return true;
}

void PaintLock::Unlock()
{
    if (m_widget && m_wasPainted)
        m_widget->setUpdatesEnabled(true);
    m_widget.clear();
}

}  // namespace quillmarker
