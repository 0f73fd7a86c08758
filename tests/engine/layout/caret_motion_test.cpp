#include "flow_sample.h"

#include "engine/document/tree.h"
#include "engine/layout/caret_motion.h"
#include "support/random_document.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

/// A flow and a caret in it, which moves along.
class Keyboard
{
public:
    Keyboard(std::string_view sample, std::int32_t characters)
        : m_flow(SampleBox(sample).Value(), characters), m_caret{{SampleBox(sample).SelStart()}}
    {
    }

    /// The position behind the motions, each of which gets what the one before kept.
    template <class... Motions>
    std::int32_t Press(Motions... motions)
    {
        for (const Motion motion : {motions...})
        {
            const MovedCaret moved = Moved(m_flow.flow, m_caret, motion, {.pageHeight = m_page, .column = m_column});
            m_caret = moved.caret;
            m_column = moved.column;
        }
        return m_caret.position.value;
    }

    Keyboard& WithPage(std::int32_t lines) { return m_page = Lines(lines), *this; }
    LineSide Side() const { return m_caret.side; }
    Fine X() { return m_flow.flow.BoxOf(m_caret).x; }
    std::uint32_t Line() { return m_flow.flow.LineOf(m_caret).line; }
    DocumentFlow& Flow() { return m_flow.flow; }

private:
    FlowSample m_flow;
    CaretPosition m_caret;
    std::optional<Fine> m_column;
    Fine m_page = 0;
};

constexpr char kHebrew[] = "\xD7\x90\xD7\x91\xD7\x92";

Document RightToLeft(const Document& document)
{
    ParagraphFormat format;
    format.rightToLeft = true;
    const ParagraphFormatId id = document.SharedFormats().Intern(format);
    std::vector<ParagraphRef> paragraphs;
    document.Visit(0, [&](const Paragraph& paragraph) {
        ParagraphMark mark = paragraph.Ending();
        mark.format = id;
        paragraphs.push_back(Paragraph::Make(paragraph.Text(), paragraph.Runs(), mark, {}));
        return true;
    });
    return document.WithBody(Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(paragraphs)})));
}

TEST(CaretMotion, UpAndDownKeepTheColumn)
{
    Keyboard keys("abcd|ef\nab\n\nabcdef", 20);
    EXPECT_EQ(keys.Press(Motion::LineDown), 10) << "behind the short line";
    EXPECT_EQ(keys.Press(Motion::LineDown), 12);
    EXPECT_EQ(keys.Press(Motion::LineDown), 18) << "in the first column again";
    EXPECT_EQ(keys.Press(Motion::LineDown), 18) << "there is no line below";
    EXPECT_EQ(keys.Press(Motion::LineUp, Motion::LineUp, Motion::LineUp), 4);
    EXPECT_EQ(keys.Press(Motion::LineUp), 4);
}

TEST(CaretMotion, AStepForgetsTheColumn)
{
    Keyboard keys("abcd|ef\nab\nabcdef", 20);
    EXPECT_EQ(keys.Press(Motion::LineDown, Motion::CharacterLeft, Motion::LineDown), 13);
}

TEST(CaretMotion, GoesThroughWrappedLines)
{
    Keyboard keys("|one two three", 4);
    EXPECT_EQ(keys.Press(Motion::LineEnd), 4);
    EXPECT_EQ(keys.Line(), 0U) << "still in the first line";
    EXPECT_EQ(keys.Side(), LineSide::Before);
    EXPECT_EQ(keys.Press(Motion::LineEnd), 4) << "and there it stays";
    EXPECT_EQ(keys.Line(), 0U);
    EXPECT_EQ(keys.Press(Motion::LineDown), 8);
    EXPECT_EQ(keys.Line(), 1U);
    EXPECT_EQ(keys.Press(Motion::LineStart), 4);
    EXPECT_EQ(keys.Line(), 1U) << "the same position, one line lower";
    EXPECT_EQ(keys.Press(Motion::LineUp), 0);
    EXPECT_EQ(keys.Press(Motion::LineEnd, Motion::CharacterRight), 5) << "the next character is the next line's first";
    EXPECT_EQ(keys.Line(), 1U);
}

