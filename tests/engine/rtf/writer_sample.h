#pragma once

#include "engine/document/paragraph_builder.h"
#include "engine/document/tree.h"
#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace quillmarker
{

/// A document of one paragraph: "before" in the default format, "inside" in `inside`, "behind" in the default format.
inline Document OneParagraph(const CharFormat& inside, const ParagraphFormat& paragraph = {})
{
    const auto formats = std::make_shared<FormatTable>();
    const CharFormatId plain = formats->Intern(DefaultCharFormat());
    ParagraphBuilder builder;
    builder.Append(u"before", plain);
    builder.Append(u"inside", formats->Intern(inside));
    builder.Append(u"behind", plain);
    const ParagraphMark mark{Mark::Break, 0, plain, formats->Intern(paragraph)};
    const std::vector<ParagraphRef> paragraphs = {builder.Finish(mark)};
    return {Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(paragraphs)})), formats, {}};
}

/// Holds the two laws of writing: reading gives the document back, and writing that gives the same bytes.
inline void ExpectSurvives(const Document& document, const std::string& what)
{
    const std::string written = WriteRtf(document);
    const Document again = ReadRtf(written);
    EXPECT_TRUE(SameContent(again, document)) << what << '\n' << written << '\n' << Dump(document) << Dump(again);
    EXPECT_EQ(WriteRtf(again), written) << what;
}

}  // namespace quillmarker
