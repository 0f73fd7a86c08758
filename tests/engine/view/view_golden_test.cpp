// What the view looks like, in the fonts that every machine has. To accept what the tests give now, after a look at it:
// QUILLMARKER_ACCEPT_GOLDENS=1

#include <quillmarker/rtf.h>
#include <quillmarker/widgets/rich_text_view.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QPalette>

#include <algorithm>
#include <cstdlib>

namespace quillmarker
{
namespace
{

enum class Scheme : bool { Light, Dark };

struct Scene
{
    const char* name;
    const char* body;  // RTF
    Scheme scheme = Scheme::Light;
    int zoom = 100;
    Selection selection{};
};

constexpr const char* kHead =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Liberation Sans;}{\\f1\\froman Liberation Serif;}{\\f2\\fmodern "
    "Liberation "
    "Mono;}}{\\colortbl;\\red200\\green0\\blue0;\\red255\\green240\\blue120;\\red0\\green90\\blue200;}\\f0\\fs20 ";

constexpr const char* kFormats = "Plain, {\\b bold}, {\\i italic}, {\\b\\i both}, {\\ul underlined}, {\\strike "
                                 "struck}, {\\cf1 red}, {\\highlight2 marked}.\\par "
                                 "{\\f1\\fs28 Serif in 14 points}, {\\f2 mono}, H{\\sub 2}O, x{\\super 2}, {\\scaps "
                                 "Small Capitals}, {\\caps capitals}.\\par";

constexpr const char* kUnderlines = "{\\ul single} {\\uldb double} {\\uld dotted} {\\uldash dash} {\\uldashd dash dot} "
                                    "{\\uldashdd two dots} {\\ulth thick} "
                                    "{\\ulwave wave} {\\ulhwave heavy wave} {\\ululdbwave double wave} {\\ulw words "
                                    "only here} {\\striked1 two strikes}\\par";

constexpr const char* kParagraphs = "\\pard\\qc Centred\\par\\pard\\qr Right\\par\\pard\\qj\\li400\\ri400 Justified "
                                    "text between its indents, which goes on for "
                                    "a line or two so that the blanks have something to stretch "
                                    "for.\\par\\pard\\fi-360\\li360{\\*\\pn\\pnlvlblt\\pnindent360{\\pntxtb\\'b7}}"
                                    "A bullet whose text wraps around to a second line below the first one.\\par "
                                    "Another\\par\\pard\\tqr\\tldot\\tx4000 Dots\\tab 12.50\\par"
                                    "\\pard\\brdrt\\brdrs\\brdrw15\\brdrb\\brdrdb\\brdrw15\\brdrl\\brdrs\\brdrw15\\brdr"
                                    "r\\brdrs\\brdrw15\\cbpat2 In a frame\\par";

constexpr const char* kDirections =
    "Latin \\u1513?\\u1500?\\u1493?\\u1501? Latin\\par\\pard\\rtlpar\\qr \\u1513?\\u1500?\\u1493?\\u1501? abc "
    "\\u1506?\\u1493?\\u1500?\\u1501?\\par\\pard\\ltrpar e\\u769? \\u945?\\u946?\\u947? \\u1076?\\u1072?\\par";

// A picture of two by two pixels: red, green, blue, white.
constexpr const char* kPicture = "Before {\\pict\\dibitmap0\\picw2\\pich2\\picwgoal900\\pichgoal600 "
                                 "28000000020000000200000001001800000000001000000000000000000000000000000000000000"
                                 "FF0000FFFFFF00000000FF00FF000000} behind, and one that cannot be read "
                                 "{\\pict\\pngblip\\picwgoal600\\pichgoal400 00} here.\\par";

constexpr Scene kScenes[] = {
    {"formats", kFormats},
    {"formats_dark", kFormats, Scheme::Dark},
    {"formats_zoomed", kFormats, Scheme::Light, 200},
    {"underlines", kUnderlines, Scheme::Light, 150},
    {"paragraphs", kParagraphs},
    {"directions", kDirections, Scheme::Light, 150},
    {"picture", kPicture},
    {"selection", kFormats, Scheme::Light, 100, {7, 40}},
    {"selection_dark", kParagraphs, Scheme::Dark, 100, {4, 120}},
    {"selection_directions", kDirections, Scheme::Light, 150, {3, 12}},
};

QPalette PaletteOf(Scheme scheme)
{
    const bool isDark = scheme == Scheme::Dark;
    QPalette palette;
    palette.setColor(QPalette::Base, isDark ? QColor(0x1E, 0x1E, 0x1E) : QColor(Qt::white));
    palette.setColor(QPalette::Text, isDark ? QColor(0xE0, 0xE0, 0xE0) : QColor(Qt::black));
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x70, 0xC0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QImage Shown(const Scene& scene)
{
    RichTextView view;
    view.setFrameStyle(QFrame::NoFrame);
    view.setFocusPolicy(Qt::NoFocus);  // no caret: it blinks
    view.setPalette(PaletteOf(scene.scheme));
    view.resize(420, 200);
    view.SetZoom(scene.zoom);
    view.Box().OpenValue(ReadRtf(std::string_view(std::string(kHead) + scene.body + "}")));
    view.show();
    view.SelectFromTo(scene.selection.start, scene.selection.start + scene.selection.length);
    QCoreApplication::processEvents();
    return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// How many pixels differ by more than the eye minds.
int DifferentPixels(const QImage& a, const QImage& b)
{
    constexpr int kTolerance = 48;
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
        {
            const QRgb one = a.pixel(x, y);
            const QRgb other = b.pixel(x, y);
            const int difference = std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                                             std::abs(qBlue(one) - qBlue(other))});
            count += difference > kTolerance ? 1 : 0;
        }
    return count;
}

class ViewGoldens : public testing::TestWithParam<Scene>
{
};

TEST_P(ViewGoldens, TheSceneLooksAsRecorded)
{
    const QString file = QStringLiteral("tests/engine/view/golden/%1.png").arg(QLatin1String(GetParam().name));
    const QImage shown = Shown(GetParam());
    if (qEnvironmentVariable("QUILLMARKER_ACCEPT_GOLDENS") == QLatin1String("1"))
    {
        ASSERT_TRUE(shown.save(file));
        return;
    }
    const QImage expected(file);
    ASSERT_FALSE(expected.isNull()) << file.toStdString();
    ASSERT_EQ(shown.size(), expected.size());
    const int different = DifferentPixels(shown, expected);
    constexpr int kAllowed = 420 * 200 / 200;
    if (different > kAllowed)
        shown.save(QDir::temp().filePath(QStringLiteral("quillmarker_%1.png").arg(QLatin1String(GetParam().name))));
    EXPECT_LE(different, kAllowed);
}

INSTANTIATE_TEST_SUITE_P(Each, ViewGoldens, testing::ValuesIn(kScenes),
                         [](const testing::TestParamInfo<Scene>& scene) { return std::string(scene.param.name); });

}  // namespace
}  // namespace quillmarker
