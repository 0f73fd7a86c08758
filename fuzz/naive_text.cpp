#include "naive_text.h"

#include <algorithm>
#include <cstddef>

namespace quillmarker
{
namespace
{

bool IsInsideBreak(const NaiveText& text, std::int32_t position)
{
    if (position <= 0 || position >= text.Size())
        return false;
    const auto at = static_cast<std::size_t>(position);
    return text.text[at - 1] == u'\r' && text.text[at] == u'\n' && (text.formats[at] & kNaiveMark) != 0;
}

void Add(NaiveText& text, std::u16string_view units, unsigned format)
{
    text.text += units;
    text.formats.resize(text.text.size(), static_cast<std::uint8_t>(format));
}

}  // namespace

std::uint8_t NaiveText::FormatAt(std::int32_t position) const
{
    const unsigned format = position < Size() ? formats[static_cast<std::size_t>(position)] : lastMark;
    return static_cast<std::uint8_t>(format & ~unsigned{kNaiveMark});
}

bool NaiveText::IsParagraphStart(std::int32_t position) const
{
    return position == 0 || (formats[static_cast<std::size_t>(position) - 1] & kNaiveMark) != 0;
}

void NaiveText::Replace(const Selection& selection, const NaiveText& piece)
{
    const auto start = static_cast<std::size_t>(selection.start);
    text.replace(start, static_cast<std::size_t>(selection.length), piece.text);
    const auto begin = formats.begin() + selection.start;
    formats.erase(begin, begin + selection.length);
    formats.insert(formats.begin() + selection.start, piece.formats.begin(), piece.formats.end());
}

void NaiveText::Put(const Selection& selection, std::uint8_t bits, bool on)
{
    const auto put = [&](std::uint8_t& format) {
        const unsigned changed = on ? format | bits : format & ~unsigned{bits};
        format = static_cast<std::uint8_t>(changed);
    };
    const std::int32_t end = selection.start + selection.length;
    for (std::int32_t i = selection.start; i < end; ++i)
        put(formats[static_cast<std::size_t>(i)]);
    if (TakesLastMark(selection))
        put(lastMark);
}

bool NaiveText::TakesLastMark(const Selection& selection) const
{
    const bool reachesEnd = selection.length > 0 && selection.start + selection.length == Size();
    return reachesEnd && IsParagraphStart(Size());
}

std::optional<bool> NaiveText::Has(const Selection& selection, std::uint8_t bit) const
{
    const auto begin = formats.begin() + selection.start;
    auto count = std::count_if(begin, begin + selection.length, [&](unsigned format) { return (format & bit) != 0; });
    auto all = std::ptrdiff_t{selection.length};
    if (TakesLastMark(selection))
    {
        ++all;
        count += (lastMark & bit) != 0 ? 1 : 0;
    }
    if (count != 0 && count != all)
        return {};
    return count != 0;
}

NaiveText Plain(std::u16string_view text, std::uint8_t format)
{
    NaiveText plain;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool isPair = text.substr(i, 2) == u"\r\n";
        if (text[i] == u'\r' || text[i] == u'\n')
            Add(plain, u"\r\n", format | unsigned{kNaiveMark});
        else if (text[i] != u'\0')
            Add(plain, text.substr(i, 1), format);
        i += isPair ? 1 : 0;
    }
    return plain;
}

NaiveText Flattened(const Document& document)
{
    NaiveText flat;
    document.Visit(0, [&](const Paragraph& paragraph) {
        std::uint32_t start = 0;
        for (const Run& run : paragraph.Runs())
        {
            Add(flat, paragraph.Text().substr(start, run.end - start), BitsOf(document.FormatOf(run.format)));
            start = run.end;
        }
        for (const PlacedObject& placed : paragraph.Extras().objects)
            flat.text[flat.text.size() - paragraph.Text().size() + placed.offset] = u' ';
        flat.lastMark = BitsOf(document.FormatOf(paragraph.Ending().charFormat));
        const bool isCell = paragraph.Ending().kind == Mark::Cell;
        Add(flat, isCell ? u"\t" : u"\r\n", flat.lastMark | unsigned{kNaiveMark});
        return true;
    });
    flat.text.resize(static_cast<std::size_t>(document.Size()));
    flat.formats.resize(flat.text.size());
    return flat;
}

std::uint8_t BitsOf(const CharFormat& format)
{
    unsigned bits = 0;
    bits |= format.bold ? kNaiveBold : 0U;
    bits |= format.italic ? kNaiveItalic : 0U;
    bits |= format.underline != Underline::None ? kNaiveUnderline : 0U;
    bits |= format.strike ? kNaiveStrike : 0U;
    bits |= format.protectedText ? kNaiveProtected : 0U;
    bits |= format.hidden ? kNaiveHidden : 0U;
    return static_cast<std::uint8_t>(bits);
}

Selection Snapped(const NaiveText& text, const Selection& selection)
{
    std::int32_t begin = std::min(selection.start, text.Size());
    std::int32_t end = begin + std::min(selection.length, text.Size() - begin);
    begin -= IsInsideBreak(text, begin) ? 1 : 0;
    if (selection.length == 0)
        return {begin, 0};
    end += IsInsideBreak(text, end) ? 1 : 0;
    return {begin, end - begin};
}

}  // namespace quillmarker
