#include "byte_script.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace quillmarker
{
namespace
{

// The letters that equal another one when case is ignored, the breaks, and what has a meaning of its own in RTF or
// UTF-16 are here; a pair of surrogates needs two bytes, so that halves occur alone.
constexpr char16_t kAlphabet[] = {u'a',
                                  u'b',
                                  u'c',
                                  u'A',
                                  u'B',
                                  u'k',
                                  u'\u212A',
                                  u'\u00DF',
                                  u'\u0130',
                                  u'i',
                                  u'\u03C3',
                                  u'\u03C2',
                                  u'\u03A3',
                                  u' ',
                                  u'\t',
                                  u'\r',
                                  u'\n',
                                  u'\v',
                                  u'\f',
                                  u'\u000E',
                                  u'\\',
                                  u'{',
                                  u'}',
                                  u';',
                                  u'1',
                                  u'-',
                                  u'_',
                                  u'\u00A0',
                                  u'\u00AD',
                                  u'\u0301',
                                  u'\u20AC',
                                  u'\u05D0',
                                  u'\u3042',
                                  u'\uFFFC',
                                  u'\u2028',
                                  u'\u0085',
                                  u'\u0001',
                                  u'\u007F',
                                  u'\u0000',
                                  char16_t(0xD83D),
                                  char16_t(0xDE00)};

constexpr unsigned kLongText = 250;
constexpr std::size_t kRepeats = 90;

}  // namespace

std::int32_t ByteScript::Position(std::int32_t size)
{
    const unsigned choice = Byte();
    switch (choice)
    {
    case 255:
        return std::numeric_limits<std::int32_t>::max();
    case 254:
        return std::numeric_limits<std::int32_t>::min();
    case 253:
        return -1;
    case 252:
        return size;
    case 251:
        return size + 1;
    case 250:
        return size - 1;
    default:
        break;
    }
    // Texts longer than what a byte counts are reached in steps.
    constexpr unsigned kSteps = 250;
    return size <= static_cast<std::int32_t>(kSteps) ? static_cast<std::int32_t>(choice)
                                                     : static_cast<std::int32_t>(std::int64_t{size} * choice / kSteps);
}

std::u16string ByteScript::Text()
{
    const unsigned choice = Byte();
    std::u16string text;
    for (unsigned length = choice % 12; length > 0; --length)
        text += kAlphabet[Below(std::size(kAlphabet))];
    if (choice < kLongText)
        return text;
    std::u16string repeated;
    for (std::size_t i = 0; i < kRepeats; ++i)
        repeated += text;
    return repeated;
}

std::string ByteScript::Bytes()
{
    // The count itself is read first: what is left of the input is less by one then.
    const std::size_t wanted = Byte();
    const std::size_t length = std::min(wanted, m_size - m_at);
    const std::string bytes(m_data + m_at, m_data + m_at + length);
    m_at += length;
    return bytes;
}

}  // namespace quillmarker
