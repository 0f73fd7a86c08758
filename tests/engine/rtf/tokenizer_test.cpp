#include "engine/rtf/tokenizer.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

using namespace std::string_literals;

std::string Shown(const Token& token)
{
    constexpr char kDigits[] = "0123456789abcdef";
    const std::string text(token.text);
    switch (token.kind)
    {
    case TokenKind::Open:
        return "{";
    case TokenKind::Close:
        return "}";
    case TokenKind::Text:
        return "'" + text + "'" + (token.isAscii ? "" : "!");
    case TokenKind::Byte:
        return "#"s + kDigits[token.byte >> 4] + kDigits[token.byte & 15];
    case TokenKind::Word:
        return token.parameter.IsGiven() ? text + "=" + std::to_string(token.parameter.value) : text;
    case TokenKind::Symbol:
        return "\\"s + static_cast<char>(token.byte);
    case TokenKind::Binary:
        return "bin[" + text + "]";
    case TokenKind::End:
        break;
    }
    return "end";
}

std::string Tokens(std::string_view source, SourceKind kind = SourceKind::Bytes)
{
    Tokenizer tokens(source, kind);
    std::string all;
    for (Token token = tokens.Next(); token.kind != TokenKind::End; token = tokens.Next())
        all += (all.empty() ? "" : " ") + Shown(token);
    EXPECT_EQ(tokens.Next().kind, TokenKind::End);  // the end stays the end
    return all;
}

TEST(Tokenizer, GroupsWordsAndTextAreTokens)
{
    EXPECT_EQ(Tokens(R"({\rtf1\ansi Hello {\b world}!})"), "{ rtf=1 ansi 'Hello ' { b 'world' } '!' }");
    EXPECT_EQ(Tokens(""), "");
}

TEST(Tokenizer, OneBlankBehindAWordBelongsToIt)
{
    EXPECT_EQ(Tokens(R"(\b  x)"), "b ' x'");
    EXPECT_EQ(Tokens(R"(\b1  x)"), "b=1 ' x'");
    EXPECT_EQ(Tokens("\\b\nx"), "b 'x'");
    EXPECT_EQ(Tokens(R"(\b.x)"), "b '.x'");
    EXPECT_EQ(Tokens("\\b\tx"), "b '\tx'");
}

TEST(Tokenizer, AParameterMayBeNegativeAndEndsAtTheFirstOtherCharacter)
{
    EXPECT_EQ(Tokens(R"(\li-360x)"), "li=-360 'x'");
    EXPECT_EQ(Tokens(R"(\li- 5)"), "li '- 5'");
    EXPECT_EQ(Tokens(R"(\li--5)"), "li '--5'");
    EXPECT_EQ(Tokens(R"(\b0bold)"), "b=0 'bold'");
}

TEST(Tokenizer, AParameterBeyondThirtyTwoBitsIsTheNearestThatFits)
{
    EXPECT_EQ(Tokens(R"(\li99999999999999999999)"), "li=2147483647");
    EXPECT_EQ(Tokens(R"(\li-99999999999999999999)"), "li=-2147483647");
    EXPECT_EQ(Tokens(R"(\li2147483647 x)"), "li=2147483647 'x'");
}

TEST(Tokenizer, AMissingParameterIsZeroAndSaysSo)
{
    Tokenizer tokens(R"(\b\b0)");
    const Parameter missing = tokens.Next().parameter;
    EXPECT_FALSE(missing.IsGiven());
    EXPECT_EQ(missing.value, 0);
    EXPECT_EQ(missing.Or(7), 7);
    const Parameter zero = tokens.Next().parameter;
    EXPECT_TRUE(zero.IsGiven());
    EXPECT_EQ(zero.Or(7), 0);
    EXPECT_EQ(zero.digits, "0");
}

TEST(Tokenizer, BehindTheWordForHiddenTextOnlyZeroAndOneAreAParameter)
{
    EXPECT_EQ(Tokens(R"(\v1 x)"), "v=1 'x'");
    EXPECT_EQ(Tokens(R"(\v0 x)"), "v=0 'x'");
    EXPECT_EQ(Tokens(R"(\v2 x)"), "v '2 x'");
    EXPECT_EQ(Tokens(R"(\v10)"), "v '10'");
    EXPECT_EQ(Tokens(R"(\v01)"), "v '01'");
    EXPECT_EQ(Tokens(R"(\v-1)"), "v '-1'");
    EXPECT_EQ(Tokens(R"(\v 12)"), "v '12'");
    EXPECT_EQ(Tokens(R"(\vern2)"), "vern=2");
}