TEST(CaretMotion, StopsBeforeALineBreak)
{
    Keyboard keys("|ab\vcd", 20);
    EXPECT_EQ(keys.Press(Motion::LineEnd), 2);
    EXPECT_EQ(keys.Press(Motion::CharacterRight), 3);
    EXPECT_EQ(keys.Line(), 1U);
    EXPECT_EQ(keys.Press(Motion::LineUp), 0);
}

TEST(CaretMotion, LeftAndRightFollowTheScreen)
{
    const std::string sample = std::string(kHebrew) + " " + kHebrew;
    FlowSample mirrored(RightToLeft(SampleDocument(sample)), 20);
    const auto moved = [&](std::int32_t at, Motion motion) {
        return Moved(mirrored.flow, {{at}}, motion).caret.position.value;
    };
    EXPECT_EQ(moved(1, Motion::CharacterLeft), 2);
    EXPECT_EQ(moved(1, Motion::CharacterRight), 0);
    EXPECT_EQ(moved(1, Motion::NextCharacter), 2);
    EXPECT_EQ(moved(0, Motion::WordLeft), 4);
    EXPECT_EQ(moved(4, Motion::WordRight), 0);
    EXPECT_EQ(moved(0, Motion::NextWord), 4);
    for (std::int32_t at = 0; at < 7; ++at)
        EXPECT_LT(mirrored.flow.BoxOf({{at + 1}}).x, mirrored.flow.BoxOf({{at}}).x) << "forwards is to the left";
    EXPECT_TRUE(mirrored.flow.BoxOf({{1}}).rightToLeft);
}

TEST(CaretMotion, LinesOfRightToLeftParagraphsKeepTheColumn)
{
    const std::string sample = std::string(kHebrew) + "\n" + kHebrew;
    FlowSample mirrored(RightToLeft(SampleDocument(sample)), 20);
    EXPECT_EQ(Moved(mirrored.flow, {{2}}, Motion::LineDown).caret.position.value, 7);
    EXPECT_EQ(Moved(mirrored.flow, {{2}}, Motion::LineStart).caret.position.value, 0);
    EXPECT_EQ(Moved(mirrored.flow, {{2}}, Motion::LineEnd).caret.position.value, 3);
}

TEST(CaretMotion, PassesHiddenTextOnceAndNeverStopsInIt)
{
    Keyboard keys("a|b<h>xx</h>c\n<h>yy\n</h>d", 20);
    EXPECT_EQ(keys.Press(Motion::CharacterRight), 2);
    const Fine before = keys.X();
    EXPECT_EQ(keys.Press(Motion::CharacterRight), 5);
    EXPECT_EQ(keys.X(), before + Characters(1)) << "each step shows";
    EXPECT_EQ(keys.Press(Motion::LineDown), 12) << "the hidden paragraph is no line";
    EXPECT_EQ(keys.Press(Motion::LineUp), 5) << "the column it came from";
}

TEST(CaretMotion, GoesThroughCellsLineByLine)
{
    Keyboard keys("|a<cell/>b<cell/><row/>c", 20);
    EXPECT_EQ(keys.Press(Motion::LineDown), 2);
    EXPECT_EQ(keys.Press(Motion::LineDown), 6) << "not to the row's mark";
    EXPECT_EQ(keys.Press(Motion::LineUp), 2);
    EXPECT_EQ(keys.Press(Motion::ParagraphUp), 0);
    EXPECT_EQ(keys.Press(Motion::ParagraphDown, Motion::ParagraphDown), 6);
}

TEST(CaretMotion, ACaretInARowsMarkLeavesIt)
{
    Keyboard keys("a<cell/>b<cell/>|<row/>c", 20);
    EXPECT_EQ(keys.Press(Motion::LineStart), 2) << "as if it stood in the last cell";
}

