#include "content/previous_field_sample.h"
#include "content/report_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace quillmarker
{
namespace
{

std::string FieldOf(std::u16string_view sample, std::u16string_view prefix = u"<", std::u16string_view suffix = u">")
{
    Report report;
    Fill(report.Box(), sample);
    const std::string before = Shown(report);
    const std::string field = ToUtf8(report.PreviousField(prefix, suffix, false));
    EXPECT_EQ(Shown(report), before);
    return field;
}

TEST(PreviousField, IsTheLastOneBeforeTheCaret)
{
    EXPECT_EQ(FieldOf(u"a <b> c <d> e|"), "d");
    EXPECT_EQ(FieldOf(u"a <b> c <d> e|\r\n<f> g"), "d");
}

TEST(PreviousField, TheRestOfTheCaretsLineBelongsToTheTextSearched)
{
    EXPECT_EQ(FieldOf(u"a <b> |c <d> e\r\n<f> g"), "d");
    EXPECT_EQ(FieldOf(u"a <b> ^c| <d> e\r\n<f> g"), "d");
    EXPECT_EQ(FieldOf(u"a <b> |c <d> e"), "b");  // the last line has no end: up to the caret
    EXPECT_EQ(FieldOf(u"a <b> c <d\r\n> |e"), "d\r\n");
}

TEST(PreviousField, AnEmptyLineAtTheCaretEndsThere)
{
    EXPECT_EQ(FieldOf(u"<a> x\r\n|\r\n<b> y"), "a");
    // Directly behind a break the search for the line's end begins at the break's second half.
    EXPECT_EQ(FieldOf(u"<a> x\r\n|<b> y\r\n<c> z"), "b");
}

TEST(PreviousField, ACaretAtTheVeryBeginningLooksFromTheEnd)
{
    EXPECT_EQ(FieldOf(u"|a <b> c\r\n<d> e"), "d");
    EXPECT_EQ(FieldOf(u"a| <b> c\r\n<d> e"), "d");
    EXPECT_EQ(FieldOf(u"a |<b> c\r\n<d> e"), "b");
    EXPECT_EQ(FieldOf(u"|"), "");
    EXPECT_EQ(FieldOf(u"|<"), "");
}

TEST(PreviousField, ThereMustBeRoomForOneMoreCharacterThanTheSuffixNeeds)
{
    EXPECT_EQ(FieldOf(u"<b>|"), "");  // three units, and four are asked for
    EXPECT_EQ(FieldOf(u"<b>.|"), "b");
    EXPECT_EQ(FieldOf(u"<>.|"), "");
    EXPECT_EQ(FieldOf(u"x<bc>|"), "bc");
    EXPECT_EQ(FieldOf(u"key: 12;|", u"key: ", u";"), "12");
    EXPECT_EQ(FieldOf(u"key: 1;|", u"key: ", u";"), "");
}

TEST(PreviousField, AMissOfAnyKindIsEmpty)
{
    EXPECT_EQ(FieldOf(u"a <b> c|", u"", u">"), "");
    EXPECT_EQ(FieldOf(u"a <b> c|", u"<", u""), "");
    EXPECT_EQ(FieldOf(u"a <b> c|", u"[", u">"), "");
    EXPECT_EQ(FieldOf(u"a <b> c|", u"<", u"]"), "");
    EXPECT_EQ(FieldOf(u"a <b> c <d e f|"), "");  // only the last prefix counts
}

TEST(PreviousField, IgnoresCaseAndKeepsWhatItFinds)
{
    EXPECT_EQ(FieldOf(u"NAME: Ann END of|", u"name: ", u" end"), "Ann");
    EXPECT_EQ(FieldOf(u"\u00C9: Ann \u00C9. of|", u"\u00E9: ", u" \u00E9."), "Ann");
}

TEST(PreviousField, HiddenMarksAndObjectsAndCellsAreText)
{
    Report report;
    report.Box().SetTextRTF(
        u"{\\rtf1{\\v /h/}17{\\v /}  \\trowd\\cellx900\\cellx1800\\intbl <a\\cell b>\\cell\\row x\\par}");
    report.Box().SetSelStart(100);
    EXPECT_EQ(report.PreviousField(u"/h/", u"/", false), u"17");
    EXPECT_EQ(report.PreviousField(u"<", u">", false), u"a\tb");
}

TEST(PreviousField, InTheSourceBeginsAtPositionOne)
{
    Report report;
    Fill(report.Box(), u"<b> cd|");
    EXPECT_EQ(report.PreviousField(u"<", u">", true), u"");  // the "<" at position 0 lies outside
    Fill(report.Box(), u" <b> cd|");
    EXPECT_EQ(report.PreviousField(u"<", u">", true), u"b");
    EXPECT_EQ(report.PreviousField(u"{\\rtf", u"\\", true), u"1");
}

TEST(PreviousField, InTheSourceTheRangeIsAsLongAsTheCaretIsFar)
{
    Report report;
    Fill(report.Box(), u"1 <a> <b|> c");
    EXPECT_EQ(report.PreviousField(u"<", u">", true), u"b");  // positions 1 to 9
    Fill(report.Box(), u"1 <a> <|b> c");
    EXPECT_EQ(report.PreviousField(u"<", u">", true), u"");
}

TEST(PreviousField, InTheSourcePutsTheSelectionBack)
{
    Report report;
    Fill(report.Box(), u"a <b> ^cd|ef");
    report.PreviousField(u"<", u">", true);
    EXPECT_EQ(Shown(report), "a <b> ^cd|ef");
    report.PreviousField(u"", u">", true);
    EXPECT_EQ(Shown(report), "a <b> ^cd|ef");
}

TEST(PreviousField, InTheSourceACaretAtTheBeginningIsPutToTheEnd)
{
    Report report;
    Fill(report.Box(), u"^ab| <c> d");
    EXPECT_EQ(report.PreviousField(u"<", u">", true), u"c");
    EXPECT_EQ(Shown(report), "ab <c> d|");
    Fill(report.Box(), u"^ab| <c> d");
    report.PreviousField(u"", u">", true);
    EXPECT_EQ(Shown(report), "^ab| <c> d");  // without a prefix the caret is not moved on
}

TEST(PreviousField, SetsRedrawAndReleasesTheLockWhateverItWas)
{
    for (const std::u16string_view prefix : {u"<", u"", u"["})
    {
        Report report;
        RecordedHooks hooks;
        report.SetHooks(&hooks);
        std::vector<bool> redraws;
        hooks.also = [&](std::string_view) { redraws.push_back(report.Redraw()); };
        report.PreviousField(prefix, u">", false);
        EXPECT_TRUE(report.Redraw());
        EXPECT_THAT(hooks.Taken(), testing::ElementsAre("focus", "lock", "unlock", "focus"));
        report.SetRedraw(false);
        hooks.Taken();
        redraws.clear();
        report.PreviousField(prefix, u">", true);
        EXPECT_TRUE(report.Redraw());
        EXPECT_THAT(hooks.Taken(), testing::ElementsAre("focus", "lock", "unlock", "focus"));
        EXPECT_TRUE(redraws.back());
    }
}

TEST(PreviousField, ChangesNothingAndTakesNoSnapshot)
{
    Report report;
    Fill(report.Box(), u"a <b> cd|ef");
    report.DropUndoSnapshot();
    report.SetChanged(false);
    report.PreviousField(u"<", u">", true);
    EXPECT_FALSE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), -1);
}

