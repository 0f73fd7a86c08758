#include "engine/document/utf.h"
#include "peers/peer_program.h"

#include <quillmarker/document.h>
#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace quillmarker
{
namespace
{

constexpr std::string_view kReport =
    R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fswiss\fcharset0 Arial;}{\f1\froman\fcharset0 Times New Roman;}})"
    R"({\colortbl;\red255\green0\blue0;\red0\green128\blue0;\red0\green0\blue255;}{\info{\title Laboratory}})"
    R"(\paperw11906\paperh16838\margl1134\margr1134\margt1134\margb1134)"
    R"(\pard\qc\f0\fs32\b Heading\b0\par)"
    R"(\pard\qj\li720\ri360\fi-360\sb120\sa60\fs20 justified {\b fat} {\i slanted} {\ul lined} {\strike struck} {\cf1 reddish})"
    R"( {\highlight2 marked} {\f1\fs28 serifed} {\super raised} {\up6\fs14 lifted} x\par)"
    R"(\pard\qr to the right: \'e4\'f6\'fc \u945 ?\u8364 ? \u-10179 ?\u-8704 ? \\back \{braces\}\line next line\tab tabbed\par)"
    R"(\pard\sl360\slmult1\tx2000\tqr\tldot\tx6000 spaced\tab tab\tab stop\par)"
    R"(\trowd\trgaph70\clbrdrt\brdrs\brdrw10\cellx2000\clcbpat3\cellx5000\pard\intbl first\cell second\cell\row)"
    R"(\trowd\trgaph70\clbrdrt\brdrs\brdrw10\cellx2000\clcbpat3\cellx5000\pard\intbl third\cell\qc fourth\cell\row)"
    R"(\pard\ql before picture {\pict\pngblip\picw1\pich1\picwgoal300\pichgoal300 )"
    R"(89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000000c4944415408d763f8cfc0)"
    R"(000003010100c9fe92ef0000000049454e44ae426082} behind picture\par)"
    R"(\pard {\field{\*\fldinst HYPERLINK "http://example.org/"}{\fldrslt{\ul\cf3 linked}}} end of report\par})";

std::string Normalised(std::string_view text)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.starts_with(kMark))
        text.remove_prefix(kMark.size());
    std::string out;
    for (const char c : text)
    {
        const bool isBlank = c == ' ' || (c >= '\t' && c <= '\r');
        if (!isBlank)
            out += c;
        else if (!out.empty() && out.back() != ' ')
            out += ' ';
    }
    if (!out.empty() && out.back() == ' ')
        out.pop_back();
    return out;
}

/// The paragraph that holds a word of the report, and where in it the word begins.
struct Found
{
    const Paragraph* paragraph = nullptr;
    std::uint32_t offset = 0;
};

Found Find(const Document& document, std::u16string_view word)
{
    Found found;
    document.Visit(0, [&](const Paragraph& paragraph) {
        const std::size_t at = paragraph.Text().find(word);
        if (at != paragraph.Text().npos)
            found = {&paragraph, static_cast<std::uint32_t>(at)};
        return !found.paragraph;
    });
    return found;
}

class Peers : public testing::TestWithParam<Peer>
{
protected:
    void SetUp() override
    {
        if (!IsInstalled(GetParam()))
            GTEST_SKIP() << "the program is not installed";
    }

    static CharFormat CharsOf(const Document& document, std::u16string_view word)
    {
        const Found found = Find(document, word);
        EXPECT_NE(found.paragraph, nullptr) << ToUtf8(word);
        return found.paragraph ? document.FormatOf(found.paragraph->FormatAt(found.offset)) : CharFormat();
    }

    static ParagraphFormat ParagraphOf(const Document& document, std::u16string_view word)
    {
        const Found found = Find(document, word);
        EXPECT_NE(found.paragraph, nullptr) << ToUtf8(word);
        return found.paragraph ? document.FormatOf(found.paragraph->Ending().format) : ParagraphFormat();
    }

    Document Returned() const
    {
        const std::string rtf = m_folder.Converted(GetParam(), WriteRtf(m_report), PeerOutput::Rtf);
        EXPECT_TRUE(IsRtf(rtf));
        return ReadRtf(rtf);
    }

    const Document m_report = ReadRtf(kReport);
    PeerFolder m_folder;
};

TEST_P(Peers, ReadTheText)
{
    const std::string text = m_folder.Converted(GetParam(), WriteRtf(m_report), PeerOutput::Text);
    EXPECT_EQ(Normalised(text), Normalised(ToUtf8(m_report.Text())));
}