TEST(CaretMotion, APageIsAsManyLinesAsFit)
{
    Keyboard keys("|0\n1\n2\n3\n4\n5\n6\n7\n8\n9", 20);
    keys.WithPage(4);
    EXPECT_EQ(keys.Press(Motion::PageDown), 9) << "the line that begins within the page";
    EXPECT_EQ(keys.Press(Motion::PageDown), 18);
    EXPECT_EQ(keys.Press(Motion::PageDown), 27);
    EXPECT_EQ(keys.Press(Motion::PageDown), 27);
    EXPECT_EQ(keys.Press(Motion::PageUp), 18);
    EXPECT_EQ(keys.WithPage(0).Press(Motion::PageUp), 15) << "a line at least";
}

TEST(CaretMotion, APageLaysOutAPage)
{
    FlowSample sample(CountedParagraphs(2000, 5), 20);
    Moved(sample.flow, {}, Motion::PageDown, {.pageHeight = Lines(20)});
    EXPECT_LT(sample.flow.LayoutCount(), 22);
}

TEST(CaretMotion, TheDocumentsEndsAreWhereACaretMayStand)
{
    Keyboard keys("<h>xx\n</h>ab|c\n<h>yy</h>", 20);
    EXPECT_EQ(keys.Press(Motion::DocumentStart), 4) << "the hidden paragraph takes no room";
    EXPECT_EQ(keys.Press(Motion::DocumentEnd), 11);
}

bool IsVertical(Motion motion)
{
    return motion == Motion::LineUp || motion == Motion::LineDown || motion == Motion::PageUp ||
           motion == Motion::PageDown;
}

TEST(CaretMotionLaw, EveryMotionEndsWhereACaretMayStand)
{
    static constexpr char16_t kAlphabet[] = {u'a',   u'b',   u' ',  u' ',      u'\u0301',
                                             0xD83D, 0xDE00, u'\v', u'\u05D0', u'\t'};
    std::mt19937 random(95);
    for (int round = 0; round < 60; ++round)
    {
        FlowSample sample(RandomDocument(random, {kAlphabet, std::size(kAlphabet)}, Below(random, 12) + 2),
                          Below(random, 5) + 1);
        const Document& document = sample.flow.Value();
        const Position first = CaretStop(document, {Below(random, document.Size() + 1)});
        CaretPosition caret{first};
        std::optional<Fine> column;
        for (int step = 0; step < 100; ++step)
        {
            const auto motion = static_cast<Motion>(Below(random, kMotions));
            const MovedCaret moved = Moved(sample.flow, caret, motion, {.pageHeight = Lines(3), .column = column});
            ASSERT_EQ(CaretStop(document, moved.caret.position), moved.caret.position)
                << "round " << round << ", step " << step << ", motion " << int(motion);
            ASSERT_EQ(moved.column.has_value(), IsVertical(motion));
            caret = moved.caret;
            column = moved.column;
        }
    }
}

TEST(CaretMotionLaw, DownGoesThroughEveryLineOnce)
{
    std::mt19937 random(96);
    for (int round = 0; round < 60; ++round)
    {
        FlowSample sample(RandomDocument(random, u"ab c", 20), Below(random, 5) + 1);
        DocumentFlow& flow = sample.flow;
        std::int64_t lines = 0;
        for (std::int32_t i = 0; i < flow.Value().ParagraphCount(); ++i)
            for (const Line& line : flow.LayoutOf(i).Lines())
                lines += line.height > 0 ? 1 : 0;
        CaretPosition caret = Moved(flow, {}, Motion::DocumentStart).caret;
        std::optional<Fine> column = 0;
        for (std::int64_t line = 1; line < lines; ++line)
        {
            const FlowLine from = flow.LineOf(caret);
            const MovedCaret moved = Moved(flow, caret, Motion::LineDown, {.column = column});
            ASSERT_GT(flow.LineOf(moved.caret), from) << "round " << round << ", line " << line;
            caret = moved.caret;
        }
        EXPECT_EQ(Moved(flow, caret, Motion::LineDown, {.column = column}).caret, caret) << "round " << round;
        for (std::int64_t line = 1; line < lines; ++line)
            caret = Moved(flow, caret, Motion::LineUp, {.column = column}).caret;
        EXPECT_EQ(flow.LineAbove(flow.LineOf(caret)), std::nullopt) << "round " << round;
    }
}

}  // namespace
}  // namespace quillmarker
