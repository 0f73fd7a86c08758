// What a user does: it may be refused where the box is locked or text is protected, and is cut at MaxLength.

#include "edit_session.h"
#include "require.h"

#include <quillmarker/rtf.h>

#include <algorithm>

namespace quillmarker
{
namespace
{

/// More than any character a key takes away.
constexpr std::int32_t kLongestCharacter = 64;

bool HasTable(const Document& document)
{
    bool has = false;
    document.Visit(0, [&](const Paragraph& paragraph) { return !(has = paragraph.Ending().tableDepth > 0); });
    return has;
}

}  // namespace

/// Where the rules allow or demand a refusal. A range is widened by its neighbours, since text typed inside protected
/// text is protected text that is touched.
bool EditSession::MayBeRefused(const Selection& range) const
{
    if (m_isLocked || (InsertionFormat() & kNaiveProtected) != 0)
        return true;
    bool isProtected = (m_text.lastMark & kNaiveProtected) != 0;
    bool hasMark = false;
    const std::int32_t end = std::min(range.start + range.length + 1, m_text.Size());
    for (std::int32_t i = std::max(range.start - 1, 0); i < end; ++i)
    {
        const unsigned format = m_text.formats[static_cast<std::size_t>(i)];
        isProtected = isProtected || (format & kNaiveProtected) != 0;
        hasMark = hasMark || (format & kNaiveMark) != 0;
    }
    return isProtected || (hasMark && HasTable(m_box.Value()));
}

void EditSession::Inserted(const NaiveText& whole, bool isDone)
{
    const std::int32_t kept = m_text.Size() - m_selection.length;
    const std::int32_t room = m_maxLength == 0 ? whole.Size() : std::max(m_maxLength - kept, 0);
    const bool isCut = whole.Size() > room;
    Require(!isDone || !isCut, "typing that is cut at MaxLength is not reported as done");
    if (m_changes == 0)
    {
        Require(!isDone, "nothing changes where typing is refused");
        return Require(MayBeRefused(m_selection) || (isCut && room <= 1), "typing is refused only with a reason");
    }
    Require(!m_isLocked, "nothing is typed while the box is locked");
    Require(m_selection.length == 0 || m_text.Has(m_selection, kNaiveProtected) == false,
            "protected text is not typed over");
    // A break or a pair of surrogates is not cut in two.
    const std::int32_t taken = m_box.TextLength() - kept;
    Require(isCut ? taken <= room && taken >= room - 1 : taken == whole.Size(), "what fits is typed",
            [&] { return "room for " + std::to_string(room) + ", taken " + std::to_string(taken); });
    NaiveText piece = whole;
    piece.text.resize(static_cast<std::size_t>(taken));
    piece.formats.resize(static_cast<std::size_t>(taken));
    PutPiece(piece);
}

void EditSession::TypeText(ByteScript& script)
{
    const std::u16string text = script.Text();
    // What is typed beside protected text is the user's own.
    const NaiveText piece = Plain(text, static_cast<std::uint8_t>(InsertionFormat() & ~unsigned{kNaiveProtected}));
    if (piece.text.empty())
        return;
    Inserted(piece, m_box.Type(text));
}

void EditSession::PasteText(ByteScript& script)
{
    const std::u16string text = script.Text();
    const NaiveText piece = Plain(text, static_cast<std::uint8_t>(InsertionFormat() & ~unsigned{kNaiveProtected}));
    if (piece.text.empty())
        return;
    Inserted(piece, m_box.PasteText(text));
}

void EditSession::PasteRtf(ByteScript& script)
{
    std::u16string rtf = u"{\\rtf1 ";
    for (const char byte : script.Bytes())
        rtf += static_cast<char16_t>(static_cast<unsigned char>(byte));
    RtfReading reading;
    reading.scope = RtfScope::Fragment;
    const NaiveText piece = Flattened(ReadRtf(rtf, reading));
    const bool fits = m_maxLength == 0 || m_text.Size() - m_selection.length + piece.Size() <= m_maxLength;
    if (piece.text.empty() || !fits)
        return;
    Inserted(piece, m_box.PasteRTF(rtf));
}

void EditSession::Erased(bool isDone, Side side)
{
    const std::int32_t erased = m_text.Size() - m_box.TextLength();
    Selection range = m_selection;
    const bool isCaret = range.length == 0;
    const bool hasNothing = isCaret && (side == Side::Before ? range.start == 0 : range.start == m_text.Size());
    if (!isDone)
        return Require(hasNothing || MayBeRefused(range), "deleting is refused only with a reason");
    if (isCaret)
    {
        Require(erased > 0 && erased <= kLongestCharacter, "a key takes one character away",
                [&] { return std::to_string(erased) + " units went"; });
        range = {side == Side::Before ? range.start - erased : range.start, erased};
        Require(range.start >= 0 && range.start + erased <= m_text.Size(), "a key takes away what is there");
    }
    Require(!m_isLocked, "nothing is deleted while the box is locked");
    Require(m_text.Has(range, kNaiveProtected) == false, "protected text is not deleted");
    m_selection = range;
    PutPiece({});
}

void EditSession::Backspace(ByteScript&) { Erased(m_box.TypeBackspace(), Side::Before); }

void EditSession::Delete(ByteScript&) { Erased(m_box.TypeDelete(), Side::Behind); }

void EditSession::Lock(ByteScript& script)
{
    m_isLocked = script.Below(4) == 1;
    m_box.SetLocked(m_isLocked);
    Require(m_box.Locked() == m_isLocked, "Locked is what it was set to");
}

void EditSession::LimitLength(ByteScript& script)
{
    m_maxLength = script.Below(2) == 0 ? 0 : static_cast<std::int32_t>(script.Byte());
    m_box.SetMaxLength(m_maxLength);
    Require(m_box.MaxLength() == m_maxLength, "MaxLength is what it was set to");
}

}  // namespace quillmarker
