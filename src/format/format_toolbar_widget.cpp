#include "format_toolbar_widget.h"

#include "format/tool_button_widget.h"
#include "format/tool_maps.h"

#include <QAction>
#include <QMenu>
#include <QMouseEvent>
#include <QStyleOption>
#include <QStylePainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillmarker
{
namespace
{

constexpr int kButtonWidth = 360;  // twips
constexpr int kButtonHeight = 330;
constexpr int kSeparatorWidth = 120;
constexpr int kMoreWidth = 240;
constexpr int kMargin = 30;
constexpr int kVerticalMargin = 3;  // pixels

int Pixels(int twips, double twipsPerPixel) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }

}  // namespace

FormatToolbar::FormatToolbar(QWidget* parent)
    : QToolBar(parent), m_more(new QToolButton(this)), m_moreMenu(new QMenu(this))
{
    for (std::size_t row = 0; row < kToolbarButtons.size(); ++row)
        MakeButton(row);
    m_more->setObjectName(QStringLiteral("more"));
    m_more->setAutoRaise(true);
    m_more->setArrowType(Qt::DownArrow);
    m_more->setPopupMode(QToolButton::InstantPopup);
    // The arrow is enough; styles would add a second one for the menu.
    m_more->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    m_more->setFocusPolicy(Qt::TabFocus);
    m_more->setMenu(m_moreMenu);
    m_more->setToolTip(tr("More buttons"));
    m_more->setAccessibleName(m_more->toolTip());
    m_more->installEventFilter(this);
    connect(m_moreMenu, &QMenu::aboutToShow, this, &FormatToolbar::FillMoreMenu);
    PlaceButtons();
}

void FormatToolbar::SetScale(QSizeF twipsPerPixel)
{
    const double scale = twipsPerPixel.width();
    m_metrics = {Pixels(kButtonWidth, scale), Pixels(kSeparatorWidth, scale), Pixels(kMargin, scale),
                 Pixels(kMoreWidth, scale), scale};
    m_buttonHeight = Pixels(kButtonHeight, twipsPerPixel.height());
    updateGeometry();
    PlaceButtons();
}

void FormatToolbar::MakeButton(std::size_t row)
{
    const ToolbarButton& given = kToolbarButtons[row];
    if (given.style == ButtonStyle::Separator || given.style == ButtonStyle::Placeholder)
        return;
    auto* button = new ToolButton(given, this);
    m_buttons[row] = button;
    constexpr int kImageSize = 16;
    button->setIconSize({kImageSize, kImageSize});
    button->installEventFilter(this);
    connect(button, &QToolButton::clicked, this, [this, button] { Click(*button); });
    connect(button, &ToolButton::MoveRequested, this, [this, button](int by) { MoveFocus(*button, by); });
}

ToolButton* FormatToolbar::Button(std::string_view key) const
{
    const ToolbarButton* row = FindToolbarButton(key);
    return row ? m_buttons[static_cast<std::size_t>(row - kToolbarButtons.data())] : nullptr;
}

