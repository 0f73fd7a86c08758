#include "edit_session.h"

#include "document_laws.h"
#include "require.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace quillmarker
{
namespace
{

// As many steps as a history surely keeps.
constexpr std::size_t kSureSteps = 100;

std::string Shown(const Selection& selection)
{
    return std::to_string(selection.start) + "+" + std::to_string(selection.length);
}

}  // namespace

const EditSession::Operation EditSession::kOperations[] = {
    {"SelStart :=", Kind::Looking, &EditSession::SelectStart},
    {"SelLength :=", Kind::Looking, &EditSession::SelectLength},
    {"SelText :=", Kind::Editing, &EditSession::ReplaceText},
    {"SelRTF :=", Kind::Editing, &EditSession::ReplaceRtf},
    {"SelRTF := SelRTF", Kind::Editing, &EditSession::PutRtfBack},
    {"Text :=", Kind::Editing, &EditSession::ReplaceAllText},
    {"TextRTF :=", Kind::Editing, &EditSession::ReplaceAllRtf},
    {"InsertObject", Kind::Editing, &EditSession::InsertPicture},
    {"Type", Kind::Typing, &EditSession::TypeText},
    {"PasteText", Kind::Editing, &EditSession::PasteText},
    {"PasteRTF", Kind::Editing, &EditSession::PasteRtf},
    {"TypeBackspace", Kind::Typing, &EditSession::Backspace},
    {"TypeDelete", Kind::Typing, &EditSession::Delete},
    {"Locked :=", Kind::Looking, &EditSession::Lock},
    {"MaxLength :=", Kind::Looking, &EditSession::LimitLength},
    {"SelBold := and the like", Kind::Editing, &EditSession::PutFlag},
    {"SelFontSize := and the like", Kind::Editing, &EditSession::PutCharValue},
    {"SelIndent := and the like", Kind::Editing, &EditSession::PutParagraphValue},
    {"Find", Kind::Looking, &EditSession::FindFromCaret},
    {"Find in a range", Kind::Looking, &EditSession::FindInRange},
    {"Span", Kind::Looking, &EditSession::SpanOver},
    {"UpTo", Kind::Looking, &EditSession::MoveUpTo},
    {"TextRTF, read again", Kind::Looking, &EditSession::WriteAndRead},
    {"Undo", Kind::Travelling, &EditSession::Undo},
    {"Redo", Kind::Travelling, &EditSession::Redo},
    {"BeginStep", Kind::Travelling, &EditSession::BeginStep},
    {"EndStep", Kind::Travelling, &EditSession::EndStep},
    {"ClearHistory", Kind::Travelling, &EditSession::ClearHistory},
    {"SetValue", Kind::Editing, &EditSession::PutValue},
    {"OpenValue", Kind::Travelling, &EditSession::OpenValue},
};

EditSession::EditSession()
{
    m_text = Flattened(m_box.Value());
    // Handlers may look at the box that is calling them.
    m_box.Change = [this] {
        ++m_changes;
        static_cast<void>(m_box.SelBold());
        static_cast<void>(m_box.CanUndo());
    };
    m_box.SelChange = [this] {
        ++m_selectionChanges;
        static_cast<void>(m_box.SelCharFormat());
        static_cast<void>(m_box.SelParagraphFormat());
    };
}

// With QUILLMARKER_FUZZ_TRACE in the environment every step is shown, so that a find can be read.
void EditSession::Step(ByteScript& script)
{
    const Operation& operation = kOperations[script.Below(std::size(kOperations))];
    underWay = operation.name;
    const Moment before = Now();
    m_changes = 0;
    m_selectionChanges = 0;
    (this->*operation.run)(script);
    if (std::getenv("QUILLMARKER_FUZZ_TRACE"))
        std::fprintf(stderr, "%-24s %s|%s\n", operation.name, Shown(Now().selection).c_str(),
                     Printable(m_box.Text()).c_str());
    AdoptInsertion();
    RequireAsExpected();
    RequireTold(before);
    Record(operation.kind, before);
    RequireHistory();
    RequireFormats();
}

EditSession::Moment EditSession::Now() const { return {m_box.Value(), {m_box.SelStart(), m_box.SelLength()}}; }

void EditSession::RequireAsExpected() const
{
    RequireWhole(m_box.Value());
    const NaiveText held = Flattened(m_box.Value());
    Require(held.text == m_text.text, "the text is as it should be",
            [&] { return "expected " + Printable(m_text.text) + "\nbut has  " + Printable(held.text); });
    Require(m_box.TextLength() == m_text.Size(), "TextLength is the text's length");
    const Selection selection{m_box.SelStart(), m_box.SelLength()};
    Require(selection == m_selection, "the selection is as it should be",
            [&] { return "expected " + Shown(m_selection) + " but has " + Shown(selection); });
    Require(m_box.SelText() == Selected(), "SelText is the selected text");
    Require(held.formats == m_text.formats && held.lastMark == m_text.lastMark, "the formats are as they should be",
            [&] {
                std::size_t at = 0;
                while (at < held.formats.size() && held.formats[at] == m_text.formats[at])
                    ++at;
                const bool isMark = at == held.formats.size();
                return "at " + std::to_string(at) + " of " + std::to_string(held.formats.size()) + ": expected " +
                       std::to_string(isMark ? m_text.lastMark : m_text.formats[at]) + " but has " +
                       std::to_string(isMark ? held.lastMark : held.formats[at]) + " in " + Printable(held.text);
            });
}

void EditSession::RequireFormats() const
{
    const PartialCharFormat format = m_box.SelCharFormat();
    const std::optional<bool> underline =
        format.underline ? std::optional(*format.underline != Underline::None) : std::nullopt;
    const std::array<std::optional<bool>, 6> found = {format.bold,   format.italic,        underline,
                                                      format.strike, format.protectedText, format.hidden};
    for (std::size_t i = 0; i < kNaiveBits.size(); ++i)
    {
        const std::optional<bool> expected =
            m_selection.length > 0 ? m_text.Has(m_selection, kNaiveBits[i]) : (InsertionFormat() & kNaiveBits[i]) != 0;
        // Two kinds of underlining are mixed although both are underlining.
        const bool isOpen = kNaiveBits[i] == kNaiveUnderline && !found[i];
        Require(isOpen || found[i] == expected, "the selection's format is that of its characters",
                [&] { return "bit " + std::to_string(kNaiveBits[i]) + " at " + Shown(m_selection); });
    }
    Require(m_box.SelBold() == format.bold && m_box.SelItalic() == format.italic &&
                m_box.SelStrikeThru() == format.strike && m_box.SelProtected() == format.protectedText,
            "the classic members say what the fields say");
}

void EditSession::RequireTold(const Moment& before) const
{
    const bool isChanged = !SameContent(before.document, m_box.Value());
    Require(!isChanged || m_changes == 1, "an edit is told once",
            [&] { return "it was told " + std::to_string(m_changes) + " times"; });
    const bool isMoved = before.selection != m_selection;
    Require(!isMoved || m_selectionChanges > 0, "a change of the selection is told");
}

void EditSession::Record(Kind kind, const Moment& before)
{
    if (kind == Kind::Travelling)
        return;
    const bool isChanged = m_changes > 0;
    const bool continues = kind == Kind::Typing && m_isTypingRun;
    // Every edit that is told can be undone.
    // What a bracket holds is one when it ends, and none if it leaves the document as it was.
    if (isChanged && m_brackets.empty())
    {
        m_redo.clear();
        if (!continues)
            m_undo.push_back(before);
    }
    const bool isMoved = before.selection != m_selection;
    if (isChanged || isMoved)
        m_isTypingRun = kind == Kind::Typing && m_brackets.empty();
}

void EditSession::RequireHistory() const
{
    if (!m_brackets.empty())
        return;
    Require(m_box.CanUndo() == !m_undo.empty() || m_undo.size() > kSureSteps, "what was done can be undone");
    Require(m_box.CanRedo() == !m_redo.empty(), "what was undone can be redone");
}

}  // namespace quillmarker
