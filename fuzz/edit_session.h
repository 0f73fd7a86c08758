#pragma once

#include "byte_script.h"
#include "naive_text.h"

#include <quillmarker/text_box.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// A text box, and beside it what it should hold by the plain rules. Each operation is done on both, then they are
/// compared.
class EditSession
{
public:
    EditSession();

    /// Does one operation, chosen and filled by the script, and aborts when the box is not as it should be.
    void Step(ByteScript& script);

    bool IsTooLong() const { return m_text.Size() > kMostUnits; }

private:
    /// A state the box was in.
    struct Moment
    {
        Document document;
        Selection selection;
    };

    /// What an operation is to the history.
    enum class Kind : std::uint8_t { Looking, Editing, Typing, Travelling };

    struct Operation
    {
        const char* name;
        Kind kind;
        void (EditSession::*run)(ByteScript& script);
    };

    static const Operation kOperations[];
    static constexpr std::int32_t kMostUnits = 3'000;

    enum class Side : bool { Before, Behind };

    // Operations.
    void SelectStart(ByteScript& script);
    void SelectLength(ByteScript& script);
    void ReplaceText(ByteScript& script);
    void ReplaceRtf(ByteScript& script);
    void PutRtfBack(ByteScript& script);
    void ReplaceAllText(ByteScript& script);
    void ReplaceAllRtf(ByteScript& script);
    void InsertPicture(ByteScript& script);
    void TypeText(ByteScript& script);
    void PasteText(ByteScript& script);
    void PasteRtf(ByteScript& script);
    void Backspace(ByteScript& script);
    void Delete(ByteScript& script);
    void Lock(ByteScript& script);
    void LimitLength(ByteScript& script);
    void PutFlag(ByteScript& script);
    void PutCharValue(ByteScript& script);
    void PutParagraphValue(ByteScript& script);
    void FindFromCaret(ByteScript& script);
    void FindInRange(ByteScript& script);
    void SpanOver(ByteScript& script);
    void MoveUpTo(ByteScript& script);
    void WriteAndRead(ByteScript& script);
    void Undo(ByteScript& script);
    void Redo(ByteScript& script);
    void BeginStep(ByteScript& script);
    void EndStep(ByteScript& script);
    void ClearHistory(ByteScript& script);
    void PutValue(ByteScript& script);
    void OpenValue(ByteScript& script);

    // What should be.
    std::uint8_t InsertionFormat() const;
    std::u16string_view Selected() const;
    void PutPiece(const NaiveText& piece);
    bool MayBeRefused(const Selection& range) const;
    void Inserted(const NaiveText& piece, bool isDone);
    void Erased(bool isDone, Side side);
    std::u16string Needle(ByteScript& script) const;
    void Found(std::int32_t at, std::u16string_view needle, std::int32_t start, std::int32_t end, int options);
    void Adopt();
    void AdoptInsertion();

    // Comparing.
    void RequireAsExpected() const;
    void RequireFormats() const;
    void Record(Kind kind, const Moment& before);
    void RequireTold(const Moment& before) const;
    void RequireHistory() const;
    Moment Now() const;

    TextBox m_box;
    NaiveText m_text;
    Selection m_selection;
    std::optional<std::uint8_t> m_insertion;
    bool m_adoptsInsertion = false;  // the rules leave open what would be typed now
    std::int32_t m_maxLength = 0;
    bool m_isLocked = false;

    std::vector<Moment> m_undo;
    std::vector<Moment> m_redo;
    std::vector<Moment> m_brackets;  // as many as are open, with the state the outermost began in
    bool m_isTypingRun = false;

    int m_changes = 0;
    int m_selectionChanges = 0;
};

}  // namespace quillmarker
