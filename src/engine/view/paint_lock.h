#pragma once

#include <quillmarker/widgets/export.h>

#include <QPointer>
#include <QWidget>

#include <functional>

namespace quillmarker
{

/// The painting lock, of which one exists in the process: while a widget holds it, that widget is not painted. Letting
/// it go paints the widget once.
class QUILLMARKER_WIDGETS_EXPORT PaintLock
{
public:
    static PaintLock& OfTheProcess();

    /// False when another widget holds the lock: it stays with that one. `released` is called when the widget may be
    /// painted again, before it is, if it is still there.
    bool Lock(QWidget& widget, std::function<void()> released = {});
    void Unlock();
    bool Holds(const QWidget& widget) const { return m_widget == &widget; }

private:
    PaintLock() = default;
    QPointer<QWidget> m_widget;
    std::function<void()> m_released;
    bool m_wasPainted = true;  // before it held the lock
};

}  // namespace quillmarker
