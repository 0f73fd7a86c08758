#include "support/sample.h"

#include "engine/document/paragraph_builder.h"
#include "engine/document/tree.h"
#include "engine/document/utf.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <stdexcept>
#include <vector>

namespace quillmarker
{
namespace
{

struct Tag
{
    std::string_view name;
    bool (*isOn)(const CharFormat&);
    void (*set)(CharFormat&, bool);
};

template <bool CharFormat::*kMember>
constexpr Tag TagOf(std::string_view name)
{
    return {name, [](const CharFormat& f) { return f.*kMember; }, [](CharFormat& f, bool on) { f.*kMember = on; }};
}

// In the order in which they are written, the outermost first.
constexpr std::array kTags = {
    TagOf<&CharFormat::hidden>("h"),
    TagOf<&CharFormat::protectedText>("p"),
    TagOf<&CharFormat::bold>("b"),
    TagOf<&CharFormat::italic>("i"),
    Tag{"u", [](const CharFormat& f) { return f.underline != Underline::None; },
        [](CharFormat& f, bool on) { f.underline = on ? Underline::Single : Underline::None; }},
    TagOf<&CharFormat::strike>("s"),
};

using TagSet = std::bitset<kTags.size()>;

class Parsing
{
public:
    explicit Parsing(std::string_view sample) : m_start(TextBox().Value())
    {
        m_format = m_start.FormatOf(m_start.ParagraphAt(0).Ending().charFormat);
        while (!sample.empty())
            sample.remove_prefix(Take(sample));
        End(Mark::Break);
    }

    Document Result() const
    {
        return m_start.WithBody(Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(m_paragraphs)})));
    }

    Selection Selected() const
    {
        const std::int32_t caret = m_caret.value_or(m_units);
        const std::int32_t anchor = m_anchor.value_or(caret);
        return {std::min(caret, anchor), std::abs(caret - anchor)};
    }

private:
    // Takes one thing from the begin of `rest`: how many bytes it has.
    std::size_t Take(std::string_view rest)
    {
        const char first = rest[0];
        if (first == '<')
            return TakeTag(rest);
        if (first == '\n')
            return End(Mark::Break), 1;
        if (first == '^' || first == '|')
            return (first == '^' ? m_anchor : m_caret) = m_units, 1;
        const std::size_t begin = first == '\\' ? 1 : 0;
        const std::size_t end = std::min(rest.find_first_of("^|\n<\\", 2 * begin), rest.size());
        Put(rest.substr(begin, end - begin));
        return end;
    }

    std::size_t TakeTag(std::string_view rest)
    {
        const std::size_t size = rest.find('>') + 1;
        const std::string_view word = rest.substr(1, size - 2);
        const bool closes = word.starts_with('/');
        if (word == "cell/")
            End(Mark::Cell);
        else if (word == "row/")
            End(Mark::Row);
        else if (word == "pic/")
            m_builder.Append(Shared(SamplePicture()), Format()), ++m_units;
        else
            Set(word.substr(closes ? 1 : 0), !closes);
        return size;
    }

    void Set(std::string_view name, bool on)
    {
        const auto* tag = std::ranges::find(kTags, name, &Tag::name);
        if (tag == kTags.end())
            throw std::invalid_argument("the sample has an unknown tag: " + std::string(name));
        tag->set(m_format, on);
    }

    void Put(std::string_view utf8)
    {
        const std::u16string text = FromUtf8(utf8);
        m_builder.Append(text, Format());
        m_units += static_cast<std::int32_t>(text.size());
    }

    void End(Mark kind)
    {
        ParagraphMark mark = m_start.ParagraphAt(0).Ending();
        mark.kind = kind;
        mark.tableDepth = kind == Mark::Break ? 0 : 1;
        mark.charFormat = Format();
        m_units += MarkLength(kind);
        if (kind != Mark::Row)
        {
            m_cells += kind == Mark::Cell ? 1 : 0;
            return m_paragraphs.push_back(m_builder.Finish(mark));
        }
        TableRow row;
        for (; m_cells > 0; --m_cells)
            row.cells.push_back({.right = Inches(static_cast<std::int32_t>(row.cells.size()) + 1)});
        m_paragraphs.push_back(m_builder.Finish(mark, Shared(row), {}));
    }

    CharFormatId Format() { return m_start.SharedFormats().Intern(m_format); }

    Document m_start;
    CharFormat m_format;
    ParagraphBuilder m_builder;
    std::vector<ParagraphRef> m_paragraphs;
    std::int32_t m_units = 0;
    int m_cells = 0;
    std::optional<std::int32_t> m_anchor, m_caret;
};

