#include "engine/document/parse_number.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace quillmarker
{

namespace
{

bool IsBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

void SkipBlanks(std::u16string_view& text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
}

std::u16string_view Trimmed(std::u16string_view text)
{
    SkipBlanks(text);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool TakeSign(std::u16string_view& text)
{
    if (text.empty() || (text.front() != u'-' && text.front() != u'+'))
        return false;
    const bool negative = text.front() == u'-';
    text.remove_prefix(1);
    return negative;
}

enum class Commas : bool { Refused, LeftOut };

// Moves the digits at the front of `text` to `digits`. A comma counts as such only behind the first one.
void TakeDigits(std::u16string_view& text, std::string& digits, Commas commas)
{
    const std::size_t before = digits.size();
    for (; !text.empty(); text.remove_prefix(1))
    {
        if (IsDigit(text.front()))
            digits += static_cast<char>(text.front());
        else if (commas == Commas::Refused || text.front() != u',' || digits.size() == before)
            return;
    }
}

bool IsExponentMark(char16_t unit) { return unit == u'e' || unit == u'E' || unit == u'd' || unit == u'D'; }

// The number in the form std::from_chars reads; empty when the text is not numeric.
std::string Plain(std::u16string_view text)
{
    std::string plain;
    TakeDigits(text, plain, Commas::LeftOut);
    std::size_t digits = plain.size();
    if (!text.empty() && text.front() == u'.')
    {
        text.remove_prefix(1);
        plain += '.';
        TakeDigits(text, plain, Commas::Refused);
        digits = plain.size() - 1;
    }
    if (digits == 0)
        return {};
    if (!text.empty() && IsExponentMark(text.front()))
    {
        text.remove_prefix(1);
        plain += TakeSign(text) ? "e-" : "e";
        const std::size_t exponent = plain.size();
        TakeDigits(text, plain, Commas::Refused);
        if (plain.size() == exponent)
            return {};
    }
    return text.empty() ? plain : std::string();
}

// What follows &H or &O; the value has 32 bits at most.
std::optional<double> InBase(std::u16string_view text, int base)
{
    std::string digits;
    for (const char16_t unit : text)
        digits += unit < 0x80 ? static_cast<char>(unit) : '?';
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

std::optional<double> Decimal(std::u16string_view text)
{
    const std::string plain = Plain(text);
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (plain.empty() || error != std::errc())
        return std::nullopt;
    return value;
}

std::optional<double> Number(std::u16string_view text)
{
    if (text.size() > 2 && text[0] == u'&' && (text[1] == u'H' || text[1] == u'h'))
        return InBase(text.substr(2), 16);
    if (text.size() > 2 && text[0] == u'&' && (text[1] == u'O' || text[1] == u'o'))
        return InBase(text.substr(2), 8);
    return Decimal(text);
}

}  // namespace

std::optional<double> NumericValue(std::u16string_view text)
{
    text = Trimmed(text);
    const bool negative = TakeSign(text);
    SkipBlanks(text);
    const std::optional<double> value = Number(text);
    return negative && value.value_or(0) != 0 ? -*value : value;
}

double ParseNumber(std::u16string_view text) { return NumericValue(text).value_or(0); }

float ParseSize(std::u16string_view text)
{
    const double value = ParseNumber(text);
    if (std::abs(value) > double{std::numeric_limits<float>::max()})
        return 0;
    return static_cast<float>(value);
}

}  // namespace quillmarker
