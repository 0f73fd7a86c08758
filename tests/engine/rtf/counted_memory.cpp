#include "engine/rtf/counted_memory.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::size_t> live = 0;
std::atomic<std::size_t> peak = 0;
std::atomic<std::size_t> allocations = 0;
std::atomic<std::size_t> before = 0;

void* Counted(void* block)
{
    if (!block)
        throw std::bad_alloc();
    const std::size_t now = live += malloc_usable_size(block);
    peak = std::max<std::size_t>(peak, now);
    ++allocations;
    return block;
}

void Release(void* block)
{
    if (block)
        live -= malloc_usable_size(block);
    std::free(block);
}

std::size_t Rounded(std::size_t size, std::size_t alignment) { return (size + alignment - 1) / alignment * alignment; }

}  // namespace

void* operator new(std::size_t size) { return Counted(std::malloc(std::max<std::size_t>(size, 1))); }
void* operator new[](std::size_t size) { return Counted(std::malloc(std::max<std::size_t>(size, 1))); }
void operator delete(void* block) noexcept { Release(block); }
void operator delete[](void* block) noexcept { Release(block); }
void operator delete(void* block, std::size_t) noexcept { Release(block); }
void operator delete[](void* block, std::size_t) noexcept { Release(block); }

void* operator new(std::size_t size, std::align_val_t alignment)
{
    const auto bytes = static_cast<std::size_t>(alignment);
    return Counted(std::aligned_alloc(bytes, Rounded(std::max<std::size_t>(size, 1), bytes)));
}

void* operator new[](std::size_t size, std::align_val_t alignment) { return operator new(size, alignment); }
void operator delete(void* block, std::align_val_t) noexcept { Release(block); }
void operator delete[](void* block, std::align_val_t) noexcept { Release(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { Release(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { Release(block); }

namespace quillmarker
{

void BeginCounting()
{
    before = live.load();
    peak = live.load();
    allocations = 0;
}

MemoryUse CountedSoFar() { return {peak - before, allocations}; }

}  // namespace quillmarker
