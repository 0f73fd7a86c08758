#include <gmock/gmock.h>

#include <QApplication>

// Tests run without a display unless they say otherwise, with the fonts of the system.
int main(int argc, char** argv)
{
    ::testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
