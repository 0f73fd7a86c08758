#include "flow_sample.h"

#include "engine/document/edit.h"
#include "engine/document/format_edit.h"
#include "engine/layout/text_steps.h"
#include "support/random_document.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

Document Typed(const Document& document, std::int32_t at, std::u16string_view text)
{
    const auto format = document.ParagraphAt(document.Locate({at}).paragraph).FormatAt(0);
    return WithText(document, {{at}, {at}}, text, format);
}

TEST(DocumentFlow, LaysOutNothingUntilItIsAsked)
{
    FlowSample sample(CountedParagraphs(1000, 20), 40);
    EXPECT_EQ(sample.flow.LayoutCount(), 0);
    EXPECT_GT(sample.flow.Height(), Lines(1000)) << "an estimate";
    sample.flow.LayoutOf(500);
    EXPECT_EQ(sample.flow.LayoutCount(), 1);
}

TEST(DocumentFlow, NegativeSpaceTakesNothingAway)
{
    const Document document = ReadRtf("{\\rtf1{\\fonttbl{\\f0 Fixed;}}\\f0\\fs20\\sb-1000\\sa-1000 a\\par b\\par c}");
    FlowSample sample(document, 40);
    EXPECT_GE(sample.flow.Height(), Lines(3)) << "estimated";
    sample.flow.Settle(0, Lines(10), 0);
    EXPECT_EQ(sample.flow.Height(), Lines(3));
}

TEST(DocumentFlow, EstimatesGiganticPictures)
{
    const auto heightOf = [](const std::string& size) {
        return FlowSample(ReadRtf("{\\rtf1 {\\pict\\pngblip" + size + " 89}}"), 40).flow.Height();
    };
    constexpr Fine kMost = 22 * 1440 * 10 * kFinePerTwip;
    EXPECT_GE(heightOf("\\pichgoal2147483647\\picscaley2147483647"), kMost);
    EXPECT_GE(heightOf("\\pich2147483647\\picscaley2147483647"), kMost);
    EXPECT_EQ(heightOf("\\pichgoal2000\\picscaley0"), heightOf("\\pichgoal2000"));
    EXPECT_EQ(heightOf("\\pichgoal2000\\picscaley-7"), heightOf("\\pichgoal2000"));
}

TEST(DocumentFlow, LaysOutWhatIsVisible)
{
    FlowSample sample(CountedParagraphs(1000), 40);
    EXPECT_EQ(sample.flow.Settle(0, Lines(10), 0), 0);
    EXPECT_EQ(sample.flow.LayoutCount(), 10);
    EXPECT_EQ(sample.flow.Settle(0, Lines(10), 0), 0);
    EXPECT_EQ(sample.flow.LayoutCount(), 10) << "once";
    sample.flow.Settle(Lines(2), Lines(12), Lines(2));
    EXPECT_EQ(sample.flow.LayoutCount(), 12) << "two more";
}

TEST(DocumentFlow, AKeystrokeLaysOutOneParagraph)
{
    FlowSample sample(CountedParagraphs(1000, 20), 40);
    sample.flow.Settle(0, Lines(30), 0);
    const std::int64_t before = sample.flow.LayoutCount();
    for (int i = 0; i < 10; ++i)
    {
        sample.flow.SetDocument(Typed(sample.flow.Value(), 3, u"x"));
        EXPECT_EQ(sample.flow.Settle(0, Lines(30), 0), 0);
        EXPECT_EQ(sample.flow.LayoutCount(), before + i + 1);
    }
}

TEST(DocumentFlow, UndoFindsTheLayoutAgain)
{
    FlowSample sample(CountedParagraphs(10), 40);
    const Document before = sample.flow.Value();
    sample.flow.Settle(0, Lines(10), 0);
    sample.flow.SetDocument(Typed(before, 2, u"x"));
    sample.flow.Settle(0, Lines(10), 0);
    const std::int64_t count = sample.flow.LayoutCount();
    sample.flow.SetDocument(before);
    sample.flow.Settle(0, Lines(10), 0);
    EXPECT_EQ(sample.flow.LayoutCount(), count);
}

