// What was read is written, read again and the same; what is written of a part and put back changes nothing.

#include "document_laws.h"
#include "fuzzed_source.h"
#include "require.h"

#include <quillmarker/text_box.h>

#include <algorithm>
#include <cstdint>
#include <string>

using namespace quillmarker;

namespace
{

/// A number that depends on every byte of the input, so that mutations choose other parts of the text.
std::uint32_t SeedOf(const std::uint8_t* data, std::size_t size)
{
    std::uint32_t hash = 2'166'136'261U;
    for (std::size_t i = 0; i < size; ++i)
        hash = (hash ^ data[i]) * 16'777'619U;
    return hash;
}

void RequireStable(const Document& document)
{
    const std::string written = WriteRtf(document);
    Require(std::ranges::all_of(written, [](char c) { return static_cast<unsigned char>(c) < 0x80; }),
            "what is written is 7-bit");
    const Document again = ReadRtf(std::string_view(written));
    RequireWhole(again);
    const auto said = [&](const std::string& law) { return law + "\n--- written\n" + written.substr(0, 3000); };
    if (!SameContent(document, again))
        std::fprintf(stderr, "%s\n", said("written and read again").c_str());
    RequireSame(document, again, "what was written is read as it was");
    const std::string rewritten = WriteRtf(again);
    Require(rewritten == written, "writing what was read twice gives the same bytes",
            [&] { return said("first") + "\n--- second\n" + rewritten.substr(0, 3000); });
}

void RequirePartStays(TextBox& box, const Document& document, const Selection& wanted)
{
    box.OpenValue(document);
    box.SetSelStart(wanted.start);
    box.SetSelLength(wanted.length);
    const Selection selected{box.SelStart(), box.SelLength()};
    const std::u16string part = box.SelRTF();
    box.SetSelRTF(part);
    if (!SameContent(document, box.Value()))
    {
        std::fprintf(stderr, "selection %d, %d\n--- its RTF\n%s\n", selected.start, selected.length,
                     Printable(part).c_str());
    }
    RequireSame(document, box.Value(), "a selection's RTF put over it changes nothing");
    RequireWhole(box.Value());
    Require(box.SelStart() == selected.start + selected.length, "the caret stands behind what was put in");
}

/// Every part of a short text, a few of a long one.
void RequirePartsStay(const Document& document, std::uint32_t seed)
{
    constexpr std::int32_t kShort = 12;
    constexpr int kFew = 3;
    TextBox box;
    const std::int32_t size = document.Size();
    if (size > kShort)
    {
        const std::uint32_t positions = static_cast<std::uint32_t>(size) + 1;
        for (int i = 0; i < kFew; ++i, seed = seed * 1'664'525 + 1'013'904'223)
        {
            const std::uint32_t start = (seed >> 8) % positions;
            const std::uint32_t length = (seed >> 4) % (positions - start);
            RequirePartStays(box, document, {static_cast<std::int32_t>(start), static_cast<std::int32_t>(length)});
        }
        return;
    }
    for (std::int32_t start = 0; start <= size; ++start)
        for (std::int32_t length = 0; start + length <= size; ++length)
            RequirePartStays(box, document, {start, length});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Document document = FuzzedSource(data, size).Read();
    RequireStable(document);
    RequirePartsStay(document, SeedOf(data, size));
    return 0;
}
