#pragma once

#include <quillmarker/document.h>

#include <cstdint>
#include <string>

namespace quillmarker
{

/// Writes what stands in a line of HTML: text, links, pictures. Hidden text is left out.
class HtmlInlineWriter
{
public:
    /// `nesting` is the number of objects that the text stands in.
    HtmlInlineWriter(const Document& document, std::string& out, int nesting = 0)
        : m_document(document), m_out(out), m_nesting(nesting)
    {
    }

    /// The units of a paragraph's text from `begin` to `end`.
    void Write(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end);
    /// What stands in front of a numbered paragraph.
    void WriteNumber(const Paragraph& paragraph, const std::u16string& number);

private:
    void WriteRun(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end, const CharFormat& format);
    void WriteObject(const InlineObject* object);
    void WritePicture(const InlinePicture& picture);
    void SetLink(const std::u16string& target);

    const Document& m_document;
    std::string& m_out;
    int m_nesting;
    std::u16string m_link;
};

}  // namespace quillmarker
