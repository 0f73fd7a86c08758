#include "engine/document/utf.h"
#include "engine/rtf/reader.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

/// The longest name a table, an instruction or an author has; what is longer is cut.
constexpr std::size_t kMaxName = 65'536;

std::size_t CharacterBytes(unsigned char lead) { return lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4; }

}  // namespace

bool Reader::HasRoomFor(std::size_t units)
{
    const auto more = static_cast<std::int64_t>(units);
    if (m_units + more > kMaxTextUnits)
        return false;
    m_units += more;
    return true;
}

const Decoder& Reader::DecoderOf(const FontEntry& font) const
{
    CodePage page = font.page;
    if (page == 0 && font.charset >= 0)
        page = CodePageOfCharset(font.charset);
    return DecoderFor(page == kDocumentPage ? m_documentPage : page);
}

const Decoder& Reader::DecoderNow()
{
    if (IsIn(Destination::Fonts))
        return DecoderOf(m_fonts.Current());
    std::int32_t font = State().font;
    if (font < 0)
        font = m_fonts.IndexOf(m_defaultFont);
    return font >= 0 && IsInStory() ? DecoderOf(m_fonts[font]) : DecoderFor(m_documentPage);
}

/// Takes what a preceding \u stands for out of a text; false when nothing of it is left.
bool Reader::ConsumeSkipped(Token& token)
{
    if (m_skip == 0)
        return true;
    if (m_kind == SourceKind::Bytes)
    {
        const std::size_t skipped = std::min(static_cast<std::size_t>(m_skip), token.text.size());
        token.text.remove_prefix(skipped);
        m_skip -= static_cast<std::int64_t>(skipped);
    }
    for (; m_skip > 0 && !token.text.empty(); --m_skip)
        token.text.remove_prefix(
            std::min(CharacterBytes(static_cast<unsigned char>(token.text[0])), token.text.size()));
    return !token.text.empty();
}

void Reader::HandleText(const Token& source)
{
    Token token = source;
    if (!ConsumeSkipped(token))
        return;
    if (IsIn(Destination::Picture))
        return m_picture.bytes.Append(token.text);
    if (IsIn(Destination::ObjectData))
        return ObjectNow() ? ObjectNow()->data.Append(token.text) : void();
    if (token.isAscii && m_bytes.empty())
        return PutAscii(token.text);
    if (m_kind == SourceKind::Utf8 && !token.isAscii)
    {
        FlushBytes();
        return PutText(FromUtf8(token.text));
    }
    PutBytes(token.text);
}

void Reader::HandleByte(unsigned char byte)
{
    if (m_skip > 0)
    {
        --m_skip;
        return;
    }
    const char raw = static_cast<char>(byte);
    if (IsIn(Destination::ListLevelText) && byte < 0x20)
    {
        const auto placeholder = static_cast<char16_t>(byte);
        PutName({&placeholder, 1});
    }
    else if (byte == 0x0D || byte == 0x0A)
    {
        FlushBytes();
        EndParagraph(Mark::Break);
    }
    else if (byte != 0 && byte < 0x80 && m_bytes.empty())
        PutAscii({&raw, 1});  // the symbol page too: what is written as \'5c is a backslash in every font
    else if (byte != 0)
        PutBytes({&raw, 1});
}

void Reader::PutBytes(std::string_view bytes)
{
    const Decoder& decoder = DecoderNow();
    if (decoder.IsDoubleByte() || decoder.IsUtf8())
    {
        m_bytes.append(bytes);
        return;
    }
    std::u16string decoded;
    decoder.Append(bytes, decoded);
    PutText(decoded);
}

void Reader::FlushBytes()
{
    if (m_bytes.empty())
        return;
    std::u16string decoded;
    DecoderNow().Append(m_bytes, decoded);
    m_bytes.clear();
    PutText(decoded);
}

void Reader::PutAscii(std::string_view text)
{
    if (!IsInStory())
        return PutName(std::u16string(text.begin(), text.end()));
    if (!HasRoomFor(text.size()))
        return;
    char16_t* units = StoryNow().Builder().Extend(text.size(), CharsId());
    std::transform(text.begin(), text.end(), units, [](char c) { return static_cast<char16_t>(c); });
}

void Reader::PutText(std::u16string_view text)
{
    if (!IsInStory())
        PutName(text);
    else if (HasRoomFor(text.size()))
        StoryNow().Builder().Append(text, CharsId());
}

void Reader::PutUnit(char16_t unit)
{
    if (m_skip > 0)
    {
        --m_skip;
        return;
    }
    FlushBytes();
    if (IsInStory())
        PutText({&unit, 1});
    else
        PutNamePart({&unit, 1});  // a semicolon written so is part of a name and does not end it
}

void Reader::PutUnicode(std::int32_t value)
{
    m_skip = 0;
    const auto point = static_cast<std::uint32_t>(value);
    if (value == 0x0D || value == 0x0A)
        EndParagraph(Mark::Break);
    else if (value > 0xFFFF && value <= 0x10FFFF)
    {
        PutUnit(static_cast<char16_t>(0xD7C0 + (point >> 10)));
        PutUnit(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
    }
    else if (value != 0)
        PutUnit(static_cast<char16_t>(point & 0xFFFF));
    m_skip = State().unicodeSkip;
}

std::u16string* Reader::NameTarget()
{
    switch (State().destination)
    {
    case Destination::Fonts:
        return &m_fonts.CurrentName();
    case Destination::Styles:
        return &m_styles.CurrentName();
    case Destination::ListLevelText:
        return m_lists.Level() ? &m_lists.Level()->text : nullptr;
    case Destination::InfoText:
        return &m_infoText;
    case Destination::FieldInstruction:
        return FieldNow() ? &FieldNow()->field.instruction : nullptr;
    case Destination::NumberBefore:
        return &m_numbering.before;
    case Destination::NumberAfter:
        return &m_numbering.after;
    case Destination::ObjectClass:
        return ObjectNow() ? &ObjectNow()->object.className : nullptr;
    case Destination::ObjectName:
        return ObjectNow() ? &ObjectNow()->object.name : nullptr;
    case Destination::NoteId:
        return &m_nextNote.id;
    case Destination::NoteAuthor:
        return &m_nextNote.author;
    default:
        return nullptr;
    }
}

void Reader::PutNamePart(std::u16string_view text)
{
    std::u16string* target = NameTarget();
    if (target && target->size() < kMaxName)
        target->append(text.substr(0, kMaxName - target->size()));
}

void Reader::PutName(std::u16string_view text)
{
    const bool isTable = IsIn(Destination::Fonts) || IsIn(Destination::Colours) || IsIn(Destination::Styles);
    for (std::size_t end; isTable && (end = text.find(u';')) != text.npos; text.remove_prefix(end + 1))
    {
        PutNamePart(text.substr(0, end));
        if (IsIn(Destination::Fonts))
            m_fonts.EndEntry();
        else if (IsIn(Destination::Colours))
            m_colours.EndEntry();
        else
            EndStyle();
    }
    PutNamePart(text);
}

}  // namespace quillmarker
