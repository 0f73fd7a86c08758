#include "plain_text.h"

#include "utf.h"

namespace quillmarker::tool
{
namespace
{

char16_t Printed(char16_t unit)
{
    switch (unit)
    {
    case kLineBreak:
    case kColumnBreak:
        return u'\n';
    case kObjectCharacter:
        return u' ';
    default:
        return unit;
    }
}

class TextMaker
{
public:
    TextMaker(const Document& document, HiddenText hidden) : m_document(document), m_hidden(hidden) {}

    std::u16string Make()
    {
        m_document.Visit(0, [this](const Paragraph& paragraph) {
            Add(paragraph);
            return true;
        });
        m_text.erase(m_text.size() - m_lastMark);  // the last mark takes no room in the text
        return std::move(m_text);
    }

private:
    bool IsShown(CharFormatId format) const
    {
        return m_hidden == HiddenText::Kept || !m_document.FormatOf(format).hidden;
    }

    void Add(const Paragraph& paragraph)
    {
        std::uint32_t begin = 0;
        for (const Run& run : paragraph.Runs())
        {
            if (IsShown(run.format))
                for (const char16_t unit : paragraph.Text().substr(begin, run.end - begin))
                    m_text += Printed(unit);
            begin = run.end;
        }
        AddMark(paragraph.Ending());
    }

    /// The mark of a hidden paragraph hides too; a table keeps its shape.
    void AddMark(const ParagraphMark& mark)
    {
        m_lastMark = mark.kind != Mark::Break || IsShown(mark.charFormat) ? 1 : 0;
        if (m_lastMark == 1)
            m_text += mark.kind == Mark::Cell ? u'\t' : u'\n';
    }

    const Document& m_document;
    HiddenText m_hidden;
    std::u16string m_text;
    std::size_t m_lastMark = 0;
};

}  // namespace

std::string PlainText(const Document& document, HiddenText hidden)
{
    std::string text = ToUtf8(TextMaker(document, hidden).Make());
    if (!text.empty() && text.back() != '\n')
        text += '\n';
    return text;
}

}  // namespace quillmarker::tool
