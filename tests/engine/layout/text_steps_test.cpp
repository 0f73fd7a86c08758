#include "engine/layout/text_steps.h"

#include "engine/document/edit.h"
#include "engine/document/tree.h"
#include "engine/document/utf.h"
#include "support/random_document.h"
#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using Step = Position (*)(const Document&, Position);

/// The text with a bar at each place that a walk from `from` stops at; line ends are line feeds, tabs are `&`.
std::string Walked(const Document& document, Position from, Step step)
{
    std::u16string text = document.Text();
    std::vector<Position> stops = {from};
    for (Position next = step(document, from); next != stops.back(); next = step(document, next))
    {
        stops.push_back(next);
        if (static_cast<std::int32_t>(stops.size()) > document.Size() + 1)
            return "does not end";
    }
    std::sort(stops.begin(), stops.end());
    for (auto stop = stops.rbegin(); stop != stops.rend(); ++stop)
        text.insert(static_cast<std::size_t>(stop->value), u"|");
    std::string shown;
    for (const char unit : ToUtf8(text))
    {
        if (unit != '\r')
            shown += unit == '\t' ? '&' : unit;
    }
    return shown;
}

std::string Walk(std::string_view sample, Step step) { return Walked(SampleDocument(sample), {0}, step); }

std::string WalkBack(std::string_view sample, Step step)
{
    const Document document = SampleDocument(sample);
    return Walked(document, {document.Size()}, step);
}

std::string Marked(const Document& document, TextRange range)
{
    std::u16string text = document.Text();
    text.insert(static_cast<std::size_t>(range.end.value), u"]");
    text.insert(static_cast<std::size_t>(range.begin.value), u"[");
    std::erase(text, u'\r');
    return ToUtf8(text);
}

template <class Range>
std::string MarkedBy(std::string_view sample, Range range)
{
    const SampleBox box(sample);
    return Marked(box.Value(), range(box.Value(), Position{box.SelStart()}));
}

std::string Word(std::string_view sample) { return MarkedBy(sample, &WordAt); }

std::string Deleted(std::string_view sample, Deletion deletion)
{
    return MarkedBy(sample, [&](const Document& document, Position at) { return DeletedBy(document, at, deletion); });
}

TEST(CharacterSteps, StopAtEachCharacterAndOnceAtALineEnd)
{
    EXPECT_EQ(Walk("ab\n\nc", &NextCharacter), "|a|b|\n|\n|c|");
    EXPECT_EQ(WalkBack("ab\n\nc", &PreviousCharacter), "|a|b|\n|\n|c|");
}

TEST(CharacterSteps, DoNotStopInsideSurrogatesOrCombiningSequences)
{
    for (const std::string_view text :
         {"a\xF0\x9F\x98\x80z", "ae\xCC\x81\xCC\xA3z", "a\xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9z"})
    {
        const std::string middle(text.substr(1, text.size() - 2));
        EXPECT_EQ(Walk(text, &NextCharacter), "|a|" + middle + "|z|");
        EXPECT_EQ(WalkBack(text, &PreviousCharacter), "|a|" + middle + "|z|");
    }
}

TEST(CharacterSteps, PassHiddenTextWithTheCharacterBesideIt)
{
    EXPECT_EQ(Walk("ab<h>xx</h>c", &NextCharacter), "|a|b|xxc|");
    EXPECT_EQ(WalkBack("ab<h>xx</h>c", &PreviousCharacter), "|a|bxx|c|");
    EXPECT_EQ(Walk("<h>xx</h>ab<h>yy</h>\n<h>zz</h>c", &NextCharacter), "|xxa|b|yy\n|zzc|");
}

TEST(CharacterSteps, PassParagraphsThatTakeNoRoom)
{
    EXPECT_EQ(Walk("a<h>\nxx\n\n</h>b", &NextCharacter), "|a|\nxx\n\n|b|") << "the first mark ends a line that shows";
    EXPECT_EQ(Walk("a\n<h>xx\n\n</h>b", &NextCharacter), "|a|\nxx\n\n|b|");
    EXPECT_EQ(WalkBack("a\n<h>xx\n\n</h>b", &PreviousCharacter), "|a|\nxx\n\n|b|");
    EXPECT_EQ(Walk("a\n<h>xx</h>", &NextCharacter), "|a|\n|xx") << "nothing that shows is left";
}

