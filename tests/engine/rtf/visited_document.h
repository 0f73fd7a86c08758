#pragma once

#include "engine/document/paragraph_builder.h"
#include "engine/document/tree.h"

#include <quillmarker/rtf.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// The first `most` paragraphs that a single pass over the source gives, copied into a document that has the properties
/// of `like`.
inline Document VisitedDocument(std::string_view source, const Document& like, const RtfReading& options = {},
                                std::size_t most = SIZE_MAX)
{
    std::vector<ParagraphRef> paragraphs;
    const auto formats = std::make_shared<FormatTable>();
    const auto copy = [&](const Paragraph& paragraph, const FormatTable& table) {
        ParagraphBuilder builder;
        builder.Append(paragraph, 0, static_cast<std::uint32_t>(paragraph.Text().size()));
        paragraphs.push_back(builder.FinishLike(paragraph));
        *formats = table;
        return paragraphs.size() < most;
    };
    VisitRtf(source, copy, options);
    return {Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(paragraphs)})), formats,
            like.SharedProperties()};
}

}  // namespace quillmarker
