#include "engine/rtf/writer_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace quillmarker
{
namespace
{

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// What is written for the text alone, without the head.
std::string Written(std::string_view body)
{
    const std::string all = WriteRtf(ReadSample(body));
    const std::size_t begin = all.find("\\pard");
    return begin == all.npos ? all : all.substr(begin);
}

TEST(WriteText, TheSourceIsSevenBit)
{
    const Document document =
        ReadRtf(u"{\\rtf1{\\fonttbl{\\f0 F\u00F6nt\u4E2D;}}\\f0 \u00E4\u20AC\u4E2D\U0001F43B\uF0B7}");
    const std::string written = WriteRtf(document);
    EXPECT_TRUE(std::ranges::all_of(written, [](char c) { return c == '\r' || c == '\n' || (c >= 0x20 && c < 0x7F); }));
    EXPECT_TRUE(SameContent(ReadRtf(written), document));
}

TEST(WriteText, ABackslashIsAByte)
{
    const std::string written = Written(R"(a\\b)");
    EXPECT_THAT(written, HasSubstr(R"(a\'5cb)"));
    EXPECT_THAT(written, Not(HasSubstr(R"(\\)")));
    EXPECT_EQ(TextOf(WriteRtf(ReadSample(R"(\\par \{\})"))), "\\par {}");
}

TEST(WriteText, NoTextLooksLikeAControlWord)
{
    const std::string written = Written(R"(\\v\\up8\\upr\\par)");
    for (const char* word : {"\\v ", "\\v\\", "\\up8", "\\upr"})
        EXPECT_THAT(written, Not(HasSubstr(word)));
}

TEST(WriteText, TheTwofoldFormIsNeverWritten)
{
    EXPECT_THAT(WriteRtf(ReadSample(R"({\upr{x}{\*\ud{\u945?}}})")), Not(HasSubstr("\\upr")));
}

TEST(WriteText, AParagraphsWordsStandBeforeAFieldThatBeginsIt)
{
    const std::string written = Written(R"(\pard\qc{\field{\*\fldinst X}{\fldrslt a}}b\par)");
    EXPECT_THAT(written, StartsWith(R"(\pard\qc {\field{\*\fldinst X}{\fldrslt \plain)"));
    EXPECT_EQ(written.rfind("\\pard"), 0U);  // nor are they said again behind it
}

TEST(WriteText, AFieldThatEndedWithAParagraphIsClosedBeforeTheNextOnesWords)
{
    const std::string written =
        Written(R"(\pard\ql{\field{\*\fldinst X}{\fldrslt a\par}}\pard\qc{\field{\*\fldinst Y}{\fldrslt b}}\par)");
    EXPECT_THAT(written, HasSubstr(R"(}}\pard\qc {\field{\*\fldinst Y})"));
}

TEST(WriteText, TheNumberOfAParagraphStandsBeforeAFieldThatBeginsIt)
{
    const std::string written =
        Written(R"(\pard{\*\pn\pnlvlbody\pndec{\pntxta .}}{\field{\*\fldinst X}{\fldrslt a}}\par)");
    EXPECT_LT(written.find("{\\pntext"), written.find("{\\field"));
}

TEST(WriteText, ALanguageEndsWithoutANumberThatIsNone)
{
    const std::string written = Written(R"(\pard\plain a\lang1031 b\lang0\b c\par)");
    EXPECT_THAT(written, HasSubstr("\\lang1031 b\\plain\\f0"));
    EXPECT_THAT(written, Not(HasSubstr("\\lang0")));
    const Document again = ReadRtf(WriteRtf(ReadSample(R"(\pard\plain a\lang1031 b\lang0\b c\par)")));
    EXPECT_EQ(CharsAt(again, 0).language, 0);
    EXPECT_EQ(CharsAt(again, 1).language, 1031);
    EXPECT_EQ(CharsAt(again, 2).language, 0);
    EXPECT_TRUE(CharsAt(again, 2).bold);
}

TEST(WriteText, SpecialCharactersAreWords)
{
    const std::string written = Written(R"(a\tab\line\page\column\~\-\_\{\}b)");
    EXPECT_THAT(written, HasSubstr(R"(a\tab \line \page \column \~\-\_\{\}b)"));
}

TEST(WriteText, ACharacterBeyondAsciiHasAFallbackOfOneByte)
{
    EXPECT_THAT(Written(R"(\u228?)"), HasSubstr(R"(\u228\'e4)"));
    EXPECT_THAT(Written(R"(\u945?)"), HasSubstr(R"(\u945?)"));
    EXPECT_THAT(Written(R"(\u-3913?)"), HasSubstr(R"(\u-3913?)"));
    EXPECT_THAT(Written(R"(\u128059?)"), HasSubstr(R"(\u-10179?\u-9157?)"));
}

TEST(WriteText, ADocumentEndsWithItsBreakAndAFragmentWithItsOwn)
{
    const Document one = ReadSample("T\\par");
    EXPECT_THAT(WriteRtf(one), EndsWith("T\\par\r\n}\r\n"));
    EXPECT_THAT(WriteRtf(one, RtfScope::Fragment), EndsWith("T}\r\n"));
    const Document two = ReadSample("T\\par\\par");
    EXPECT_THAT(WriteRtf(two), EndsWith("T\\par\r\n\\par\r\n}\r\n"));
    EXPECT_THAT(WriteRtf(two, RtfScope::Fragment), EndsWith("T\\par\r\n}\r\n"));
}

TEST(WriteText, FontAndSizeStandBeforeAnOffset)
{
    const std::string written = Written(R"(a\f1\fs40\up8 b\fs30 c\dn6 d\b e)");
    EXPECT_THAT(written, HasSubstr("\\f1\\fs40\\up8 b"));
    EXPECT_THAT(written, HasSubstr("\\fs30\\up8 c"));
    EXPECT_THAT(written, HasSubstr("\\fs30\\dn6 d"));
    EXPECT_THAT(written, HasSubstr("\\fs30\\dn6\\b e"));
}

TEST(WriteText, EveryRunWithAnOffsetStatesItsSize)
{
    for (const char* words :
         {"\\b", "\\i", "\\cf1", "\\f1", "\\fs50", "\\v", "\\ul", "\\expndtw5", "\\super", "\\caps"})
    {
        const std::string written = Written(std::string("x\\up8 a") + words + " b");
        const std::size_t behindA = written.find(" a\\") + 2;
        ASSERT_NE(behindA, written.npos + 2) << written;
        const std::size_t up = written.find("\\up8", behindA);
        const std::size_t size = written.find("\\fs", behindA);
        ASSERT_NE(up, written.npos) << written;
        EXPECT_LT(size, up) << written;
        const std::size_t font = written.find("\\f1", behindA);
        if (font != written.npos)
        {
            EXPECT_LT(font, up) << written;
        }
    }
}

TEST(WriteText, TheFirstTextWithAnOffsetStatesItsSizeToo)
{
    const std::string written = Written(R"(\fs24\up8 a)");
    EXPECT_LT(written.find("\\fs24"), written.find("\\up8"));
}

TEST(WriteText, HiddenDigitsStayText)
{
    for (const char* text : {"0", "1", "27", "007", "-1", "1 2"})
    {
        const Document document = ReadSample(std::string("a{\\v ") + text + "}b");
        const Document again = ReadRtf(WriteRtf(document));
        EXPECT_TRUE(SameContent(document, again)) << text << '\n' << WriteRtf(document);
        EXPECT_EQ(ToUtf8(again.Text()), std::string("a") + text + "b");
    }
}

TEST(WriteText, SizesAndOffsetsAreRoundedToHalfPoints)
{
    CharFormat format = DefaultCharFormat();
    format.size = Twips{203};
    format.offset = Twips{-47};
    const Document again = ReadRtf(WriteRtf(OneParagraph(format)));
    EXPECT_EQ(CharsAt(again, 6).size, Twips{200});
    EXPECT_EQ(CharsAt(again, 6).offset, Twips{-50});
}

TEST(WriteText, EveryUnitComesBack)
{
    std::u16string text;
    for (unsigned unit = 0x20; unit <= 0xFFFD; ++unit)
    {
        if ((unit < 0xD800 || unit > 0xDFFF) && unit != kObjectCharacter)
            text += static_cast<char16_t>(unit);
    }
    const Document document = ReadRtf(std::u16string_view(text));
    ASSERT_EQ(document.Text(), text);
    EXPECT_EQ(ReadRtf(WriteRtf(document)).Text(), text);
}

TEST(WriteText, AnEmptyDocumentIsWrittenToo)
{
    const Document document = ReadRtf(WriteRtf(Document()));
    EXPECT_TRUE(SameContent(document, Document()));
}

}  // namespace
}  // namespace quillmarker
