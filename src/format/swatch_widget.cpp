#include "swatch_widget.h"

#include "colour_palette.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <cmath>

namespace quillmarker
{
namespace
{

QColor QColourOf(Colour colour) { return {colour.Red(), colour.Green(), colour.Blue()}; }

/// What a screen reader sees of it: an entry that can be chosen.
class AccessibleSwatch : public QAccessibleWidget
{
public:
    explicit AccessibleSwatch(SwatchWidget& swatch) : QAccessibleWidget(&swatch, QAccessible::ListItem) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const bool hasKeyboard = Swatch().parentWidget()->hasFocus();
        state.focusable = true;
        state.selectable = true;
        state.focused = Swatch().IsCurrent() && hasKeyboard;
        state.selected = Swatch().IsCurrent();
        return state;
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            Q_EMIT Swatch().Pressed(Swatch().Index());
    }

private:
    SwatchWidget& Swatch() const { return static_cast<SwatchWidget&>(*widget()); }
};

QAccessibleInterface* MakeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(SwatchWidget::staticMetaObject.className()))
        return nullptr;
    auto* swatch = qobject_cast<SwatchWidget*>(object);
    return swatch ? new AccessibleSwatch(*swatch) : nullptr;
}

}  // namespace

SwatchWidget::SwatchWidget(int index, QWidget* palette) : QWidget(palette), m_index(index)
{
    // Installing it again leaves the one there is.
    QAccessible::installFactory(MakeInterface);
    setObjectName(QStringLiteral("Shape1(%1)").arg(index));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    NameIt();
}

void SwatchWidget::Announce()
{
    QAccessibleEvent event(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void SwatchWidget::NameIt() { setAccessibleName(SwatchName(m_index)); }

/// Filled with its colour, in an outline: one of the swatches is nearly the colour of any panel.
void SwatchWidget::paintEvent(QPaintEvent* /*event*/)
{
    constexpr qreal kOutline = 0.45;
    const qreal scale = devicePixelRatioF();
    QPainter painter(this);
    const QColor colour = QColourOf(kSwatches.at(static_cast<std::size_t>(m_index)).colour);
    painter.fillRect(rect(), colour);
    QColor outline = palette().color(QPalette::WindowText);
    outline.setAlphaF(kOutline);
    // One pixel of the screen, or two where they are small.
    const qreal width = std::max<qreal>(1, std::floor(scale)) / scale;
    const qreal inside = width / 2;
    painter.setPen(QPen(outline, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(rect()).adjusted(inside, inside, -inside, -inside));
}

}  // namespace quillmarker
