#include <quillmarker/widgets/clipboard_service.h>
#include <quillmarker/widgets/platform_services.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace quillmarker
{
namespace
{

TEST(TheServicesOfQt, AreAllThere)
{
    const PlatformServices services = QtServices();
    EXPECT_TRUE(services.printers);
    EXPECT_TRUE(services.messageBoxes);
    EXPECT_TRUE(services.fontFamilies);
    EXPECT_TRUE(services.screen);
    EXPECT_TRUE(services.keyLocks);
    EXPECT_TRUE(services.pendingEvents);
    EXPECT_TRUE(services.clipboard);
    EXPECT_TRUE(services.fontDialog);
    EXPECT_TRUE(services.help);
    ASSERT_TRUE(services.printers);
    EXPECT_TRUE(services.printers->Names().contains(QStringLiteral("PDF file")));
}

TEST(TheScreen, HasTwipsToAPixelByItsDots)
{
    const QWidget widget;
    ASSERT_EQ(widget.logicalDpiX(), 96);
    EXPECT_EQ(MakeQtScreen()->TwipsPerPixel(widget), QSizeF(15, 15));
}

TEST(PendingEvents, AreHandledOnce)
{
    int count = 0;
    const auto queue = [&] {
        QMetaObject::invokeMethod(
            qApp, [&] { ++count; }, Qt::QueuedConnection);
    };
    const auto pending = MakeQtPendingEvents();
    queue();
    queue();
    EXPECT_EQ(count, 0);
    pending->Process();
    EXPECT_EQ(count, 2);
    pending->Process();
    EXPECT_EQ(count, 2);
}

TEST(KeyLocks, AreNotKnownWithoutAWindowSystem)
{
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    EXPECT_FALSE(MakeQtKeyLocks()->Now());
}

}  // namespace
}  // namespace quillmarker
