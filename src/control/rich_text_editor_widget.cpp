#include "editor_state.h"
#include "format/format_toolbar_widget.h"
#include "status_bar_widget.h"

#include <QEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolBar>

namespace quillmarker
{

QSize RichTextEditor::sizeHint() const
{
    QSize size = m_state->engine ? m_state->engine->sizeHint() : QSize();
    for (const QWidget* bar : {static_cast<QWidget*>(m_state->toolbar), static_cast<QWidget*>(m_state->ruler),
                               static_cast<QWidget*>(m_state->statusBar)})
        if (bar && !bar->isHidden())
            size.rheight() += bar->sizeHint().height();
    return size;
}

void RichTextEditor::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    const std::shared_ptr state = m_state;
    state->WatchHostWindow();
    state->Show();
}

void RichTextEditor::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    std::shared_ptr(m_state)->Resize();
}

void RichTextEditor::mouseReleaseEvent(QMouseEvent* event)
{
    QWidget::mouseReleaseEvent(event);
    // What a child does not take comes here too.
    if (!childAt(event->position().toPoint()))
        std::shared_ptr(m_state)->RefreshUIState();
}

void RichTextEditor::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const std::shared_ptr state = m_state;
    if (event->type() == QEvent::ParentChange)
        state->WatchHostWindow();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        state->LayoutChildren();
}

bool RichTextEditor::eventFilter(QObject* watched, QEvent* event)
{
    const std::shared_ptr state = m_state;
    if (watched == state->outline && event->type() == QEvent::KeyRelease)
        state->DrawRuler(RulerReading::Reread);
    if (watched == window() && event->type() == QEvent::WindowStateChange)
        state->Resize();
    return QWidget::eventFilter(watched, event);
}

}  // namespace quillmarker
