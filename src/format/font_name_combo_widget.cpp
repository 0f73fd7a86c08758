#include "font_name_combo_widget.h"

#include "font_name_delegate_widget.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace quillmarker
{
namespace
{

constexpr int kRows = 16;
constexpr int kListLetters = 36;  // how wide the list is at least: the samples beside the names need room

bool IsTyped(const QKeyEvent& event)
{
    constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !text.isEmpty() && text.front().isPrint() && !(event.modifiers() & kCommands);
}

}  // namespace

FontNameCombo::FontNameCombo(QWidget* parent) : PickerCombo(QStringLiteral("cfName"), parent)
{
    view()->setItemDelegate(new FontNameDelegate(view()));
    setMaxVisibleItems(kRows);
    // A list under the combo in every style: some would open a menu as high as the screen.
    setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
}

void FontNameCombo::SetNames(const QStringList& names)
{
    const QString shown = currentText();
    SetEntries(names, FontNameIndex(names));
    Select(shown);
}

bool FontNameCombo::Select(const QString& name, int count)
{
    const std::optional<int> found = Index().Find(name, count);
    if (found && *found != currentIndex())
        setCurrentIndex(*found);
    return found.has_value();
}

bool FontNameCombo::Select(const QString& name) { return Select(name, this->count()); }

void FontNameCombo::Blank() { setCurrentIndex(-1); }

void FontNameCombo::showPopup()
{
    view()->setMinimumWidth(kListLetters * view()->fontMetrics().averageCharWidth());
    PickerCombo::showPopup();
}

void FontNameCombo::keyPressEvent(QKeyEvent* event)
{
    const bool isOfList = event->key() == Qt::Key_Home || event->key() == Qt::Key_End || IsTyped(*event);
    if (isOfList)
        OpenWith(*event);
    else
        PickerCombo::keyPressEvent(event);
}

}  // namespace quillmarker
