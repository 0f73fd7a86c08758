#include "format/colour_frame_widget.h"

#include "picker_window.h"

#include <QAccessible>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

/// As long as a machine that is busy elsewhere may take.
constexpr int kPatience = 60'000;

/// The names of what the focus was told to be on.
std::vector<std::string>& Announced()
{
    static std::vector<std::string> names;
    return names;
}

void Hear(QAccessibleEvent* event)
{
    const bool isOfSwatch = event->object() && event->object()->objectName().startsWith(QStringLiteral("Shape1"));
    if (event->type() == QAccessible::Focus && isOfSwatch)
        Announced().push_back(event->accessibleInterface()->text(QAccessible::Name).toStdString());
}

/// Qt tells nothing while nobody listens on the bus of the session, so this needs one.
TEST(TheColourFrameOnADisplay, AnnouncesTheSwatchThatTheKeyboardIsOn)
{
    ASSERT_TRUE(QTest::qWaitFor([] { return QAccessible::isActive(); }, kPatience));
    PickerWindow window;
    ColFrame frame(&window);
    window.Open();
    QAccessible::installUpdateHandler(Hear);
    frame.Prepare({});
    frame.show();
    EXPECT_TRUE(Announced().empty());
    frame.setFocus();
    window.Press(Qt::Key_Down);
    window.Press(Qt::Key_Right);
    window.Press(Qt::Key_A);
    QAccessible::installUpdateHandler(nullptr);
    EXPECT_THAT(Announced(), ElementsAre("White 254, 254, 254", "Pale grey 224, 224, 224", "Dark grey 64, 64, 64"));
}

}  // namespace
}  // namespace quillmarker
