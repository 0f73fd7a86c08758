#pragma once

#include "engine/rtf/counted_memory.h"
#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quillmarker
{

inline std::string Repeated(std::string_view piece, std::size_t count)
{
    std::string all;
    all.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += piece;
    return all;
}

/// How much reading and writing may take for each byte of the source, and how much in any case. A paragraph of its own
/// takes four bytes of source and a block of memory; a short word may make the writer repeat what holds for a paragraph.
struct Bounds
{
    std::size_t memory = 100;
    std::size_t allocations = 4;
    std::size_t written = 40;
};

constexpr std::size_t kAnyMemory = 24 << 20;
constexpr std::size_t kAnyAllocations = 50'000;
constexpr std::size_t kAnyWritten = 64 << 10;

/// Reads and writes `source`, holds it to the bounds, and gives the document back.
inline Document ReadBounded(const std::string& source, const Bounds& bounds = {})
{
    Document document;
    const MemoryUse reading = Measured([&] { document = ReadRtf(source); });
    EXPECT_LE(reading.peak, source.size() * bounds.memory + kAnyMemory) << "of " << source.size();
    EXPECT_LE(reading.allocations, source.size() * bounds.allocations + kAnyAllocations) << "of " << source.size();
    EXPECT_LE(static_cast<std::size_t>(document.Size()), source.size() * 2) << "of " << source.size();
    std::string written;
    const MemoryUse writing = Measured([&] { written = WriteRtf(document); });
    EXPECT_LE(written.size(), source.size() * bounds.written + kAnyWritten) << "of " << source.size();
    EXPECT_LE(writing.peak, source.size() * bounds.memory + written.size() * 8 + kAnyMemory) << "of " << source.size();
    if (std::getenv("QUILLMARKER_SHOW_USE"))  // NOLINT(concurrency-mt-unsafe): nobody sets it here
    {
        const auto per = [&](std::size_t amount) {
            return std::to_string(double(amount) / double(std::max<std::size_t>(source.size(), 1)));
        };
        std::fprintf(stderr, "%s: %zu bytes, per byte: memory %s allocations %s written %s writing %s\n",
                     testing::UnitTest::GetInstance()->current_test_info()->name(), source.size(),
                     per(reading.peak).c_str(), per(reading.allocations).c_str(), per(written.size()).c_str(),
                     per(writing.peak).c_str());
    }
    return document;
}

}  // namespace quillmarker
