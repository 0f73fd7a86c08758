#include "engine/document/edit.h"
#include "engine/rtf/writer_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

constexpr const char* kRich =
    R"(\pard\qc one {\b bold}{\v 12}\par\pard\li300{\pict\pngblip 0102}x{\field{\*\fldinst PAGE}{\fldrslt 1}}\par)"
    R"(\trowd\cellx1000\cellx2000\pard\intbl a\cell b\cell\row\pard{\up8 c}{\footnote note}\par last)";

Document ReadFragment(const std::string& source) { return ReadRtf(source, {.scope = RtfScope::Fragment}); }

TEST(WriteFragments, EverySliceKeepsItsTextAndItsBreaks)
{
    const Document document = ReadSample(kRich);
    for (std::int32_t begin = 0; begin <= document.Size(); ++begin)
    {
        for (std::int32_t end = begin; end <= document.Size(); ++end)
        {
            const Document slice = Slice(document, {{begin}, {end}});
            const Document again = ReadFragment(WriteRtf(slice, RtfScope::Fragment));
            ASSERT_EQ(ToUtf8(again.Text()), ToUtf8(slice.Text())) << begin << " to " << end;
        }
    }
}

TEST(WriteFragments, EverySliceKeepsItsFormats)
{
    const Document document = ReadSample(kRich);
    int slices = 0;
    for (std::int32_t begin = 0; begin <= document.Size(); ++begin)
    {
        for (std::int32_t end = begin + 1; end <= document.Size(); ++end)
        {
            const Document slice = Slice(document, {{begin}, {end}});
            const std::string written = WriteRtf(slice, RtfScope::Fragment);
            const Document again = ReadFragment(written);
            const std::int32_t last = slice.ParagraphCount() - 1;
            ASSERT_EQ(again.ParagraphCount(), slice.ParagraphCount()) << begin << " to " << end << written;
            for (std::int32_t i = 0; i < last; ++i)
                ASSERT_EQ(DumpOf(ParagraphOf(again, i)), DumpOf(ParagraphOf(slice, i))) << written;
            for (std::int32_t i = 0; i <= last; ++i)
            {
                const Paragraph& wanted = slice.ParagraphAt(i);
                for (std::uint32_t at = 0; at < wanted.Text().size(); ++at)
                    ASSERT_EQ(DumpOf(again.FormatOf(again.ParagraphAt(i).FormatAt(at))),
                              DumpOf(slice.FormatOf(wanted.FormatAt(at))))
                        << begin << " to " << end << " at " << at << written;
            }
            ++slices;
        }
    }
    EXPECT_GT(slices, 400);
}

TEST(WriteFragments, WritingAFragmentTwiceGivesTheSameBytes)
{
    const std::string once = WriteRtf(ReadFragment(Sample(kRich)), RtfScope::Fragment);
    EXPECT_EQ(WriteRtf(ReadFragment(once), RtfScope::Fragment), once);
}

TEST(WriteFragments, AFragmentWithoutABreakHasNone)
{
    const Document document = ReadSample("one\\par two");
    const auto written = [&](std::int32_t begin, std::int32_t end) {
        return WriteRtf(Slice(document, {{begin}, {end}}), RtfScope::Fragment);
    };
    EXPECT_EQ(written(0, 3).find("\\par\r"), std::string::npos);
    EXPECT_NE(written(0, 5).find("\\par\r"), std::string::npos);
    EXPECT_EQ(ReadFragment(written(0, 5)).Text(), u"one\r\n");
    EXPECT_EQ(ReadFragment(written(1, 7)).Text(), u"ne\r\ntw");
}

TEST(WriteFragments, AFragmentSaysNothingOfTheDocument)
{
    const Document document = ReadSample(R"(\paperw5000{\info{\title Secret}}{\header Secret\par}x\par)");
    const std::string written = WriteRtf(Slice(document, {{0}, {1}}), RtfScope::Fragment);
    EXPECT_EQ(written.find("Secret"), std::string::npos);
    EXPECT_EQ(written.find("\\paperw"), std::string::npos);
}

}  // namespace
}  // namespace quillmarker