TEST(CharacterSteps, GoFromCellToCellAndNotToTheRowsMark)
{
    EXPECT_EQ(Walk("a\nb<cell/>c<cell/><row/>d", &NextCharacter), "|a|\n|b|&|c|&\n|d|");
    EXPECT_EQ(WalkBack("a\nb<cell/>c<cell/><row/>d", &PreviousCharacter), "|a|\n|b|&|c|&\n|d|");
}

TEST(WordSteps, StopBeforeEachWordAndAtLineEnds)
{
    EXPECT_EQ(Walk("pay  total, now\n\n2.5 (don't)...", &NextWord), "|pay  |total|, |now|\n|\n|2.5 |(|don't|)...|");
    EXPECT_EQ(WalkBack("pay  total, now\n\n2.5 (don't)...", &PreviousWord),
              "|pay  |total|, |now|\n|\n|2.5 |(|don't|)...|");
}

TEST(WordSteps, TakeBlanksAtALinesStartAlone)
{
    EXPECT_EQ(Walk("  a  ", &NextWord), "|  |a  |");
    EXPECT_EQ(WalkBack("  a  ", &PreviousWord), "|  |a  |");
}

TEST(WordSteps, StopAtPicturesAndLineBreaks)
{
    EXPECT_EQ(Walk("ab<pic/><pic/>cd\vef", &NextWord), "|ab| | |cd|\v|ef|");
    EXPECT_EQ(WalkBack("ab<pic/><pic/>cd\vef", &PreviousWord), "|ab| | |cd|\v|ef|");
}

TEST(WordSteps, DoNotStopInHiddenText)
{
    EXPECT_EQ(Walk("pay <h>no no </h>now", &NextWord), "|pay |no no now|");
    EXPECT_EQ(WalkBack("pay <h>no no </h>now", &PreviousWord), "|pay no no |now|");
    EXPECT_EQ(Walk("a <h>b c</h>d e", &NextWord), "|a |b cd |e|");
}

TEST(ParagraphSteps, GoToTheStartsOfParagraphsThatShow)
{
    EXPECT_EQ(Walk("ab\n<h>xx\n</h>cd\n\nef", &NextParagraph), "|ab\nxx\n|cd\n|\n|ef|");
    EXPECT_EQ(WalkBack("ab\n<h>xx\n</h>cd\n\nef", &PreviousParagraph), "|ab\nxx\n|cd\n|\n|ef|");
}

TEST(CaretStop, MovesOutOfWhatACaretMayNotStandIn)
{
    const auto stop = [](std::string_view sample, std::int32_t at) {
        return CaretStop(SampleDocument(sample), {at}).value;
    };
    EXPECT_EQ(stop("a\xF0\x9F\x98\x80z", 2), 1);
    EXPECT_EQ(stop("a\nb", 2), 1) << "between CR and LF";
    EXPECT_EQ(stop("a<h>xyz</h>b", 3), 1);
    EXPECT_EQ(stop("a<h>xyz</h>b", 4), 4) << "behind the hidden text";
    EXPECT_EQ(stop("<h>xy\n</h>b", 1), 4);
    EXPECT_EQ(stop("a\n<h>xy\n</h>b", 4), 1);
    EXPECT_EQ(stop("ab", 99), 2);
    EXPECT_EQ(stop("ab", -5), 0);
}

TEST(WordAt, IsTheWordWithTheBlanksBehindIt)
{
    EXPECT_EQ(Word("pay to|tal  now"), "pay [total  ]now");
    EXPECT_EQ(Word("pay |total  now"), "pay [total  ]now");
    EXPECT_EQ(Word("pay total | now"), "pay [total  ]now");
    EXPECT_EQ(Word("pay total|, now"), "pay total[, ]now");
    EXPECT_EQ(Word("pay total|"), "pay [total]");
    EXPECT_EQ(Word("pay total|\nnow"), "pay [total]\nnow");
    EXPECT_EQ(Word("pay total|\vnow"), "pay [total]\vnow");
    EXPECT_EQ(Word("pay\n|\nnow"), "pay\n[]\nnow");
    EXPECT_EQ(Word("|  pay"), "[  ]pay");
    EXPECT_EQ(Word("ab<pic/>|cd"), "ab [cd]");
    EXPECT_EQ(Word("ab|<pic/>cd"), "ab[ ]cd");
}

