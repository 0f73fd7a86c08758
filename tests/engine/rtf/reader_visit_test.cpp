#include "engine/rtf/rtf_sample.h"
#include "engine/rtf/visited_document.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmarker
{
namespace
{

const std::string kSources[] = {
    Sample(""),
    Sample("a"),
    Sample("a\\par"),
    Sample("a\\par\\par"),
    Sample("a\\par b{\\b c}\\par\\pard\\qc d"),
    Sample("\\trowd\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row\\pard c\\par"),
    Sample("\\trowd\\cellx1000\\intbl a\\cell\\row"),
    Sample("a{\\footnote note\\par two}b\\par c"),
    Sample("{\\header\\pard h\\par}a\\par\\sectd\\cols2 b\\sect"),
    Sample("a\\sect\\sectd b\\par"),
    Sample("x{\\field{\\*\\fldinst X}{\\fldrslt a\\par b}}c{\\object{\\result r\\par s}}\\par"),
    "plain text\nof two lines",
    "",
};

TEST(VisitRtf, GivesTheParagraphsThatReadingGives)
{
    for (const std::string& source : kSources)
    {
        for (const RtfScope scope : {RtfScope::Document, RtfScope::Fragment})
        {
            const Document document = ReadRtf(source, {.scope = scope});
            const Document visited = VisitedDocument(source, document, {.scope = scope});
            EXPECT_TRUE(SameContent(visited, document)) << source << '\n' << Dump(document) << Dump(visited);
        }
    }
}

TEST(VisitRtf, StopsWhenTheVisitorHasSeenEnough)
{
    for (const std::string& source : {Sample("a\\par b\\par c\\par d"), std::string("a\nb\nc\nd")})
    {
        const Document document = ReadRtf(source);
        ASSERT_EQ(document.ParagraphCount(), 4);
        for (std::size_t most = 1; most <= 4; ++most)
            EXPECT_EQ(VisitedDocument(source, document, {}, most).Text(),
                      std::u16string_view(u"a\r\nb\r\nc\r\nd").substr(0, most * 3 - 2));
    }
}

}  // namespace
}  // namespace quillmarker