class RandomFields
{
public:
    explicit RandomFields(unsigned seed) : m_random(seed) {}

    unsigned Below(std::size_t limit) { return static_cast<unsigned>(m_random() % limit); }

    std::u16string Text(std::size_t pieces)
    {
        static constexpr std::u16string_view kPieces[] = {u"<", u">", u"a", u"B", u"\u00E9", u"\u00C9", u" ", u"\r\n"};
        std::u16string text;
        for (std::size_t i = 0; i < pieces; ++i)
            text += kPieces[Below(std::size(kPieces))];
        return text;
    }

    std::u16string Delimiter()
    {
        static constexpr std::u16string_view kWhole[] = {u"\r", u"\n", u"\r\n", u"\n<"};
        return Below(8) == 0 ? std::u16string(kWhole[Below(std::size(kWhole))]) : Text(Below(3));
    }

private:
    std::mt19937 m_random;
};

void ComparesWithTheRule(unsigned seed, int rounds, bool rtfCode)
{
    RandomFields random(seed);
    int found = 0;
    for (int round = 0; round < rounds; ++round)
    {
        Report report;
        TextBox other;
        Fill(report.Box(), random.Text(random.Below(30)));
        report.Box().SetSelStart(
            static_cast<int>(random.Below(static_cast<std::size_t>(report.Box().TextLength()) + 1)));
        report.Box().SetSelLength(static_cast<int>(random.Below(4)));
        other.SetValue(report.Box().Value(), {report.Box().SelStart(), report.Box().SelLength()});
        const std::string before = Shown(report);
        const std::u16string prefix = random.Delimiter();
        const std::u16string suffix = random.Delimiter();
        const std::u16string field = report.PreviousField(prefix, suffix, rtfCode);
        ASSERT_EQ(field, naive::PreviousField(other, prefix, suffix, rtfCode))
            << before << "\nprefix " << ToUtf8(prefix) << " suffix " << ToUtf8(suffix);
        ASSERT_EQ(Shown(report), Shown(other));
        found += field.empty() ? 0 : 1;
    }
    EXPECT_GT(found, rounds / 50);
}

TEST(PreviousField, InTheTextIsTheRuleWordForWord) { ComparesWithTheRule(41, 12000, false); }

TEST(PreviousField, InTheSourceIsTheRuleWordForWord) { ComparesWithTheRule(42, 2000, true); }

}  // namespace
}  // namespace quillmarker
