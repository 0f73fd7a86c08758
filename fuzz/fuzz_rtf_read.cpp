// Reads anything as RTF. It must end, in bounds, with a document that is whole.

#include "document_laws.h"
#include "fuzzed_source.h"
#include "require.h"

#include <string>

using namespace quillmarker;

namespace
{

// The most a byte of the source gives is a line end of plain text, which counts two.
constexpr std::int64_t kUnitsOfAByte = 2;
constexpr std::int64_t kAlwaysAllowed = 16;

void RequireBounded(const Document& document, const Extent& extent, std::size_t size)
{
    const auto bytes = static_cast<std::int64_t>(size);
    const auto detail = [&] {
        return std::to_string(bytes) + " bytes gave " + std::to_string(extent.units) + " units, " +
               std::to_string(extent.paragraphs) + " paragraphs, " + std::to_string(extent.runs) + " runs";
    };
    Require(extent.units <= kUnitsOfAByte * bytes + kAlwaysAllowed, "the text is bounded by the source", detail);
    Require(extent.paragraphs <= bytes + kAlwaysAllowed, "paragraphs are bounded by the source", detail);
    Require(extent.runs <= extent.units, "there are no more runs than units", detail);
    const auto formats = static_cast<std::int64_t>(document.Formats().CharFormatCount());
    Require(formats <= bytes + kAlwaysAllowed, "formats are bounded by the source", detail);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FuzzedSource source(data, size);
    const Document document = source.Read();
    RequireBounded(document, RequireWhole(document), source.Size());
    Require(!Dump(document).empty(), "a dump says something");
    Require(SameContent(document, document.Detached()), "a document with a table of its own is the same");
    return 0;
}
