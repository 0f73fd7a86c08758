#include "sample_report.h"

#include "generated_report.h"

#include <quillmarker/rtf.h>

#include <map>

namespace quillmarker
{

const std::string& SampleRtf(std::int64_t megabytes)
{
    static std::map<std::int64_t, std::string> made;
    std::string& rtf = made[megabytes];
    if (rtf.empty())
        rtf = GeneratedReport({.bytes = static_cast<std::size_t>(megabytes * kMegabyte)});
    return rtf;
}

const Document& SampleDocument(std::int64_t megabytes)
{
    static std::map<std::int64_t, Document> read;
    const auto found = read.find(megabytes);
    return found != read.end() ? found->second : read.emplace(megabytes, ReadRtf(SampleRtf(megabytes))).first->second;
}

void Sizes(benchmark::internal::Benchmark* benchmark) { benchmark->ArgName("MB")->Arg(1)->Arg(10)->Arg(50); }

}  // namespace quillmarker
