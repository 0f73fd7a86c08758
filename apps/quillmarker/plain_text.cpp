#include "plain_text.h"

#include "utf8_output.h"

#include <algorithm>
#include <utility>

namespace quillmarker::tool
{
namespace
{

/// What stands for a unit that is no printable ASCII.
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

bool IsHidden(CharFormatId format, const FormatTable& formats) { return formats[format].hidden; }

}  // namespace

TextMaker::TextMaker(HiddenText hidden, Sink sink, ListNumbers numbers)
    : m_hidden(hidden),
      m_numbers(numbers),
      m_sink(std::move(sink)),
      m_part(std::make_unique_for_overwrite<char[]>(kPart))
{
}

/// The mark of a hidden paragraph hides too; a table keeps its shape.
void TextMaker::Add(const Paragraph& paragraph, const FormatTable& formats)
{
    PutMark();
    const ParagraphMark& mark = paragraph.Ending();
    m_mark = mark.kind == Mark::Cell ? '\t' : '\n';
    if (m_numbers == ListNumbers::Shown)
        AddNumber(paragraph, formats);
    if (m_hidden == HiddenText::Kept)
        return Put(paragraph.Text());
    if (mark.kind == Mark::Break && IsHidden(mark.charFormat, formats))
        m_mark = 0;
    AddVisible(paragraph, formats);
}

void TextMaker::AddNumber(const Paragraph& paragraph, const FormatTable& formats)
{
    const Shared<Numbering>& numbering = formats[paragraph.Ending().format].numbering;
    const std::u16string number = m_counter.Next(numbering ? &*numbering : nullptr);
    if (number.empty() || paragraph.Ending().kind == Mark::Row)
        return;
    Put(number);
    PutByte('\t');
}

void TextMaker::AddVisible(const Paragraph& paragraph, const FormatTable& formats)
{
    std::uint32_t begin = 0;
    for (const Run& run : paragraph.Runs())
    {
        if (!IsHidden(run.format, formats))
            Put(paragraph.Text().substr(begin, run.end - begin));
        begin = run.end;
    }
}

void TextMaker::Finish()
{
    m_mark = 0;
    if (m_last != '\n')
        PutByte('\n');
    HandOut();
}

void TextMaker::Put(std::u16string_view text)
{
    constexpr std::size_t kPiece = kPart / kMostUtf8Bytes;
    while (!text.empty())
    {
        const std::u16string_view piece = TakePiece(text, kPiece);
        if (kPart - m_size < piece.size() * kMostUtf8Bytes)
            HandOut();
        char* const begin = m_part.get() + m_size;
        m_size += static_cast<std::size_t>(PutUtf8(piece, begin, Printed) - begin);
        m_last = m_part[m_size - 1];
    }
}

void TextMaker::PutMark()
{
    if (m_mark != 0)
        PutByte(m_mark);
}

void TextMaker::PutByte(char byte)
{
    if (m_size == kPart)
        HandOut();
    m_part[m_size++] = byte;
    m_last = byte;
}

void TextMaker::HandOut()
{
    if (m_size > 0)
        m_sink({m_part.get(), m_size});
    m_size = 0;
}

std::string PlainText(const Document& document, HiddenText hidden)
{
    std::string text;
    TextMaker maker(hidden, [&text](std::string_view part) { text += part; });
    document.Visit(0, [&](const Paragraph& paragraph) {
        maker.Add(paragraph, document.Formats());
        return true;
    });
    maker.Finish();
    return text;
}

}  // namespace quillmarker::tool
