#include "format/colour_frame_widget.h"

#include "picker_window.h"

#include "format/swatch_widget.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>

#include <numeric>
#include <vector>

namespace quillmarker
{
namespace
{

constexpr int kTwipsPerPixel = 15;

QPoint MiddleOf(int index) { return SwatchRectangle(index).center() / kTwipsPerPixel; }

class TheColourFrame : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_window.Open();
        m_frame.move(20, 40);
    }

    void Open(std::optional<Colour> selected = {})
    {
        m_frame.Prepare(selected);
        m_frame.raise();
        m_frame.show();
        m_frame.setFocus();
    }

    PickerWindow& Window() { return m_window; }
    ColFrame& Frame() { return m_frame; }
    std::vector<int> Chosen() const
    {
        std::vector<int> indices;
        for (const QList<QVariant>& arguments : m_chosen)
            indices.push_back(arguments.first().toInt());
        return indices;
    }
    qsizetype Left() const { return m_left.size(); }
    qsizetype Lost() const { return m_lost.size(); }
    QImage Image() { return m_frame.grab().toImage(); }

private:
    PickerWindow m_window;
    ColFrame m_frame{&m_window};
    QSignalSpy m_chosen{&m_frame, &ColFrame::Chosen};
    QSignalSpy m_left{&m_frame, &ColFrame::LeaveRequested};
    QSignalSpy m_lost{&m_frame, &ColFrame::FocusLost};
};

using Indices = std::vector<int>;

TEST_F(TheColourFrame, IsHiddenUntilItIsShown)
{
    EXPECT_FALSE(Frame().isVisible());
    EXPECT_EQ(Frame().objectName(), QStringLiteral("ColFrame"));
    EXPECT_EQ(Frame().size(), QSize(77, 148));
}

TEST_F(TheColourFrame, ShowsEverySwatchInItsColourAndPlace)
{
    Open();
    const QImage image = Image();
    for (const Swatch& swatch : kSwatches)
        EXPECT_EQ(image.pixel(MiddleOf(swatch.index)) & 0xFFFFFF, swatch.colour.rgb) << swatch.name;
}

TEST_F(TheColourFrame, ChoosesWhereTheMouseIsReleased)
{
    Open();
    for (int index = 0; index < kSwatchCount; ++index)
        Window().Click(Frame(), MiddleOf(index));
    Indices all(kSwatchCount);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(Chosen(), all);
}

TEST_F(TheColourFrame, ChoosesNothingWhenAButtonGoesDown)
{
    Open();
    Window().PressMouse(Frame(), MiddleOf(4));
    EXPECT_EQ(Chosen(), Indices());
    Window().ReleaseMouse(Frame(), MiddleOf(5));
    EXPECT_EQ(Chosen(), Indices({5}));
}

TEST_F(TheColourFrame, ChoosesAlsoWhenTheButtonWentDownInAGap)
{
    Open();
    Window().PressMouse(Frame(), QPoint(2, 2));
    Window().ReleaseMouse(Frame(), MiddleOf(26));
    EXPECT_EQ(Chosen(), Indices({26}));
}

TEST_F(TheColourFrame, ChoosesNothingInAGapAndStaysOpen)
{
    Open();
    const QRect first = SwatchRectangle(0);
    const QPoint gap = QPoint(first.x() + first.width() + 22, first.y() + 60) / kTwipsPerPixel;
    Window().Click(Frame(), gap);
    Window().PressMouse(Frame(), MiddleOf(0));
    Window().ReleaseMouse(Frame(), gap);
    EXPECT_EQ(Chosen(), Indices());
    EXPECT_EQ(Left(), 0);
    EXPECT_EQ(Lost(), 0);
    EXPECT_TRUE(Frame().isVisible());
    EXPECT_EQ(Window().Presses(), 0);
}

TEST_F(TheColourFrame, ChoosesNothingOutside)
{
    Open();
    Window().PressMouse(Frame(), MiddleOf(0));
    Window().ReleaseMouse(Frame(), QPoint(Frame().width() + 10, 10));
    EXPECT_EQ(Chosen(), Indices());
}

TEST_F(TheColourFrame, IsHitByTwipsAtAnyScale)
{
    Frame().SetScale(10, 12);
    EXPECT_EQ(Frame().size(), QSize(116, 185));
    Open();
    const QPoint middle = SwatchRectangle(19).center();
    const QPoint inPixels(middle.x() / 10, middle.y() / 12);
    EXPECT_EQ(Image().pixelColor(inPixels), QColor(128, 128, 0));
    Window().Click(Frame(), inPixels);
    EXPECT_EQ(Chosen(), Indices({19}));
}

TEST_F(TheColourFrame, OpensOnTheSelectionsColour)
{
    Open(Colour::Of(128, 128, 0));
    EXPECT_EQ(Frame().CurrentSwatch(), 19);
    Open(Colour::Of(1, 2, 3));
    EXPECT_EQ(Frame().CurrentSwatch(), 0);
    EXPECT_EQ(Chosen(), Indices());
}

