#include "tool_maps.h"

#include <QColor>
#include <QFile>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

/// The images of a static library are registered by whoever asks for them first. The macro does not work in a namespace.
static void RegisterToolMaps() { Q_INIT_RESOURCE(quillmarker_tool_maps); }

namespace quillmarker
{
namespace
{

/// A colour as the drawings name it, and what it becomes.
struct Accent
{
    std::string_view drawn;
    QRgb onLight;
    QRgb onDark;
    double greyness;  // how far it is from the button's colour to the ink's where the icon is disabled
};

constexpr std::string_view kInk = "#303030";

constexpr std::array kAccents = {
    Accent{"#1a5fb4", 0xff1a5fb4, 0xff62a0ea, 0.85},
    Accent{"#c01c28", 0xffc01c28, 0xfff66151, 0.85},
    Accent{"#1a7f4b", 0xff1a7f4b, 0xff4ccb80, 0.7},
    Accent{"#e5a50a", 0xffe5a50a, 0xfff8c440, 0.35},
};

constexpr qsizetype kColourLength = 7;

/// The colours of one icon: the ink, then the accents in their order.
using Colours = std::array<QRgb, 1 + kAccents.size()>;

/// `share` of a colour over another one; what is transparent in it lets more of the other through.
QRgb Over(const QColor& colour, const QColor& ground, double share)
{
    const auto mixed = [part = share * colour.alphaF()](int above, int below) {
        return static_cast<int>(std::lround(part * above + (1 - part) * below));
    };
    return qRgb(mixed(colour.red(), ground.red()), mixed(colour.green(), ground.green()),
                mixed(colour.blue(), ground.blue()));
}

/// The relative luminance of WCAG 2, from 0 for black to 1 for white.
double Luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// White is told more easily from it than black.
bool IsDark(const QColor& colour)
{
    constexpr double kMiddle = 0.179;
    return Luminance(colour) < kMiddle;
}

Colours EnabledColours(const QPalette& palette)
{
    const QColor button = palette.color(QPalette::Active, QPalette::Button);
    Colours colours{Over(palette.color(QPalette::Active, QPalette::ButtonText), button, 1)};
    std::transform(kAccents.begin(), kAccents.end(), colours.begin() + 1,
                   [dark = IsDark(button)](const Accent& accent) { return dark ? accent.onDark : accent.onLight; });
    return colours;
}

Colours DisabledColours(const QPalette& palette)
{
    const QColor button = palette.color(QPalette::Disabled, QPalette::Button);
    const QColor text = palette.color(QPalette::Disabled, QPalette::ButtonText);
    Colours colours{Over(text, button, 1)};
    std::transform(kAccents.begin(), kAccents.end(), colours.begin() + 1,
                   [&](const Accent& accent) { return Over(text, button, accent.greyness); });
    return colours;
}

/// What becomes of a colour of a drawing; null for what is none of ours.
const QRgb* ColourOf(std::string_view drawn, const Colours& colours)
{
    if (drawn == kInk)
        return &colours.front();
    const auto* accent =
        std::find_if(kAccents.begin(), kAccents.end(), [drawn](const Accent& row) { return row.drawn == drawn; });
    return accent == kAccents.end() ? nullptr : &colours.at(1 + static_cast<std::size_t>(accent - kAccents.begin()));
}

/// In one pass: a new colour may read like one of the drawings' own.
QByteArray Coloured(QByteArray drawing, const Colours& colours)
{
    for (qsizetype at = drawing.indexOf('#'); at >= 0; at = drawing.indexOf('#', at + 1))
    {
        const QByteArray drawn = drawing.mid(at, kColourLength);
        if (const QRgb* colour = ColourOf({drawn.constData(), static_cast<std::size_t>(drawn.size())}, colours))
            drawing.replace(at, kColourLength, QColor(*colour).name().toLatin1());
    }
    return drawing;
}

QByteArray Drawing(QLatin1String imageKey)
{
    QFile file(QLatin1String(":/quillmarker/images/") + imageKey + QLatin1String(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QPixmap Rendered(const QByteArray& drawing, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    // A square that begins between two pixels would blur every line.
    const int side = std::min(size.width(), size.height());
    const QRect square((size.width() - side) / 2, (size.height() - side) / 2, side, side);
    QPainter painter(&image);
    QSvgRenderer(drawing).render(&painter, square);
    painter.end();
    return QPixmap::fromImage(image);
}

class ToolIconEngine final : public QIconEngine
{
public:
    ToolIconEngine(QLatin1String imageKey, const QPalette& palette)
        : m_imageKey(imageKey), m_enabled(EnabledColours(palette)), m_disabled(DisabledColours(palette))
    {
    }

    QIconEngine* clone() const override { return new ToolIconEngine(*this); }
    QString key() const override { return QStringLiteral("quillmarker_tool_maps"); }
    QString iconName() override { return m_imageKey; }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        if (size.isEmpty())
            return {};
        const Colours& colours = mode == QIcon::Disabled ? m_disabled : m_enabled;
        const QString name = CacheName(size, colours);
        QPixmap pixmap;
        if (!QPixmapCache::find(name, &pixmap))
        {
            pixmap = Rendered(Coloured(Drawing(m_imageKey), colours), size);
            QPixmapCache::insert(name, pixmap);
        }
        return pixmap;
    }

    /// The size counts device pixels already.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        QPixmap scaled = pixmap(size, mode, state);
        scaled.setDevicePixelRatio(scale);
        return scaled;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1;
        painter->drawPixmap(rect.topLeft(), scaledPixmap(rect.size() * ratio, mode, state, ratio));
    }

private:
    ToolIconEngine(const ToolIconEngine&) = default;

    QString CacheName(QSize size, const Colours& colours) const
    {
        QString name = QStringLiteral("quillmarker/%1/%2x%3").arg(m_imageKey).arg(size.width()).arg(size.height());
        for (const QRgb colour : colours)
            name += QLatin1Char('/') + QString::number(colour, 16);
        return name;
    }

    QLatin1String m_imageKey;  // of the table
    Colours m_enabled;
    Colours m_disabled;
};

}  // namespace

QIcon ToolIcon(std::string_view imageKey, const QPalette& palette)
{
    const auto* known = std::find(kToolMaps.begin(), kToolMaps.end(), imageKey);
    if (known == kToolMaps.end())
        return {};
    RegisterToolMaps();
    return QIcon(new ToolIconEngine(QLatin1String(known->data(), static_cast<int>(known->size())), palette));
}

}  // namespace quillmarker