TEST(DocumentFlow, AWidthLaysOutAnewAndComesBack)
{
    FlowSample sample(CountedParagraphs(3, 20), 40);
    sample.flow.Settle(0, Lines(40), 0);
    const Fine height = sample.flow.Height();
    sample.flow.SetWidth(FlowSample::kCharacter * 20);
    sample.flow.Settle(0, Lines(40), 0);
    EXPECT_GT(sample.flow.Height(), height);
    EXPECT_LE(sample.flow.Extent(), Characters(20));
    sample.flow.SetWidth(FlowSample::kCharacter * 40);
    sample.flow.Settle(0, Lines(40), 0);
    EXPECT_EQ(sample.flow.Height(), height);
    EXPECT_EQ(sample.flow.LayoutCount(), 6);
}

TEST(DocumentFlow, OtherDefaultTabsLayOutAnew)
{
    FlowSample sample("a\tb", 40);
    const Fine before = sample.flow.BoxOf({{2}}).x;
    DocumentFormat properties;
    properties.defaultTab = Inches(2);
    sample.flow.SetDocument(sample.flow.Value().WithProperties(properties));
    EXPECT_EQ(before, ToFine(kDefaultTab));
    EXPECT_EQ(sample.flow.BoxOf({{2}}).x, ToFine(Inches(2)));
}

TEST(DocumentFlow, AnotherFamilyOfDocumentsTakesThePlaceOfTheFirst)
{
    FlowSample sample("ab\ncd", 40);
    sample.flow.Settle(0, Lines(2), 0);
    sample.flow.SetDocument(SampleDocument("<b>abc</b>"));
    sample.flow.Settle(0, Lines(2), 0);
    EXPECT_EQ(sample.flow.Height(), Lines(1));
    EXPECT_EQ(sample.flow.BoxOf({{3}}).x, Characters(3) * 6 / 5) << "bold is wider";
}

TEST(DocumentFlow, IsNeverLessThanALine)
{
    FixedFontHost fonts;
    DocumentFlow flow(fonts);
    EXPECT_GE(flow.Height(), Lines(1));
    EXPECT_EQ(flow.Settle(0, Lines(10), 0), 0);
    EXPECT_EQ(flow.BoxOf({}).height, Lines(1));
}

TEST(DocumentFlow, AnswersForPlacesBesideTheColumn)
{
    FlowSample sample("ab\ncd", 40);
    DocumentFlow& flow = sample.flow;
    flow.Settle(0, Lines(2), 0);
    const auto position = [&](Fine x, Fine y) { return flow.HitAt(x, y).caret.position.value; };
    EXPECT_EQ(position(-500, -500), 0);
    EXPECT_EQ(position(Characters(90), -500), 2);
    EXPECT_EQ(position(-500, Lines(90)), 4);
    EXPECT_EQ(position(Characters(90), Lines(90)), 6);
    EXPECT_FALSE(flow.HitAt(Characters(90), 0).isInside);
    EXPECT_FALSE(flow.HitAt(0, Lines(90)).isInside);
}

TEST(DocumentFlow, KnowsTheCharacterUnderAPoint)
{
    FlowSample sample("abc<h>hidden</h>d", 40);
    const auto hit = [&](Fine x) { return sample.flow.HitAt(x, 1); };
    EXPECT_TRUE(hit(Characters(1) * 5 / 4).isInside);
    EXPECT_EQ(hit(Characters(1) * 5 / 4).character.value, 1);
    EXPECT_EQ(hit(Characters(1) * 5 / 4).caret.position.value, 1);
    EXPECT_EQ(hit(Characters(1) * 7 / 4).character.value, 1) << "the caret goes behind it";
    EXPECT_EQ(hit(Characters(1) * 7 / 4).caret.position.value, 2);
    EXPECT_EQ(hit(Characters(3) - 10).character.value, 2);
    EXPECT_EQ(hit(Characters(3) + 10).character.value, 9) << "behind the hidden text";
}

TEST(DocumentFlow, PassesOverWhatTakesNoRoom)
{
    FlowSample sample("a<cell/>b<cell/><row/><h>hidden\n</h>c", 40);
    DocumentFlow& flow = sample.flow;
    const Document& document = flow.Value();
    flow.Settle(0, Lines(9), 0);
    EXPECT_EQ(flow.Height(), Lines(3));
    const FlowLine last{document.ParagraphCount() - 1, 0};
    EXPECT_EQ(flow.LineBelow({1, 0}), last);
    EXPECT_EQ(flow.LineAbove(last), (FlowLine{1, 0}));
    EXPECT_EQ(flow.LineAbove({0, 0}), std::nullopt);
    EXPECT_EQ(flow.LineBelow(last), std::nullopt);
    EXPECT_EQ(flow.HitAt(0, Lines(2) + 1).caret.position, document.StartOf(last.paragraph));
}

