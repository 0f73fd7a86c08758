#pragma once

#include <quillmarker/document.h>
#include <quillmarker/export.h>
#include <quillmarker/file_error.h>
#include <quillmarker/position.h>
#include <quillmarker/rtf.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmarker
{

struct Selection
{
    std::int32_t start = 0;
    std::int32_t length = 0;

    bool operator==(const Selection&) const = default;
};

/// Options of Find; other bits are ignored.
enum FindOption : int {
    kFindWholeWord = 2,
    kFindMatchCase = 4,
    kFindNoHighlight = 8,  // keeps a view from scrolling to what was found
};

/// The values of SelAlignment.
enum SelectionAlignment : int {
    kAlignLeft = 0,
    kAlignRight = 1,
    kAlignCentre = 2,
    kAlignJustify = 3,
};

/// The font of text for which nothing else is said.
struct BoxFont
{
    std::u16string name = u"Arial";
    float size = 10;  // points
    std::int16_t charset = 0;

    bool operator==(const BoxFont&) const = default;
};

/// How a file is read or written.
enum class FileKind : std::uint8_t { Rtf, Text };

enum class SpanDirection : bool { Backward, Forward };

/// Whether a set of characters stands for itself or for all others.
enum class CharacterSet : bool { Listed, Negated };

/// The classic rich text box over a Document: the one thing in the engine that changes. Positions are zero-based
/// UTF-16 offsets into Text(); see Position for what a paragraph's end counts. A value read over a selection is empty
/// when it is mixed; on an empty selection it is that of the text that would be typed. Members named as the classic
/// box's are the host's and obey neither Locked nor protection; the user's edits are those under "The user".
class QUILLMARKER_CORE_EXPORT TextBox
{
public:
    TextBox();
    ~TextBox();
    TextBox(const TextBox&) = delete;
    TextBox& operator=(const TextBox&) = delete;

    // The whole.
    std::u16string Text() const;
    void SetText(std::u16string_view text);
    std::u16string TextRTF() const;
    void SetTextRTF(std::u16string_view rtf);
    std::int32_t TextLength() const;
    FileError LoadFile(const std::filesystem::path& path, FileKind kind = FileKind::Rtf);
    FileError SaveFile(const std::filesystem::path& path, FileKind kind = FileKind::Rtf) const;

    // The selection. A value beyond the end is moved to the end, a negative one is refused.
    std::int32_t SelStart() const;
    void SetSelStart(std::int32_t start);
    std::int32_t SelLength() const;
    void SetSelLength(std::int32_t length);
    /// Both at once, as one change.
    void Select(Selection selection);
    std::u16string SelText() const;
    void SetSelText(std::u16string_view text);
    std::u16string SelRTF() const;
    void SetSelRTF(std::u16string_view rtf);

    /// The same from the bytes of a file.
    void SetSelRTFBytes(std::string_view rtf);
    void SetTextRTFBytes(std::string_view rtf);

    /// Searches from the caret on, ignoring case; found: selects it. -1: not found, the selection is as it was.
    std::int32_t Find(std::u16string_view text);
    /// Searches a range; without an end (or a negative one) to the end of the text.
    std::int32_t Find(std::u16string_view text, std::int32_t start, std::int32_t end = -1, int options = 0);
    /// Extends the selection over the characters that are (or are not) in the set.
    void Span(std::u16string_view characters, SpanDirection direction = SpanDirection::Forward,
              CharacterSet set = CharacterSet::Listed);
    /// Moves the caret to the first character that is (or is not) in the set; stays where it is when there is none.
    void UpTo(std::u16string_view characters, SpanDirection direction = SpanDirection::Forward,
              CharacterSet set = CharacterSet::Listed);

    // Formats of the selection's characters. Any number but 0 is true.
    std::optional<bool> SelBold() const;
    void SetSelBold(int on);
    std::optional<bool> SelItalic() const;
    void SetSelItalic(int on);
    std::optional<bool> SelUnderline() const;
    void SetSelUnderline(int on);
    std::optional<bool> SelStrikeThru() const;
    void SetSelStrikeThru(int on);
    std::optional<bool> SelProtected() const;
    void SetSelProtected(int on);
    std::optional<std::int32_t> SelCharOffset() const;  // twips, positive raises
    void SetSelCharOffset(std::int32_t twips);
    std::optional<std::u16string> SelFontName() const;
    void SetSelFontName(std::u16string_view name);
    std::optional<float> SelFontSize() const;  // points
    void SetSelFontSize(float points);         // 0 or less is refused
    std::optional<Colour> SelColor() const;
    void SetSelColor(Colour colour);

    // Formats of the selection's paragraphs, in twips. SelIndent is the first line's distance from the left edge,
    // SelHangingIndent that of the following lines from the first one's.
    std::optional<int> SelAlignment() const;
    void SetSelAlignment(int alignment);
    std::optional<bool> SelBullet() const;
    void SetSelBullet(int on);
    std::optional<std::int32_t> SelIndent() const;
    void SetSelIndent(std::int32_t twips);
    std::optional<std::int32_t> SelHangingIndent() const;
    void SetSelHangingIndent(std::int32_t twips);
    std::optional<std::int32_t> SelRightIndent() const;
    void SetSelRightIndent(std::int32_t twips);
    std::optional<int> SelTabCount() const;
    void SetSelTabCount(int count);
    /// The position of a tab stop, counted from 0; empty when mixed or when there is no such stop.
    std::optional<std::int32_t> SelTabs(int index) const;
    void SetSelTabs(int index, std::int32_t twips);

    // All fields at once, for what the classic members do not reach.
    PartialCharFormat SelCharFormat() const;
    void SetSelCharFormat(const PartialCharFormat& format);
    PartialParagraphFormat SelParagraphFormat() const;
    void SetSelParagraphFormat(const PartialParagraphFormat& format);
    void InsertObject(InlineObject object);
    /// How to read a fragment for the selection: what it does not state is as the place has it.
    RtfReading ReadingHere() const;

    // The box itself.
    std::int32_t RightMargin() const;
    void SetRightMargin(std::int32_t twips);
    std::int32_t BulletIndent() const;
    void SetBulletIndent(std::int32_t twips);
    Colour BackColor() const;
    void SetBackColor(Colour colour);
    const BoxFont& Font() const;
    void SetFont(const BoxFont& font);
    std::int32_t MaxLength() const;
    void SetMaxLength(std::int32_t units);  // 0: none
    bool Locked() const;
    void SetLocked(bool locked);

    // The user: refused (false) where the box is locked or protected text is touched, and cut at MaxLength.
    bool Type(std::u16string_view text);
    bool TypeBackspace();
    bool TypeDelete();
    /// Types `text` (which may be empty) in place of a range beside the caret, in the same step as other typing; the
    /// caret stands behind it.
    bool TypeOver(TextRange range, std::u16string_view text);
    bool PasteText(std::u16string_view text);
    bool PasteRTF(std::u16string_view rtf);
    bool PasteRTFBytes(std::string_view rtf);
    bool PasteFragment(const Document& fragment);
    bool PasteObject(InlineObject object);

    // History.
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();
    void ClearHistory();
    /// Edits until the matching EndStep are one step, and none if they leave the document equal.
    void BeginStep();
    void EndStep();

    /// The document as a value: taking it costs nothing.
    const Document& Value() const;
    /// Puts a value in place of the document, as a step.
    void SetValue(Document document, Selection selection = {});
    /// Opens a value: the history is cleared.
    void OpenValue(Document document);

    /// Called synchronously after each edit, and after each change of the selection; handlers may call back in.
    std::function<void()> Change;
    std::function<void()> SelChange;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace quillmarker
