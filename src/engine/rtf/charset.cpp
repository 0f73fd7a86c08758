#include "engine/rtf/charset.h"

#include <algorithm>
#include <iterator>

namespace quillmarker
{

namespace
{

struct CharsetPage
{
    int charset;
    CodePage page;
};

constexpr CharsetPage kCharsets[] = {
    {0, kAnsiPage},       {1, kDocumentPage}, {2, kSymbolPage},  {77, kMacPage},  {78, kMacJapanesePage},
    {79, 10003},          {80, 10008},        {81, 10002},       {83, 10005},     {84, 10004},
    {85, 10006},          {86, 10081},        {87, 10021},       {88, 10029},     {89, 10007},
    {128, kShiftJisPage}, {129, kKoreanPage}, {130, kJohabPage}, {134, kGbkPage}, {136, kBig5Page},
    {161, 1253},          {162, 1254},        {163, 1258},       {177, 1255},     {178, 1256},
    {186, 1257},          {204, 1251},        {222, 874},        {238, 1250},     {254, kPcPage},
    {255, kPcLatin1Page}};

constexpr bool BeforeByCharset(const CharsetPage& a, const CharsetPage& b) { return a.charset < b.charset; }

constexpr bool EveryPageOnce()
{
    for (std::size_t i = 0; i < std::size(kCharsets); ++i)
    {
        for (std::size_t k = 0; k < i; ++k)
        {
            if (kCharsets[i].page == kCharsets[k].page)
                return false;
        }
    }
    return true;
}

static_assert(std::is_sorted(std::begin(kCharsets), std::end(kCharsets), BeforeByCharset));
static_assert(EveryPageOnce(), "the way back from a page to its character set is unique");

}  // namespace

CodePage CodePageOfCharset(int charset)
{
    const auto* found = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                     [charset](const CharsetPage& row) { return row.charset == charset; });
    return found == std::end(kCharsets) ? kDocumentPage : found->page;
}

std::optional<int> CharsetOfCodePage(CodePage page)
{
    const auto* found = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                     [page](const CharsetPage& row) { return row.page == page; });
    return found == std::end(kCharsets) ? std::nullopt : std::optional<int>(found->charset);
}

}  // namespace quillmarker
