// Undo, brackets and values against a list of the states the box was in.

#include "document_laws.h"
#include "edit_session.h"
#include "require.h"

namespace quillmarker
{

/// Takes from the box what the rules leave open or what was just checked otherwise.
void EditSession::Adopt()
{
    m_text = Flattened(m_box.Value());
    m_selection = {m_box.SelStart(), m_box.SelLength()};
    m_insertion.reset();
    m_adoptsInsertion = true;
    m_isTypingRun = false;
}

void EditSession::Undo(ByteScript&)
{
    if (!m_brackets.empty())
        return;
    const Moment before = Now();
    const bool can = m_box.CanUndo();
    m_box.Undo();
    if (!can)
        return RequireSame(before.document, m_box.Value(), "an undo with nothing to undo changes nothing");
    const Moment expected = m_undo.back();
    m_undo.pop_back();
    m_redo.push_back(before);
    RequireSame(expected.document, m_box.Value(), "an undo brings back what was there");
    Require(expected.selection == Selection{m_box.SelStart(), m_box.SelLength()},
            "an undo brings back what was selected");
    Adopt();
}

void EditSession::Redo(ByteScript&)
{
    if (!m_brackets.empty())
        return;
    const Moment before = Now();
    const bool can = m_box.CanRedo();
    m_box.Redo();
    if (!can)
        return RequireSame(before.document, m_box.Value(), "a redo with nothing to redo changes nothing");
    const Moment expected = m_redo.back();
    m_redo.pop_back();
    m_undo.push_back(before);
    RequireSame(expected.document, m_box.Value(), "a redo brings back what was undone");
    Adopt();
}

void EditSession::BeginStep(ByteScript&)
{
    m_brackets.push_back(m_brackets.empty() ? Now() : m_brackets.front());
    m_box.BeginStep();
    m_isTypingRun = false;
}

void EditSession::EndStep(ByteScript&)
{
    m_box.EndStep();
    if (m_brackets.empty())
        return;
    const Moment begin = m_brackets.back();
    m_brackets.pop_back();
    if (!m_brackets.empty() || SameContent(begin.document, m_box.Value()))
        return;
    m_undo.push_back(begin);
    m_redo.clear();
}

void EditSession::ClearHistory(ByteScript&)
{
    if (!m_brackets.empty())
        return;
    m_box.ClearHistory();
    m_undo.clear();
    m_redo.clear();
    m_isTypingRun = false;
}

void EditSession::PutValue(ByteScript& script)
{
    // A state the box was in before: its document is of the same family.
    const Document value = m_undo.empty() ? m_box.Value() : m_undo[script.Below(256) % m_undo.size()].document;
    const Selection wanted{static_cast<std::int32_t>(script.Byte()), static_cast<std::int32_t>(script.Byte())};
    m_box.SetValue(value, wanted);
    m_text = Flattened(value);
    RequireSame(value, m_box.Value(), "a value put in place is the document");
    m_selection = Snapped(m_text, wanted);
    m_insertion.reset();
    m_adoptsInsertion = true;
}

void EditSession::OpenValue(ByteScript& script)
{
    if (!m_brackets.empty())
        return;
    const Document value = script.Below(2) == 0 ? Document() : m_box.Value();
    m_box.OpenValue(value);
    RequireSame(value, m_box.Value(), "a value that was opened is the document");
    m_text = Flattened(value);
    m_selection = {};
    m_insertion.reset();
    m_adoptsInsertion = true;
    m_undo.clear();
    m_redo.clear();
    m_isTypingRun = false;
}

void EditSession::WriteAndRead(ByteScript&)
{
    TextBox other;
    other.SetTextRTF(m_box.TextRTF());
    RequireSame(m_box.Value(), other.Value(), "TextRTF put in another box gives the same document");
    Require(other.TextRTF() == m_box.TextRTF(), "its TextRTF is the same too");
}

}  // namespace quillmarker