QRect FormatToolbar::SlotAt(std::size_t row) const
{
    const ToolbarSlot& slot = m_layout.slots[row];
    const QRect place(slot.left, (height() - m_buttonHeight) / 2, slot.width, m_buttonHeight);
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

QRect FormatToolbar::Slot(std::string_view key) const
{
    const ToolbarButton* button = FindToolbarButton(key);
    if (!button)
        return {};
    const auto row = static_cast<std::size_t>(button - kToolbarButtons.data());
    return m_layout.slots[row].isShown ? SlotAt(row) : QRect();
}

QRect FormatToolbar::Anchor(std::string_view key) const
{
    const QRect slot = Slot(key);
    return slot.isEmpty() ? m_more->geometry() : slot;
}

QSize FormatToolbar::sizeHint() const
{
    return {FullWidth(m_metrics), std::max(m_buttonHeight, fontMetrics().height() + 8) + 2 * kVerticalMargin};
}

QSize FormatToolbar::minimumSizeHint() const { return {m_metrics.more + m_metrics.margin, sizeHint().height()}; }

/// Of a group, the others are released: one of them at a time is pressed.
void FormatToolbar::Click(ToolButton& button)
{
    if (button.Row().style == ButtonStyle::ButtonGroup)
    {
        for (ToolButton* other : m_buttons)
        {
            if (!other || other == &button || other->Row().style != ButtonStyle::ButtonGroup)
                continue;
            other->SetMixedState(false);
            other->SetValue(0);
        }
    }
    const bool isByMouse = m_pressedByMouse == &button;
    m_pressedByMouse = nullptr;
    const QPointer<FormatToolbar> alive(this);
    const QString key = button.Key();
    const int value = button.Value();
    if (!isByMouse && IsPopupKey(button.Row().key))
        Q_EMIT PickerRequested(key);
    if (alive)
        Q_EMIT ButtonClick(key, value);
}

void FormatToolbar::PlaceButtons()
{
    m_layout = LaidOut(width(), m_metrics);
    for (std::size_t row = 0; row < m_buttons.size(); ++row)
    {
        if (ToolButton* button = m_buttons[row])
        {
            button->setGeometry(SlotAt(row));
            button->setVisible(m_layout.slots[row].isShown);
        }
    }
    const QRect more(m_layout.moreLeft, (height() - m_buttonHeight) / 2, m_metrics.more, m_buttonHeight);
    m_more->setGeometry(QStyle::visualRect(layoutDirection(), rect(), more));
    m_more->setVisible(m_layout.overflows);
    if (!m_tabStop || m_tabStop->isHidden())
    {
        const auto first = std::ranges::find_if(m_buttons, [](const ToolButton* b) { return b && !b->isHidden(); });
        SetTabStop(first == m_buttons.end() ? nullptr : *first);
    }
    update();
    Q_EMIT ButtonsMoved();
}

void FormatToolbar::SetTabStop(ToolButton* button)
{
    if (m_tabStop)
        m_tabStop->setFocusPolicy(Qt::NoFocus);
    m_tabStop = button;
    if (m_tabStop)
        m_tabStop->setFocusPolicy(Qt::TabFocus);
}

void FormatToolbar::MoveFocus(ToolButton& from, int by)
{
    if (by == 0)
        return Q_EMIT LeaveRequested();
    std::vector<ToolButton*> shown;
    std::ranges::copy_if(m_buttons, std::back_inserter(shown), [](const ToolButton* b) { return b && !b->isHidden(); });
    const auto count = static_cast<std::int64_t>(shown.size());
    const auto at = std::ranges::find(shown, &from) - shown.begin();
    ToolButton* next = shown[static_cast<std::size_t>(std::clamp<std::int64_t>(at + std::int64_t{by}, 0, count - 1))];
    SetTabStop(next);
    next->setFocus(Qt::TabFocusReason);
}

/// What had no room, as lines of a menu that do the same.
void FormatToolbar::FillMoreMenu()
{
    m_moreMenu->clear();
    bool separates = false;
    for (std::size_t row = 0; row < m_buttons.size(); ++row)
    {
        if (m_layout.slots[row].isShown)
            continue;
        ToolButton* button = m_buttons[row];
        if (!button)
        {
            separates = !m_moreMenu->isEmpty();
            continue;
        }
        if (std::exchange(separates, false))
            m_moreMenu->addSeparator();
        const QString text = button->MixedState() ? tr("%1 (mixed)").arg(button->toolTip()) : button->toolTip();
        QAction* action = m_moreMenu->addAction(button->icon(), text);
        action->setObjectName(button->Key());
        action->setCheckable(button->isCheckable());
        action->setChecked(button->isChecked() && !button->MixedState());
        connect(action, &QAction::triggered, button, &QAbstractButton::click);
    }
}

void FormatToolbar::resizeEvent(QResizeEvent* event)
{
    QToolBar::resizeEvent(event);
    PlaceButtons();
}

void FormatToolbar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
    {
        for (ToolButton* button : m_buttons)
        {
            if (button)
                button->TakeTexts();
        }
    }
    if (event->type() == QEvent::LayoutDirectionChange)
        PlaceButtons();
}

void FormatToolbar::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT MousePressed(event->position().toPoint());
    event->accept();
}

/// The separators are lines of the toolbar itself.
void FormatToolbar::paintEvent(QPaintEvent* event)
{
    QToolBar::paintEvent(event);
    QPainter painter(this);
    QColor line = palette().color(QPalette::ButtonText);
    constexpr int kFaint = 70;
    line.setAlpha(kFaint);
    for (std::size_t row = 0; row < kToolbarButtons.size(); ++row)
    {
        if (kToolbarButtons[row].style != ButtonStyle::Separator || !m_layout.slots[row].isShown)
            continue;
        const QRect slot = SlotAt(row);
        painter.fillRect(QRect(slot.center().x(), slot.top() + 2, 1, slot.height() - 4), line);
    }
}

bool FormatToolbar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
    {
        const auto* press = static_cast<QMouseEvent*>(event);
        auto* button = qobject_cast<ToolButton*>(watched);
        if (press->button() == Qt::LeftButton)
            m_pressedByMouse = button;
        const QPointer<QObject> pressed(watched);
        Q_EMIT MousePressed(static_cast<QWidget*>(watched)->mapTo(this, press->position().toPoint()));
        if (!pressed)
            return true;
    }
    if (event->type() == QEvent::FocusIn)
        if (auto* button = qobject_cast<ToolButton*>(watched))
            SetTabStop(button);
    return QToolBar::eventFilter(watched, event);
}

}  // namespace quillmarker
