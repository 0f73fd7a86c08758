#include "layout_dump.h"
#include "support/fixed_font_host.h"
#include "support/golden.h"

#include "engine/layout/paragraph_context.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

#include <chrono>

namespace quillmarker
{
namespace
{

struct Case
{
    const char* name;
    const char* rtf;  // the body of a document in a fixed font, 10 points: a character is 100 wide, a line 200 high
    Twips width;
};

// One row for each thing that a paragraph can ask of its lines.
constexpr Case kCases[] = {
    {"left", "the quick brown fox jumps over the lazy dog", {1000}},
    {"right", "\\qr the quick brown fox jumps", {1000}},
    {"centre", "\\qc the quick brown fox jumps", {1000}},
    {"justify", "\\qj a b c dddd eeee ffff gggg", {1000}},
    {"indents", "\\li200\\ri100\\fi-200 aaa bbb ccc ddd eee fff", {1000}},
    {"first", "\\fi300 aaa bbb ccc ddd eee fff", {1000}},
    {"space", "\\sb120\\sa240 aaa bbb ccc", {1000}},
    {"at_least", "\\sl300\\slmult0 aaa bbb ccc", {1000}},
    {"exactly", "\\sl-150\\slmult0 aaa bbb ccc", {1000}},
    {"multiple", "\\sl360\\slmult1 aaa bbb ccc", {1000}},
    {"tabs_left", "\\tx500 a\\tab b\\tab c\\tab d", {3000}},
    {"tabs_kinds", "\\tqr\\tx500\\tqc\\tx1000\\tqdec\\tx1500 a\\tab bb\\tab cc\\tab 12.34", {3000}},
    {"tabs_leaders", "\\tldot\\tx500\\tlhyph\\tqr\\tx1000\\tlul\\tx1500 a\\tab b\\tab c\\tab d", {3000}},
    {"tabs_bar", "\\tb400\\tx800 a\\tab b", {3000}},
    {"tab_at_margin", "\\tqr\\tx1200 a\\tab bb", {1000}},
    {"tab_wraps", "aaaaaaa\\tab bbbb cccc", {1000}},
    {"bullet",
     "{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnindent360{\\pntxtb\\'b7}}\\fi-360\\li360 one two three four",
     {1200}},
    {"number", "{\\*\\pn\\pnlvlbody\\pndec\\pnstart7\\pnindent300{\\pntxta .}}\\fi-300\\li300 one two three", {1200}},
    {"breaks", "one\\line two\\page three\\column four", {3000}},
    {"hidden", "one {\\v hidden words }two three", {700}},
    {"hidden_all", "\\v all of it", {700}},
    {"hidden_before_a_long_word", "{\\v hid}abcdefghij", {600}},
    {"offset", "a{\\up10 b}{\\dn10 c}", {3000}},
    {"scripts", "a{\\super b}{\\sub c}", {3000}},
    {"underlines", "{\\ul one }{\\uldb two}{\\ulw three four}", {3000}},
    {"strikes", "{\\strike one}{\\striked1 two}", {3000}},
    {"capitals", "{\\caps Aa}{\\scaps Bb}", {3000}},
    {"spacing", "{\\expndtw20 abc}{\\charscalex200 d}", {3000}},
    {"distribute", "\\qd a b cc dddd ee f", {1000}},
    {"justify_before_hidden", "\\qj a bb {\\v hidden} cccccc", {700}},
    {"tab_behind_margin", "aaaaaaaaaa\\tab b\\tab c", {1000}},
    {"underline_words_hebrew", "\\rtlpar{\\ulw \\u1488?\\u1489? \\u1490?}", {1000}},
    {"picture_too_wide", "{\\pict\\pngblip\\picwgoal400\\pichgoal100 89504e47}", {300}},
    {"pictures",
     "{\\pict\\pngblip\\picwgoal100\\pichgoal100 89504e47}a{\\pict\\pngblip\\picwgoal200\\pichgoal200 "
     "89504e47}{\\pict\\pngblip\\picwgoal300\\pichgoal300 89504e47}",
     {3000}},
    {"link_of_many_formats",
     "{\\field{\\*\\fldinst HYPERLINK \"http://example.org\"}{\\fldrslt a{\\b b}{\\i c} d}}{\\field{\\*\\fldinst "
     "HYPERLINK \"http://example.org\"}{\\fldrslt e}}",
     {3000}},
    {"spacing_kerned", "{\\kerning1\\expndtw20 aAVa}", {3000}},
    {"spacing_combining", "{\\expndtw20 e\\u769?ae\\u769?}", {3000}},
    {"spacing_hebrew", "\\rtlpar{\\expndtw20 \\u1488?\\u1489?\\u1490?}", {3000}},
    {"hebrew_frame",
     "\\rtlpar\\li100\\ri300\\fi-200\\brdrt\\brdrs\\brdrw20\\tb400\\tx800 \\u1488?\\tab \\u1489?",
     {1000}},
    {"hebrew_unwrapped", "\\rtlpar \\u1488?\\u1489?   ", {0}},
    {"soft_hyphen", "abcd\\-efgh\\-ijkl", {600}},
    {"soft_hyphen_no_room", "abcdef\\-gh", {600}},
    {"long_word", "abcdefghijklmno", {600}},
    {"blanks_hang", "abcdef      ghi", {600}},
    {"unwrapped", "one two three four five", {0}},
    {"empty", "", {1000}},
    {"big_in_line", "a{\\fs40 B}c", {1000}},
    {"hebrew", "\\rtlpar\\qr abc \\u1488?\\u1489?\\u1490? def", {3000}},
    {"hebrew_in_latin", "abc \\u1488?\\u1489? \\u1490?\\u1491? def", {3000}},
    {"surrogates", "a\\u-10179?\\u-8704?b", {3000}},
    {"combining", "e\\u769?a", {3000}},
    {"borders", "\\brdrt\\brdrs\\brdrw20\\brsp40\\brdrb\\brdrdb\\brdrw30\\brsp20 aaa bbb ccc", {1000}},
    {"shading", "\\shading2500\\cbpat0 aaa", {1000}},
    {"highlight", "a{\\highlight1 bb}{\\highlight1\\b cc}d", {1000}},
    {"picture", "a{\\pict\\pngblip\\picwgoal400\\pichgoal600 89504e47}b", {3000}},
    {"link", "{\\field{\\*\\fldinst HYPERLINK \"http://example.org\"}{\\fldrslt here}}", {3000}},
    {"negative_indent", "\\li-200 aaa bbb", {1000}},
    {"nothing_fits", "\\li900\\ri900 ab c", {1000}},
};

class ParagraphGoldens : public testing::TestWithParam<Case>
{
};

TEST_P(ParagraphGoldens, LinesAndDrawingAreTheRecordedOnes)
{
    const Case& shown = GetParam();
    FixedFontHost fonts;
    const Document document =
        ReadRtf("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Fixed;}}{\\colortbl;\\red255\\green255\\blue0;}\\f0\\fs20 " +
                std::string(shown.rtf) + "\\par}");
    NumberIndex numbers;
    const ParagraphLayout layout(document.SharedParagraphAt(0), document.Formats(), fonts,
                                 ContextOf(document, 0, shown.width, numbers));
    ExpectGolden("tests/engine/layout/golden/" + std::string(shown.name) + ".txt", Dump(layout) + DumpDrawing(layout));
}

std::vector<LinkArea> LinksTo(const std::string& target)
{
    FixedFontHost fonts;
    const Document document =
        ReadRtf("{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"" + target + "\"}{\\fldrslt here}}\\par}");
    const ParagraphLayout layout(document.SharedParagraphAt(0), document.Formats(), fonts, {.width = {1000}});
    DisplayList list;
    layout.DrawText(list, {}, 0, 1);
    std::vector<LinkArea> links;
    for (const DisplayItem& item : list.items)
        if (const auto* link = std::get_if<LinkArea>(&item))
            links.push_back(*link);
    return links;
}

TEST(ParagraphLayout, TargetsAreBounded)
{
    EXPECT_EQ(LinksTo("http://" + std::string(2076, 'a')).size(), 1U);
    EXPECT_EQ(LinksTo("http://" + std::string(2077, 'a')).size(), 0U);
}

// Each unit is tried but for a bound of them; without it this takes minutes.
TEST(ParagraphLayout, ManySoftHyphensWithoutRoomAreSoonPassed)
{
    FixedFontHost fonts;
    std::string text = "bb aaaaaa";
    for (int i = 0; i < 60'000; ++i)
        text += "\\-";
    const Document document = ReadRtf("{\\rtf1{\\fonttbl{\\f0 Fixed;}}\\f0\\fs20 " + text + "cc\\par}");
    const auto start = std::chrono::steady_clock::now();
    const ParagraphLayout layout(document.SharedParagraphAt(0), document.Formats(), fonts, {.width = {900}});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    ASSERT_EQ(layout.Lines().size(), 2U);
    EXPECT_EQ(layout.Lines()[0].end, 3U);
}

INSTANTIATE_TEST_SUITE_P(Each, ParagraphGoldens, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<Case>& shown) { return std::string(shown.param.name); });

}  // namespace
}  // namespace quillmarker
