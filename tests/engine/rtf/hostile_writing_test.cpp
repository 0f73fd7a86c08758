#include "engine/rtf/hostile_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

// What a short word of the source makes the writer say again. Each of these sources grows in two ways at once: what is
// said becomes longer, and it is said more often. What is written must not grow with their product.

constexpr std::size_t kMany = 20'000;

/// How much longer what is written may be than the source, where every paragraph has a format that is long to say.
constexpr Bounds kRepeating{.memory = 700, .written = 400};

std::string ManyTabs()
{
    std::string tabs;
    for (int i = 0; i < 64; ++i)
        tabs += "\\tldot\\tqdec\\tx-" + std::to_string(1'000'000 + i);
    return tabs;
}

std::string ManyBorders(std::string_view prefix)
{
    std::string borders;
    for (const char* side : {"t", "l", "b", "r"})
        borders += "\\" + std::string(prefix) + "brdr" + side + "\\brdrdashdotstr\\brdrw4000000\\brsp4000000";
    return borders;
}

std::string ManyCells(std::size_t count)
{
    std::string cells;
    for (std::size_t i = 0; i < count; ++i)
        cells += "\\clvmgf\\clmgf\\clvertalb" + ManyBorders("cl") + Repeated("\\clwWidth4000000", 20) + "\\cellx" +
                 std::to_string(i);
    return cells;
}

TEST(HostileWriting, LongFormatsThatAlternate)
{
    const std::string head = "{\\rtf1\\pard" + ManyTabs() + ManyBorders("") + Repeated("\\absw4000000", 100);
    ReadBounded(head + Repeated("\\ql\\par\\qr\\par", kMany) + "}", kRepeating);
    ReadBounded(head + Repeated("{\\pard\\par}\\par", kMany) + "}", kRepeating);
    ReadBounded(head + Repeated("\\intbl\\cell\\ql\\cell\\qr", kMany) + "}", kRepeating);
}