TEST(ParagraphAt, IsTheParagraphWithItsLineEndButNotACellsEnd)
{
    EXPECT_EQ(MarkedBy("a\nb|c\nd", &ParagraphAt), "a\n[bc\n]d");
    EXPECT_EQ(MarkedBy("a\nb|c", &ParagraphAt), "a\n[bc]");
    EXPECT_EQ(MarkedBy("a|b<cell/>c<cell/><row/>d", &ParagraphAt), "[ab]\tc\t\nd");
}

TEST(Backspace, TakesACodePointOrALineEnd)
{
    EXPECT_EQ(Deleted("ab|c", Deletion::CharacterBefore), "a[b]c");
    EXPECT_EQ(Deleted("a\n|b", Deletion::CharacterBefore), "a[\n]b");
    EXPECT_EQ(Deleted("a\xF0\x9F\x98\x80|b", Deletion::CharacterBefore), "a[\xF0\x9F\x98\x80]b");
    EXPECT_EQ(Deleted("ae\xCC\x81|b", Deletion::CharacterBefore), "ae[\xCC\x81]b") << "the accent alone";
    EXPECT_EQ(Deleted("|ab", Deletion::CharacterBefore), "[]ab");
}

TEST(Backspace, LeavesHiddenTextAndTakesWhatShowsBeforeIt)
{
    EXPECT_EQ(Deleted("ab<h>xx</h>|c", Deletion::CharacterBefore), "a[b]xxc");
    EXPECT_EQ(Deleted("a\n<h>xx</h>|c", Deletion::CharacterBefore), "a[\n]xxc");
}

TEST(Backspace, TearsNoTable)
{
    EXPECT_EQ(Deleted("a<cell/>|b<cell/><row/>c", Deletion::CharacterBefore), "a\t[]b\t\nc");
    EXPECT_EQ(Deleted("a<cell/>b<cell/><row/>|c", Deletion::CharacterBefore), "a\tb\t\n[]c");
    EXPECT_EQ(Deleted("x\n|a<cell/><row/>c", Deletion::CharacterBefore), "x\n[]a\t\nc")
        << "x would be drawn into the cell";
    EXPECT_EQ(Deleted("x\n\n|a<cell/><row/>c", Deletion::CharacterBefore), "x\n[\n]a\t\nc") << "an empty paragraph";
}

TEST(DeleteKey, TakesAWholeCharacterOrALineEnd)
{
    EXPECT_EQ(Deleted("a|bc", Deletion::CharacterBehind), "a[b]c");
    EXPECT_EQ(Deleted("a|\nb", Deletion::CharacterBehind), "a[\n]b");
    EXPECT_EQ(Deleted("a|e\xCC\x81z", Deletion::CharacterBehind), "a[e\xCC\x81]z");
    EXPECT_EQ(Deleted("a|<h>xx</h>b", Deletion::CharacterBehind), "axx[b]");
    EXPECT_EQ(Deleted("ab|", Deletion::CharacterBehind), "ab[]");
    EXPECT_EQ(Deleted("a|<cell/><row/>", Deletion::CharacterBehind), "a[]\t\n");
}

TEST(WordDeletion, TakesUpToTheWordsStart)
{
    EXPECT_EQ(Deleted("pay total |now", Deletion::WordBefore), "pay [total ]now");
    EXPECT_EQ(Deleted("pay to|tal now", Deletion::WordBefore), "pay [to]tal now");
    EXPECT_EQ(Deleted("pay\n|now", Deletion::WordBefore), "pay[\n]now");
    EXPECT_EQ(Deleted("pay |total now", Deletion::WordBehind), "pay [total ]now");
    EXPECT_EQ(Deleted("pay to|tal now", Deletion::WordBehind), "pay to[tal ]now");
    EXPECT_EQ(Deleted("pay|\nnow", Deletion::WordBehind), "pay[\n]now");
}

bool IsHiddenAt(const Document& document, std::int32_t at)
{
    const Location location = document.Locate({at});
    const Paragraph& paragraph = document.ParagraphAt(location.paragraph);
    return document.FormatOf(paragraph.FormatAt(static_cast<std::uint32_t>(location.offset))).hidden;
}