class Writing
{
public:
    Writing(const Document& document, std::optional<Selection> selection) : m_document(document), m_selection(selection)
    {
        std::int32_t index = 0;
        document.Visit(0, [&](const Paragraph& paragraph) {
            Put(paragraph, ++index == document.ParagraphCount());
            return true;
        });
        GoTo({});
    }

    std::string Result() const { return m_out; }

private:
    void Put(const Paragraph& paragraph, bool isLast)
    {
        std::uint32_t begin = 0;
        for (const Run& run : paragraph.Runs())
        {
            for (; begin < run.end; ++begin)
                Put(paragraph, begin, run.format);
        }
        const ParagraphMark& mark = paragraph.Ending();
        if (isLast && mark.kind == Mark::Break)
            return;
        GoTo(TagsOf(mark.charFormat));
        m_out += mark.kind == Mark::Cell ? "<cell/>" : mark.kind == Mark::Row ? "<row/>" : "\n";
        m_units += MarkLength(mark.kind);
    }

    void Put(const Paragraph& paragraph, std::uint32_t at, CharFormatId format)
    {
        const char16_t unit = paragraph.Text()[at];
        const bool isSecondHalf = unit >= 0xDC00 && unit <= 0xDFFF && at > 0;
        if (!isSecondHalf)
            GoTo(TagsOf(format));
        ++m_units;
        if (unit == kObjectCharacter)
            m_out += "<pic/>";
        else if (unit >= 0xD800 && unit <= 0xDBFF)
            m_out += ToUtf8(paragraph.Text().substr(at, 2));
        else if (!isSecondHalf)
            m_out += (std::string_view("^|<\\").find(char(unit)) != std::string_view::npos && unit < 128 ? "\\" : "") +
                     ToUtf8({&unit, 1});
    }

    TagSet TagsOf(CharFormatId id) const
    {
        TagSet tags;
        for (std::size_t i = 0; i < kTags.size(); ++i)
            tags[i] = kTags[i].isOn(m_document.FormatOf(id));
        return tags;
    }

    // Tags that end here, the selection's ends, tags that begin here.
    void GoTo(TagSet wanted)
    {
        std::size_t same = 0;
        while (same < kTags.size() && wanted[same] == m_open[same])
            ++same;
        for (std::size_t i = kTags.size(); i-- > same;)
            m_out += m_open[i] ? "</" + std::string(kTags[i].name) + ">" : "";
        if (m_selection && m_selection->length > 0 && m_units == m_selection->start)
            m_out += "^";
        if (m_selection && m_units == m_selection->start + m_selection->length)
            m_out += "|";
        for (std::size_t i = same; i < kTags.size(); ++i)
            m_out += wanted[i] ? "<" + std::string(kTags[i].name) + ">" : "";
        m_open = wanted;
    }

    const Document& m_document;
    std::optional<Selection> m_selection;
    std::string m_out;
    TagSet m_open;
    std::int32_t m_units = 0;
};

}  // namespace

Document SampleDocument(std::string_view sample) { return Parsing(sample).Result(); }

SampleBox::SampleBox(std::string_view sample)
{
    const Parsing parsing(sample);
    OpenValue(parsing.Result());
    SetSelStart(parsing.Selected().start);
    SetSelLength(parsing.Selected().length);
}

std::string Dump(const TextBox& box)
{
    return Writing(box.Value(), Selection{box.SelStart(), box.SelLength()}).Result();
}

std::string DumpSample(const Document& document) { return Writing(document, std::nullopt).Result(); }

InlineObject SamplePicture()
{
    return InlinePicture{
        .kind = PictureKind::Png, .width = 1, .height = 1, .bytes = Shared(std::string("\x89PNG sample"))};
}

}  // namespace quillmarker
