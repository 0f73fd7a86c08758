#include "engine/rtf/johab.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace quillmarker
{

namespace
{

// What the five bits mean, by their value: -1 nothing, 0 the filler, else the letter's number from 1 on.
using Letters = std::array<int, 32>;

constexpr Letters kInitials = {-1, 0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                               15, 16, 17, 18, 19, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
constexpr Letters kMedials = {-1, -1, 0,  1,  2,  3,  4,  5,  -1, -1, 6,  7,  8,  9,  10, 11,
                              -1, -1, 12, 13, 14, 15, 16, 17, -1, -1, 18, 19, 20, 21, -1, -1};
constexpr Letters kFinals = {-1, 0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                             15, 16, -1, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, -1, -1};

// The letters standing alone, by their number.
constexpr std::u16string_view kInitialLetters = u"\u3131\u3132\u3134\u3137\u3138\u3139\u3141\u3142\u3143\u3145"
                                                u"\u3146\u3147\u3148\u3149\u314A\u314B\u314C\u314D\u314E";
constexpr std::u16string_view kFinalLetters =
    u"\u3131\u3132\u3133\u3134\u3135\u3136\u3137\u3139\u313A\u313B\u313C\u313D"
    u"\u313E\u313F\u3140\u3141\u3142\u3144\u3145\u3146\u3147\u3148\u314A\u314B"
    u"\u314C\u314D\u314E";

constexpr int kMedialCount = 21;
constexpr int kFinalCount = 28;  // with "none"

char16_t LetterAlone(int initial, int medial, int final)
{
    if (initial > 0 && medial == 0 && final == 0)
        return kInitialLetters[static_cast<std::size_t>(initial) - 1];
    if (initial == 0 && medial > 0 && final == 0)
        return static_cast<char16_t>(0x314F + medial - 1);
    if (initial == 0 && medial == 0 && final > 0)
        return kFinalLetters[static_cast<std::size_t>(final) - 1];
    return 0;
}

}  // namespace

bool IsJohabLead(unsigned byte)
{
    return byte >= kJohabFirstLead && byte <= kJohabLastLead && (byte <= 0xD3 || byte >= 0xD9) && byte != 0xDF;
}

char16_t JohabSyllable(unsigned lead, unsigned trail)
{
    if (lead < kJohabFirstLead || lead > 0xD3)
        return 0;
    const unsigned bits = lead << 8 | trail;
    const int initial = kInitials[bits >> 10 & 31];
    const int medial = kMedials[bits >> 5 & 31];
    const int final = kFinals[bits & 31];
    if (initial < 0 || medial < 0 || final < 0)
        return 0;
    if (initial > 0 && medial > 0)
        return static_cast<char16_t>(0xAC00 + ((initial - 1) * kMedialCount + medial - 1) * kFinalCount + final);
    return LetterAlone(initial, medial, final);
}

// The signs and the Chinese characters stand in the order of the national standard, two of its rows of 94 to a lead
// byte.
unsigned JohabInKoreanPage(unsigned lead, unsigned trail)
{
    const bool signs = lead >= 0xD9 && lead <= 0xDE;
    const bool chinese = lead >= 0xE0 && lead <= kJohabLastLead;
    const bool inTrail = (trail >= 0x31 && trail <= 0x7E) || (trail >= 0x91 && trail <= 0xFE);
    if ((!signs && !chinese) || !inTrail)
        return 0;
    const unsigned row = signs ? 2 * (lead - 0xD9) : 2 * (lead - 0xE0) + 0x29;
    const unsigned column = trail < 0x91 ? trail - 0x31 : trail - 0x43;
    return (0xA1 + row + column / 94) << 8 | (0xA1 + column % 94);
}

}  // namespace quillmarker