// Looks at units alone: no place between the halves of a pair or of a line end, before a combining mark, or between two
// hidden characters of one paragraph.
bool MayStand(const Document& document, std::int32_t at)
{
    const std::u16string text = document.Text();
    const Location location = document.Locate({at});
    const Paragraph& paragraph = document.ParagraphAt(location.paragraph);
    const auto offset = static_cast<std::size_t>(location.offset);
    if (!TakesRoom(document, paragraph) || offset > paragraph.Text().size())
        return false;
    if (offset == 0 || offset == paragraph.Text().size())
        return true;
    const char16_t before = paragraph.Text()[offset - 1];
    const char16_t behind = paragraph.Text()[offset];
    const bool isPair = (before & 0xFC00) == 0xD800 && (behind & 0xFC00) == 0xDC00;
    const bool isCombining = behind == u'\u0301' && before != kLineBreak;
    return !isPair && !isCombining && !(IsHiddenAt(document, at - 1) && IsHiddenAt(document, at));
}

bool ShowsAnything(const Document& document)
{
    bool shows = false;
    document.Visit(0, [&](const Paragraph& paragraph) { return !(shows = TakesRoom(document, paragraph)); });
    return shows;
}

TEST(CharacterSteps, StayWhereNothingIsShown)
{
    const Document document = SampleDocument("<h>ab\ncd\n</h>");
    const std::vector<ParagraphRef> hidden = {document.SharedParagraphAt(0), document.SharedParagraphAt(1)};
    const Document dark = document.WithBody(Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(hidden)})));
    ASSERT_FALSE(ShowsAnything(dark));
    EXPECT_EQ(Walked(dark, {1}, &NextCharacter), "a|b\ncd");
    EXPECT_EQ(Walked(dark, {4}, &PreviousWord), "ab\n|cd");
    EXPECT_EQ(CaretStop(dark, {5}), Position{4});
}

TEST(StepsLaw, EveryStepStopsWhereACaretMayStandAndEveryWalkEnds)
{
    static constexpr char16_t kAlphabet[] = {u'a', u'b', u' ', u',', u'\u0301', 0xD83D, 0xDE00, u'\v', u'\u05D0', u'7'};
    std::mt19937 random(81);
    for (int round = 0; round < 200; ++round)
    {
        const Document document = RandomDocument(random, {kAlphabet, std::size(kAlphabet)}, Below(random, 8) + 1);
        for (std::int32_t at = 0; at <= document.Size(); ++at)
        {
            const Position here{at};
            if (!ShowsAnything(document))
                continue;
            ASSERT_EQ(CaretStop(document, here) == here, MayStand(document, at)) << "round " << round << " at " << at;
            const Position stop = CaretStop(document, here);
            for (const Step step : {&NextCharacter, &NextWord, &NextParagraph})
            {
                const Position next = step(document, here);
                ASSERT_TRUE(next == here || MayStand(document, next.value)) << "round " << round << " from " << at;
                ASSERT_GE(step(document, stop), stop) << "round " << round << " from " << at;
            }
            for (const Step step : {&PreviousCharacter, &PreviousWord, &PreviousParagraph})
            {
                const Position next = step(document, here);
                ASSERT_TRUE(next == here || MayStand(document, next.value)) << "round " << round << " from " << at;
                ASSERT_LE(next, here) << "round " << round << " from " << at;
            }
        }
    }
}

TEST(StepsLaw, WhatIsDeletedBeginsAndEndsBesideTheCaret)
{
    static constexpr char16_t kAlphabet[] = {u'a', u' ', u'.', u'\u0301', u'\v'};
    std::mt19937 random(82);
    for (int round = 0; round < 200; ++round)
    {
        const Document document = RandomDocument(random, {kAlphabet, std::size(kAlphabet)}, Below(random, 8) + 1);
        const Position at = CaretStop(document, {Below(random, document.Size() + 1)});
        for (const Deletion deletion : {Deletion::CharacterBefore, Deletion::WordBefore})
            EXPECT_LE(DeletedBy(document, at, deletion).end, at);
        for (const Deletion deletion : {Deletion::CharacterBehind, Deletion::WordBehind})
            EXPECT_GE(DeletedBy(document, at, deletion).begin, at);
        for (int i = 0; i < 4; ++i)
        {
            const TextRange range = DeletedBy(document, at, static_cast<Deletion>(i));
            EXPECT_LE(range.begin, range.end);
            EXPECT_EQ(document.Text(range).find(u'\t'), std::u16string::npos) << "a cell's end would go";
            EXPECT_EQ(Snapped(document, range), range) << "half a line end would go";
        }
    }
}

}  // namespace
}  // namespace quillmarker
