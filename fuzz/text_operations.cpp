// What a host does to the text, against the plain rules.

#include "document_laws.h"
#include "edit_session.h"
#include "require.h"

#include <quillmarker/rtf.h>

#include <iterator>

namespace quillmarker
{
namespace
{

constexpr std::u16string_view kFragments[] = {
    u"{\\rtf1 plain}",
    u"{\\rtf1\\b bold\\b0  and {\\i italic}\\par}",
    u"{\\rtf1\\par\\par}",
    u"{\\rtf1 one\\par two}",
    u"{\\rtf1\\v hidden\\v0\\ul line\\strike gone\\protect kept}",
    u"{\\rtf1\\pard\\qc centred\\par\\pard\\li720\\fi-360 hanging\\par}",
    u"{\\rtf1\\trowd\\cellx900\\cellx1800\\pard\\intbl a\\cell\\b b\\cell\\row}",
    u"{\\rtf1\\trowd\\cellx900\\pard\\intbl a\\par b\\cell\\row\\pard behind}",
    u"{\\rtf1{\\pict\\pngblip\\picw1\\pich1 89504e47}}",
    u"{\\rtf1\\u-10179?\\u-8704?\\u8364?\\'80}",
    u"{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt link}}}",
    u"{\\rtf1{\\footnote note}\\line\\page\\tab}",
    u"{\\rtf1{\\*\\pn\\pnlvlblt\\pnf0{\\pntxtb\\'b7}}\\fi-200\\li200 item\\par}",
    u"{\\rtf1}",
};

/// A fragment from the list or one that the script writes.
std::u16string RtfOf(ByteScript& script)
{
    const unsigned choice = script.Below(std::size(kFragments) + 2);
    if (choice < std::size(kFragments))
        return std::u16string(kFragments[choice]);
    const std::string bytes = script.Bytes();
    std::u16string rtf = u"{\\rtf1 ";
    for (const char byte : bytes)
        rtf += static_cast<char16_t>(static_cast<unsigned char>(byte));
    return rtf;
}

}  // namespace

std::uint8_t EditSession::InsertionFormat() const
{
    const std::int32_t caret = m_selection.start;
    if (m_insertion && m_selection.length == 0)
        return *m_insertion;
    if (m_selection.length > 0 || m_text.IsParagraphStart(caret))
        return m_text.FormatAt(caret);
    // Hidden text ends where it ends: only what is put inside it belongs to it.
    const unsigned behind = m_text.FormatAt(caret) | ~unsigned{kNaiveHidden};
    return static_cast<std::uint8_t>(m_text.FormatAt(caret - 1) & behind);
}

std::u16string_view EditSession::Selected() const
{
    return std::u16string_view(m_text.text)
        .substr(static_cast<std::size_t>(m_selection.start), static_cast<std::size_t>(m_selection.length));
}

void EditSession::PutPiece(const NaiveText& piece)
{
    m_text.Replace(m_selection, piece);
    m_selection = {m_selection.start + piece.Size(), 0};
    m_insertion.reset();
    // Behind a break, and where text was only taken away, what would be typed is the box's to say.
    m_adoptsInsertion = piece.text.empty() || m_text.IsParagraphStart(m_selection.start);
}

void EditSession::AdoptInsertion()
{
    if (!m_adoptsInsertion)
        return;
    m_adoptsInsertion = false;
    if (m_box.SelLength() > 0)
        return;
    const PartialCharFormat format = m_box.SelCharFormat();
    Require(format.bold && format.italic && format.underline && format.strike && format.protectedText && format.hidden,
            "what would be typed is not mixed");
    CharFormat whole;
    whole.bold = *format.bold;
    whole.italic = *format.italic;
    whole.underline = *format.underline;
    whole.strike = *format.strike;
    whole.protectedText = *format.protectedText;
    whole.hidden = *format.hidden;
    m_insertion = BitsOf(whole);
}

void EditSession::SelectStart(ByteScript& script)
{
    const std::int32_t start = script.Position(m_text.Size());
    m_box.SetSelStart(start);
    if (start < 0)
        return;
    const Selection wanted = Snapped(m_text, {start, 0});
    if (wanted != m_selection)
        m_insertion.reset();
    m_selection = wanted;
}

void EditSession::SelectLength(ByteScript& script)
{
    const std::int32_t length = script.Position(m_text.Size());
    m_box.SetSelLength(length);
    if (length < 0)
        return;
    const Selection wanted = Snapped(m_text, {m_selection.start, length});
    if (wanted != m_selection)
        m_insertion.reset();
    m_selection = wanted;
}

void EditSession::ReplaceText(ByteScript& script)
{
    const std::u16string text = script.Text();
    const NaiveText piece = Plain(text, InsertionFormat());
    m_box.SetSelText(text);
    PutPiece(piece);
}

void EditSession::ReplaceRtf(ByteScript& script)
{
    const std::u16string rtf = RtfOf(script);
    RtfReading reading;
    reading.scope = RtfScope::Fragment;
    const NaiveText piece = Flattened(ReadRtf(rtf, reading));
    m_box.SetSelRTF(rtf);
    PutPiece(piece);
}

void EditSession::PutRtfBack(ByteScript&)
{
    const Document before = m_box.Value();
    const std::u16string rtf = m_box.SelRTF();
    m_box.SetSelRTF(rtf);
    if (!SameContent(before, m_box.Value()))
        std::fprintf(stderr, "\nthe RTF: %s\n", Printable(rtf).c_str());
    RequireSame(before, m_box.Value(), "SelRTF := SelRTF changes nothing");
    m_selection = {m_selection.start + m_selection.length, 0};
    m_insertion.reset();
    m_adoptsInsertion = true;
}

void EditSession::ReplaceAllText(ByteScript& script)
{
    const std::u16string text = script.Text();
    m_box.SetText(text);
    const NaiveText held = Flattened(m_box.Value());
    Require(held.text == Plain(text, 0).text, "Text is what was put in, with whole breaks",
            [&] { return Printable(text) + "\ngave " + Printable(held.text); });
    m_text = held;
    const Selection all{0, held.Size()};
    for (const std::uint8_t bit : kNaiveBits)
        Require(m_text.Has(all, bit).has_value(), "text put in as a whole has one format");
    m_selection = {};
    m_insertion.reset();
    m_adoptsInsertion = true;
}

void EditSession::ReplaceAllRtf(ByteScript& script)
{
    const std::u16string rtf = RtfOf(script);
    m_box.SetTextRTF(rtf);
    m_text = Flattened(ReadRtf(rtf));
    m_selection = {};
    m_insertion.reset();
    m_adoptsInsertion = true;
}

void EditSession::InsertPicture(ByteScript&)
{
    InlinePicture picture;
    picture.kind = PictureKind::Png;
    picture.width = 1;
    picture.height = 1;
    picture.bytes = Shared(std::string("not really"));
    const NaiveText piece = Plain(u" ", InsertionFormat());
    m_box.InsertObject(picture);
    PutPiece(piece);
}

}  // namespace quillmarker
