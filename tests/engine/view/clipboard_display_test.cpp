#include "support/clipboard_elsewhere.h"
#include "support/sample.h"

#include "engine/platform/clipboard.h"

#include <quillmarker/widgets/rich_text_view.h>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QTest>

#include <gmock/gmock.h>

namespace quillmarker
{
namespace
{

using testing::HasSubstr;

QByteArray PngFile()
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(QColor(200, 30, 10));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// A view on the display that holds a sample and has the keys.
class ClipboardOfTheDisplay : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb"));
        m_view.resize(400, 200);
        m_view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_view, kPatience));
    }

    void Show(const char* sample)
    {
        const SampleBox box(sample);
        m_view.Box().SetValue(box.Value());
        m_view.Box().SetSelStart(box.SelStart());
        m_view.Box().SetSelLength(box.SelLength());
    }
    std::string Shown() { return Dump(m_view.Box()); }

    RichTextView m_view;
};

TEST_F(ClipboardOfTheDisplay, GivesAnotherProgramWhatWasCopied)
{
    Show("a^b <b>c</b>\nd|");
    m_view.Copy();
    EXPECT_EQ(ReadElsewhere("text/plain").toStdString(), "b c\nd");
    EXPECT_THAT(ReadElsewhere("text/html").toStdString(), HasSubstr("<b>c</b>"));
    const QByteArray rtf = ReadElsewhere("text/rtf");
    SampleBox other("|");
    EXPECT_TRUE(other.PasteRTFBytes(rtf.toStdString()));
    EXPECT_EQ(Dump(other), "b <b>c</b>\nd|");
}

TEST_F(ClipboardOfTheDisplay, GivesAPictureAsAnImage)
{
    Show("|");
    InlinePicture picture;
    picture.kind = PictureKind::Png;
    picture.goalWidth = Twips{300};
    picture.goalHeight = Twips{150};
    picture.bytes = Shared(PngFile().toStdString());
    m_view.Box().InsertObject(std::move(picture));
    m_view.SelectAll();
    m_view.Copy();
    const QImage image = QImage::fromData(ReadElsewhere("image/png"), "PNG");
    ASSERT_EQ(image.size(), QSize(20, 10));
    EXPECT_EQ(image.pixelColor(3, 3), QColor(200, 30, 10));
}

TEST_F(ClipboardOfTheDisplay, TakesWhatAnotherProgramOffers)
{
    const struct
    {
        const char* type;
        QByteArray data;
        const char* shown;
    } kOffers[] = {
        {"text/plain", "x\ny", "ax\ny|b"},
        {"text/rtf", "{\\rtf1 x{\\b y}}", "ax<b>y</b>|b"},
        {"text/html", "<p>x<i>y</i></p>", "ax<i>y</i>|b"},
        {"image/png", PngFile(), "a<pic/>|b"},
    };
    for (const auto& offer : kOffers)
    {
        Show("a|b");
        PutText(*MakeQtClipboard(), QStringLiteral("ours"));
        Peer peer("offer", offer.type);
        ASSERT_NO_FATAL_FAILURE(peer.Offer(offer.data)) << offer.type;
        EXPECT_TRUE(m_view.CanPaste()) << offer.type;
        m_view.Paste();
        EXPECT_EQ(Shown(), offer.shown) << offer.type;
    }
}

TEST_F(ClipboardOfTheDisplay, CarriesMoreThanOneMessageHolds)
{
    const QString text(3'000'000, QLatin1Char('x'));
    m_view.SetText(text);
    m_view.SelectAll();
    m_view.Copy();
    EXPECT_EQ(ReadElsewhere("text/plain").size(), text.size());
}

TEST_F(ClipboardOfTheDisplay, FollowsTheKeysOfAUser)
{
    Show("one ^two|");
    m_view.activateWindow();
    m_view.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_view, kPatience));
    PutText(*MakeQtClipboard(), QStringLiteral("before"));
    const auto press = [](const char* keys) {
        QProcess user;
        user.start(QStringLiteral("xdotool"), {QStringLiteral("key"), QString::fromLatin1(keys)});
        ASSERT_TRUE(user.waitForFinished(kPatience));
        ASSERT_EQ(user.exitCode(), 0);
    };
    press("ctrl+c");
    ASSERT_TRUE(QTest::qWaitFor([] { return TextOf(*MakeQtClipboard()) == QStringLiteral("two"); }, kPatience));
    press("Home");
    press("ctrl+v");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Shown() == "two|one two"; }, kPatience)) << Shown();
    press("ctrl+a");
    press("ctrl+x");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Shown() == "|"; }, kPatience)) << Shown();
    EXPECT_EQ(ReadElsewhere("text/plain").toStdString(), "twoone two");
}

}  // namespace
}  // namespace quillmarker
