#pragma once

#include <quillmarker/document.h>
#include <quillmarker/position.h>
#include <quillmarker/text_box.h>

#include <QInputMethodEvent>
#include <QString>
#include <QTextCharFormat>

#include <vector>

namespace quillmarker
{

/// The text that an input method is still working on. It is shown at the caret and is not in the document: the view
/// shows a version of the document that has it.
class PreEdit
{
public:
    bool IsEmpty() const { return m_text.isEmpty(); }
    const QString& Text() const { return m_text; }
    void Clear() { *this = {}; }

    /// Takes the text and the look of an event.
    void Take(const QInputMethodEvent& event);

    /// Whether a caret is shown in it, and how far behind its begin.
    bool ShowsCaret() const { return m_showsCaret; }
    int CaretOffset() const { return m_caret; }

    /// What the view shows: the box's document, with the text put in at the caret.
    Document Shown(const TextBox& box) const;

    /// Positions of the document and of what is shown.
    Position ToShown(Position position, Position caret) const;
    Position FromShown(Position position, Position caret) const;

private:
    struct Stretch
    {
        int start = 0;
        int length = 0;
        QTextCharFormat format;
    };

    QString m_text;
    std::vector<Stretch> m_stretches;
    int m_caret = 0;
    bool m_showsCaret = true;
};

}  // namespace quillmarker
