#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quillmarker
{

/// A PDF with the properties of a document (by RTF's \info keywords: title, author, subject, keywords) in its
/// information dictionary, added behind its end as PDF 1.4, section 3.4.5, allows. As it was when it has no trailer of
/// the plain kind.
std::string WithPdfProperties(std::string pdf, const std::vector<std::pair<std::string, std::u16string>>& info);

}  // namespace quillmarker
