#pragma once

#include <quillmarker/document.h>
#include <quillmarker/text_box.h>

#include <deque>
#include <optional>

namespace quillmarker
{

/// A state that undo and redo go back to.
struct Moment
{
    Document document;
    Selection selection;
};

/// Whether an edit joins the step before it: typing goes on in one step until something else happens.
enum class StepKind : bool { Separate, Typing };

/// Undo and redo as lists of documents, which share all that they have in common.
class UndoHistory
{
public:
    static constexpr std::size_t kMaxSteps = 250;

    /// Notes the state before an edit.
    void Note(const Moment& before, StepKind kind);
    /// The next typing begins a new step.
    void EndTyping() { m_isTyping = false; }

    void Begin(const Moment& now);
    void End(const Document& now);
    bool IsBracketed() const { return m_depth > 0; }

    bool CanUndo() const;
    bool CanRedo() const { return !m_redo.empty(); }
    Moment Undo(const Moment& now);
    Moment Redo(const Moment& now);
    void Clear();

private:
    void Push(const Moment& moment);
    void CloseBracket(const Document& now);

    std::deque<Moment> m_undo;
    std::deque<Moment> m_redo;
    std::optional<Moment> m_bracket;  // the state at its begin
    int m_depth = 0;
    bool m_isTyping = false;
};

}  // namespace quillmarker
