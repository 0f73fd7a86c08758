#include <quillmarker/numbering_text.h>

#include <algorithm>

namespace quillmarker
{
namespace
{

struct RomanDigit
{
    std::int32_t value;
    const char16_t* text;
};

constexpr std::array kRomanDigits = {
    RomanDigit{1000, u"M"}, RomanDigit{900, u"CM"}, RomanDigit{500, u"D"}, RomanDigit{400, u"CD"},
    RomanDigit{100, u"C"},  RomanDigit{90, u"XC"},  RomanDigit{50, u"L"},  RomanDigit{40, u"XL"},
    RomanDigit{10, u"X"},   RomanDigit{9, u"IX"},   RomanDigit{5, u"V"},   RomanDigit{4, u"IV"},
    RomanDigit{1, u"I"},
};

std::u16string DecimalText(std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string Roman(std::int32_t number)
{
    std::u16string text;
    for (const RomanDigit& digit : kRomanDigits)
    {
        for (; number >= digit.value; number -= digit.value)
            text += digit.text;
    }
    return text;
}

/// a to z, then aa to zz, as word processors count.
std::u16string Letters(std::int32_t number)
{
    const std::int32_t index = (number - 1) % 26;
    return std::u16string(static_cast<std::size_t>((number - 1) / 26 + 1), static_cast<char16_t>(u'A' + index));
}

std::u16string Lower(std::u16string text)
{
    std::ranges::transform(text, text.begin(), [](char16_t unit) { return static_cast<char16_t>(unit | 0x20); });
    return text;
}

}  // namespace

std::u16string NumberText(NumberKind kind, std::int32_t number)
{
    constexpr std::int32_t kMostLetters = 26 * 30;
    constexpr std::int32_t kMostRoman = 32'767;
    const bool hasLetters = number > 0 && number <= kMostLetters;
    const bool hasRoman = number > 0 && number <= kMostRoman;
    switch (kind)
    {
    case NumberKind::None:
    case NumberKind::Bullet:
        return {};
    case NumberKind::UpperLetter:
        return hasLetters ? Letters(number) : DecimalText(number);
    case NumberKind::LowerLetter:
        return hasLetters ? Lower(Letters(number)) : DecimalText(number);
    case NumberKind::UpperRoman:
        return hasRoman ? Roman(number) : DecimalText(number);
    case NumberKind::LowerRoman:
        return hasRoman ? Lower(Roman(number)) : DecimalText(number);
    default:
        return DecimalText(number);
    }
}

std::u16string NumberCounter::Next(const Numbering* numbering)
{
    if (!numbering)
    {
        m_lists.erase(0);  // an old list ends at the first paragraph without a number
        return {};
    }
    Levels& levels = m_lists[numbering->list];
    const auto at = static_cast<std::size_t>(std::clamp(numbering->level, 0, 8));
    Level& level = levels[at];
    const bool continues = level.isRunning && level.kind == numbering->kind;
    level = {true, continues ? level.number + (level.number < 1'000'000'000 ? 1 : 0) : numbering->start,
             numbering->kind};
    for (std::size_t deeper = at + 1; deeper < kLevels; ++deeper)
        levels[deeper] = {};
    if (numbering->kind == NumberKind::Bullet || numbering->kind == NumberKind::None)
        return numbering->text;
    std::u16string text;
    for (const char16_t unit : numbering->text)
    {
        if (unit >= kLevels)
            text += unit;
        else
            text += NumberText(levels[unit].kind, levels[unit].isRunning ? levels[unit].number : 1);
    }
    return text;
}

}  // namespace quillmarker
