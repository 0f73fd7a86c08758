#include "fill.h"

#include "plain_text.h"

#include <quillmarker/rtf.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quillmarker::tool
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Filled
{
    std::u16string text;
    std::string visible;  // what is not hidden
    std::vector<std::string> missing;
    std::string error;
    std::string rtf;
};

/// `source` is the inside of a document: "a \\b [X]".
Filled FilledWith(const std::string& source, const char* json, const std::filesystem::path& folder = {})
{
    const auto data = ParseReportData(json, "data");
    EXPECT_TRUE(data) << data.Message();
    Report report;
    report.Box().OpenValue(ReadRtf(std::string_view("{\\rtf1\\ansi " + source + "}")));
    const Filling filling = Fill(report, *data, folder);
    return {report.Box().Text(), PlainText(report.Box().Value(), HiddenText::LeftOut), filling.missing, filling.error,
            WriteRtf(report.Box().Value())};
}

TEST(Filling, ReplacesAMarkerEverywhereAndWhateverItsCase)
{
    EXPECT_EQ(FilledWith("[X] a [x]b[X][X]", R"({"[X]": "1"})").text, u"1 a 1b11");
}

TEST(Filling, TextTakesTheFormatOfTheMarker)
{
    EXPECT_THAT(FilledWith("a {\\b [X]} c", R"({"[X]": "new"})").rtf, HasSubstr("\\b new\\b0"));
}

TEST(Filling, TextInAListTakesTheFormatOfTheMarkerToo)
{
    const Filled filled =
        FilledWith("a {\\b [X]} c", R"({"[X]": ["1", {"rtf": "{\\rtf1\\i 2}"}, {"hidden": "3"}, "4"]})");
    EXPECT_THAT(filled.rtf, HasSubstr("a \\b 1\\b0\\i 2\\b\\i0\\v 3\\v0 4\\b0  c"));
}

TEST(Filling, TextInALinkStaysInTheLink)
{
    const char* link = R"(a {\field{\*\fldinst HYPERLINK "x"}{\fldrslt [X]}} c)";
    EXPECT_THAT(FilledWith(link, R"({"[X]": ["1", "2"]})").rtf, HasSubstr("{\\fldrslt 12}"));
}

TEST(Filling, AValueThatHoldsItsMarkerIsNotSearchedAgain)
{
    EXPECT_EQ(FilledWith("[X]-[X]", R"({"[X]": "[X][X]"})").text, u"[X][X]-[X][X]");
    EXPECT_EQ(FilledWith("[X]-[X]", R"({"[X]": ["a", "[X]"]})").text, u"a[X]-a[X]");
    EXPECT_EQ(FilledWith("[X]-[X]", R"({"[X]": {"hidden": "[X]"}})").text, u"[X]-[X]");
}

TEST(Filling, AValueMayHoldAMarkerThatComesLater)
{
    EXPECT_EQ(FilledWith("[A]", R"({"[A]": "<[B]>", "[B]": "x"})").text, u"<x>");
    const Filled other = FilledWith("[A]", R"({"[B]": "x", "[A]": "<[B]>"})");
    EXPECT_EQ(other.text, u"<[B]>");
    EXPECT_THAT(other.missing, ElementsAre("[B]"));
}

TEST(Filling, TellsTheMarkersThatAreMissing)
{
    const Filled filled =
        FilledWith("[B]", R"({"[A]": "1", "[B]": "2", "[C]": {"hidden": "3"}, "[D]": [], "[E]": {"file": "none"}})");
    EXPECT_EQ(filled.text, u"2");
    EXPECT_THAT(filled.missing, ElementsAre("[A]", "[C]", "[D]", "[E]"));
    EXPECT_EQ(filled.error, "");
}

TEST(Filling, EmptyValuesTakeTheMarkerAway)
{
    EXPECT_EQ(FilledWith("a[X]b[Y]c[Z]d[V]e", R"({"[X]": "", "[Y]": [], "[Z]": {"hidden": ""}, "[V]": ["", ""]})").text,
              u"abcde");
}

TEST(Filling, ItemsOfAListStandOneBehindTheOther)
{
    EXPECT_EQ(FilledWith("<[X]>", R"({"[X]": ["a", {"rtf": "{\\rtf1 b}"}, {"hidden": "c"}, 4]})").text, u"<abc4>");
}

TEST(Filling, LineEndsInTextEndParagraphs)
{
    EXPECT_EQ(FilledWith("[X]", R"({"[X]": "a\nb\r\nc"})").text, u"a\r\nb\r\nc");
}

