#pragma once

#include "picker_items.h"
#include "picker_tag.h"

#include <QListView>

namespace quillmarker
{

/// A list of entries that are all one line high: thousands of them open at once. None is the current one until somebody
/// makes it so.
class EntryList : public QListView
{
    Q_OBJECT

public:
    explicit EntryList(QWidget* parent);

protected:
    void focusInEvent(QFocusEvent* event) override;
};

/// The list of a popup. Keys move through it and apply nothing but Enter; a click applies. Its dynamic property "Tag" is
/// "Key" while the user moves through it with the keyboard.
class PickerList : public EntryList
{
    Q_OBJECT

public:
    explicit PickerList(QWidget* parent);

    QStringList Entries() const { return m_entries.stringList(); }
    void SetEntries(const QStringList& entries);

    /// Ready to be opened: that row, or none, is selected.
    void Prepare(std::optional<int> row);

    int RowHeight() const;

Q_SIGNALS:
    void Chosen(const QString& text);
    void LeaveRequested();
    void FocusLost(Qt::FocusReason reason);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void ApplyClick(const QModelIndex& index);
    void ShowTag();

    PickerItems m_entries;
    PickerTag m_tag;
};

}  // namespace quillmarker
