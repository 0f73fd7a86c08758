#include "picker_list_widget.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QScrollBar>

namespace quillmarker
{

EntryList::EntryList(QWidget* parent) : QListView(parent)
{
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
}

/// Qt makes the first row the current one where none is; then Enter would apply what nobody chose.
void EntryList::focusInEvent(QFocusEvent* event)
{
    const bool isNoneCurrent = !currentIndex().isValid();
    QListView::focusInEvent(event);
    if (isNoneCurrent)
        setCurrentIndex({});
}

PickerList::PickerList(QWidget* parent) : EntryList(parent)
{
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);  // the row under the pointer is marked
    setModel(&m_entries);
    connect(this, &QListView::clicked, this, &PickerList::ApplyClick);
    ShowTag();
}

void PickerList::SetEntries(const QStringList& entries) { m_entries.setStringList(entries); }

void PickerList::Prepare(std::optional<int> row)
{
    m_tag.Clear();
    ShowTag();
    const QModelIndex chosen = row ? m_entries.index(*row) : QModelIndex();
    clearSelection();
    setCurrentIndex(chosen);
    if (chosen.isValid())
        scrollTo(chosen, PositionAtCenter);
    else
        scrollToTop();
}

int PickerList::RowHeight() const
{
    // Of an empty list too.
    const int row = sizeHintForRow(0);
    return row > 0 ? row : fontMetrics().height();
}

void PickerList::keyPressEvent(QKeyEvent* event)
{
    const PickerStep step = m_tag.KeyDown(event->key());
    ShowTag();
    switch (step)
    {
    case PickerStep::Apply:
        ApplyClick(currentIndex());
        break;
    case PickerStep::Leave:
        Q_EMIT LeaveRequested();
        break;
    case PickerStep::Browse:
        EntryList::keyPressEvent(event);
        break;
    }
}

void PickerList::mousePressEvent(QMouseEvent* event)
{
    m_tag.Clear();
    ShowTag();
    EntryList::mousePressEvent(event);
}

void PickerList::focusOutEvent(QFocusEvent* event)
{
    EntryList::focusOutEvent(event);
    Q_EMIT FocusLost(event->reason());
}

/// Before it is shown a list does not know how much of it there is to be seen.
void PickerList::showEvent(QShowEvent* event)
{
    EntryList::showEvent(event);
    if (currentIndex().isValid())
        scrollTo(currentIndex(), PositionAtCenter);
}

/// With no row to apply the list is only left.
void PickerList::ApplyClick(const QModelIndex& index)
{
    if (!m_tag.AppliesClick())
        return;
    if (index.isValid())
        Q_EMIT Chosen(index.data().toString());
    else
        Q_EMIT LeaveRequested();
}

void PickerList::ShowTag() { setProperty("Tag", m_tag.Text()); }

}  // namespace quillmarker
