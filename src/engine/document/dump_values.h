#pragma once

#include <quillmarker/inline_object.h>
#include <quillmarker/paragraph_format.h>
#include <quillmarker/section.h>
#include <quillmarker/table_row.h>

#include <string>
#include <string_view>

namespace quillmarker
{

/// Text in quotes as UTF-8, with control characters, quotes and lone surrogates escaped.
std::string Quoted(std::u16string_view text);

// What differs from the default, each with a blank before it. Lengths are in twips, sizes in points.
std::string DumpOf(const CharFormat&);
std::string DumpOf(const ParagraphFormat&);
std::string DumpOf(const TableRow&);
std::string DumpOf(const Section&);
std::string DumpOf(const InlinePicture&);
std::string DumpOf(const EmbeddedObject&);

/// Lines of their own.
std::string DumpOf(const DocumentFormat&);

}  // namespace quillmarker
