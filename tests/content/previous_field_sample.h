#pragma once

#include "engine/document/case_folding.h"

#include <quillmarker/report.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace quillmarker::naive
{

// The string functions of the rule, which count from 1; 0 is "nowhere".

inline bool IsAt(std::u16string_view text, std::size_t at, std::u16string_view part)
{
    return at + part.size() <= text.size() &&
           std::equal(part.begin(), part.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                      [](char16_t a, char16_t b) { return Fold(a) == Fold(b); });
}

inline int Len(std::u16string_view text) { return static_cast<int>(text.size()); }

inline int InStr(int start, std::u16string_view text, std::u16string_view part)
{
    for (int at = start; at <= Len(text); ++at)
    {
        if (IsAt(text, static_cast<std::size_t>(at - 1), part))
            return at;
    }
    return 0;
}

inline int InStrRev(std::u16string_view text, std::u16string_view part)
{
    for (int at = Len(text); at >= 1; --at)
    {
        if (IsAt(text, static_cast<std::size_t>(at - 1), part))
            return at;
    }
    return 0;
}

inline std::u16string Left(std::u16string_view text, int count)
{
    return std::u16string(text.substr(0, static_cast<std::size_t>(count)));
}

inline std::u16string Mid(std::u16string_view text, int at, int count)
{
    return std::u16string(text.substr(static_cast<std::size_t>(at - 1), static_cast<std::size_t>(count)));
}

inline std::u16string Field(std::u16string_view src, std::u16string_view prefix, std::u16string_view suffix)
{
    const int p = InStrRev(src, prefix);
    if (p < 1 || Len(src) < p + Len(prefix) + Len(suffix) + 1)
        return {};
    const int q = InStr(p + Len(prefix), src, suffix);
    if (q < p)
        return {};
    return Mid(src, p + Len(prefix), q - (p + Len(prefix)));
}

/// The whole rule, word for word, over the members of the box.
inline std::u16string PreviousField(TextBox& box, std::u16string_view prefix, std::u16string_view suffix, bool rtfCode)
{
    int start = box.SelStart();
    const int length = box.SelLength();
    std::u16string result;
    if (!prefix.empty() && !suffix.empty())
    {
        const std::u16string text = box.Text();
        if (start < 2)
            start = Len(text);
        if (rtfCode)
        {
            box.SetSelStart(1);
            box.SetSelLength(start);
            result = Field(box.SelRTF(), prefix, suffix);
        }
        else
        {
            int e = start;
            if (start < Len(text))
                e = std::max(InStr(start, text, u"\r"), start);
            result = Field(Left(text, e), prefix, suffix);
        }
    }
    if (rtfCode)
    {
        box.SetSelStart(start);
        box.SetSelLength(length);
    }
    return result;
}

}  // namespace quillmarker::naive
