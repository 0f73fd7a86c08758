#pragma once

#include "engine/layout/document_flow.h"
#include "support/fixed_font_host.h"
#include "support/sample.h"

#include <string>
#include <string_view>

namespace quillmarker
{

/// A flow over fonts that are the same everywhere: at 10 points a character is 100 twips wide and a line 200 high.
class FlowSample
{
public:
    static constexpr Twips kCharacter{100};
    static constexpr Fine kLine = 200 * kFinePerTwip;

    /// Lines hold `characters`; 0: they are not wrapped.
    FlowSample(const Document& document, std::int32_t characters)
    {
        flow.SetWidth(kCharacter * characters);
        flow.SetDocument(document);
    }
    FlowSample(std::string_view sample, std::int32_t characters) : FlowSample(SampleDocument(sample), characters) {}

    FixedFontHost fonts;
    DocumentFlow flow{fonts};
};

constexpr Fine Characters(std::int32_t count) { return ToFine(FlowSample::kCharacter) * count; }
constexpr Fine Lines(std::int32_t count) { return FlowSample::kLine * count; }

/// Paragraphs "0", "1", ... with `words` words each.
inline Document CountedParagraphs(std::int32_t count, std::int32_t words = 0)
{
    std::string sample;
    for (std::int32_t i = 0; i < count; ++i)
    {
        sample += (i > 0 ? "\n" : "") + std::to_string(i);
        for (std::int32_t word = 0; word < words; ++word)
            sample += " words";
    }
    return SampleDocument(sample);
}

}  // namespace quillmarker