TEST(HostileWriting, LongNumbers)
{
    for (const char* kind : {"\\pnucrm", "\\pnlcltr", "\\pndec", "\\pncard"})
    {
        const std::string head = "{\\rtf1\\pard{\\*\\pn\\pnlvlbody" + std::string(kind) +
                                 "\\pnstart2147483647{\\pntxtb " + Repeated("\\u-3913?", 10'000) + "}{\\pntxta " +
                                 Repeated("\\u-3913?", 10'000) + "}}";
        ReadBounded(head + Repeated("\\par", kMany) + "}", kRepeating);
    }
}

TEST(HostileWriting, NumbersOfManyLevels)
{
    std::string levels;
    for (int level = 0; level < 9; ++level)
        levels += "{\\listlevel\\levelnfc1\\levelstartat30888{\\leveltext\\'ff" + Repeated("\\'08", 255) + ";}}";
    const std::string head =
        "{\\rtf1{\\*\\listtable{\\list" + levels + "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}";
    std::string first;
    for (int level = 0; level < 9; ++level)
        first += "\\pard\\ls1\\ilvl" + std::to_string(level) + "\\par";
    ReadBounded(head + first + Repeated("\\par", kMany) + "}", {.memory = 1'000, .written = 500});
}

TEST(HostileWriting, RowsOfManyCells)
{
    const std::string head = "{\\rtf1\\trowd" + ManyCells(256) + "\\pard\\intbl";
    ReadBounded(head + Repeated("\\row", kMany) + "}", kRepeating);
    ReadBounded(head + Repeated("\\cell\\row", kMany) + "}", kRepeating);
    ReadBounded(head + Repeated(Repeated("\\cell", 256) + "\\row", 200) + "}", kRepeating);
}

TEST(HostileWriting, RowsThatDifferInLittle)
{
    const std::string head = "{\\rtf1\\trowd" + ManyCells(255) + "\\pard\\intbl";
    ReadBounded(head + Repeated("\\trhdr1\\row\\trhdr0\\row", 500) + "}", kRepeating);
}

TEST(HostileWriting, RowsOfNestedTables)
{
    const std::string head = "{\\rtf1\\pard\\intbl\\itap2{\\*\\nesttableprops\\trowd" + ManyCells(256);
    ReadBounded(head + Repeated("\\nestrow", 500) + "}}", kRepeating);
}

TEST(HostileWriting, SectionsWithManyWords)
{
    const std::string head = "{\\rtf1\\sectd" + Repeated("\\linemod4000000", 1'000);
    ReadBounded(head + Repeated("\\sect", kMany) + "}", kRepeating);
    ReadBounded(head + "{\\header " + std::string(100'000, 'x') + "}" + Repeated("\\sect", kMany) + "}", kRepeating);
}

TEST(HostileWriting, FieldsWithLongInstructions)
{
    const std::string instruction = Repeated("\\u-3913?", 65'536);
    const std::string field =
        "{\\rtf1{\\field" + Repeated("\\fldlock\\fldedit", 1'000) + "{\\*\\fldinst " + instruction + "}{\\fldrslt ";
    ReadBounded(field + Repeated("a\\b b\\b0\\par", kMany) + "}}}", kRepeating);
    ReadBounded(field + Repeated("a{\\field{\\*\\fldinst X}{\\fldrslt b}}", kMany) + "}}}", kRepeating);
    ReadBounded(field + Repeated("a{\\footnote b}", kMany) + "}}}", kRepeating);
    ReadBounded(field + Repeated("a\\chpgn ", kMany) + "}}}", kRepeating);
    ReadBounded(field + Repeated("\\intbl a\\cell\\row\\pard b\\par", kMany) + "}}}", kRepeating);
}

TEST(HostileWriting, FieldsOverObjects)
{
    const std::string field = "{\\rtf1{\\field{\\*\\fldinst " + std::string(65'536, 'x') + "}{\\fldrslt ";
    ReadBounded(field + Repeated("{\\object{\\result a}}", kMany) + "}}}", kRepeating);
    ReadBounded(field + Repeated("{\\pict 00}", kMany) + "}}}", kRepeating);
}

TEST(HostileWriting, FormatsOfCharactersThatAlternate)
{
    const std::string head = "{\\rtf1{\\fonttbl{\\f0 " + std::string(250, 'F') + ";}{\\f1 " + std::string(250, 'G') +
                             ";}}" + "{\\stylesheet{\\*\\cs1 " + std::string(250, 'S') + ";}}";
    ReadBounded(head + Repeated("\\f0 a\\f1 b\\cs1 c\\cs0 d", kMany) + "}", kRepeating);
    ReadBounded(head + "\\v\\b\\i\\strike\\up4000000\\expndtw4000000\\caps\\outl\\shad\\f1" +
                    Repeated("{\\plain a}b", kMany) + "}",
                kRepeating);
}

TEST(HostileWriting, NotesWithLongNames)
{
    const std::string head =
        "{\\rtf1{\\*\\atnid " + std::string(65'536, 'x') + "}{\\*\\atnauthor " + std::string(65'536, 'y') + "}";
    ReadBounded(head + Repeated("{\\*\\annotation a}", kMany) + "}", kRepeating);
}

TEST(HostileWriting, ListsWithManyOverrides)
{
    std::string levels;
    for (int level = 0; level < 9; ++level)
        levels += "{\\listlevel{\\leveltext\\'20" + Repeated("\\u-3913?", 255) + ";}}";
    std::string overrides;
    std::string paragraphs;
    for (int i = 1; i <= 4'096; ++i)
    {
        overrides += "{\\listoverride\\listid1\\ls" + std::to_string(i) + "}";
        paragraphs += "\\ls" + std::to_string(i) + "\\ilvl8\\par";
    }
    ReadBounded("{\\rtf1{\\*\\listtable{\\list" + levels + "\\listid1}}{\\*\\listoverridetable" + overrides + "}" +
                    paragraphs + "}",
                kRepeating);
}

}  // namespace
}  // namespace quillmarker
