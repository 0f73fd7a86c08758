#include "engine/rtf/keywords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>

namespace quillmarker
{
namespace
{

TEST(KeywordTable, WordsAreAscendingAndEachStandsOnce)
{
    const auto words = Keywords();
    ASSERT_GT(words.size(), 300U);
    for (std::size_t i = 1; i < words.size(); ++i)
        EXPECT_LT(words[i - 1].name, words[i].name);
}

TEST(KeywordTable, EveryWordIsFoundAndDoesSomething)
{
    for (const Keyword& word : Keywords())
    {
        EXPECT_EQ(FindKeyword(word.name), &word) << word.name;
        EXPECT_NE(word.action, nullptr) << word.name;
        EXPECT_TRUE(std::ranges::all_of(word.name, [](char c) { return std::isalpha(static_cast<unsigned char>(c)); }))
            << word.name;
    }
}

TEST(KeywordTable, WhatIsNotInItIsNotFound)
{
    for (const char* name : {"B", "Par", "a", "zzz", "pa", "parx", "unknownword", "Z", "x"})
        EXPECT_EQ(FindKeyword(name), nullptr) << name;
    EXPECT_EQ(FindKeyword(std::string(1'000'000, 'b')), nullptr);
}

TEST(KeywordTable, AWordInCapitalsIsAnotherWord)
{
    for (const Keyword& word : Keywords())
    {
        std::string upper(word.name);
        std::ranges::transform(upper, upper.begin(), [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
        EXPECT_EQ(FindKeyword(upper), nullptr) << upper;
    }
}

TEST(KeywordTable, OnlyCharactersStandInForAUnicodeCharacter)
{
    for (const char* name : {"bullet", "emdash", "endash", "emspace", "enspace", "lquote", "rdblquote", "zwj"})
        EXPECT_EQ(FindKeyword(name)->kind, WordKind::Character) << name;
    for (const char* name : {"b", "par", "u", "uc", "tab", "f"})
        EXPECT_EQ(FindKeyword(name)->kind, WordKind::Command) << name;
}

}  // namespace
}  // namespace quillmarker
