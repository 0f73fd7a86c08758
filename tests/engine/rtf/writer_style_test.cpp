#include "engine/document/edit.h"
#include "engine/rtf/writer_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillmarker
{
namespace
{

using testing::HasSubstr;
using testing::Not;

/// The style sheet that is written for a document with this one.
std::string WrittenStyles(std::string_view styles, std::string_view text, std::string_view behind = "")
{
    const std::string body = "{\\stylesheet" + std::string(styles) + "}" + std::string(behind) + std::string(text);
    const Document document = ReadSample(body);
    ExpectSurvives(document, body);
    const std::string all = WriteRtf(document);
    const std::size_t begin = all.find("{\\stylesheet");
    return begin == all.npos ? "" : all.substr(begin, all.find("\r\n", begin) - begin);
}

TEST(WriteStyles, AParagraphStyleKeepsItsFormats)
{
    EXPECT_EQ(
        WrittenStyles(R"({\s5\qc\li100\sb240\keepn\tqr\tx900\f1\fs28\b\cf2\sqformat\spriority9 Head;})",
                      R"(\pard\plain\s5 x\par)"),
        R"({\stylesheet{\s0 Normal;}{\s1\keepn\qc\li100\sb240\tqr\tx900\f1\fs28\cf1\b\sqformat\spriority9 Head;}})");
}

TEST(WriteStyles, ACharacterStyleStatesOnlyWhatItStated)
{
    EXPECT_EQ(WrittenStyles(R"({\*\cs7\additive\i\lang1031 Word;})", R"(\pard\plain a{\cs7\i b}\par)"),
              R"({\stylesheet{\s0 Normal;}{\*\cs1001\lang1031\i\additive Word;}})");
    EXPECT_EQ(WrittenStyles(R"({\*\cs7\f0\fs28 Word;})", R"(\pard\plain a{\cs7 b}\par)"),
              R"({\stylesheet{\s0 Normal;}{\*\cs1001\f0\fs28 Word;}})");
}

TEST(WriteStyles, AnOffsetHasItsSize)
{
    EXPECT_EQ(WrittenStyles(R"({\*\cs7\up6 Word;})", R"(\pard\plain a{\cs7\up6 b}\par)"),
              R"({\stylesheet{\s0 Normal;}{\*\cs1001\fs24\up6 Word;}})");
}

TEST(WriteStyles, AStyleBringsThoseItIsBasedOn)
{
    constexpr auto kStyles =
        R"({\s3\sbasedon4\snext9 A;}{\s4\i\sbasedon5\snext3 B;}{\s5\b\sbasedon0\snext0 C;}{\s9 D;})";
    EXPECT_EQ(WrittenStyles(kStyles, R"(\pard\plain\s3 x\par)"),
              R"({\stylesheet{\s0 Normal;}{\s1\sbasedon2 A;}{\s2\i\sbasedon3\snext1 B;}{\s3\b\sbasedon0\snext0 C;}})");
    EXPECT_EQ(WrittenStyles(R"({\s3\sbasedon222\snext3 A;})", R"(\pard\plain\s3 x\par)"),
              R"({\stylesheet{\s0 Normal;}{\s1\snext1 A;}})");
    // Styles that are based on one another in a circle.
    EXPECT_EQ(WrittenStyles(R"({\s3\sbasedon4 A;}{\s4\sbasedon3 B;})", R"(\pard\plain\s3 x\par)"),
              R"({\stylesheet{\s0 Normal;}{\s1\sbasedon2 A;}{\s2\sbasedon1 B;}})");
}

TEST(WriteStyles, AStyleIsInTheListItWasIn)
{
    constexpr auto kLists =
        R"({\*\listtable{\list{\listlevel\levelnfc0{\leveltext\'02\'00.;}{\levelnumbers\'01;}}\listid5}})"
        R"({\*\listoverridetable{\listoverride\listid5\listoverridecount0\ls2}})";
    EXPECT_THAT(WrittenStyles(R"({\s3\ls2\ilvl0 A;})", R"(\pard\plain\s3 x\par)", kLists),
                HasSubstr(R"({\s1\ls2\ilvl0 A;})"));
    EXPECT_THAT(WrittenStyles(R"({\s3\ls7 A;})", R"(\pard\plain\s3 x\par)"), HasSubstr(R"({\s1 A;})"));
}

TEST(WriteStyles, NothingBeforeAStylesNumberGetsIntoIt)
{
    EXPECT_EQ(WrittenStyles(R"(\b\qc\box\brdrs{\i\s3 A;})", R"(\pard\plain\s3 x\par)"),
              R"({\stylesheet{\s0 Normal;}{\s1 A;}})");
}

TEST(WriteStyles, TheFirstDefinitionOfANameHolds)
{
    EXPECT_EQ(WrittenStyles(R"({\s3\b A;}{\s4\i A;})", R"(\pard\plain\s4 x\par)"),
              R"({\stylesheet{\s0 Normal;}{\s1\b A;}})");
}

TEST(WriteStyles, DefinitionsDoNotChangeTheText)
{
    const Document document = ReadSample(R"({\stylesheet{\s3\b\qc A;}}\pard\plain\s3 x\par)");
    EXPECT_FALSE(CharsAt(document, 0).bold);
    EXPECT_EQ(ParagraphOf(document).alignment, Alignment::Left);
    EXPECT_EQ(CharsAt(document, 0).font, Name(u"Arial"));
}

TEST(WriteStyles, APartTakesItsStylesAlong)
{
    const Document part =
        ReadSample(R"({\stylesheet{\s3\b\sbasedon4 A;}{\s4\i B;}{\*\cs8\ul W;}}\pard\plain\s3 x{\cs8 y}\par w\par)");
    const Document into = ReadSample(R"({\stylesheet{\s1\qr B;}}\pard\plain\s1 z\par)");
    const std::string written = WriteRtf(WithFragment(into, {{0}, {0}}, part));
    EXPECT_THAT(written, HasSubstr(R"(\b\sbasedon)"));
    EXPECT_THAT(written, HasSubstr(R"(\qr B;})"));  // what a style means there is not changed
    EXPECT_THAT(written, Not(HasSubstr(R"(\i B;})")));
    EXPECT_THAT(written, HasSubstr(R"(\ul W;})"));
    EXPECT_EQ(WriteRtf(ReadRtf(written)), written);
}

}  // namespace
}  // namespace quillmarker
