#include "plain_text.h"
#include "round_trip.h"
#include "utf.h"

#include <quillmarker/rtf.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillmarker::tool
{
namespace
{

std::string TextOf(const char* rtf, HiddenText hidden = HiddenText::Kept)
{
    return PlainText(ReadRtf(std::string_view(rtf)), hidden);
}

TEST(PlainTexts, EndParagraphsAndLinesWithLf) { EXPECT_EQ(TextOf(R"({\rtf1 a\par b\line c\par})"), "a\nb\nc\n"); }

TEST(PlainTexts, EndWithOneLfIfThereIsAnyText)
{
    EXPECT_EQ(TextOf(R"({\rtf1 a})"), "a\n");
    EXPECT_EQ(TextOf(R"({\rtf1 a\par\par})"), "a\n");
    EXPECT_EQ(TextOf(R"({\rtf1 a\par\par\par})"), "a\n\n");
    EXPECT_EQ(TextOf(R"({\rtf1})"), "");
}

TEST(PlainTexts, EndCellsWithTabsAndPagesWithFormFeeds)
{
    EXPECT_EQ(TextOf(R"({\rtf1\trowd\cellx1000\cellx2000\intbl a\cell b\cell\row\pard c\page d\par})"),
              "a\tb\t\nc\fd\n");
}

TEST(PlainTexts, AreUtf8AndShowObjectsAsBlanks)
{
    EXPECT_EQ(TextOf(R"({\rtf1\uc1 \u228?\u-10179?\u-8704?{\pict\pngblip 00}!\par})"), "ä😀 !\n");
}

TEST(PlainTexts, HoldHiddenTextUnlessItIsToBeLeftOut)
{
    const char* rtf = R"({\rtf1 a{\v b}c\par {\v d\par}e{\v f}\par})";
    EXPECT_EQ(TextOf(rtf), "abc\nd\nef\n");
    EXPECT_EQ(TextOf(rtf, HiddenText::LeftOut), "ac\ne\n");
}

TEST(PlainTexts, KeepATablesShapeWhereItsCellsAreHidden)
{
    const char* rtf = R"({\rtf1\trowd\cellx1000\cellx2000\intbl {\v a\cell} b\cell\row\pard c\par})";
    EXPECT_EQ(TextOf(rtf, HiddenText::LeftOut), "\t b\t\nc\n");
}

TEST(PlainTexts, OfManyPartsAreWhole)
{
    std::string rtf = "{\\rtf1\\uc0 ";
    std::string expected;
    for (int i = 0; i < 5'000; ++i)
    {
        // Long and short paragraphs, with characters of one to four bytes at ever other places.
        rtf += std::string(static_cast<std::size_t>(i % 97), 'x') +
               "\\u-10179\\u-8704 y\\u228 {\\v \\u8364 z}\\line\\par ";
        expected += std::string(static_cast<std::size_t>(i % 97), 'x') + "😀yä€z\n\n";
    }
    expected.pop_back();  // the last mark
    EXPECT_EQ(TextOf((rtf + "}").c_str()), expected);

    const std::string longLine(300'000, 'a');
    EXPECT_EQ(TextOf(("{\\rtf1 " + longLine + "\\par b}").c_str()), longLine + "\nb\n");
}

TEST(PlainTexts, GoOutInPartsThatHoldWholeCharacters)
{
    std::vector<std::string> parts;
    TextMaker maker(HiddenText::Kept, [&parts](std::string_view part) { parts.emplace_back(part); });
    std::string rtf = "{\\rtf1\\uc0 x";
    for (int i = 0; i < 100'000; ++i)
        rtf += "\\u-10179\\u-8704 ";
    VisitRtf(rtf + "}", [&maker](const Paragraph& paragraph, const FormatTable& formats) {
        maker.Add(paragraph, formats);
        return true;
    });
    maker.Finish();
    EXPECT_GT(parts.size(), 4U);
    for (const std::string& part : parts)
    {
        EXPECT_LE(part.size(), 0x10000U);
        EXPECT_THAT(ToUtf16(part), testing::Not(testing::Contains(u'\uFFFD')));
    }
}

TEST(Utf, BlocksOfAnyLengthAreConvertedWhole)
{
    for (std::size_t before = 0; before < 40; ++before)
    {
        for (std::size_t behind = 0; behind < 40; ++behind)
        {
            const std::string text = std::string(before, '~') + "\t\x7F ä€😀" + std::string(behind, ' ');
            ASSERT_EQ(ToUtf8(ToUtf16(text)), text) << before << ' ' << behind;
        }
    }
    std::u16string pairs = u"x";
    for (int i = 0; i < 5'000; ++i)
        pairs += u"😀";
    EXPECT_EQ(ToUtf16(ToUtf8(pairs)), pairs);  // a pair stands on every cut between parts
}

TEST(Utf, EveryCharacterSurvivesBothWays)
{
    for (char32_t c = 0; c <= 0x10FFFF; c += 13)
    {
        if (c >= 0xD800 && c <= 0xDFFF)
            continue;
        std::u16string text;
        if (c < 0x10000)
            text = {static_cast<char16_t>(c)};
        else
            text = {static_cast<char16_t>(0xD7C0 + (c >> 10)), static_cast<char16_t>(0xDC00 + (c & 0x3FF))};
        ASSERT_EQ(ToUtf16(ToUtf8(text)), text) << static_cast<unsigned>(c);
    }
    EXPECT_EQ(ToUtf8(u"aäع€😀"), "aäع€😀");
}

TEST(Utf, HalvesAndBadBytesBecomeReplacementCharacters)
{
    EXPECT_EQ(ToUtf8(u"a\xD83D"), "a\uFFFD");
    EXPECT_EQ(ToUtf8(u"\xDE00 b\xD83D!"), "\uFFFD b\uFFFD!");
    EXPECT_EQ(ToUtf16("a\xFFz"), u"a\uFFFDz");
    EXPECT_EQ(ToUtf16("\xE2\x82"), u"\uFFFD");
    EXPECT_EQ(ToUtf16("\xC0\x80"), u"\uFFFD");
    EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD");
    EXPECT_EQ(ToUtf16("\xF4\x90\x80\x80"), u"\uFFFD");
}

TEST(Differences, ShowTheFirstDifferentLineAndTheParagraphItIsIn)
{
    EXPECT_EQ(FirstDifference("paragraph one\n  a\n  b\n", "paragraph one\n  a\n  c\n"),
              "  before  paragraph one\n          b\n  after   paragraph one\n          c\n");
    EXPECT_EQ(FirstDifference("paragraph one\n", "paragraph two\n"),
              "  before  paragraph one\n  after   paragraph two\n");
}

TEST(Differences, ShowWhereOneEnds)
{
    EXPECT_EQ(FirstDifference("a\n", "a\nb\n"), "  before  (nothing)\n  after   b\n");
    EXPECT_EQ(FirstDifference("", "b"), "  before  (nothing)\n  after   b\n");
}

TEST(Differences, AreShortenedInLongLines)
{
    const std::string shown = FirstDifference(std::string(100000, 'x'), "y");
    EXPECT_LT(shown.size(), 500U);
}

TEST(Differences, BetweenEqualTextsAreSaidNotToBe)
{
    EXPECT_EQ(FirstDifference("a\n", "a\n"), "  the dumps are equal\n");
}

std::string Written(const Document& document) { return WriteRtf(document); }

TEST(RoundTrips, OfASoundDocumentDifferInNothing)
{
    EXPECT_EQ(RoundTripDifference(R"({\rtf1\ansi a{\b b}\par\pard\qc c\par})", Written), "");
    EXPECT_EQ(RoundTripDifference("no rtf\nat all", Written), "");
    EXPECT_EQ(RoundTripDifference("", Written), "");
}

TEST(RoundTrips, ShowWhatAWriterLoses)
{
    const auto losesBold = [](const Document& document) { return "{\\rtf1 " + ToUtf8(document.Text()) + "}"; };
    EXPECT_EQ(RoundTripDifference(R"({\rtf1 a\b b})", losesBold).find("what was written reads otherwise\n  before  "),
              0U);
    EXPECT_EQ(RoundTripDifference(R"({\rtf1 ab})", losesBold), "");
}

TEST(RoundTrips, ShowAWriterThatWritesOtherBytesTheSecondTime)
{
    int count = 0;
    const auto changes = [&](const Document& document) {
        return Written(document) + std::string(static_cast<std::size_t>(++count), '\n');
    };
    EXPECT_THAT(RoundTripDifference(R"({\rtf1 a})", changes),
                testing::StartsWith("written again, the bytes differ from byte "));
}

}  // namespace
}  // namespace quillmarker::tool
