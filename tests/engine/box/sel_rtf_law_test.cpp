#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

struct Sample
{
    const char* name;
    const char* rtf;
};

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.name; }

constexpr std::array kSamples = {
    Sample{"CharFormats", R"({\rtf1{\fonttbl{\f0 Arial;}{\f1 Courier New;}}{\colortbl;\red255\green0\blue0;}
\fs20 a{\b b{\i c}}{\f1\fs30 d}{\cf1 e}{\v hid}{\up6 f}{\ul g}{\strike h}\par\b i\par})"},
    Sample{"ParagraphFormats", R"({\rtf1\pard\li720\fi-360\tx1440 a\par\pard\qc\sb120 b\par\par
\pard\qr\keepn c\line d\tab e\page f\par})"},
    Sample{"Lists", R"({\rtf1{\pntext\bullet\tab}\pard{\*\pn\pnlvlblt\pnindent360{\pntxtb\bullet}}\li360\fi-360 a\par
{\pntext\bullet\tab}b\par\pard c\par{\pntext 1.\tab}\pard{\*\pn\pnlvlbody\pndec\pnstart1{\pntxta .}}d\par e\par})"},
    Sample{"Table", R"({\rtf1 x\par\trowd\trgaph70\cellx2000\cellx4000\pard\intbl a\cell\b b\cell\row
\trowd\trgaph70\cellx2000\cellx4000\pard\intbl c\par d\cell\cell\row\pard y\par})"},
    Sample{"NestedTable", R"({\rtf1 x\par\pard\intbl\itap2 in\nestcell{\*\nesttableprops\trowd\cellx1000\nestrow}
\pard\intbl\itap1 b\cell{\trowd\cellx3000\row}\pard y\par})"},
    Sample{"Fields", R"({\rtf1 a{\field{\*\fldinst HYPERLINK "http://example.org"}{\fldrslt li{\b nk}}}b
{\field{\*\fldinst PAGE}{\fldrslt 12}}{\field{\*\fldinst PAGE}{\fldrslt 34}}\par})"},
    Sample{"EqualFieldsApart", R"({\rtf1{\field{\*\fldinst PAGE}{\fldrslt 12}}{\field{\*\fldinst PAGE}{\fldrslt 34}}-
{\field{\*\fldinst PAGE}{\fldrslt 56\par 7}}\par{\field{\*\fldinst PAGE}{\fldrslt 89}}})"},
    Sample{"Pictures", R"({\rtf1 a{\pict\pngblip\picw2\pich1\picwgoal300\pichgoal150 89504e470d0a1a0a}b\par
{\pict\wmetafile8\picw100\pich100 0100090000}\par})"},
    Sample{"Sections", R"({\rtf1{\header\pard h\par}a\par\sect\sectd\cols2 b\par c\sect\sectd d\par})"},
    Sample{"Notes", R"({\rtf1 a{\footnote\pard note\par}b{\object\objemb{\*\objclass X}{\*\objdata 0102}
{\result\pard r\par}}c\par})"},
    Sample{"Supplementary", "{\\rtf1 a\\u-10179?\\u-9020?b\\par}"},
};

class SelRtfLaw : public ::testing::TestWithParam<Sample>
{
};

// The law holds for every selection of the document, the empty ones too.
TEST_P(SelRtfLaw, PuttingBackWhatWasReadChangesNothing)
{
    TextBox box;
    box.SetTextRTFBytes(GetParam().rtf);
    const Document before = box.Value();
    ASSERT_GT(before.Size(), 3);
    int failures = 0;
    for (std::int32_t start = 0; start <= before.Size() && failures < 3; ++start)
    {
        for (std::int32_t end = start; end <= before.Size() && failures < 3; ++end)
        {
            box.OpenValue(before);
            box.SetSelStart(start);
            box.SetSelLength(end - start);
            const Selection selected{box.SelStart(), box.SelLength()};
            const std::u16string rtf = box.SelRTF();
            box.SetSelRTF(rtf);
            EXPECT_EQ(box.SelStart(), selected.start + selected.length);
            EXPECT_EQ(box.SelLength(), 0);
            const bool isSame = SameContent(box.Value(), before);
            EXPECT_TRUE(isSame) << "selection " << selected.start << "+" << selected.length << "\n"
                                << std::string(rtf.begin(), rtf.end()) << "\nwas\n"
                                << Dump(before) << "is\n"
                                << Dump(box.Value());
            failures += isSame ? 0 : 1;
        }
    }
}

// Equal neighbours are told apart by their order alone, whichever was there first.
TEST(SelRtf, PartsOfTwoEqualFieldsPutBackStayPartsOfThem)
{
    constexpr std::u16string_view kLink = uR"({\rtf1{\field{\*\fldinst HYPERLINK "x"}{\fldrslt link}}})";
    TextBox box;
    box.SetSelRTF(kLink);
    box.SetSelStart(0);
    box.SetSelRTF(kLink);  // the new one stands before the old one
    const Document before = box.Value();
    box.SetSelStart(0);
    box.SetSelLength(6);
    box.SetSelRTF(box.SelRTF());
    EXPECT_TRUE(SameContent(before, box.Value())) << Dump(box.Value());
}

TEST(SelRtf, APartOfAnEqualFieldBehindAParagraphIsThatFieldAgain)
{
    constexpr std::u16string_view kLink = uR"({\rtf1{\field{\*\fldinst HYPERLINK "x"}{\fldrslt link}}})";
    TextBox box;
    box.SetSelText(u"before\r\n");
    box.SetSelRTF(kLink);
    box.SetSelRTF(kLink);
    const Document before = box.Value();
    for (const std::int32_t start : {0, 3, 6, 8, 10, 12, 14})
    {
        box.SetSelStart(start);
        box.SetSelLength(5);
        box.SetSelRTF(box.SelRTF());
        EXPECT_TRUE(SameContent(before, box.Value())) << start << Dump(box.Value());
    }
}

TEST_P(SelRtfLaw, TheWholeLooksTheSameInAnotherBox)
{
    TextBox box;
    box.SetTextRTFBytes(GetParam().rtf);
    box.SetSelLength(box.TextLength());
    TextBox other;
    other.SetSelRTF(box.SelRTF());
    EXPECT_EQ(other.Text(), box.Text());
    EXPECT_EQ(DumpSample(other.Value()), DumpSample(box.Value()));
}

INSTANTIATE_TEST_SUITE_P(Samples, SelRtfLaw, ::testing::ValuesIn(kSamples),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace quillmarker
