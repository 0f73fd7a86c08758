#include "engine/rtf/charset.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(Charset, ACharacterSetHasItsCodePage)
{
    EXPECT_EQ(CodePageOfCharset(0), 1252);
    EXPECT_EQ(CodePageOfCharset(2), 42);
    EXPECT_EQ(CodePageOfCharset(77), 10000);
    EXPECT_EQ(CodePageOfCharset(78), 10001);
    EXPECT_EQ(CodePageOfCharset(89), 10007);
    EXPECT_EQ(CodePageOfCharset(128), 932);
    EXPECT_EQ(CodePageOfCharset(130), 1361);
    EXPECT_EQ(CodePageOfCharset(161), 1253);
    EXPECT_EQ(CodePageOfCharset(238), 1250);
    EXPECT_EQ(CodePageOfCharset(255), 850);
}

TEST(Charset, TheDefaultAndUnknownOnesLeaveItToTheDocument)
{
    for (const int charset : {1, 3, 82, 256, -1, 2147483647})
        EXPECT_EQ(CodePageOfCharset(charset), kDocumentPage) << charset;
}

TEST(Charset, TheWayBackGivesTheSameCharacterSet)
{
    int known = 0;
    for (int charset = 0; charset < 256; ++charset)
    {
        const CodePage page = CodePageOfCharset(charset);
        if (page == kDocumentPage)
            continue;
        ++known;
        EXPECT_EQ(CharsetOfCodePage(page), charset);
    }
    EXPECT_EQ(known, 30);
    EXPECT_EQ(CharsetOfCodePage(kDocumentPage), 1);
    EXPECT_EQ(CharsetOfCodePage(kUtf8Page), std::nullopt);
}

}  // namespace
}  // namespace quillmarker