TEST(Tokenizer, HexadecimalBytesAreBytes)
{
    EXPECT_EQ(Tokens(R"(\'e9\'E9x)"), "#e9 #e9 'x'");
    EXPECT_EQ(Tokens(R"(\'4)"), "\\' '4'");
    EXPECT_EQ(Tokens(R"(\'zz)"), "\\' 'zz'");
    EXPECT_EQ(Tokens(R"(\'5c)"), "#5c");
}

TEST(Tokenizer, SymbolsAreABackslashAndOneCharacter)
{
    EXPECT_EQ(Tokens(R"(\~\-\_\*\\\{\})"), R"(\~ \- \_ \* \\ \{ \})");
    EXPECT_EQ(Tokens("\\\r\nx"), "\\\r 'x'");
    EXPECT_EQ(Tokens("\\\nx"), "\\\n 'x'");
    EXPECT_EQ(Tokens("a\\"), "'a'");
}

TEST(Tokenizer, LineEndsAndNulsAreNotText)
{
    EXPECT_EQ(Tokens("a\r\nb\nc"s), "'a' 'b' 'c'");
    EXPECT_EQ(Tokens("a\0b"s), "'a' 'b'");
    EXPECT_EQ(Tokens("a\tb"s), "'a\tb'");
}

TEST(Tokenizer, TextSaysWhetherItIsAscii)
{
    EXPECT_EQ(Tokens("a\xE9"), "'a\xE9'!");
    EXPECT_EQ(Tokens("ab"), "'ab'");
}

TEST(Tokenizer, BinaryDataIsOpaqueAndEndsWithTheSource)
{
    EXPECT_EQ(Tokens(R"(\bin3 }{\x)"), "bin[}{\\] 'x'");
    EXPECT_EQ(Tokens(R"(\bin3 ab)"), "bin[ab]");
    EXPECT_EQ(Tokens(R"(\bin2147483647 ab})"), "bin[ab}]");
    EXPECT_EQ(Tokens(R"(\bin-5 ab)"), "bin[] 'ab'");
    EXPECT_EQ(Tokens(R"(\bin0 ab)"), "bin[] 'ab'");
    EXPECT_EQ(Tokens(R"(\bin ab)"), "bin[] 'ab'");
}

TEST(Tokenizer, BinaryDataOfAStringCountsCharacters)
{
    EXPECT_EQ(Tokens("\\bin2 \xC3\xA9\xE2\x82\xACx", SourceKind::Utf8), "bin[\xC3\xA9\xE2\x82\xAC] 'x'");
}

TEST(Tokenizer, AGroupIsSkippedWithAllItHolds)
{
    const auto behind = [](std::string_view source) {
        Tokenizer tokens(source);
        EXPECT_EQ(tokens.Next().kind, TokenKind::Open);
        tokens.SkipGroup();
        return std::string(source.substr(tokens.Offset()));
    };
    EXPECT_EQ(behind("{a{b}c}d"), "d");
    EXPECT_EQ(behind(R"({\{\}\\}d)"), "d");
    EXPECT_EQ(behind(R"({\bin3 }}}}d)"), "d");
    EXPECT_EQ(behind(R"({\binary}d)"), "d");
    EXPECT_EQ(behind(R"({\b}d)"), "d");
    EXPECT_EQ(behind("{{a}"), "");
    EXPECT_EQ(behind("{a\\"), "");
}

TEST(Tokenizer, TheNextGroupIsSkippedOnlyWhereOneComes)
{
    Tokenizer tokens(" \r\n{a}x{b}");
    EXPECT_TRUE(tokens.SkipNextGroup());
    EXPECT_TRUE(tokens.IsAt("x"));
    EXPECT_FALSE(tokens.SkipNextGroup());
    EXPECT_TRUE(tokens.IsAt("x"));
}

}  // namespace
}  // namespace quillmarker