TEST_P(Peers, KeepTheFormatsOfCharacters)
{
    const Document document = Returned();
    EXPECT_TRUE(CharsOf(document, u"Heading").bold);
    EXPECT_EQ(CharsOf(document, u"Heading").size, Points(16));
    EXPECT_TRUE(CharsOf(document, u"fat").bold);
    EXPECT_FALSE(CharsOf(document, u"justified").bold);
    EXPECT_TRUE(CharsOf(document, u"slanted").italic);
    EXPECT_EQ(CharsOf(document, u"lined").underline, Underline::Single);
    EXPECT_TRUE(CharsOf(document, u"struck").strike);
    EXPECT_EQ(CharsOf(document, u"reddish").colour, Colour::Of(255, 0, 0));
    EXPECT_EQ(CharsOf(document, u"marked").highlight, Colour::Of(0, 128, 0));
    EXPECT_EQ(CharsOf(document, u"justified").font, Name(u"Arial"));
    EXPECT_EQ(CharsOf(document, u"justified").size, Points(10));
    EXPECT_EQ(CharsOf(document, u"serifed").font, Name(u"Times New Roman"));
    EXPECT_EQ(CharsOf(document, u"serifed").size, Points(14));
    const CharFormat raised = CharsOf(document, u"raised");
    EXPECT_TRUE(raised.script == Script::Super || raised.offset > Twips());
    EXPECT_EQ(CharsOf(document, u"justified").offset, Twips());
}

TEST_P(Peers, KeepTheFormatsOfParagraphs)
{
    const Document document = Returned();
    EXPECT_EQ(ParagraphOf(document, u"Heading").alignment, Alignment::Centre);
    const ParagraphFormat justified = ParagraphOf(document, u"justified");
    EXPECT_EQ(justified.alignment, Alignment::Justify);
    EXPECT_NEAR(justified.leftIndent.value, 720, 3);
    EXPECT_NEAR(justified.rightIndent.value, 360, 3);
    EXPECT_NEAR(justified.firstIndent.value, -360, 3);
    EXPECT_NEAR(justified.spaceBefore.value, 120, 3);
    EXPECT_NEAR(justified.spaceAfter.value, 60, 3);
    EXPECT_EQ(ParagraphOf(document, u"to the right").alignment, Alignment::Right);
    const ParagraphFormat spaced = ParagraphOf(document, u"spaced");
    EXPECT_EQ(spaced.lineSpacing, (LineSpacing{LineRule::Multiple, 360}));
    ASSERT_TRUE(spaced.tabs);
    ASSERT_EQ(spaced.tabs->size(), 2U);
    EXPECT_NEAR((*spaced.tabs)[0].position.value, 2000, 3);
    EXPECT_NEAR((*spaced.tabs)[1].position.value, 6000, 3);
    EXPECT_EQ((*spaced.tabs)[1].kind, TabKind::Right);
    EXPECT_EQ(ParagraphOf(document, u"before picture").alignment, Alignment::Left);
}

TEST_P(Peers, KeepTheTable)
{
    const Document document = Returned();
    int cells = 0;
    int rows = 0;
    document.Visit(0, [&](const Paragraph& paragraph) {
        cells += paragraph.Ending().kind == Mark::Cell ? 1 : 0;
        rows += paragraph.Ending().kind == Mark::Row ? 1 : 0;
        return true;
    });
    EXPECT_EQ(cells, 4);
    EXPECT_EQ(rows, 2);
    for (const char16_t* word : {u"first", u"second", u"third", u"fourth"})
    {
        const Found found = Find(document, word);
        ASSERT_NE(found.paragraph, nullptr);
        EXPECT_EQ(found.paragraph->Ending().kind, Mark::Cell) << ToUtf8(word);
    }
    EXPECT_EQ(ParagraphOf(document, u"fourth").alignment, Alignment::Centre);
    const Found behind = Find(document, u"end of report");
    ASSERT_NE(behind.paragraph, nullptr);
    EXPECT_EQ(behind.paragraph->Ending().tableDepth, 0);
}

TEST_P(Peers, KeepPictureAndLink)
{
    const Document document = Returned();
    int pictures = 0;
    document.Visit(0, [&](const Paragraph& paragraph) {
        for (const PlacedObject& placed : paragraph.Extras().objects)
            pictures += std::holds_alternative<InlinePicture>(*placed.object) ? 1 : 0;
        return true;
    });
    EXPECT_EQ(pictures, 1);
    const Shared<Field> field = CharsOf(document, u"linked").field;
    ASSERT_TRUE(field);
    EXPECT_EQ(LinkTarget(*field), u"http://example.org/");
    EXPECT_FALSE(CharsOf(document, u"end of report").field);
}

TEST_P(Peers, WhatTheyWriteSurvivesHere)
{
    const Document document = Returned();
    const std::string written = WriteRtf(document);
    EXPECT_TRUE(SameContent(ReadRtf(written), document));
    EXPECT_EQ(WriteRtf(ReadRtf(written)), written);
}

std::string PeerName(const testing::TestParamInfo<Peer>& info)
{
    return info.param == Peer::LibreOffice ? "LibreOffice" : "AbiWord";
}

INSTANTIATE_TEST_SUITE_P(, Peers, testing::Values(Peer::LibreOffice, Peer::AbiWord), PeerName);

}  // namespace
}  // namespace quillmarker
