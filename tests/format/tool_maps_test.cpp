#include "format/tool_maps.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QRegularExpression>

#include <cmath>
#include <cstdlib>
#include <map>
#include <optional>
#include <set>

namespace quillmarker
{
namespace
{

constexpr int kSide = 16;
const QSize kSize(kSide, kSide);

struct NamedPalette
{
    const char* name;
    QPalette palette;
};

QPalette PaletteOf(QRgb button, QRgb text, QRgb disabledText)
{
    QPalette palette((QColor(button)));
    palette.setColor(QPalette::Button, QColor(button));
    palette.setColor(QPalette::ButtonText, QColor(text));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(disabledText));
    return palette;
}

QPalette Light() { return PaletteOf(0xffefefef, 0xff202020, 0xffa8a8a8); }
QPalette Dark() { return PaletteOf(0xff353535, 0xffeeeeee, 0xff808080); }

std::vector<NamedPalette> Palettes()
{
    return {
        {"light", Light()},
        {"dark", Dark()},
        {"white", PaletteOf(0xffffffff, 0xff000000, 0xffbebebe)},
        {"black", PaletteOf(0xff000000, 0xffffffff, 0xff606060)},
    };
}

QString Name(std::string_view key) { return QString::fromLatin1(key.data(), static_cast<int>(key.size())); }

QByteArray Source(std::string_view key)
{
    QFile file(QStringLiteral(":/quillmarker/images/%1.svg").arg(Name(key)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage ImageOf(std::string_view key, const QPalette& palette, int ratio = 1, QIcon::Mode mode = QIcon::Normal)
{
    return ToolIcon(key, palette).pixmap(kSize, ratio, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

template <class Visitor>
void EachPixel(const QImage& image, Visitor visit)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            visit(image.pixel(x, y));
}

/// How many pixels have any ink, and how many of them are covered in part only.
struct Coverage
{
    int inked = 0;
    int partial = 0;
};

/// No eye tells a pixel of which a twentieth is missing from a full one.
Coverage CoverageOf(const QImage& image)
{
    constexpr int kFull = 243;
    Coverage coverage;
    EachPixel(image, [&coverage](QRgb pixel) {
        coverage.inked += qAlpha(pixel) > 0 ? 1 : 0;
        coverage.partial += qAlpha(pixel) > 0 && qAlpha(pixel) < kFull ? 1 : 0;
    });
    return coverage;
}

/// The relative luminance of WCAG 2.
double Luminance(QRgb colour)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

double Contrast(QRgb one, QRgb other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

/// The contrast that at least `count` fully covered pixels have to the button they lie on.
double StrongestContrast(const QImage& image, QRgb button, std::size_t count)
{
    std::vector<double> contrasts;
    EachPixel(image, [&](QRgb pixel) {
        if (qAlpha(pixel) == 255)
            contrasts.push_back(Contrast(pixel, button));
    });
    if (contrasts.size() < count)
        return 0;
    std::sort(contrasts.rbegin(), contrasts.rend());
    return contrasts.at(count - 1);
}

int Saturation(QRgb pixel)
{
    const auto [least, most] = std::minmax({qRed(pixel), qGreen(pixel), qBlue(pixel)});
    return most - least;
}

TEST(ToolMaps, AreThirtyOneKeysInTheirOrder)
{
    const QStringList expected =
        QStringLiteral(
            "new open save cut copy paste delete undo redo font size colour print bold italic underline left "
            "centre right justify spell search help picture preview strike separator combo subscript bullets "
            "superscript")
            .split(QLatin1Char(' '));
    QStringList keys;
    for (const std::string_view key : kToolMaps)
        keys.append(Name(key));
    EXPECT_EQ(keys.size(), 31);
    EXPECT_EQ(keys.join(QLatin1Char(' ')).toStdString(), expected.join(QLatin1Char(' ')).toStdString());
}

TEST(ToolMaps, HaveADrawingForEachKeyAndNoOther)
{
    ASSERT_FALSE(ToolIcon("new", Light()).isNull());
    QStringList expected;
    for (const std::string_view key : kToolMaps)
        expected.append(Name(key) + QStringLiteral(".svg"));
    expected.sort();
    const QDir folder(QStringLiteral(":/quillmarker/images"));
    const QStringList found = folder.entryList(QDir::AllEntries | QDir::Hidden, QDir::Name);
    EXPECT_EQ(found.join(QLatin1Char(' ')).toStdString(), expected.join(QLatin1Char(' ')).toStdString());
}

TEST(ToolMaps, AreDrawingsThatNeedNothingFromOutside)
{
    const QRegularExpression forbidden(
        QStringLiteral(
            "<(?:text|tspan|font|script|image|use|style|foreignObject|animate|set)\\b|href|url\\(|\\son\\w+=|"
            "<!|<\\?|@import|data:"),
        QRegularExpression::CaseInsensitiveOption);
    for (const std::string_view key : kToolMaps)
    {
        const QString source = QString::fromUtf8(Source(key));
        EXPECT_TRUE(
            source.startsWith(QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\">")))
            << key;
        EXPECT_EQ(source.count(QStringLiteral("://")), 1) << key;
        EXPECT_FALSE(forbidden.match(source).hasMatch())
            << key << ": " << forbidden.match(source).captured().toStdString();
    }
}

/// A colour that is none of the known ones would stay as it is in every palette.
TEST(ToolMaps, AreDrawnInTheInkAndTheAccentsOnly)
{
    const std::set<QString> known = {
        QStringLiteral("none"),    QStringLiteral("#303030"), QStringLiteral("#1a5fb4"),
        QStringLiteral("#c01c28"), QStringLiteral("#1a7f4b"), QStringLiteral("#e5a50a"),
    };
    const QRegularExpression paint(QStringLiteral("(?:fill|stroke|color|stop-color)=\"([^\"]*)\""));
    for (const std::string_view key : kToolMaps)
    {
        const QString source = QString::fromUtf8(Source(key));
        int paints = 0;
        for (auto all = paint.globalMatch(source); all.hasNext(); ++paints)
        {
            const QString colour = all.next().captured(1);
            EXPECT_TRUE(known.count(colour) == 1) << key << ": " << colour.toStdString();
        }
        EXPECT_GE(paints, 1) << key;
        // What names no paint is black.
        EXPECT_EQ(source.count(QRegularExpression(QStringLiteral("<(?:path|circle|rect)\\b"))),
                  source.count(QRegularExpression(QStringLiteral("<(?:path|circle|rect)\\b[^>]*\\bfill=\""))))
            << key;
    }
}

TEST(ToolIcon, ShowsADifferentImageForEachKey)
{
    for (int ratio = 1; ratio <= 3; ++ratio)
    {
        std::map<QByteArray, std::string_view> seen;
        for (const std::string_view key : kToolMaps)
        {
            const QImage image = ImageOf(key, Light(), ratio);
            const QByteArray bytes(reinterpret_cast<const char*>(image.constBits()),
                                   static_cast<int>(image.sizeInBytes()));
            const auto [other, isNew] = seen.emplace(bytes, key);
            EXPECT_TRUE(isNew) << key << " looks like " << other->second << " at " << ratio;
        }
    }
}

/// In shape too: two images that differ in colour alone are one to many eyes.
TEST(ToolIcon, ShowsADifferentShapeForEachKey)
{
    for (std::size_t one = 0; one < kToolMaps.size(); ++one)
        for (std::size_t other = one + 1; other < kToolMaps.size(); ++other)
        {
            const QImage left = ImageOf(kToolMaps.at(one), Light());
            const QImage right = ImageOf(kToolMaps.at(other), Light());
            int different = 0;
            for (int y = 0; y < kSide; ++y)
                for (int x = 0; x < kSide; ++x)
                    different += std::abs(qAlpha(left.pixel(x, y)) - qAlpha(right.pixel(x, y))) > 128 ? 1 : 0;
            EXPECT_GE(different, 12) << kToolMaps.at(one) << " and " << kToolMaps.at(other);
        }
}

TEST(ToolIcon, HasExactlyTheDevicePixelsAskedFor)
{
    for (const std::string_view key : kToolMaps)
        for (int ratio = 1; ratio <= 3; ++ratio)
        {
            const QPixmap pixmap = ToolIcon(key, Light()).pixmap(kSize, ratio);
            EXPECT_EQ(pixmap.size(), kSize * ratio) << key;
            EXPECT_EQ(pixmap.devicePixelRatio(), ratio) << key;
        }
}

TEST(ToolIcon, IsDrawnForItsSizeAndNotEnlarged)
{
    const QImage small = ImageOf("help", Light());
    const QImage large = ImageOf("help", Light(), 3);
    EXPECT_NE(large, small.scaled(large.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
    // What is enlarged is blurred along every curve.
    const QImage enlarged = small.scaled(large.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_LT(CoverageOf(large).partial * 2, CoverageOf(enlarged).partial);
}

TEST(ToolIcon, KeepsItsShapeInTheMiddleOfWhatIsNoSquare)
{
    const QImage square = ImageOf("copy", Light());
    const QImage wide = ToolIcon("copy", Light()).pixmap(QSize(41, kSide)).toImage();
    ASSERT_EQ(wide.size(), QSize(41, kSide));
    EXPECT_EQ(wide.copy(12, 0, kSide, kSide).convertToFormat(QImage::Format_ARGB32), square);
    EXPECT_EQ(CoverageOf(wide).inked, CoverageOf(square).inked);
    EXPECT_TRUE(ToolIcon("copy", Light()).pixmap(QSize(0, kSide)).isNull());
}

TEST(ToolIcon, HasLinesOfAlignedTextOnWholePixels)
{
    for (const char* key : {"left", "centre", "right", "justify"})
        for (int ratio = 1; ratio <= 3; ++ratio)
        {
            const Coverage coverage = CoverageOf(ImageOf(key, Light(), ratio));
            EXPECT_GE(coverage.inked, 50 * ratio * ratio) << key;
            EXPECT_EQ(coverage.partial, 0) << key << " at " << ratio;
        }
}

/// Of what is made of straight lines only corners and slopes are covered in part.
TEST(ToolIcon, HasStraightEdgesOnWholePixels)
{
    struct Row
    {
        const char* key;
        int partialPercent;  // of the inked pixels, at most
    };
    for (const Row& row : {Row{"new", 12}, Row{"save", 12}, Row{"copy", 12}, Row{"paste", 12}, Row{"delete", 12},
                           Row{"print", 15}, Row{"bullets", 25}, Row{"open", 25}, Row{"combo", 25}})
        for (int ratio = 1; ratio <= 3; ++ratio)
        {
            const Coverage coverage = CoverageOf(ImageOf(row.key, Light(), ratio));
            EXPECT_LE(coverage.partial * 100, coverage.inked * row.partialPercent)
                << row.key << " at " << ratio << ": " << coverage.partial << " of " << coverage.inked;
        }
}

/// One optical weight: no image is a speck or a blot beside the others. A separator is a thin line by nature.
TEST(ToolIcon, HasAsMuchInkAsItsNeighbours)
{
    for (const std::string_view key : kToolMaps)
    {
        double ink = 0;
        EachPixel(ImageOf(key, Light()), [&ink](QRgb pixel) { ink += qAlpha(pixel) / 255.0; });
        EXPECT_GE(ink, key == "separator" ? 14 : 35) << key;
        EXPECT_LE(ink, 140) << key;
    }
}

TEST(ToolIcon, StandsOutFromItsButtonInEveryPalette)
{
    constexpr double kReadable = 3;  // of graphical objects, by WCAG 2.1
    for (const auto& [name, palette] : Palettes())
        for (const std::string_view key : kToolMaps)
            EXPECT_GE(StrongestContrast(ImageOf(key, palette), palette.color(QPalette::Button).rgb(), 10), kReadable)
                << key << " in " << name;
}

TEST(ToolIcon, TakesItsInkFromTheTextOfButtons)
{
    QPalette palette = Light();
    palette.setColor(QPalette::ButtonText, QColor(10, 120, 30));
    EachPixel(ImageOf("justify", palette),
              [](QRgb pixel) { EXPECT_TRUE(qAlpha(pixel) == 0 || pixel == qRgb(10, 120, 30)); });
}

/// A text colour that is itself the name of an accent is not taken for that accent.
TEST(ToolIcon, DoesNotTakeItsInkForAnAccent)
{
    QPalette palette = Dark();
    palette.setColor(QPalette::ButtonText, QColor(0xffe5a50a));
    EachPixel(ImageOf("justify", palette), [](QRgb pixel) { EXPECT_TRUE(qAlpha(pixel) == 0 || pixel == 0xffe5a50a); });
}

TEST(ToolIcon, LooksDifferentOnDarkButtons)
{
    for (const std::string_view key : kToolMaps)
        EXPECT_NE(ImageOf(key, Light()), ImageOf(key, Dark())) << key;
}

TEST(ToolIcon, HasLighterAccentsOnDarkButtons)
{
    for (const char* key : {"undo", "redo", "delete", "search", "strike", "spell", "colour"})
    {
        double light = 0;
        double dark = 0;
        // One ink in both palettes: what differs is the accents.
        QPalette darkButton = Light();
        darkButton.setColor(QPalette::Button, QColor(0x35, 0x35, 0x35));
        EachPixel(ImageOf(key, Light()),
                  [&light](QRgb pixel) { light += qAlpha(pixel) == 255 ? Luminance(pixel) : 0; });
        EachPixel(ImageOf(key, darkButton),
                  [&dark](QRgb pixel) { dark += qAlpha(pixel) == 255 ? Luminance(pixel) : 0; });
        EXPECT_GT(dark, light * 1.3) << key;
    }
}

TEST(ToolIcon, IsGreyAndPalerWhereItIsDisabled)
{
    for (const auto& palette : {Light(), Dark()})
        for (const std::string_view key : kToolMaps)
        {
            const QRgb button = palette.color(QPalette::Button).rgb();
            const QImage enabled = ImageOf(key, palette);
            const QImage disabled = ImageOf(key, palette, 1, QIcon::Disabled);
            EXPECT_NE(disabled, enabled) << key;
            EXPECT_LT(StrongestContrast(disabled, button, 1), StrongestContrast(enabled, button, 1)) << key;
            int saturation = 0;
            EachPixel(disabled, [&saturation](QRgb pixel) {
                if (qAlpha(pixel) == 255)
                    saturation = std::max(saturation, Saturation(pixel));
            });
            EXPECT_EQ(saturation, 0) << key;
        }
}

TEST(ToolIcon, PaintsWhatItsPixmapShows)
{
    for (int ratio = 1; ratio <= 3; ++ratio)
    {
        QImage canvas(QSize(40, 40) * ratio, QImage::Format_ARGB32_Premultiplied);
        canvas.setDevicePixelRatio(ratio);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        ToolIcon("print", Light()).paint(&painter, QRect(QPoint(5, 7), kSize));
        painter.end();
        canvas.setDevicePixelRatio(1);
        QImage expected = ImageOf("print", Light(), ratio);
        expected.setDevicePixelRatio(1);
        EXPECT_EQ(canvas.copy(QRect(QPoint(5, 7) * ratio, kSize * ratio)).convertToFormat(QImage::Format_ARGB32),
                  expected)
            << ratio;
    }
}

TEST(ToolIcon, IsNullForAnUnknownKey)
{
    for (const char* key : {"", "none", "New", "newt", "new.svg", "../new", " new"})
        EXPECT_TRUE(ToolIcon(key, Light()).isNull()) << key;
}

TEST(ToolIcon, KnowsItsKeyAndSurvivesCopies)
{
    std::optional<QIcon> icon = ToolIcon("bold", Light());
    EXPECT_EQ(icon->name().toStdString(), "bold");
    QIcon copy = *icon;
    copy.detach();
    icon.reset();
    EXPECT_EQ(copy.name().toStdString(), "bold");
    EXPECT_EQ(copy.pixmap(kSize, 1.0).toImage().convertToFormat(QImage::Format_ARGB32), ImageOf("bold", Light()));
}

TEST(ToolIcon, IsKeptForTheNextTimeAndDrawnAnewWhenThatIsGone)
{
    QPixmapCache::clear();
    const qint64 first = ToolIcon("cut", Light()).pixmap(kSize, 1.0).cacheKey();
    EXPECT_EQ(ToolIcon("cut", Light()).pixmap(kSize, 1.0).cacheKey(), first);
    const QImage kept = ImageOf("cut", Light());
    QPixmapCache::clear();
    EXPECT_NE(ToolIcon("cut", Light()).pixmap(kSize, 1.0).cacheKey(), first);
    EXPECT_EQ(ImageOf("cut", Light()), kept);
}

}  // namespace
}  // namespace quillmarker
