#include "engine/box/undo_history.h"

#include <utility>

namespace quillmarker
{

void UndoHistory::Push(const Moment& moment)
{
    m_undo.push_back(moment);
    if (m_undo.size() > kMaxSteps)
        m_undo.pop_front();
}

void UndoHistory::Note(const Moment& before, StepKind kind)
{
    if (m_bracket)
        return;
    m_redo.clear();
    const bool joins = kind == StepKind::Typing && m_isTyping;
    if (!joins)
        Push(before);
    m_isTyping = kind == StepKind::Typing;
}

void UndoHistory::Begin(const Moment& now)
{
    if (m_depth++ > 0)
        return;
    m_isTyping = false;
    m_bracket = now;
}

void UndoHistory::End(const Document& now)
{
    if (m_depth == 0 || --m_depth > 0)
        return;
    CloseBracket(now);
}

void UndoHistory::CloseBracket(const Document& now)
{
    const std::optional<Moment> begin = std::exchange(m_bracket, std::nullopt);
    if (!begin || SameContent(begin->document, now))
        return;
    m_redo.clear();
    Push(*begin);
}

bool UndoHistory::CanUndo() const { return !m_undo.empty() || m_bracket.has_value(); }

Moment UndoHistory::Undo(const Moment& now)
{
    const bool wasBracketed = m_bracket.has_value();
    if (wasBracketed)
        CloseBracket(now.document);
    m_isTyping = false;
    Moment earlier = now;
    if (!m_undo.empty())
    {
        m_redo.push_back(now);
        earlier = std::move(m_undo.back());
        m_undo.pop_back();
    }
    if (wasBracketed)
        m_bracket = earlier;
    return earlier;
}

Moment UndoHistory::Redo(const Moment& now)
{
    m_isTyping = false;
    const bool wasBracketed = m_bracket.has_value();
    if (wasBracketed)
        CloseBracket(now.document);
    if (m_redo.empty())
    {
        if (wasBracketed)
            m_bracket = now;
        return now;
    }
    Moment later = std::move(m_redo.back());
    m_redo.pop_back();
    Push(now);
    if (wasBracketed)
        m_bracket = later;
    return later;
}

void UndoHistory::Clear()
{
    m_undo.clear();
    m_redo.clear();
    m_isTyping = false;
    if (m_bracket)
        m_bracket.reset();
}

}  // namespace quillmarker
