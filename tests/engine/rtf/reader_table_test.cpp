#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

std::string RowDump(const Document& document, std::int32_t paragraph)
{
    const Shared<TableRow>& row = document.ParagraphAt(paragraph).Extras().row;
    return row ? DumpOf(*row) : "(none)";
}

TEST(ReadTables, CellsAndRowsAreParagraphsWithTheirMarks)
{
    const Document document =
        ReadSample(R"(before\par\trowd\cellx1000\cellx2000\pard\intbl a\cell b\par c\cell\row\pard after)");
    EXPECT_EQ(document.Text(), u"before\r\na\tb\r\nc\t\r\nafter");
    ASSERT_EQ(document.ParagraphCount(), 6);
    constexpr Mark kMarks[] = {Mark::Break, Mark::Cell, Mark::Break, Mark::Cell, Mark::Row, Mark::Break};
    constexpr int kDepths[] = {0, 1, 1, 1, 1, 0};
    for (int i = 0; i < 6; ++i)
    {
        EXPECT_EQ(document.ParagraphAt(i).Ending().kind, kMarks[i]) << i;
        EXPECT_EQ(document.ParagraphAt(i).Ending().tableDepth, kDepths[i]) << i;
    }
    EXPECT_EQ(RowDump(document, 4), "row-format cell(1000) cell(2000)");
    EXPECT_EQ(document.RowMarkOf(1), 4);
    EXPECT_EQ(document.RowMarkOf(0), -1);
}

TEST(ReadTables, ARowHasItsProperties)
{
    const Document document = ReadSample(R"(\trowd\trgaph70\trleft-100\trrh300\trqc\trhdr\trkeep\rtlrow\trautofit1)"
                                         R"(\trbrdrt\brdrs\brdrw10\trbrdrv\brdrdb\cellx1000\pard\intbl a\cell\row)");
    EXPECT_EQ(RowDump(document, 1), "row-format left=-100 gap=70 height=300 align=1 header keep right-to-left"
                                    " borders={top=1/10/0/auto bar=3/0/0/auto} kept=\\trautofit1 cell(1000)");
}

TEST(ReadTables, ACellHasItsProperties)
{
    const Document document = ReadSample(
        R"(\trowd\clvmgf\clmgf\clvertalc\clbrdrt\brdrs\brdrw15\brdrcf1\clcbpat2\clcfpat3\clshdng1000\clftsWidth3\clwWidth5)"
        R"(\cellx1000\clvmrg\clmrg\clvertalb\cellx2000\pard\intbl a\cell b\cell\row)");
    EXPECT_EQ(RowDump(document, 2),
              "row-format cell(1000 vertical-merge=1 horizontal-merge=1 align=1 borders={top=1/15/0/#ff0000}"
              " shading=#008000/#0000ff/1000 kept=\\clftsWidth3\\clwWidth5)"
              " cell(2000 vertical-merge=2 horizontal-merge=2 align=2)");
}

TEST(ReadTables, PropertiesBehindTheCellsCountToo)
{
    const Document document = ReadSample(R"(\pard\intbl a\cell b\cell\trowd\cellx1000\cellx2000\row)");
    EXPECT_EQ(RowDump(document, 2), "row-format cell(1000) cell(2000)");
}

TEST(ReadTables, ARowWithoutPropertiesHasThoseBeforeIt)
{
    const Document document = ReadSample(R"(\trowd\cellx1000\pard\intbl a\cell\row b\cell\row)");
    EXPECT_EQ(RowDump(document, 3), "row-format cell(1000)");
    EXPECT_EQ(document.ParagraphAt(1).Extras().row.Identity(), document.ParagraphAt(3).Extras().row.Identity());
}

TEST(ReadTables, ATableInACellIsDeeper)
{
    const Document document = ReadSample(
        R"(\trowd\cellx5000\pard\intbl outer\par\pard\intbl\itap2 x\nestcell y\nestcell)"
        R"({\*\nesttableprops\trowd\cellx1000\cellx2000\nestrow}{\nonesttables\par}\pard\intbl end\cell\row)");
    EXPECT_EQ(document.Text(), u"outer\r\nx\ty\t\r\nend\t\r\n");
    EXPECT_EQ(document.ParagraphAt(1).Ending().tableDepth, 2);
    EXPECT_EQ(RowDump(document, 3), "row-format cell(1000) cell(2000)");
    EXPECT_EQ(document.RowMarkOf(1), 3);
    EXPECT_EQ(RowDump(document, 5), "row-format cell(5000)");
    EXPECT_EQ(document.RowMarkOf(0), 5);
}

TEST(ReadTables, BordersOfCellsStayOutOfParagraphs)
{
    const Document document = ReadSample(R"(\trowd\clbrdrt\brdrs\cellx1000\pard\intbl a\cell\row\pard b\par)");
    EXPECT_FALSE(ParagraphOf(document, 0).borders);
    EXPECT_FALSE(ParagraphOf(document, 2).borders);
}

TEST(ReadTables, CellsBeyondTheBoundAreDroppedFromTheRowOnly)
{
    std::string source = "\\trowd";
    for (int i = 1; i <= 300; ++i)
        source += "\\cellx" + std::to_string(i * 10);
    source += "\\pard\\intbl";
    for (int i = 0; i < 300; ++i)
        source += " x\\cell";
    const Document document = ReadSample(source + "\\row");
    EXPECT_EQ(document.ParagraphCount(), 302);
    EXPECT_EQ(document.ParagraphAt(300).Extras().row->cells.size(), kMaxCells);
}

TEST(ReadTables, AFootnotesTableLeavesTheOneAroundIt)
{
    const Document document =
        ReadSample(R"(\trowd\cellx1000\pard\intbl a{\footnote\trowd\cellx77\pard\intbl n\cell\row\pard t}\cell\row)");
    EXPECT_EQ(RowDump(document, 1), "row-format cell(1000)");
}

TEST(ReadTables, ATableMayEndTheDocument)
{
    const Document document = ReadSample(R"(\trowd\cellx1000\pard\intbl a\cell\row)");
    EXPECT_EQ(document.Text(), u"a\t\r\n");
    EXPECT_EQ(document.ParagraphAt(document.ParagraphCount() - 1).Ending().kind, Mark::Break);
}

}  // namespace
}  // namespace quillmarker
