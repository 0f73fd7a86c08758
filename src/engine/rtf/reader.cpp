#include "engine/rtf/reader.h"

#include "engine/rtf/keywords.h"

#include <algorithm>
#include <utility>

namespace quillmarker
{

Reader::Reader(std::string_view source, SourceKind kind, const RtfReading& options)
    : m_tokens(source, kind),
      m_kind(kind),
      m_options(options),
      m_formats(options.formats ? options.formats : std::make_shared<FormatTable>()),
      m_documentPage(options.codePage),
      m_excessCells(source.size() / 16 + 256),
      m_lookAhead(source.size() * 4)
{
    m_stories.push_back(std::make_unique<Story>());
    m_states.Note().chars = options.defaultFormat;
}

Document Reader::Read()
{
    while (!m_isDone)
    {
        const Token token = m_tokens.Next();
        const bool isText = token.kind == TokenKind::Text || token.kind == TokenKind::Byte;
        if (!isText && !m_bytes.empty())
            FlushBytes();
        switch (token.kind)
        {
        case TokenKind::End:
            m_isDone = true;
            break;
        case TokenKind::Open:
            m_skip = 0;
            m_isStarred = false;
            m_states.Open();
            break;
        case TokenKind::Close:
            CloseGroup();
            break;
        case TokenKind::Text:
            HandleText(token);
            break;
        case TokenKind::Byte:
            HandleByte(token.byte);
            break;
        case TokenKind::Word:
            HandleWord(token);
            break;
        case TokenKind::Symbol:
            HandleSymbol(static_cast<char>(token.byte));
            break;
        case TokenKind::Binary:
            if (m_skip > 0)
                --m_skip;
            else if (IsIn(Destination::Picture))
                m_picture.bytes.AppendBinary(token.text);
            else if (IsIn(Destination::ObjectData) && ObjectNow())
                ObjectNow()->data.AppendBinary(token.text);
            break;
        }
    }
    FlushBytes();
    while (m_states.CanClose())
        CloseGroup();
    Story& story = *m_stories.front();
    const bool isWhole = m_options.scope == RtfScope::Document;
    if (const Shared<Section> last = isWhole ? story.TakeFinalSection() : Shared<Section>())
        m_section = *last;
    m_properties.lastSection = m_section;
    DefineStyles();
    Body body = story.Finish(m_openEnd ? *m_openEnd : MarkNow(Mark::Break), m_options.scope == RtfScope::Document);
    const bool hasProperties = m_options.scope == RtfScope::Document && !(m_properties == DocumentFormat());
    return {std::move(body), m_formats, hasProperties ? Shared(std::move(m_properties)) : Shared<DocumentFormat>()};
}

void Reader::Visit(const ParagraphVisitor& visit)
{
    bool wantsMore = true;
    m_stories.front()->HandOutTo([&](const Paragraph& paragraph) {
        wantsMore = wantsMore && visit(paragraph, *m_formats);
        m_isDone = m_isDone || !wantsMore;
    });
    Read();
}

void Reader::HandleWord(const Token& token)
{
    const bool wasStarred = std::exchange(m_isStarred, false);
    const Keyword* keyword = FindKeyword(token.text);
    if (!keyword || keyword->kind == WordKind::Command)
        m_skip = 0;
    if (keyword)
        keyword->action(*this, *keyword, token.parameter);
    else if (wasStarred)
        SkipGroup();
}

void Reader::HandleSymbol(char symbol)
{
    switch (symbol)
    {
    case '*':
        m_isStarred = true;
        break;
    case '\r':
    case '\n':
        EndParagraph(Mark::Break);
        break;
    case '~':
        PutUnit(u'\u00A0');
        break;
    case '-':
        PutUnit(u'\u00AD');
        break;
    case '_':
        PutUnit(u'\u2011');
        break;
    case '\t':
        PutUnit(u'\t');
        break;
    case '\\':
    case '{':
    case '}':
        PutUnit(static_cast<char16_t>(symbol));
        break;
    default:
        break;  // \: and \| mark index entries, others mean nothing
    }
}

CharFormat& Reader::Chars()
{
    ReaderState& state = m_states.Change();
    state.charsKnown = false;
    return state.chars;
}

ParagraphFormat& Reader::ParagraphProperties()
{
    ReaderState& state = m_states.Change();
    state.paragraphKnown = false;
    return state.paragraph;
}

void Reader::SelectFont(std::int32_t number)
{
    Chars();
    m_states.Change().font = m_fonts.IndexOf(number);
}

void Reader::ResetChars()
{
    ReaderState& state = m_states.Change();
    const Shared<Field> field = state.chars.field;
    state.chars = m_options.defaultFormat;
    state.chars.field = field;
    state.chars.language = static_cast<std::uint16_t>(m_defaultLanguage);
    if (!m_fonts.IsEmpty())
        state.chars.size = Points(12);
    state.font = -1;
    state.charsKnown = false;
}

void Reader::ResetParagraph()
{
    ReaderState& state = m_states.Change();
    state.paragraph = {};
    state.lineDistance = 0;
    state.isMultiple = false;
    state.list = 0;
    state.listLevel = 0;
    state.tableDepth = 0;
    state.paragraphKnown = false;
    m_border = {};
}

void Reader::SetFontOf(CharFormat& format, std::int32_t font) const
{
    if (font < 0)
        return;
    const FontEntry& entry = m_fonts[font];
    format.font = entry.name;
    format.family = entry.family;
    format.charset = static_cast<std::uint8_t>(entry.charset < 0 ? 0 : entry.charset);
}

CharFormatId Reader::CharsId()
{
    ReaderState& state = m_states.Note();
    if (state.charsKnown)
        return state.charsId;
    CharFormat format = state.chars;
    std::int32_t font = state.font >= 0 ? state.font : m_fonts.IndexOf(m_defaultFont);
    if (font < 0 && !m_fonts.IsEmpty())
        font = 0;
    SetFontOf(format, font);
    state.charsId = m_formats->Intern(format);
    state.charsKnown = true;
    return state.charsId;
}

ParagraphFormatId Reader::ParagraphId()
{
    ReaderState& state = m_states.Note();
    if (state.paragraphKnown)
        return state.paragraphId;
    ParagraphFormat format = state.paragraph;
    if (state.list != 0)
    {
        if (const Shared<Numbering> numbering = ListNumbering(state.list, state.listLevel))
            format.numbering = numbering;
    }
    state.paragraphId = m_formats->Intern(format);
    state.paragraphKnown = true;
    return state.paragraphId;
}

Shared<Numbering> Reader::ListNumbering(std::int32_t list, std::int32_t level)
{
    Shared<Numbering>& known = m_listNumberings[{list, level}];
    const ListLevel* source = known ? nullptr : m_lists.Find(list, level);
    if (!source)
        return known;
    return known = Shared(NumberingOf(*source, ListNumber(list), level));
}

Numbering Reader::NumberingOf(const ListLevel& source, std::int32_t list, std::int32_t level) const
{
    Numbering numbering = source.numbering;
    numbering.list = list;
    numbering.level = level;
    numbering.text =
        source.text.empty() ? u"" : source.text.substr(1, std::min<std::size_t>(source.text[0], kMaxNumberText));
    SetNumberFont(numbering, source.font);
    return numbering;
}

void Reader::SetNumberFont(Numbering& numbering, std::int32_t font) const
{
    if (font < 0 || m_fonts[font].name.IsEmpty())
        return;
    numbering.font = m_fonts[font].name;
    numbering.fontCharset = static_cast<std::uint8_t>(std::max(m_fonts[font].charset, 0));
}

/// A list keeps its number, unless the document that a fragment is put in has another list of that number.
std::int32_t Reader::ListNumber(std::int32_t list)
{
    const auto [entry, isNew] = m_listNumbers.try_emplace(list, list);
    if (!isNew)
        return entry->second;
    std::vector<Numbering> levels;
    for (std::int32_t level = 0; const ListLevel* source = m_lists.Find(list, level); ++level)
    {
        // Writers fill levels that nobody uses with empty ones, which say nothing.
        if (source->numbering.kind != NumberKind::None)
            levels.push_back(NumberingOf(*source, list, level));
    }
    return entry->second = m_formats->ListNumberFor(list, levels);
}

ParagraphMark Reader::MarkNow(Mark kind)
{
    const std::int32_t depth = State().tableDepth;
    return {kind, static_cast<std::uint16_t>(depth < 0 ? 1 : depth), CharsId(), ParagraphId()};
}

void Reader::EndParagraph(Mark kind, Shared<TableRow> row, Shared<Section> section)
{
    if (!IsInStory() || !HasRoomFor(2))
        return;
    StoryNow().EndParagraph(MarkNow(kind), std::move(row), std::move(section));
}

void Reader::EndCell(int depth)
{
    if (!IsInStory() || !HasRoomFor(1))
        return;
    ParagraphMark mark = MarkNow(Mark::Cell);
    mark.tableDepth = static_cast<std::uint16_t>(depth == 1 ? 1 : std::max<int>(depth, mark.tableDepth));
    ++m_endedCells;
    StoryNow().EndParagraph(mark);
}

void Reader::EndRow(int depth)
{
    if (!IsInStory() || !HasRoomFor(2))
        return;
    ParagraphMark mark = MarkNow(Mark::Row);
    mark.tableDepth = static_cast<std::uint16_t>(depth == 1 ? 1 : std::max<int>(depth, mark.tableDepth));
    StoryNow().EndParagraph(mark, m_table.Finished(std::exchange(m_endedCells, 0), m_excessCells));
}

void Reader::EndSection()
{
    const bool isMain = m_stories.size() == 1;
    EndParagraph(Mark::Break, {}, isMain ? Shared(m_section) : Shared<Section>());
    if (isMain)
        m_section.headers = {};
}

}  // namespace quillmarker
