#include "report_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker::tool
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

ReportData Parsed(std::string_view json)
{
    auto data = ParseReportData(json, "d.json");
    EXPECT_TRUE(data) << data.Message();
    return data ? *data : ReportData();
}

std::string ErrorOf(std::string_view json, std::int64_t firstLine = 1)
{
    const auto data = ParseReportData(json, "d.json", firstLine);
    return data ? "no error" : data.Message();
}

TEST(ReportDataReading, KeepsTheOrderOfTheMarkers)
{
    EXPECT_EQ(Parsed(R"({"[Z]": "1", "[A]": "2", "[M]": "3"})"), (ReportData{{"[Z]", {{ItemKind::Text, "1"}}},
                                                                             {"[A]", {{ItemKind::Text, "2"}}},
                                                                             {"[M]", {{ItemKind::Text, "3"}}}}));
}

TEST(ReportDataReading, TakesEachKindOfValue)
{
    EXPECT_EQ(Parsed(R"({"[A]": {"text": "t"}, "[B]": {"rtf": "r"}, "[C]": {"file": "f"}, "[D]": {"hidden": "h"}})"),
              (ReportData{{"[A]", {{ItemKind::Text, "t"}}},
                          {"[B]", {{ItemKind::Rtf, "r"}}},
                          {"[C]", {{ItemKind::File, "f"}}},
                          {"[D]", {{ItemKind::Hidden, "h"}}}}));
}

TEST(ReportDataReading, TakesAListAndAnEmptyOne)
{
    EXPECT_EQ(
        Parsed(R"({"[A]": ["x", {"hidden": "y"}, 7], "[B]": []})"),
        (ReportData{{"[A]", {{ItemKind::Text, "x"}, {ItemKind::Hidden, "y"}, {ItemKind::Text, "7"}}}, {"[B]", {}}}));
}

TEST(ReportDataReading, NumbersStayAsTheyAreWritten)
{
    const ReportData data =
        Parsed(R"({"[A]": [1.50, 0.10, 1e3, -7, 12345678901234567890123, 18446744073709551615, true, false]})");
    std::vector<std::string> values;
    for (const Item& item : data.front().items)
        values.push_back(item.value);
    EXPECT_THAT(values, ElementsAre("1.50", "0.10", "1e3", "-7", "12345678901234567890123", "18446744073709551615",
                                    "true", "false"));
}

TEST(ReportDataReading, AByteOrderMarkIsNoText)
{
    EXPECT_EQ(Parsed("\xEF\xBB\xBF{\"[A]\": \"x\"}"), (ReportData{{"[A]", {{ItemKind::Text, "x"}}}}));
}

TEST(ReportDataReading, AnEmptyObjectIsNoMarkers) { EXPECT_EQ(Parsed("{}"), ReportData()); }

struct BadData
{
    const char* json;
    const char* place;
    const char* reason;
};

constexpr BadData kBadData[] = {
    {"", "1:1", "unexpected end of input"},
    {"{\n  \"[A]\" 1}", "2:10", "expected ':'"},
    {"{\"[A]\": \"ä\",\n\n \"[B]\": x}", "3:9", "invalid literal"},
    {"{\"ä\": \"ö\" x", "1:11", "invalid literal"},
    {"{} {}", "1:4", "expected end of input"},
    {"{\"[A]\": \"\xFF\"}", "1:10", "UTF-8"},
    {"{\"[A]\": 1e999}", "1:14", "number overflow"},
    {"{\"[A]\": null}", "1:12", "marker \"[A]\": null is not possible; allowed are text"},
    {"{\"[A]\": [null]}", "1:13", "marker \"[A]\": null"},
    {"{\"[A]\": {\"txt\": \"x\"}}", "1:14", "marker \"[A]\": the key \"txt\""},
    {"{\"[A]\": {}}", "1:10", "an empty object"},
    {"{\"[A]\": {\"text\": \"x\", \"rtf\": \"y\"}}", "1:27", "a second key (\"rtf\")"},
    {"{\"[A]\": {\"text\": {\"text\": 1}}}", "1:18", "an object in an object"},
    {"{\"[A]\": {\"text\": [1]}}", "1:18", "a list in an object"},
    {"{\"[A]\": [[1]]}", "1:10", "a list in a list"},
    {"{\"\": 1}", "1:3", "a marker is empty"},
    {"{\"[A]\": 1, \"[A]\": 2}", "1:16", "\"[A]\" stands twice"},
    {"[]", "1:1", "a list is not possible here; a report's data is an object"},
    {"\"x\"", "1:3", "a single value"},
    {"null", "1:4", "null is not possible here"},
};

TEST(ReportDataReading, TellsPlaceAndReasonOfWhatItRefuses)
{
    for (const BadData& bad : kBadData)
    {
        const std::string error = ErrorOf(bad.json);
        EXPECT_THAT(error, StartsWith(std::string("d.json:") + bad.place + ": ")) << bad.json;
        EXPECT_THAT(error, HasSubstr(bad.reason)) << bad.json;
        EXPECT_EQ(error.find("json.exception"), error.npos) << error;
    }
}

TEST(ReportDataReading, CountsLinesFromTheOneItStandsIn)
{
    EXPECT_THAT(ErrorOf("{\"[A]\": nul}", 17), StartsWith("d.json:17:"));
    EXPECT_THAT(ErrorOf("{\n\"[A]\": nul}", 17), StartsWith("d.json:18:"));
}

TEST(ReportDataReading, RefusesWhatIsNestedWithoutEnd)
{
    EXPECT_THAT(ErrorOf("{\"[A]\": " + std::string(1000000, '[')), HasSubstr("a list in a list"));
}

}  // namespace
}  // namespace quillmarker::tool
