#include "color_choice_widget.h"

#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

namespace quillmarker
{
namespace
{

struct NamedColor
{
    const char* name;
    QRgb rgb;
};

constexpr NamedColor kBasicColors[] = {
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Black"), 0xFF000000},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Maroon"), 0xFF800000},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Green"), 0xFF008000},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Olive"), 0xFF808000},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Navy"), 0xFF000080},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Purple"), 0xFF800080},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Teal"), 0xFF008080},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Gray"), 0xFF808080},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Silver"), 0xFFC0C0C0},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Red"), 0xFFFF0000},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Lime"), 0xFF00FF00},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Yellow"), 0xFFFFFF00},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Blue"), 0xFF0000FF},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Fuchsia"), 0xFFFF00FF},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "Aqua"), 0xFF00FFFF},
    {QT_TRANSLATE_NOOP("quillmarker::ColorChoice", "White"), 0xFFFFFFFF},
};

constexpr int kBasicCount = static_cast<int>(std::size(kBasicColors));

}  // namespace

ColorChoice::ColorChoice(QWidget* parent)
    : QWidget(parent), m_list(new QComboBox(this)), m_others(new QPushButton(tr("&More…"), this))
{
    m_list->setObjectName(QStringLiteral("FontColor"));
    m_list->setAccessibleName(tr("Color"));
    for (const NamedColor& color : kBasicColors)
        m_list->addItem(Swatch(QColor::fromRgb(color.rgb)), tr(color.name), QColor::fromRgb(color.rgb));
    m_others->setObjectName(QStringLiteral("FontColorMore"));
    m_others->setAccessibleName(tr("More colors"));
    m_others->setAutoDefault(false);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_list, 1);
    layout->addWidget(m_others);
    setFocusProxy(m_list);
    connect(m_list, &QComboBox::currentIndexChanged, this, &ColorChoice::ColorChanged);
    connect(m_others, &QPushButton::clicked, this, &ColorChoice::ShowAllColors);
}

QColor ColorChoice::Color() const { return m_list->currentData().value<QColor>(); }

/// One that has no name stands behind those that do, until another takes its place.
void ColorChoice::SetColor(const QColor& color)
{
    int at = m_list->findData(color);
    if (at < 0)
    {
        at = kBasicCount;
        if (m_list->count() == at)
            m_list->addItem(QString());
        m_list->setItemText(at, tr("Other (%1)").arg(color.name()));
        m_list->setItemIcon(at, Swatch(color));
        m_list->setItemData(at, color);
    }
    const bool isSameItem = m_list->currentIndex() == at;
    m_list->setCurrentIndex(at);
    if (isSameItem)
        Q_EMIT ColorChanged();
}

/// Not waited for: this widget may be deleted while the colours are shown.
void ColorChoice::ShowAllColors()
{
    auto* dialog = new QColorDialog(Color(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAttribute(Qt::WA_WindowPropagation);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setWindowTitle(tr("Color"));
    connect(dialog, &QColorDialog::colorSelected, this, &ColorChoice::SetColor);
    dialog->open();
}

QIcon ColorChoice::Swatch(const QColor& color) const
{
    constexpr int kSide = 16;
    QPixmap pixmap(QSize(kSide, kSide) * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QColor outline = palette().color(QPalette::Text);
    outline.setAlphaF(0.5F);
    painter.setPen(outline);
    painter.setBrush(color);
    painter.drawRect(QRectF(0.5, 1.5, kSide - 1, kSide - 3));
    return QIcon(pixmap);
}

}  // namespace quillmarker
