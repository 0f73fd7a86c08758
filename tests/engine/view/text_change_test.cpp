#include "engine/view/text_change.h"

#include "support/random_document.h"
#include "support/sample.h"

#include "engine/document/edit.h"
#include "engine/document/format_edit.h"

#include <gmock/gmock.h>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

/// The text one gets by doing what the changes say, in their order.
std::u16string Played(std::u16string text, const TextChanges& told)
{
    for (const TextChange& change : told.changes)
    {
        const auto at = static_cast<std::size_t>(change.at.value);
        EXPECT_EQ(text.substr(at, change.removed.size()), change.removed);
        text.replace(at, change.removed.size(), change.inserted);
    }
    return text;
}

TextChanges ChangesOf(const Document& before, TextRange range, std::u16string_view text)
{
    return TextChangesBetween(before, WithText(before, range, text, {}));
}

TEST(TextChanges, AKeystrokeIsOneCharacter)
{
    const Document before = SampleDocument("one\ntwo three\nfour");
    EXPECT_THAT(ChangesOf(before, {{8}, {8}}, u"x").changes, ElementsAre(TextChange{{8}, u"", u"x"}));
    EXPECT_THAT(ChangesOf(before, {{8}, {9}}, u"").changes, ElementsAre(TextChange{{8}, u" ", u""}));
    EXPECT_THAT(ChangesOf(before, {{5}, {8}}, u"2").changes, ElementsAre(TextChange{{5}, u"two", u"2"}));
}

TEST(TextChanges, ALineEndIsTwoCharactersEvenAtTheEndOfTheText)
{
    const Document before = SampleDocument("one\ntwo");
    EXPECT_THAT(ChangesOf(before, {{8}, {8}}, u"\r\n").changes, ElementsAre(TextChange{{8}, u"", u"\r\n"}));
    EXPECT_THAT(ChangesOf(before, {{3}, {5}}, u"").changes, ElementsAre(TextChange{{3}, u"\r\n", u""}));
    const Document after = SampleDocument("one\ntwo\n");
    EXPECT_THAT(ChangesOf(after, {{8}, {10}}, u"").changes, ElementsAre(TextChange{{8}, u"\r\n", u""}));
}

TEST(TextChanges, APairIsNotCut)
{
    const Document before = SampleDocument("a\U0001F4C4b");
    EXPECT_THAT(ChangesOf(before, {{1}, {3}}, u"\U0001F4C5").changes,
                ElementsAre(TextChange{{1}, u"\U0001F4C4", u"\U0001F4C5"}));
}

TEST(TextChanges, APictureIsTheCharacterThatHostsSee)
{
    const Document before = SampleDocument("a<pic/>b");
    EXPECT_THAT(ChangesOf(before, {{1}, {2}}, u"").changes, ElementsAre(TextChange{{1}, u" ", u""}));
}

TEST(TextChanges, AFormatChangesNoText)
{
    const Document before = SampleDocument("one\ntwo");
    PartialCharFormat bold;
    bold.bold = true;
    const TextChanges told = TextChangesBetween(before, WithCharFormat(before, {{0}, {3}}, bold));
    EXPECT_THAT(told.changes, ElementsAre(TextChange{{0}, u"", u""}));
    EXPECT_TRUE(TextChangesBetween(before, before).changes.empty());
}

TEST(TextChanges, AnotherDocumentIsNotToldPieceByPiece)
{
    const Document before = SampleDocument("one");
    const Document after = WithText(before, {{0}, {0}}, std::u16string(kMaxTextChange, u'x') + u"\r\n" + u"more", {});
    EXPECT_TRUE(TextChangesBetween(before, after).isEverything);
    // In a long paragraph a keystroke is still a keystroke.
    const TextChanges told = ChangesOf(after, {{100}, {100}}, u"y");
    EXPECT_FALSE(told.isEverything);
    EXPECT_EQ(told.changes.size(), 1U);
}

TEST(TextChanges, PlayedOnTheOldTextGiveTheNewOne)
{
    std::mt19937 random(17);
    for (int round = 0; round < 2000; ++round)
    {
        const Document before = RandomDocument(random, u"ab \U0001F4C4", 1 + Below(random, 6));
        Document after = before;
        for (int edits = 1 + Below(random, 3); edits > 0; --edits)
        {
            const std::u16string text = RandomText(random, u"ab\n\U0001F4C4", Below(random, 4));
            after = WithText(after, RandomRange(random, after), text, {});
        }
        const TextChanges told = TextChangesBetween(before, after);
        ASSERT_EQ(Played(before.Text(), told), after.Text()) << "round " << round;
    }
}

}  // namespace
}  // namespace quillmarker
