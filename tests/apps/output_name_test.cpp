#include "output_name.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker::tool
{
namespace
{

using testing::HasSubstr;

Marker Text(const char* name, std::string value) { return {name, {{ItemKind::Text, std::move(value)}}}; }

/// The name, or the reason why there is none.
std::string NameFor(const std::string& pattern, const ReportData& data, std::int64_t line = 1)
{
    const auto output = OutputName::Parse(pattern);
    if (!output)
        return output.Message();
    const auto name = output->For(data, line);
    return name ? *name : name.Message();
}

TEST(OutputNames, KeysAreReplacedByTheirValues)
{
    EXPECT_EQ(NameFor("out/{id}-{name}.rtf", {Text("id", "7"), Text("name", "Å b")}), "out/7-Å b.rtf");
    EXPECT_EQ(NameFor("{id}{id}.rtf", {Text("id", "7")}), "77.rtf");
    EXPECT_EQ(NameFor("a}{[ID]}.rtf", {Text("[ID]", "7")}), "a}7.rtf");
}

TEST(OutputNames, LineIsTheNumberOfTheLineWhateverTheDataSays)
{
    EXPECT_EQ(NameFor("{line}.rtf", {Text("line", "x")}, 42), "42.rtf");
}

TEST(OutputNames, PatternsThatNameOneFileOnlyAreRefused)
{
    EXPECT_THAT(NameFor("out.rtf", {}), HasSubstr("would be the same file"));
    EXPECT_THAT(NameFor("", {}), HasSubstr("would be the same file"));
}

TEST(OutputNames, BracesThatMakeNoKeyAreRefused)
{
    for (const char* pattern : {"{", "{}", "a{b.rtf", "{}{id}"})
        EXPECT_THAT(NameFor(pattern, {Text("id", "7")}), HasSubstr("has a { without")) << pattern;
}

TEST(OutputNames, KeysThatAreMissingOrNoPlainTextAreRefused)
{
    EXPECT_THAT(NameFor("{id}.rtf", {}), HasSubstr("there is no \"id\""));
    EXPECT_THAT(NameFor("{id}.rtf", {{"id", {{ItemKind::Hidden, "x"}}}}), HasSubstr("\"id\" should be text"));
    EXPECT_THAT(NameFor("{id}.rtf", {{"id", {}}}), HasSubstr("\"id\" should be text"));
    EXPECT_THAT(NameFor("{id}.rtf", {{"id", {{ItemKind::Text, "a"}, {ItemKind::Text, "b"}}}}),
                HasSubstr("\"id\" should be text"));
}

TEST(OutputNames, NoValueLeadsToAnotherFolder)
{
    for (const std::string& value :
         {std::string("a/b"), std::string("/etc/x"), std::string("../x"), std::string("a\0b", 3)})
        EXPECT_THAT(NameFor("out/{id}.rtf", {Text("id", value)}), HasSubstr("no file's name can have")) << value;
    for (const char* value : {"..", ".", ""})
        EXPECT_THAT(NameFor("out/{id}/x.rtf", {Text("id", value)}), HasSubstr("another folder's")) << value;
    EXPECT_THAT(NameFor("out/.{id}/x.rtf", {Text("id", ".")}), HasSubstr("another folder's"));
    EXPECT_THAT(NameFor("out/{id}{id}/x.rtf", {Text("id", ".")}), HasSubstr("another folder's"));
}

TEST(OutputNames, NoValueHidesTheFile)
{
    EXPECT_THAT(NameFor("{id}.rtf", {Text("id", "")}), HasSubstr("hidden"));
    EXPECT_THAT(NameFor("out/{id}.rtf", {Text("id", ".x")}), HasSubstr("hidden"));
}

TEST(OutputNames, DotsThatMeanNothingAndFoldersOfThePatternAreAllowed)
{
    EXPECT_EQ(NameFor("../{id}.rtf", {Text("id", "a..b")}), "../a..b.rtf");
    EXPECT_EQ(NameFor("./{id}/.x.rtf", {Text("id", "a.")}), "./a./.x.rtf");
    EXPECT_EQ(NameFor("{a}-{b}.rtf", {Text("a", "x"), Text("b", "")}), "x-.rtf");
}

TEST(OutputNames, TellWhichKeysTheyUse)
{
    const auto output = OutputName::Parse("a/{id}.rtf");
    ASSERT_TRUE(output);
    EXPECT_TRUE(output->Uses("id"));
    EXPECT_FALSE(output->Uses("a/"));
    EXPECT_FALSE(output->Uses("ID"));
}

}  // namespace
}  // namespace quillmarker::tool
