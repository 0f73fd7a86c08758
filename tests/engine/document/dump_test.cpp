#include "engine/document/dump_values.h"
#include "support/golden.h"
#include "support/sample.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

// One of everything a document can hold.
constexpr const char* kRich = R"({\rtf1\ansi\deff0
{\fonttbl{\f0\fswiss Arial;}{\f1\froman Times New Roman;}}
{\colortbl;\red255\green0\blue0;\red0\green128\blue0;}
{\info{\title Report}{\author Someone}}
\paperw11906\paperh16838\margl1134\deftab567
{\header\pard\qr Head\par}
\pard\li720\fi-360\tx1440\tqr\tldot\tx5000\f0\fs20 Plain {\b bold {\i both}}\par
\pard\qc\sb120\sl360\slmult1\keepn\brdrb\brdrs\brdrw15 {\f1\fs28\cf1\highlight2\up6 raised}{\v hidden}{\ul under}\par
{\pntext\bullet\tab}\pard{\*\pn\pnlvlblt\pnindent360{\pntxtb\bullet}}item\par
\trowd\trgaph70\trleft-70\clbrdrt\brdrs\cellx2000\clcbpat2\cellx4000\pard\intbl left\cell right\cell\row
\pard Before {\field{\*\fldinst HYPERLINK "http://example.org"}{\fldrslt link}} note{\footnote\pard small\par}
{\pict\pngblip\picw2\pich1\picwgoal300\pichgoal150 89504e470d0a1a0a}\line page\page end\par
\sect\sectd\cols2 Last "quoted" \\ \u8364?\par})";

TEST(Dump, ShowsEverythingADocumentHolds)
{
    ExpectGolden("tests/engine/document/golden/rich.txt", Dump(ReadRtf(std::string_view(kRich))));
}

TEST(Dump, IsOneLineForAnEmptyDocumentAndItsMark) { EXPECT_EQ(Dump(Document(CharFormat())), "paragraph\n  mark\n"); }

TEST(Dump, QuotesWhatCannotBeSeen)
{
    EXPECT_EQ(Quoted(u"a\t\"\\\u00E4\uFFFC"), "\"a\\u0009\\u0022\\u005c\xC3\xA4\\ufffc\"");
    EXPECT_EQ(Quoted(u"\U0001F4C4"), "\"\\ud83d\\udcc4\"");
    EXPECT_EQ(Quoted(u""), "\"\"");
}

TEST(Dump, DiffersWhereContentDiffers)
{
    EXPECT_NE(Dump(SampleDocument("a<b>b</b>")), Dump(SampleDocument("ab")));
    EXPECT_NE(Dump(SampleDocument("a\n")), Dump(SampleDocument("a")));
    EXPECT_NE(Dump(SampleDocument("a<cell/>")), Dump(SampleDocument("a\n")));
    EXPECT_NE(Dump(SampleDocument("<pic/>")), Dump(SampleDocument(" ")));
}

}  // namespace
}  // namespace quillmarker