TEST(DocumentFlow, FindsAPlaceAboveManyHiddenParagraphsWithoutLayingThemOut)
{
    std::string text = "a<h>\n";
    for (int i = 0; i < 2000; ++i)
        text += "hidden\n";
    FlowSample sample(text + "</h>b", 40);
    EXPECT_EQ(sample.flow.LineBelow({0, 0}), (FlowLine{2001, 0}));
    EXPECT_EQ(sample.flow.HitAt(0, Lines(50)).caret.position.value, sample.flow.Value().Size() - 1);
    EXPECT_EQ(sample.flow.LayoutCount(), 2);
}

TEST(DocumentFlow, KnowsTheEndsOfWrappedLines)
{
    FlowSample sample("one two\vthree", 4);
    DocumentFlow& flow = sample.flow;
    const auto start = [&](std::uint32_t line) { return flow.StartOf({0, line}); };
    const auto end = [&](std::uint32_t line) { return flow.EndOf({0, line}); };
    EXPECT_EQ(start(0), (CaretPosition{{0}}));
    EXPECT_EQ(end(0), (CaretPosition{{4}, LineSide::Before}));
    EXPECT_EQ(start(1), (CaretPosition{{4}}));
    EXPECT_EQ(end(1), (CaretPosition{{7}})) << "before the line break";
    EXPECT_EQ(start(2), (CaretPosition{{8}}));
    EXPECT_EQ(flow.LineOf(end(0)), (FlowLine{0, 0}));
    EXPECT_EQ(flow.LineOf(start(1)), (FlowLine{0, 1}));
    EXPECT_EQ(flow.BoxOf(end(0)).top, 0);
    EXPECT_EQ(flow.BoxOf(start(1)).top, Lines(1));
    EXPECT_EQ(flow.BoxOf(start(1)).x, 0);
}

// What a flow that followed edits says is what a fresh one says.
void ExpectSameFlow(DocumentFlow& flow, DocumentFlow& fresh)
{
    const std::int32_t count = fresh.Value().ParagraphCount();
    ASSERT_EQ(flow.Value().ParagraphCount(), count);
    for (std::int32_t i = 0; i < count; ++i)
    {
        const auto expected = fresh.LayoutOf(i).Lines();
        const auto lines = flow.LayoutOf(i).Lines();
        ASSERT_TRUE(std::equal(lines.begin(), lines.end(), expected.begin(), expected.end())) << "paragraph " << i;
    }
    for (std::int32_t i = 0; i <= count; ++i)
        ASSERT_EQ(flow.TopOf(i), fresh.TopOf(i)) << "paragraph " << i;
    ASSERT_EQ(flow.Height(), fresh.Height());
}

PartialParagraphFormat RandomPatch(std::mt19937& random)
{
    PartialParagraphFormat patch;
    switch (Below(random, 4))
    {
    case 0:
        patch.numbering = Below(random, 2) == 0 ? Shared<Numbering>() : Shared(Numbering{.kind = NumberKind::Decimal});
        break;
    case 1:
        patch.contextualSpacing = Below(random, 2) == 0;
        patch.spaceBefore = Points(6);
        break;
    case 2:
    {
        Borders borders;
        borders[BorderSide::Top] = {.style = BorderStyle::Single, .width = {20}};
        patch.borders = Below(random, 2) == 0 ? Shared<Borders>() : Shared(borders);
        break;
    }
    default:
        patch.leftIndent = Twips{100 * Below(random, 8)};
    }
    return patch;
}

Document Edited(std::mt19937& random, const Document& document)
{
    static constexpr char16_t kAlphabet[] = {u'a', u' ', u'b', u'\t', u'\r', u'\v', u'\u05D0', u'\u0301', 0x4E00};
    const TextRange anywhere = RandomRange(random, document);
    const Position end = std::min(anywhere.end, anywhere.begin + Below(random, 9));
    switch (Below(random, 4))
    {
    case 0:
        return WithText(document, {anywhere.begin, end}, u"", {});
    case 1:
        return WithParagraphFormat(document, {anywhere.begin, end}, RandomPatch(random));
    case 2:
        return WithFragment(document, {end, end}, Slice(document, {anywhere.begin, end}));
    default:
        return WithText(document, {end, end}, RandomText(random, {kAlphabet, std::size(kAlphabet)}, Below(random, 30)),
                        RandomCharFormat(random, document.SharedFormats()));
    }
}

