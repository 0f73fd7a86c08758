#include "engine/rtf/hostile_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

/// Something of everything, as short as it can be said.
const std::string kRich = Sample(
    R"({\stylesheet{\s1 head;}{\*\cs2 strong;}}{\*\listtable{\list{\listlevel\levelnfc0{\leveltext\'02\'00.;}{\levelnumbers\'01;}\f2}\listid5}})"
    R"({\*\listoverridetable{\listoverride\listid5\listoverridecount0\ls1}}{\info{\title T\'e9}{\creatim\yr2024\mo1}\version2})"
    R"(\paperw9000\margl100\deftab360\sectd\cols2{\header h\chpgn\par}{\footerf\pard\qc f\par})"
    R"(\pard\s1\qc\fi-10\li20\sb5\sl-300\slmult0\tqr\tldot\tx900\brdrt\brdrs\brdrw5\cbpat2 a{\b\i\ul\cf1\highlight2\up6\fs30 b}\par)"
    R"(\pard{\listtext 1.\tab}\ls1 \u945 ?\u-10180?\u-9157?{\v 12}\'e9\par\pard{\*\pn\pnlvlbody\pndec{\pntxta )}}n\par)"
    R"(\pard{\field\fldlock{\*\fldinst HYPERLINK "x"}{\fldrslt{\cs2 l}{\field{\*\fldinst PAGE}{\fldrslt 1}}}}{\upr{u}{\*\ud{\u228?}}})"
    R"({\pict\pngblip\picw2\picscalex50 89504e}{\*\shppict{\pict\wmetafile8\bin3 }{\}}{\object\objemb{\*\objclass C}{\*\objdata 01}{\result r}})"
    R"({\footnote\ftnalt n}{\*\atnauthor A}{\*\annotation c}\par\trowd\trgaph9\trhdr\clvmgf\clbrdrl\brdrdb\clcbpat1\cellx50\cellx99)"
    R"(\pard\intbl x\cell\pard\intbl\itap2 y\nestcell{\*\nesttableprops\trowd\cellx9\nestrow}{\nonesttables\par}\pard\intbl z\cell\row)"
    R"(\pard\sect\sectd\sbknone{\shp{\*\shpinst{\shptxt t\par}}}{\*\unknown u}\unknown3\page\line\~\-\_\{\\\}\emdash\par)");

/// The bounds and the laws of a round trip, for a source that was damaged at `place`.
void ExpectHarmless(const std::string& source, std::size_t place)
{
    SCOPED_TRACE(place);
    Document document;
    const MemoryUse use = Measured([&] { document = ReadRtf(source); });
    ASSERT_LE(use.peak, source.size() * 100 + (1 << 20));
    ASSERT_LE(use.allocations, source.size() * 4 + 1'000);
    ASSERT_LE(static_cast<std::size_t>(document.Size()), source.size() * 2);
    const std::string written = WriteRtf(document);
    ASSERT_LE(written.size(), source.size() * 10 + 4'096);
    const Document again = ReadRtf(written);
    ASSERT_TRUE(SameContent(again, document)) << source << '\n' << written << '\n' << Dump(document) << Dump(again);
    ASSERT_EQ(WriteRtf(again), written) << source;
}

template <class Change>
void DamageEachByte(const Change& change)
{
    ReadRtf(kRich);  // tables of code pages are made once
    for (std::size_t place = 6; place < kRich.size(); ++place)
    {
        std::string damaged = kRich;
        change(damaged, place);
        ExpectHarmless(damaged, place);
        if (testing::Test::HasFatalFailure())
            return;
    }
}

TEST(DamagedSource, WithoutDamageItIsReadWhole)
{
    const Document document = ReadRtf(kRich);
    EXPECT_EQ(document.Properties().info.size(), 1U);
    EXPECT_GE(document.ParagraphCount(), 12);
    EXPECT_NE(document.Text().find(u"{\\}\u2014"), std::u16string::npos);
    ExpectHarmless(kRich, 0);
}

TEST(DamagedSource, CutOffAnywhere)
{
    DamageEachByte([](std::string& source, std::size_t place) { source.resize(place); });
}

TEST(DamagedSource, AnyByteLeftOut)
{
    DamageEachByte([](std::string& source, std::size_t place) { source.erase(place, 1); });
}

TEST(DamagedSource, AnyByteTwice)
{
    DamageEachByte([](std::string& source, std::size_t place) { source.insert(place, 1, source[place]); });
}

TEST(DamagedSource, ADigitPutInAnywhere)
{
    DamageEachByte([](std::string& source, std::size_t place) { source.insert(place, 1, '7'); });
}

TEST(DamagedSource, AnyBitOfAByteFlipped)
{
    for (const unsigned bit : {0x01U, 0x80U})
        DamageEachByte([=](std::string& source, std::size_t place) {
            source[place] = static_cast<char>(static_cast<unsigned char>(source[place]) ^ bit);
        });
}

TEST(DamagedSource, AnyByteReplacedBySyntax)
{
    for (const char byte : {'{', '}', '\\', '\'', '0', '\0'})
        DamageEachByte([=](std::string& source, std::size_t place) { source[place] = byte; });
}

}  // namespace
}  // namespace quillmarker
