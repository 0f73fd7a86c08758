#pragma once

#include <cstddef>

namespace quillmarker
{

/// What a piece of work took from the heap. The test program's operator new counts it.
struct MemoryUse
{
    std::size_t peak = 0;  // bytes, beyond what was in use before
    std::size_t allocations = 0;
};

void BeginCounting();
MemoryUse CountedSoFar();

template <class Work>
MemoryUse Measured(const Work& work)
{
    BeginCounting();
    work();
    return CountedSoFar();
}

}  // namespace quillmarker
