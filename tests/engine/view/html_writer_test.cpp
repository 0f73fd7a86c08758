#include "engine/view/html_writer.h"

#include "support/sample.h"

#include "engine/document/format_edit.h"
#include "engine/view/html_style.h"

#include <quillmarker/rtf.h>

#include <gmock/gmock.h>

namespace quillmarker
{
namespace
{

using testing::HasSubstr;
using testing::Not;

/// What stands between the comments that mark the fragment.
std::string FragmentOf(const Document& document, TextRange range)
{
    const std::string html = WriteHtml(document, range);
    const std::string_view start = "<!--StartFragment-->";
    const std::size_t begin = html.find(start) + start.size();
    return html.substr(begin, html.find("<!--EndFragment-->") - begin);
}

std::string FragmentOf(const Document& document) { return FragmentOf(document, {{0}, {document.Size()}}); }

std::string FragmentOfRtf(std::string_view rtf) { return FragmentOf(ReadRtf(rtf)); }

TEST(WritingHtml, APartOfAParagraphStandsInALine)
{
    const Document document = SampleDocument("pay <b>tot</b>al now");
    EXPECT_EQ(FragmentOf(document, {{4}, {8}}),
              "<span style=\"white-space:pre-wrap\"><span "
              "style=\"font-family:'Arial',sans-serif;font-size:10pt;\"><b>tot</b></span>"
              "<span style=\"font-family:'Arial',sans-serif;font-size:10pt;\">a</span></span>");
}

TEST(WritingHtml, ParagraphsAreParagraphs)
{
    const std::string html =
        FragmentOfRtf("{\\rtf1{\\fonttbl{\\f0 A;}}\\f0\\fs20 a\\par\\qc\\li720\\fi-360 b\\par\\par}");
    EXPECT_EQ(html, "<p style=\"white-space:pre-wrap;margin:0pt 0pt 0pt 0pt;\">"
                    "<span style=\"font-family:'A';font-size:10pt;\">a</span></p>\n"
                    "<p style=\"white-space:pre-wrap;margin:0pt 0pt 0pt 36pt;text-indent:-18pt;text-align:center;\">"
                    "<span style=\"font-family:'A';font-size:10pt;\">b</span></p>\n");
}

TEST(WritingHtml, FormatsOfCharactersBecomeTagsAndStyles)
{
    const std::string html = FragmentOfRtf("{\\rtf1{\\fonttbl{\\f0\\fswiss Font;}}{\\colortbl;\\red255;\\blue255;}"
                                           "\\f0\\fs15\\i\\ul\\strike\\super\\cf1\\highlight2 x}");
    EXPECT_THAT(html, HasSubstr("<span style=\"font-family:'Font',sans-serif;font-size:7.5pt;color:#ff0000;"
                                "background-color:#0000ff;\"><i><u><s><sup>x</sup></s></u></i></span>"));
}

TEST(WritingHtml, TextCannotBecomeATag)
{
    const Document document = SampleDocument("\\<script>&\"'\x01");
    EXPECT_THAT(FragmentOf(document), HasSubstr(">&lt;script&gt;&amp;&quot;'</span>"));
    CharFormat format = DefaultCharFormat();
    format.font = u"a'\"><script>\\";
    EXPECT_THAT(TagsOf(format).open, HasSubstr("font-family:'a&gt;&lt;script&gt;',sans-serif;"));
}

TEST(WritingHtml, HiddenTextIsLeftOut)
{
    const std::string html = FragmentOf(SampleDocument("a<h>secret\nhidden\n</h>b\nc"));
    EXPECT_THAT(html, Not(HasSubstr("secret")));
    EXPECT_THAT(html, Not(HasSubstr("hidden")));
    EXPECT_THAT(html, HasSubstr(">a<"));
    EXPECT_THAT(html, HasSubstr(">b<"));
}

TEST(WritingHtml, OnlyCommonLinksLeave)
{
    const auto linked = [](const char* target) {
        return FragmentOfRtf(std::string("{\\rtf1 a{\\field{\\*\\fldinst HYPERLINK \"") + target +
                             "\"}{\\fldrslt b\\b c}}d}");
    };
    EXPECT_THAT(linked("https://example.org/?a&b"), HasSubstr("<a href=\"https://example.org/?a&amp;b\"><span"));
    EXPECT_THAT(linked("https://example.org"), HasSubstr("<b>c</b></span></a><span"));
    EXPECT_THAT(linked("javascript:alert(1)"), Not(HasSubstr("<a")));
    EXPECT_THAT(linked("file:///etc/passwd"), Not(HasSubstr("<a")));
}

TEST(WritingHtml, ListsAreParagraphsWithTheirNumbers)
{
    const char* rtf = "{\\rtf1{\\*\\pn\\pnlvlbody\\pndec\\pnstart3{\\pntxta .}}a\\par b\\par\\pard c\\par}";
    const Document document = ReadRtf(std::string_view(rtf));
    const std::string html = FragmentOf(document);
    EXPECT_THAT(html, HasSubstr(">3.&#9;<"));
    EXPECT_THAT(html, HasSubstr(">4.&#9;<"));
    // A part keeps the number it has in the whole; half a paragraph has none.
    EXPECT_THAT(FragmentOf(document, {{3}, {7}}), HasSubstr(">4.&#9;<"));
    EXPECT_THAT(FragmentOf(document, {{3}, {4}}), Not(HasSubstr("4.")));
}

TEST(WritingHtml, TablesAreTablesWhereverTheRangeBegins)
{
    const Document document = SampleDocument("a<cell/>b<cell/><row/>c<cell/>d<cell/><row/>e");
    const auto count = [](const std::string& html, std::string_view what) {
        std::size_t found = 0;
        for (std::size_t at = html.find(what); at != html.npos; at = html.find(what, at + 1))
            ++found;
        return found;
    };
    for (std::int32_t begin = 0; begin < document.Size(); ++begin)
    {
        for (std::int32_t end = begin; end <= document.Size(); ++end)
        {
            const std::string html = FragmentOf(document, {{begin}, {end}});
            for (const std::string tag : {"table", "tr", "td", "p"})
                ASSERT_EQ(count(html, "<" + tag + ">") + count(html, "<" + tag + " "), count(html, "</" + tag + ">"))
                    << html;
        }
    }
    const std::string html = FragmentOf(document);
    EXPECT_EQ(count(html, "<table"), 1U);
    EXPECT_EQ(count(html, "<tr>"), 2U);
    EXPECT_EQ(count(html, "<td>"), 4U);
    EXPECT_LT(html.find("</table>"), html.find(">e<"));
}

TEST(WritingHtml, BreaksAndEmptyParagraphsKeepTheirLines)
{
    EXPECT_THAT(FragmentOfRtf("{\\rtf1 a\\line b\\par\\par c}"), HasSubstr("a<br>b"));
    EXPECT_THAT(FragmentOfRtf("{\\rtf1 a\\par\\par c}"), HasSubstr("\"><br></p>"));
}

TEST(Links, AreCommonWhenTheyLeadToPagesMailAndPlaces)
{
    EXPECT_TRUE(IsCommonLink(u"HTTPS://example.org"));
    EXPECT_TRUE(IsCommonLink(u"mailto:a@example.org"));
    EXPECT_TRUE(IsCommonLink(u"#place"));
    EXPECT_FALSE(IsCommonLink(u""));
    EXPECT_FALSE(IsCommonLink(u" javascript:x"));
    EXPECT_FALSE(IsCommonLink(u"data:text/html,x"));
}

}  // namespace
}  // namespace quillmarker
