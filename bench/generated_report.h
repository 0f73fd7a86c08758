#pragma once

#include <cstddef>
#include <string>

namespace quillmarker
{

/// What a generated report is like.
struct ReportShape
{
    std::size_t bytes = 0;  // of RTF, at least; the paragraph under way is finished
    int markers = 0;        // spread evenly over the report, in ascending order
};

/// The text of a marker: "<<field 00017>>".
std::string MarkerName(int number);

/// What stands once in a generated report, as its last words.
inline constexpr char16_t kLastWords[] = u"Here ends the generated report";

/// A report as RTF, the same for the same shape on every machine: paragraphs of 20 to 120 words whose formats change a
/// few times, headings, a table now and then, some characters beyond ASCII.
std::string GeneratedReport(const ReportShape& shape);

}  // namespace quillmarker
