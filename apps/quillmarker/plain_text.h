#pragma once

#include <quillmarker/document.h>
#include <quillmarker/numbering_text.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillmarker::tool
{

enum class HiddenText : bool { Kept, LeftOut };
enum class ListNumbers : bool { LeftOut, Shown };

/// Makes the text for a terminal or a text tool, in UTF-8, out of paragraphs that are given one by one: LF ends lines and
/// paragraphs, a cell ends with TAB, a page with FF. A text that is not empty ends with LF, and the last mark takes no
/// room. Numbers and bullets of lists, where they are shown, stand in front of a TAB. The text goes out in parts of moderate size, so that a long one is never in memory as a whole.
class TextMaker
{
public:
    using Sink = std::function<void(std::string_view)>;

    TextMaker(HiddenText hidden, Sink sink, ListNumbers numbers = ListNumbers::LeftOut);

    void Add(const Paragraph& paragraph, const FormatTable& formats);

    /// To be called behind the last paragraph.
    void Finish();

private:
    static constexpr std::size_t kPart = 0x10000;

    void AddNumber(const Paragraph& paragraph, const FormatTable& formats);
    void AddVisible(const Paragraph& paragraph, const FormatTable& formats);
    void Put(std::u16string_view text);
    void PutMark();
    void PutByte(char byte);
    void HandOut();

    HiddenText m_hidden;
    ListNumbers m_numbers;
    NumberCounter m_counter;
    Sink m_sink;
    std::unique_ptr<char[]> m_part;
    std::size_t m_size = 0;
    char m_mark = 0;  // of the paragraph before; 0: it takes no room
    char m_last = '\n';
};

/// The same for a whole document.
std::string PlainText(const Document& document, HiddenText hidden);

}  // namespace quillmarker::tool
