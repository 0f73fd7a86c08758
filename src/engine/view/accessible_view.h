#pragma once

#include <quillmarker/widgets/rich_text_view.h>

#include <QAccessibleWidget>

#include <functional>

namespace quillmarker
{

/// Makes a view known to screen readers: what they ask for is answered from the document, and they are told what the user and
/// the host do to it. Called once for each view; costs nothing while no screen reader is there.
void MakeAccessible(RichTextView& view);

/// What a screen reader sees of a view. Offsets are positions of the text box, the text is TextBox::Text(); no question about
/// a line, a word or a format costs more than its answer.
class AccessibleView : public QAccessibleWidget,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface
{
public:
    explicit AccessibleView(RichTextView& view);

    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;

    QString text(int start, int end) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const override;
    int characterCount() const override;

    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

private:
    RichTextView& View() const;
    const TextBox& Box() const { return View().Box(); }
    Position At(int offset) const;
    TextRange UnitAt(Position at, QAccessible::TextBoundaryType boundary) const;
    QString Answer(TextRange range, int* start, int* end) const;
};

}  // namespace quillmarker