TEST(DocumentFlowLaw, FollowingEditsGivesWhatAFreshFlowGives)
{
    std::mt19937 random(91);
    for (int round = 0; round < 40; ++round)
    {
        FlowSample sample(RandomDocument(random, u"abc d", Below(random, 30) + 1), Below(random, 12));
        for (int edit = 0; edit < 12; ++edit)
        {
            sample.flow.SetDocument(Edited(random, sample.flow.Value()));
            const Fine top = Lines(Below(random, 20));
            sample.flow.Settle(top, top + Lines(4), top);
            if (Below(random, 4) != 0)
                continue;
            FlowSample fresh(sample.flow.Value(), sample.flow.Width().value / 100);
            ExpectSameFlow(sample.flow, fresh.flow);
            if (::testing::Test::HasFatalFailure())
                FAIL() << "round " << round << ", edit " << edit;
        }
    }
}

TEST(DocumentFlowLaw, WhatIsSaidToTakeNoRoomTakesNone)
{
    std::mt19937 random(94);
    int hidden = 0;
    for (int round = 0; round < 60; ++round)
    {
        FlowSample sample(RandomDocument(random, u"ab", 20), 10);
        for (std::int32_t i = 0; i < 20; ++i)
        {
            const Fine estimate = sample.flow.TopOf(i + 1) - sample.flow.TopOf(i);
            const bool takesRoom = sample.flow.LayoutOf(i).Height() > 0;
            ASSERT_EQ(TakesRoom(sample.flow.Value(), sample.flow.Value().ParagraphAt(i)), takesRoom);
            ASSERT_EQ(estimate > 0, takesRoom) << "round " << round << ", paragraph " << i;
            hidden += takesRoom ? 0 : 1;
        }
    }
    EXPECT_GT(hidden, 100) << "of those there must be some";
}

TEST(DocumentFlowLaw, WhatIsVisibleIsExactAfterSettling)
{
    std::mt19937 random(92);
    for (int round = 0; round < 60; ++round)
    {
        FlowSample sample(RandomDocument(random, u"abc d", 60), Below(random, 6) + 1);
        DocumentFlow& flow = sample.flow;
        const Fine page = Lines(Below(random, 12) + 1);
        const Fine top = Below(random, 100) * flow.Height() / 100;
        const Fine anchor = top + Below(random, 100) * page / 100;
        const Fine moved = flow.Settle(top, top + page, anchor);
        // Asking for what is in the moved stretch changes nothing any more.
        const std::int64_t count = flow.LayoutCount();
        const Fine height = flow.Height();
        EXPECT_EQ(flow.Settle(top + moved, top + moved + page, anchor + moved), 0) << "round " << round;
        EXPECT_EQ(flow.LayoutCount(), count) << "round " << round;
        EXPECT_EQ(flow.Height(), height) << "round " << round;
    }
}

TEST(DocumentFlowLaw, WhatStandsAtTheAnchorStands)
{
    std::mt19937 random(93);
    for (int round = 0; round < 60; ++round)
    {
        FlowSample sample(RandomDocument(random, u"abc d", 60), Below(random, 6) + 1);
        DocumentFlow& flow = sample.flow;
        const Fine page = Lines(8);
        Fine top = Below(random, 100) * flow.Height() / 100;
        top += flow.Settle(top, top + page, top);
        for (int step = 0; step < 30; ++step)
        {
            // Scrolled upwards, where nothing is exact yet: the paragraph at the lower end stays where it was.
            const Fine bottom = top + page;
            const std::int32_t standing = flow.ParagraphAt(bottom - 1);
            const Fine before = flow.TopOf(standing) - top;
            top -= Lines(3);
            top += flow.Settle(top, top + page, bottom - 1);
            ASSERT_EQ(flow.TopOf(standing) - top - Lines(3), before) << "round " << round << ", step " << step;
        }
    }
}

}  // namespace
}  // namespace quillmarker
