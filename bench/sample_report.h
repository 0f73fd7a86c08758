#pragma once

#include <quillmarker/document.h>

#include <cstdint>
#include <string>

#include <benchmark/benchmark.h>

namespace quillmarker
{

constexpr std::int64_t kMegabyte = 1'000'000;

/// The generated report of so many megabytes, made once.
const std::string& SampleRtf(std::int64_t megabytes);

/// The same as a document, read once.
const Document& SampleDocument(std::int64_t megabytes);

/// The sizes at which growth shows: 1, 10 and 50 megabytes of RTF.
void Sizes(benchmark::internal::Benchmark* benchmark);

}  // namespace quillmarker