TEST(Filling, OnlyWhatIsHiddenIsHidden)
{
    const Filled filled = FilledWith("a [X]b {\\b c}", R"({"[X]": {"hidden": "digits 0 and \\ { }"}})");
    EXPECT_EQ(filled.text, u"a digits 0 and \\ { }b c");
    EXPECT_EQ(filled.visible, "a b c\n");
}

TEST(Filling, WhatFollowsHiddenTextInAListIsNotHidden)
{
    const char* list =
        R"({"[X]": [{"hidden": "h1"}, "shown", {"hidden": "h2"}, {"rtf": "{\\rtf1 rtf}"}, {"hidden": "h3"}]})";
    EXPECT_EQ(FilledWith("<[X]>", list).text, u"<h1shownh2rtfh3>");
    EXPECT_EQ(FilledWith("<[X]>", list).visible, "<shownrtf>\n");
    EXPECT_EQ(FilledWith("[X]", list).visible, "shownrtf\n");
}

TEST(Filling, TextInAHiddenPlaceStaysHidden)
{
    EXPECT_EQ(FilledWith("a{\\v [X]}b", R"({"[X]": ["1", {"hidden": "2"}, "3"]})").visible, "ab\n");
}

TEST(Filling, HiddenParagraphsAreHiddenWithTheirEnds)
{
    EXPECT_EQ(FilledWith("a\\par[X]b", R"({"[X]": {"hidden": "one\ntwo\n"}})").visible, "a\nb\n");
}

TEST(Filling, RowsBecomePartOfTheTableInFrontOfThem)
{
    const char* table = R"(\trowd\cellx1000\intbl head\cell\row\pard [X]below\par)";
    const Filled filled = FilledWith(table, R"({"[X]": [{"rtf": "{\\rtf1\\trowd\\cellx1000\\intbl one\\cell\\row}"},)"
                                            R"({"rtf": "{\\rtf1\\trowd\\cellx1000\\intbl two\\cell\\row}"}]})");
    EXPECT_EQ(filled.text, u"head\t\r\none\t\r\ntwo\t\r\nbelow");
}

TEST(Filling, WhatIsNoRtfIsRefusedAsSuch)
{
    const Filled filled = FilledWith("[X]", R"({"[X]": {"rtf": "\\b bold"}})");
    EXPECT_EQ(filled.text, u"[X]");
    EXPECT_THAT(filled.error, HasSubstr("marker \"[X]\": the value of \"rtf\" is no RTF"));
}

TEST(Filling, FilesAreRtfOrText)
{
    const char* folder = "examples/report";
    EXPECT_THAT(FilledWith("[X]", R"({"[X]": {"file": "row_crp.rtf"}})", folder).text,
                u"C-reactive protein\t< 5.0\tmg/l\t< 5.0\t\r\n");
    const Filled text = FilledWith("<[X]>", R"({"[X]": {"file": "notice.txt"}})", folder);
    EXPECT_TRUE(text.text.starts_with(u"<This report"));
    EXPECT_TRUE(text.text.ends_with(u"by telephone.>"));
    EXPECT_THAT(FilledWith("[X]", R"({"[X]": {"file": "data.json"}})", folder).error, HasSubstr("data.json is no RTF"));
    EXPECT_THAT(FilledWith("[X]", R"({"[X]": {"file": "none"}})", folder).error,
                HasSubstr("none: the file does not exist"));
    EXPECT_THAT(FilledWith("[X]", R"({"[X]": {"file": "."}})", folder).error, HasSubstr("it cannot be read"));
}

TEST(Filling, OfNothingChangesNothing)
{
    const Filled filled = FilledWith("a [X]", "{}");
    EXPECT_EQ(filled.text, u"a [X]");
    EXPECT_THAT(filled.missing, IsEmpty());
    EXPECT_EQ(filled.error, "");
}

TEST(Filling, IsOneStepOfTheHistory)
{
    Report report;
    report.Box().OpenValue(ReadRtf(std::string_view("{\\rtf1 [X][X]}")));
    Fill(report, *ParseReportData(R"({"[X]": ["a", {"hidden": "b"}]})", "data"), {});
    EXPECT_EQ(report.Box().Text(), u"abab");
    report.Box().Undo();
    EXPECT_EQ(report.Box().Text(), u"[X][X]");
    EXPECT_FALSE(report.Box().CanUndo());
}

}  // namespace
}  // namespace quillmarker::tool
