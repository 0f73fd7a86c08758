#include "list_frame_widget.h"

#include "font_name_delegate_widget.h"
#include "picker_list_widget.h"

#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace quillmarker
{
namespace
{

QStringList Trimmed(const QStringList& items)
{
    QStringList trimmed;
    trimmed.reserve(items.size());
    for (const QString& item : items)
        trimmed.append(item.trimmed());
    return trimmed;
}

}  // namespace

ListFrame::ListFrame(Extent extent, const QString& listName, QWidget* parent)
    : PickerFrame(parent), m_extent(extent), m_list(new PickerList(this))
{
    m_list->setObjectName(listName);
    setFocusProxy(m_list);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    // The owner may cut the panel off.
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->addWidget(m_list);
    connect(m_list, &PickerList::Chosen, this, &ListFrame::Chosen);
    connect(m_list, &PickerList::LeaveRequested, this, &ListFrame::LeaveRequested);
    connect(m_list, &PickerList::FocusLost, this, &ListFrame::TellFocusLost);
}

/// The list goes after the panel and gives up the focus; then nobody is there to tell it.
ListFrame::~ListFrame() { m_list->disconnect(this); }

QStringList ListFrame::Items() const { return m_list->Entries(); }

void ListFrame::SetItems(const QStringList& items)
{
    m_list->SetEntries(items);
    m_index = FontNameIndex(Trimmed(items));
    updateGeometry();
    resize(sizeHint());
}

void ListFrame::Prepare(const std::optional<QString>& selectedText)
{
    resize(sizeHint());
    m_list->Prepare(selectedText ? m_index.Find(selectedText->trimmed()) : std::nullopt);
}

QSize ListFrame::sizeHint() const
{
    const int rows = std::clamp(static_cast<int>(m_list->Entries().size()), 1, m_extent.rows);
    return {PixelsX(m_extent.twipsWide), HeightOf(rows)};
}

int ListFrame::LeastHeight() const
{
    constexpr int kFewRows = 3;
    return std::min(HeightOf(kFewRows), sizeHint().height());
}

int ListFrame::HeightOf(int rows) const { return rows * m_list->RowHeight() + 2 * kBorder; }

FontFrame::FontFrame(QWidget* parent) : ListFrame({3300, 12}, QStringLiteral("fName"), parent)
{
    setObjectName(QStringLiteral("FontFrame"));
    List().setItemDelegate(new FontNameDelegate(&List()));
    SetNames();
    resize(sizeHint());
}

void FontFrame::changeEvent(QEvent* event)
{
    ListFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        SetNames();
}

void FontFrame::SetNames()
{
    setAccessibleName(tr("Font names"));
    List().setAccessibleName(tr("Font name"));
}

SizeFrame::SizeFrame(QWidget* parent) : ListFrame({900, 18}, QStringLiteral("fSize"), parent)
{
    setObjectName(QStringLiteral("SizeFrame"));
    SetNames();
    resize(sizeHint());
}

void SizeFrame::changeEvent(QEvent* event)
{
    ListFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        SetNames();
}

void SizeFrame::SetNames()
{
    setAccessibleName(tr("Font sizes"));
    List().setAccessibleName(tr("Font size (points)"));
}

}  // namespace quillmarker
