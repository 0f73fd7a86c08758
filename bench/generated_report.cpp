#include "generated_report.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace quillmarker
{
namespace
{

constexpr std::string_view kHead =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}{\\f1\\fswiss\\fcharset0 "
    "Arial;}"
    "{\\f2\\fmodern\\fcharset0 Courier New;}}\r\n"
    "{\\colortbl;\\red0\\green0\\blue0;\\red192\\green0\\blue0;\\red0\\green0\\blue160;}\r\n"
    "{\\stylesheet{\\s0\\f0\\fs24 Normal;}{\\s1\\b\\f1\\fs32 heading 1;}}\r\n"
    "\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134\\deftab567\r\n";

constexpr std::array<std::string_view, 48> kWords = {
    "the",      "of",       "and",       "in",          "was",      "with",    "for",        "patient",
    "report",   "findings", "left",      "right",       "measured", "normal",  "history",    "examination",
    "without",  "evidence", "moderate",  "value",       "result",   "before",  "treatment",  "increase",
    "a",        "no",       "to",        "on",          "at",       "under",   "between",    "approximately",
    "contract", "delivery", "statement", "account",     "client",   "section", "paragraph",  "agreement",
    "12",       "3.5 mm",   "1998",      "(see above)", "however,", "i.e.",    "conclusion", "recommended"};

constexpr std::array<std::string_view, 6> kBeyondAscii = {"\\u8364\\'80", "na\\'efve", "\\u956?g",
                                                          "caf\\'e9",     "\\'96",     "\\u945?\\u946?"};

/// Formats that a few words are put in, and what ends them.
constexpr std::array<std::array<std::string_view, 2>, 6> kFormats = {{{"{\\b ", "}"},
                                                                      {"{\\i ", "}"},
                                                                      {"\\ul ", "\\ulnone "},
                                                                      {"{\\cf2 ", "}"},
                                                                      {"{\\f2\\fs20 ", "}"},
                                                                      {"{\\b\\cf3 ", "}"}}};

class Writer
{
public:
    explicit Writer(const ReportShape& shape) : m_shape(shape), m_out(kHead) { m_out.reserve(shape.bytes + 4'096); }

    std::string Write()
    {
        for (unsigned number = 1; m_out.size() < m_shape.bytes; ++number)
        {
            if (number % 25 == 1)
                Heading(number / 25 + 1);
            else if (number % 40 == 0)
                Table();
            else
                Paragraph();
        }
        while (m_markers < m_shape.markers)
            Marker();
        for (const char16_t unit : std::u16string_view(kLastWords))
            m_out += static_cast<char>(unit);
        return m_out + ".\\par\r\n}\r\n";
    }

private:
    /// From 0 up to, not including, `limit`; a linear congruential generator, since it is the same everywhere.
    unsigned Below(unsigned limit)
    {
        m_state = m_state * 6'364'136'223'846'793'005U + 1'442'695'040'888'963'407U;
        return static_cast<unsigned>(m_state >> 33) % limit;
    }

    void Marker() { m_out += MarkerName(m_markers++) + " "; }

    void Word()
    {
        const auto count = static_cast<std::size_t>(m_shape.markers);
        if (count > 0 && m_markers < m_shape.markers &&
            m_out.size() >= m_shape.bytes / (count + 1) * (static_cast<std::size_t>(m_markers) + 1))
            Marker();
        m_out += Below(60) == 0 ? kBeyondAscii[Below(kBeyondAscii.size())] : kWords[Below(kWords.size())];
        m_out += ' ';
    }

    void Words(unsigned count)
    {
        for (; count > 0; --count)
            Word();
    }

    void Heading(unsigned number)
    {
        m_out += "\\pard\\plain\\s1\\keepn\\sb240\\sa120\\b\\f1\\fs32 " + std::to_string(number) + ".\\tab ";
        Words(3 + Below(4));
        m_out += "\\par\r\n";
    }

    void Paragraph()
    {
        m_out += Below(3) == 0 ? "\\pard\\plain\\qj\\fi360\\sa120\\f0\\fs24 " : "\\pard\\plain\\qj\\sa120\\f0\\fs24 ";
        unsigned left = 20 + Below(101);
        while (left > 0)
        {
            const unsigned plain = std::min(left, 4 + Below(40));
            Words(plain);
            left -= plain;
            const unsigned formatted = std::min(left, 1 + Below(6));
            if (formatted == 0)
                break;
            const auto& format = kFormats[Below(kFormats.size())];
            m_out += format[0];
            Words(formatted);
            m_out += format[1];
            left -= formatted;
        }
        m_out += "\\par\r\n";
    }

    void Table()
    {
        const unsigned columns = 2 + Below(4);
        for (unsigned row = 2 + Below(8); row > 0; --row)
        {
            m_out += "\\trowd\\trgaph70\\trleft-70";
            for (unsigned column = 1; column <= columns; ++column)
                m_out += "\\clbrdrb\\brdrs\\brdrw10\\cellx" + std::to_string(column * 9'000 / columns);
            m_out += "\r\n\\pard\\plain\\intbl\\f0\\fs20 ";
            for (unsigned column = 0; column < columns; ++column)
            {
                Words(1 + Below(5));
                m_out += "\\cell ";
            }
            m_out += "\\row\r\n";
        }
    }

    const ReportShape& m_shape;
    std::string m_out;
    std::uint64_t m_state = 20'240'229;
    int m_markers = 0;
};

}  // namespace

std::string MarkerName(int number)
{
    constexpr std::size_t kDigits = 5;
    const std::string digits = std::to_string(number);
    std::string name = "<<field ";
    name.append(kDigits - std::min(digits.size(), kDigits), '0');
    name += digits;
    return name + ">>";
}

std::string GeneratedReport(const ReportShape& shape) { return Writer(shape).Write(); }

}  // namespace quillmarker
