// How much memory a report takes: what operator new has given out, as the allocator counts it, before and after
// reading generated reports. Prints one line a size.

#include "generated_report.h"

#include <quillmarker/text_box.h>

#include <malloc.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

namespace
{

std::size_t live = 0;
std::size_t most = 0;

}  // namespace

void* operator new(std::size_t size)
{
    void* block = std::malloc(size == 0 ? 1 : size);
    if (!block)
        throw std::bad_alloc();
    live += malloc_usable_size(block);
    most = std::max(most, live);
    return block;
}

void operator delete(void* block) noexcept
{
    live -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace
{

void Measure(std::size_t megabytes)
{
    constexpr std::size_t kMegabyte = 1'000'000;
    const std::string rtf = quillmarker::GeneratedReport({.bytes = megabytes * kMegabyte});
    quillmarker::TextBox box;
    const std::size_t before = live;
    most = live;
    box.SetTextRTFBytes(rtf);
    box.ClearHistory();
    const auto text = static_cast<double>(box.TextLength()) * sizeof(char16_t);
    const auto held = static_cast<double>(live - before);
    const auto peak = static_cast<double>(most - before);
    const auto size = static_cast<double>(kMegabyte);
    std::printf("| %3zu | %7.2f | %7.2f | %7.2f | %5.2f | %5.2f |\n", megabytes, text / size, held / size, peak / size,
                held / text, peak / text);
}

}  // namespace

int main()
{
    std::printf(
        "| RTF, MB | text in UTF-16, MB | held, MB | at most while reading, MB | held / text | at most / text |\n"
        "| --- | --- | --- | --- | --- | --- |\n");
    for (const std::size_t megabytes : {1, 10, 50})
        Measure(megabytes);
    return 0;
}
