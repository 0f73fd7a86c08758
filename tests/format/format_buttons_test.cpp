#include "format/format_buttons.h"
#include "format_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

using Button = SampleBar::Button;

struct Shown
{
    explicit Shown(std::string_view sample) : box(sample) {}

    SampleBox box;
    SampleBar bar;
    FormatButtons buttons{[this] { return &box; }, bar};
};

TEST(ToggleButton, FalseReleasesTruePressesAllElseIsMixedAndLeavesTheValue)
{
    SampleBar bar;
    SetToggleButtonState(bar, kTrue, "bold");
    SetToggleButtonState(bar, std::nullopt, "bold");
    SetToggleButtonState(bar, 1, "bold");
    EXPECT_EQ(bar.buttons["bold"], (Button{1, true}));
    SetToggleButtonState(bar, kFalse, "bold");
    EXPECT_THAT(bar.log, ElementsAre("bold decided", "bold 1", "bold mixed", "bold mixed", "bold decided", "bold 0"));
}

TEST(CharacterButtons, AreReadInTheirOrder)
{
    Shown shown("^<b>a</b>|");
    shown.buttons.UpdateCharacterButtons();
    EXPECT_THAT(shown.bar.log,
                ElementsAre("bold decided", "bold 1", "italic decided", "italic 0", "uline decided", "uline 0",
                            "strike decided", "strike 0", "super decided", "sub decided", "super 0", "sub 0"));
}

TEST(CharacterButtons, BoldAndPlainTextTogetherAreMixedAndTheDocumentStays)
{
    Shown shown("^a<b>b</b>|");
    const Document before = shown.box.Value();
    shown.bar.buttons["bold"].value = 1;
    shown.buttons.UpdateCharacterButtons();
    EXPECT_EQ(shown.bar.buttons["bold"], (Button{1, true}));
    EXPECT_EQ(shown.bar.buttons["italic"], (Button{0, false}));
    EXPECT_TRUE(shown.box.Value().IsSameAs(before));
}

TEST(CharacterButtons, TheCombosShowTheFontAndAreBlankWhereItIsMixed)
{
    Shown shown("^ab|");
    shown.box.SetSelFontSize(10.5F);
    shown.buttons.UpdateCharacterButtons();
    EXPECT_EQ(shown.bar.fontName, u"Arial");
    EXPECT_EQ(shown.bar.fontSize, 10.5F);
    shown.box.Select({1, 1});
    shown.box.SetSelFontName(u"Courier New");
    shown.box.SetSelFontSize(8);
    shown.box.Select({0, 2});
    shown.buttons.UpdateCharacterButtons();
    EXPECT_EQ(shown.bar.fontName, u"(blank)");
    EXPECT_EQ(shown.bar.fontSize, -1);
}

TEST(CharacterButtons, CombosThatAreNotShownAreLeftAlone)
{
    Shown shown("^ab|");
    shown.bar.showsCombos = false;
    shown.buttons.UpdateCharacterButtons();
    EXPECT_EQ(shown.bar.fontName, u"(untouched)");
    EXPECT_EQ(shown.bar.fontSize, 0);
}

TEST(ScriptButtons, FollowTheOffset)
{
    struct Row
    {
        int offset;
        int super;
        int sub;
    };
    for (const Row& row : {Row{80, 1, 0}, Row{-40, 0, 1}, Row{0, 0, 0}})
    {
        Shown shown("^ab|");
        shown.box.SetSelCharOffset(row.offset);
        shown.bar.buttons = {{"super", {1, true}}, {"sub", {1, true}}};
        shown.buttons.UpdateScriptButtons();
        EXPECT_EQ(shown.bar.buttons["super"], (Button{row.super, false}));
        EXPECT_EQ(shown.bar.buttons["sub"], (Button{row.sub, false}));
    }
}

TEST(ScriptButtons, TheFirstCallsSayWhetherItIsMixedThenThePressedOneThenTheOther)
{
    Shown shown("^ab|");
    shown.box.SetSelCharOffset(-40);
    shown.buttons.UpdateScriptButtons();
    EXPECT_THAT(shown.bar.log, ElementsAre("super decided", "sub decided", "sub 1", "super 0"));
}

TEST(ScriptButtons, BothAreMixedWhereTheOffsetIs)
{
    Shown shown("^ab|");
    shown.box.Select({0, 1});
    shown.box.SetSelCharOffset(80);
    shown.box.Select({0, 2});
    shown.buttons.UpdateScriptButtons();
    EXPECT_THAT(shown.bar.log, ElementsAre("super mixed", "sub mixed"));
}

TEST(ParagraphButtons, OneAlignmentIsPressedAtATime)
{
    for (const auto& [alignment, key] :
         {std::pair{kAlignLeft, "left"}, {kAlignRight, "right"}, {kAlignCentre, "centre"}})
    {
        Shown shown("a|b");
        shown.box.SetSelAlignment(alignment);
        shown.buttons.UpdateParagraphButtons();
        for (const char* each : {"left", "right", "centre"})
            EXPECT_EQ(shown.bar.buttons[each], (Button{std::string_view(each) == key ? 1 : 0, false})) << each;
        EXPECT_EQ(shown.bar.buttons["bullet"], (Button{0, false}));
    }
}

TEST(ParagraphButtons, AlignmentsThatDifferOrHaveNoButtonAreMixed)
{
    Shown differ("a\n^b\nc|");
    differ.box.Select({0, 1});
    differ.box.SetSelAlignment(kAlignCentre);
    differ.box.Select({0, 7});
    differ.buttons.UpdateParagraphButtons();
    Shown justified("a|b");
    justified.box.SetSelAlignment(kAlignJustify);
    justified.buttons.UpdateParagraphButtons();
    for (const char* each : {"left", "right", "centre"})
    {
        EXPECT_TRUE(differ.bar.buttons[each].isMixed) << each;
        EXPECT_TRUE(justified.bar.buttons[each].isMixed) << each;
    }
}

TEST(FormatButtons, ABoxThatIsGoneShowsNothing)
{
    SampleBar bar;
    FormatButtons buttons([]() -> const TextBox* { return nullptr; }, bar);
    buttons.UpdateCharacterButtons();
    buttons.UpdateParagraphButtons();
    EXPECT_TRUE(bar.log.empty());
}

}  // namespace
}  // namespace quillmarker
