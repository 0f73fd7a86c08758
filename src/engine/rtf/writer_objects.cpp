#include "engine/rtf/text_escape.h"
#include "engine/rtf/writer.h"

#include <array>

namespace quillmarker
{
namespace
{

struct KindWord
{
    const char* word;
    bool hasNumber;
};

constexpr std::array kKindWords = {
    KindWord{"pngblip", false}, KindWord{"jpegblip", false}, KindWord{"emfblip", false}, KindWord{"wmetafile", true},
    KindWord{"dibitmap", true}, KindWord{"wbitmap", true},   KindWord{"macpict", false}, KindWord{"pmmetafile", true},
};

struct LengthWord
{
    Twips InlinePicture::*field;
    const char* word;
};

constexpr std::array kLengthWords = {
    LengthWord{&InlinePicture::goalWidth, "picwgoal"}, LengthWord{&InlinePicture::goalHeight, "pichgoal"},
    LengthWord{&InlinePicture::cropLeft, "piccropl"},  LengthWord{&InlinePicture::cropTop, "piccropt"},
    LengthWord{&InlinePicture::cropRight, "piccropr"}, LengthWord{&InlinePicture::cropBottom, "piccropb"},
};

void AppendNamed(std::string& out, const char* word, std::u16string_view text)
{
    if (text.empty())
        return;
    out += "{\\*";
    AppendWord(out, word);
    out += ' ';
    AppendEscaped(text, out);
    out += '}';
}

}  // namespace

void Writer::WriteObject(const InlineObject& object)
{
    if (const auto* picture = std::get_if<InlinePicture>(&object))
        WritePicture(*picture);
    else if (const auto* embedded = std::get_if<EmbeddedObject>(&object))
        WriteEmbedded(*embedded);
    else
        WriteNote(std::get<Note>(object));
}

void Writer::WritePicture(const InlinePicture& picture)
{
    m_out += "{\\pict";
    const KindWord& kind = kKindWords[static_cast<std::size_t>(picture.kind)];
    if (kind.hasNumber && (picture.kind != PictureKind::Other || picture.mapping != 0))
        AppendWord(m_out, kind.word, picture.mapping);
    else if (!kind.hasNumber)
        AppendWord(m_out, kind.word);
    if (picture.width != 0)
        AppendWord(m_out, "picw", picture.width);
    if (picture.height != 0)
        AppendWord(m_out, "pich", picture.height);
    for (const LengthWord& length : kLengthWords)
    {
        if (picture.*length.field != Twips())
            AppendWord(m_out, length.word, (picture.*length.field).value);
    }
    if (picture.scaleX != 100)
        AppendWord(m_out, "picscalex", picture.scaleX);
    if (picture.scaleY != 100)
        AppendWord(m_out, "picscaley", picture.scaleY);
    m_out += picture.kept;
    m_out += "\r\n";
    AppendHex(picture.bytes ? std::string_view(*picture.bytes) : std::string_view(), m_out);
    m_out += '}';
}

void Writer::WriteEmbedded(const EmbeddedObject& object)
{
    m_out += "{\\object";
    if (!object.kind.empty())
        AppendWord(m_out, object.kind);
    if (object.width != Twips())
        AppendWord(m_out, "objw", object.width.value);
    if (object.height != Twips())
        AppendWord(m_out, "objh", object.height.value);
    m_out += object.kept;
    AppendNamed(m_out, "objclass", object.className);
    AppendNamed(m_out, "objname", object.name);
    if (object.data)
    {
        m_out += "{\\*\\objdata\r\n";
        AppendHex(*object.data, m_out);
        m_out += '}';
    }
    if (!object.result.IsAbsent())
        WriteNested("result", object.result, LastMark::LeftOutUnlessEmpty);
    m_out += '}';
}

void Writer::WriteNote(const Note& note)
{
    if (note.kind == NoteKind::Annotation)
    {
        AppendNamed(m_out, "atnid", note.id);
        AppendNamed(m_out, "atnauthor", note.author);
        m_out += "\\chatn ";
        WriteNested("*\\annotation", note.body, LastMark::LeftOutUnlessEmpty);
        return;
    }
    m_out += "\\chftn ";
    WriteNested(note.kind == NoteKind::Endnote ? "footnote\\ftnalt" : "footnote", note.body,
                LastMark::LeftOutUnlessEmpty);
}

}  // namespace quillmarker
