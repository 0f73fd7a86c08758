#include "format/toolbar_dispatch.h"
#include "format/toolbar_layout.h"
#include "format_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

std::vector<std::string> LogOf(std::string_view key, int value = 0)
{
    SampleHost host("pay ^tot|al");
    FormatCommands commands(host);
    ButtonClick(commands, key, value);
    return host.log;
}

std::string After(std::string_view sample, std::string_view key, int value)
{
    SampleHost host(sample);
    FormatCommands commands(host);
    ButtonClick(commands, key, value);
    return Dump(host.box);
}

TEST(ToolbarDispatch, CommandsRunBeforeTheClickIsToldAndTheRefreshComesLast)
{
    for (const char* key : {"undo", "cut", "copy", "paste", "delete", "search"})
        EXPECT_THAT(LogOf(key), ElementsAre(key, std::string("click ") + key, "refresh"));
}

TEST(ToolbarDispatch, OtherKeysAreTheHostsAlone)
{
    for (const char* key : {"redo", "new", "open", "save", "print", "preview", "font", "size", "colour", "spell",
                            "help", "cFont", "cSize", "", "no such key"})
    {
        EXPECT_THAT(LogOf(key, 1), ElementsAre(std::string("click ") + key, "refresh"));
        EXPECT_EQ(After("pay ^tot|al", key, 1), "pay ^tot|al");
    }
}

TEST(ToolbarDispatch, CharacterFormatsTakeTheButtonsValue)
{
    EXPECT_EQ(After("pay ^tot|al", "bold", 1), "pay ^<b>tot</b>|al");
    EXPECT_EQ(After("pay ^<b>tot</b>|al", "bold", 0), "pay ^tot|al");
    EXPECT_EQ(After("pay ^tot|al", "italic", 1), "pay ^<i>tot</i>|al");
    EXPECT_EQ(After("pay ^tot|al", "uline", 1), "pay ^<u>tot</u>|al");
    EXPECT_EQ(After("pay ^tot|al", "strike", 1), "pay ^<s>tot</s>|al");
}

TEST(ToolbarDispatch, KeysAreComparedWithoutRegardToCase)
{
    EXPECT_EQ(After("pay ^tot|al", "BoLd", 1), "pay ^<b>tot</b>|al");
    EXPECT_THAT(LogOf("UNDO"), ElementsAre("undo", "click UNDO", "refresh"));
}

TEST(ToolbarDispatch, OnAnEmptySelectionTheTextStaysAndTheNextCharacterIsBold)
{
    SampleHost host("to|tal");
    FormatCommands commands(host);
    host.box.ClearHistory();
    ButtonClick(commands, "bold", 1);
    EXPECT_EQ(Dump(host.box), "to|tal");
    EXPECT_FALSE(host.box.CanUndo());
    host.box.Type(u"x");
    EXPECT_EQ(Dump(host.box), "to<b>x</b>|tal");
    host.box.Undo();
    EXPECT_EQ(Dump(host.box), "to|tal");
}

TEST(ToolbarDispatch, TogglesOnAnEmptySelectionAddUp)
{
    SampleHost host("to|tal");
    FormatCommands commands(host);
    for (const char* key : {"bold", "italic", "super", "uline"})
        ButtonClick(commands, key, 1);
    host.box.Type(u"x");
    EXPECT_EQ(Dump(host.box), "to<b><i><u>x</u></i></b>|tal");
    host.box.Select({2, 1});
    EXPECT_EQ(host.box.SelCharOffset(), 80);
}

TEST(ToolbarDispatch, AlignmentsGoOnTheCaretsParagraph)
{
    for (const auto& [key, alignment] :
         {std::pair{"left", kAlignLeft}, {"right", kAlignRight}, {"centre", kAlignCentre}})
    {
        SampleHost host("a\nb|\nc");
        FormatCommands commands(host);
        host.box.SetSelAlignment(kAlignJustify);
        ButtonClick(commands, key, 1);
        EXPECT_EQ(host.box.SelAlignment(), alignment);
        host.box.SetSelStart(0);
        EXPECT_EQ(host.box.SelAlignment(), kAlignLeft);
    }
}

