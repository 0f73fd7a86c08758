#pragma once

#include <quillmarker/widgets/rich_text_view.h>

#include <memory>

namespace quillmarker
{

class EditorState;

/// The text of a control. What a menu or a key of it does are the control's own commands, so that a copy leaves no
/// markers on the clipboard and an undo goes back to the control's snapshot.
class EditorView : public RichTextView
{
    Q_OBJECT

public:
    EditorView(EditorState& state, QWidget* parent);

    void Cut() override;
    void Copy() override;
    void Paste() override;
    void Clear() override;
    void Undo() override;

protected:
    bool event(QEvent* event) override;

private:
    template <class Command>
    void Run(Command command);

    EditorState& m_state;
};

}  // namespace quillmarker