TEST_F(TheColourFrame, IsWalkedWithTheArrows)
{
    Open();
    Window().Press(Qt::Key_Down);
    Window().Press(Qt::Key_Right);
    EXPECT_EQ(Frame().CurrentSwatch(), 25);
    Window().Press(Qt::Key_PageDown);
    EXPECT_EQ(Frame().CurrentSwatch(), 15);
    Window().Press(Qt::Key_Up);
    Window().Press(Qt::Key_Left);
    EXPECT_EQ(Frame().CurrentSwatch(), 6);
    EXPECT_EQ(Chosen(), Indices());
}

TEST_F(TheColourFrame, ChoosesTheCurrentSwatchOnEnterAndSpace)
{
    Open(Colour::Of(255, 0, 0));
    Window().Press(Qt::Key_Return);
    Window().Press(Qt::Key_Right);
    Window().Press(Qt::Key_Enter, Qt::KeypadModifier);
    Window().Press(Qt::Key_Right);
    Window().Press(Qt::Key_Space);
    EXPECT_EQ(Chosen(), Indices({1, 9, 17}));
}

TEST_F(TheColourFrame, IsLeftOnEscape)
{
    Open();
    Window().Press(Qt::Key_Right);
    Window().Press(Qt::Key_Escape);
    EXPECT_EQ(Left(), 1);
    EXPECT_EQ(Chosen(), Indices());
}

TEST_F(TheColourFrame, TellsThatItLostTheFocus)
{
    Open();
    Window().Text().setFocus();
    EXPECT_EQ(Lost(), 1);
    Open();
    Frame().hide();
    EXPECT_EQ(Lost(), 2);
}

TEST_F(TheColourFrame, ShowsARingAroundTheCurrentSwatchWhileItHasTheFocus)
{
    Open();
    const QPoint beside(SwatchRectangle(8).x() / kTwipsPerPixel - 1, MiddleOf(8).y());
    const QColor ring = Frame().palette().color(QPalette::Highlight);
    EXPECT_NE(Image().pixelColor(beside), ring);
    Window().Press(Qt::Key_Right);
    EXPECT_EQ(Image().pixelColor(beside), ring);
    Window().Text().setFocus();
    EXPECT_NE(Image().pixelColor(beside), ring);
}

TEST_F(TheColourFrame, MarksTheSwatchUnderThePointer)
{
    Open();
    const QPoint beside(SwatchRectangle(13).x() / kTwipsPerPixel - 1, MiddleOf(13).y());
    const QColor before = Image().pixelColor(beside);
    Window().MoveMouse(Frame(), MiddleOf(13));
    EXPECT_EQ(Image().pixelColor(beside), Frame().palette().color(QPalette::WindowText));
    Window().MoveMouse(Frame(), QPoint(3, 3));
    EXPECT_EQ(Image().pixelColor(beside), before);
}

TEST_F(TheColourFrame, NamesASwatchInATip)
{
    Open();
    QHelpEvent overSwatch(QEvent::ToolTip, MiddleOf(18), Frame().mapToGlobal(MiddleOf(18)));
    QApplication::sendEvent(&Frame(), &overSwatch);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Brown 128, 64, 0"));
    QToolTip::hideText();
}

TEST_F(TheColourFrame, HasAChildForEverySwatchThatScreenReadersCanSay)
{
    Open(Colour::Of(0, 128, 128));
    QAccessibleInterface* panel = QAccessible::queryAccessibleInterface(&Frame());
    ASSERT_TRUE(panel);
    EXPECT_EQ(panel->text(QAccessible::Name), QStringLiteral("Text colour"));
    ASSERT_EQ(panel->childCount(), kSwatchCount);
    for (int index = 0; index < kSwatchCount; ++index)
    {
        QAccessibleInterface* child = panel->child(index);
        EXPECT_EQ(child->object()->objectName(), QStringLiteral("Shape1(%1)").arg(index));
        EXPECT_EQ(child->text(QAccessible::Name), SwatchName(index));
        EXPECT_EQ(child->role(), QAccessible::ListItem);
        EXPECT_EQ(bool(child->state().focused), index == 21);
        EXPECT_EQ(bool(child->state().selected), index == 21);
        EXPECT_FALSE(child->state().invisible);
    }
    Window().Press(Qt::Key_Left);
    EXPECT_FALSE(panel->child(21)->state().focused);
    EXPECT_TRUE(panel->child(13)->state().focused);
}

TEST_F(TheColourFrame, ChoosesWhatAScreenReaderPresses)
{
    Open();
    QAccessibleInterface* swatch = QAccessible::queryAccessibleInterface(&Frame())->child(7);
    ASSERT_TRUE(swatch->actionInterface());
    swatch->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Chosen(), Indices({7}));
}

TEST_F(TheColourFrame, IsDarkInADarkPalette)
{
    Window().setPalette(DarkPalette());
    Open();
    const QImage image = Image();
    EXPECT_EQ(image.pixelColor(3, Frame().height() / 2), DarkPalette().color(QPalette::Window));
    EXPECT_NE(image.pixelColor(0, 20), DarkPalette().color(QPalette::Window));
    EXPECT_EQ(image.pixelColor(MiddleOf(26)), QColor(Qt::black));
    // The outline tells black from a dark ground.
    const QPoint edge(SwatchRectangle(26).topLeft() / kTwipsPerPixel);
    EXPECT_GT(image.pixelColor(edge + QPoint(3, 0)).lightness(), 80);
}

}  // namespace
}  // namespace quillmarker