TEST(ToolbarDispatch, BulletsDoNotMoveTheHangingIndentAndAreOneStep)
{
    SampleHost host("a|b");
    FormatCommands commands(host);
    host.box.SetSelHangingIndent(360);
    host.box.SetBulletIndent(567);
    host.box.ClearHistory();
    ButtonClick(commands, "bullet", 1);
    EXPECT_EQ(host.box.SelBullet(), true);
    EXPECT_EQ(host.box.SelHangingIndent(), 360);
    ButtonClick(commands, "bullet", 0);
    EXPECT_EQ(host.box.SelBullet(), false);
    EXPECT_EQ(host.box.SelHangingIndent(), 360);
    host.box.Undo();
    EXPECT_EQ(host.box.SelBullet(), true);
    host.box.Undo();
    EXPECT_EQ(host.box.SelBullet(), false);
    EXPECT_FALSE(host.box.CanUndo());
}

TEST(ToolbarDispatch, BulletsOverMixedHangingIndentsLeaveEachParagraphsOwn)
{
    SampleHost host("^a\nb|");
    FormatCommands commands(host);
    host.box.Select({0, 1});
    host.box.SetSelHangingIndent(360);
    host.box.Select({0, 4});
    ButtonClick(commands, "bullet", 1);
    EXPECT_EQ(host.box.SelBullet(), true);
    host.box.Select({0, 1});
    EXPECT_EQ(host.box.SelHangingIndent(), 360);
    host.box.Select({3, 1});
    EXPECT_EQ(host.box.SelHangingIndent(), 0);
}

TEST(ToolbarDispatch, WhoMayNotFormatDoesNotAndIsToldBothAllTheSame)
{
    SampleHost host("pay ^tot|al");
    host.mayFormat = false;
    FormatCommands commands(host);
    for (const char* key : {"bold", "super", "left", "bullet"})
        ButtonClick(commands, key, 1);
    EXPECT_EQ(Dump(host.box), "pay ^tot|al");
    EXPECT_FALSE(host.box.CanUndo());
    EXPECT_EQ(host.log.size(), 8U);
}

/// Fails at whatever it is asked to do.
class FailingHost : public SampleHost
{
public:
    using SampleHost::SampleHost;
    void Cut() override { throw std::runtime_error("cut"); }
    void ToolbarClick(std::string_view key) override
    {
        SampleHost::ToolbarClick(key);
        throw std::runtime_error("click");
    }
};

TEST(ToolbarDispatch, AStepThatFailsIsSkipped)
{
    FailingHost host("pay ^tot|al");
    FormatCommands commands(host);
    ButtonClick(commands, "cut", 0);
    EXPECT_THAT(host.log, ElementsAre("click cut", "refresh"));
}

TEST(ToolbarLayout, WithRoomForAllNothingOverflows)
{
    const ToolbarMetrics metrics;
    const ToolbarLayout layout = LaidOut(FullWidth(metrics), metrics);
    EXPECT_FALSE(layout.overflows);
    EXPECT_TRUE(std::ranges::all_of(layout.slots, &ToolbarSlot::isShown));
    EXPECT_EQ(layout.slots[0].width, 153);
    EXPECT_EQ(layout.slots[1].width, 49);
    for (std::size_t i = 1; i < layout.slots.size(); ++i)
        EXPECT_EQ(layout.slots[i].left, layout.slots[i - 1].left + layout.slots[i - 1].width);
    EXPECT_EQ(layout.slots.back().left + layout.slots.back().width + metrics.margin, FullWidth(metrics));
}

TEST(ToolbarLayout, InEveryNarrowerWindowAPrefixIsShownThatEndsInAButtonAndFits)
{
    const ToolbarMetrics metrics;
    for (int width = 0; width < FullWidth(metrics); ++width)
    {
        const ToolbarLayout layout = LaidOut(width, metrics);
        ASSERT_TRUE(layout.overflows);
        const auto end = std::ranges::find(layout.slots, false, &ToolbarSlot::isShown);
        ASSERT_TRUE(std::all_of(end, layout.slots.end(), [](const ToolbarSlot& slot) { return !slot.isShown; }));
        if (end == layout.slots.begin())
            continue;
        const auto last = static_cast<std::size_t>(end - layout.slots.begin()) - 1;
        ASSERT_NE(kToolbarButtons[last].style, ButtonStyle::Separator);
        ASSERT_EQ(layout.moreLeft, layout.slots[last].left + layout.slots[last].width);
        ASSERT_LE(layout.moreLeft + metrics.more, width);
    }
}

}  // namespace
}  // namespace quillmarker
