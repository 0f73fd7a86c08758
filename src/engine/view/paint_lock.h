#pragma once

#include <quillmarker/widgets/export.h>

#include <QPointer>
#include <QWidget>

namespace quillmarker
{

/// The painting lock, of which one exists in the process: while a widget holds it, that widget is not painted. Letting
/// it go paints the widget once.
class QUILLMARKER_WIDGETS_EXPORT PaintLock
{
public:
    static PaintLock& OfTheProcess();

    /// False when another widget holds the lock: it stays with that one.
    bool Lock(QWidget& widget);
    void Unlock();
    bool Holds(const QWidget& widget) const { return m_widget == &widget; }

private:
    PaintLock() = default;
    QPointer<QWidget> m_widget;
    bool m_wasPainted = true;  // before it held the lock
};

}  // namespace quillmarker
