#pragma once

#include <quillmarker/position.h>
#include <quillmarker/text_box.h>
#include <quillmarker/widgets/export.h>

#include <QAbstractScrollArea>
#include <QColor>
#include <QFont>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <string>

namespace quillmarker
{

class ClipboardService;

/// The text box as a widget: shows it, scrolls it, and lets a user edit it. It owns its TextBox and takes the box's
/// Change and SelChange for its signals of those names; whatever a host does to the box shows at once.
///
/// The engine's members are properties and invokable functions under their own names; what is mixed over a selection
/// is an invalid QVariant. A colour is a QColor, the automatic one an invalid QColor. Points and rectangles are in
/// pixels of the viewport(), positions those of TextBox.
class QUILLMARKER_WIDGETS_EXPORT RichTextView : public QAbstractScrollArea
{
    Q_OBJECT

    Q_PROPERTY(QString Text READ Text WRITE SetText)
    Q_PROPERTY(QString TextRTF READ TextRTF WRITE SetTextRTF)
    Q_PROPERTY(int SelStart READ SelStart WRITE SetSelStart)
    Q_PROPERTY(int SelLength READ SelLength WRITE SetSelLength)
    Q_PROPERTY(QString SelText READ SelText WRITE SetSelText)
    Q_PROPERTY(QString SelRTF READ SelRTF WRITE SetSelRTF)

    Q_PROPERTY(QVariant SelBold READ SelBold WRITE SetSelBold)
    Q_PROPERTY(QVariant SelItalic READ SelItalic WRITE SetSelItalic)
    Q_PROPERTY(QVariant SelUnderline READ SelUnderline WRITE SetSelUnderline)
    Q_PROPERTY(QVariant SelStrikeThru READ SelStrikeThru WRITE SetSelStrikeThru)
    Q_PROPERTY(QVariant SelProtected READ SelProtected WRITE SetSelProtected)
    Q_PROPERTY(QVariant SelCharOffset READ SelCharOffset WRITE SetSelCharOffset)
    Q_PROPERTY(QVariant SelFontName READ SelFontName WRITE SetSelFontName)
    Q_PROPERTY(QVariant SelFontSize READ SelFontSize WRITE SetSelFontSize)
    Q_PROPERTY(QVariant SelColor READ SelColor WRITE SetSelColor)

    Q_PROPERTY(QVariant SelAlignment READ SelAlignment WRITE SetSelAlignment)
    Q_PROPERTY(QVariant SelBullet READ SelBullet WRITE SetSelBullet)
    Q_PROPERTY(QVariant SelIndent READ SelIndent WRITE SetSelIndent)
    Q_PROPERTY(QVariant SelHangingIndent READ SelHangingIndent WRITE SetSelHangingIndent)
    Q_PROPERTY(QVariant SelRightIndent READ SelRightIndent WRITE SetSelRightIndent)
    Q_PROPERTY(QVariant SelTabCount READ SelTabCount WRITE SetSelTabCount)

    Q_PROPERTY(int RightMargin READ RightMargin WRITE SetRightMargin)
    Q_PROPERTY(int BulletIndent READ BulletIndent WRITE SetBulletIndent)
    Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE SetFont)
    Q_PROPERTY(int MaxLength READ MaxLength WRITE SetMaxLength)
    Q_PROPERTY(bool Locked READ Locked WRITE SetLocked)

    Q_PROPERTY(int Zoom READ Zoom WRITE SetZoom)
    Q_PROPERTY(bool AutoVerbMenu READ AutoVerbMenu WRITE SetAutoVerbMenu)
    Q_PROPERTY(bool Overwrites READ Overwrites WRITE SetOverwrites)

public:
    explicit RichTextView(QWidget* parent = nullptr);
    ~RichTextView() override;

    /// Its RightMargin, BackColor and Font show at once when they are set through the view.
    TextBox& Box();
    const TextBox& Box() const;

    // The engine's members.
    QString Text() const;
    void SetText(const QString& text);
    QString TextRTF() const;
    void SetTextRTF(const QString& rtf);
    int SelStart() const;
    void SetSelStart(int start);
    int SelLength() const;
    void SetSelLength(int length);
    QString SelText() const;
    void SetSelText(const QString& text);
    QString SelRTF() const;
    void SetSelRTF(const QString& rtf);

    // The names of the parameters say the units; the definitions, which are alike, have one name for all.
    // NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
    QVariant SelBold() const;
    void SetSelBold(const QVariant& on);
    QVariant SelItalic() const;
    void SetSelItalic(const QVariant& on);
    QVariant SelUnderline() const;
    void SetSelUnderline(const QVariant& on);
    QVariant SelStrikeThru() const;
    void SetSelStrikeThru(const QVariant& on);
    QVariant SelProtected() const;
    void SetSelProtected(const QVariant& on);
    QVariant SelCharOffset() const;
    void SetSelCharOffset(const QVariant& twips);
    QVariant SelFontName() const;
    void SetSelFontName(const QVariant& name);
    QVariant SelFontSize() const;
    void SetSelFontSize(const QVariant& points);
    QVariant SelColor() const;
    void SetSelColor(const QVariant& colour);

    QVariant SelAlignment() const;
    void SetSelAlignment(const QVariant& alignment);
    QVariant SelBullet() const;
    void SetSelBullet(const QVariant& on);
    QVariant SelIndent() const;
    void SetSelIndent(const QVariant& twips);
    QVariant SelHangingIndent() const;
    void SetSelHangingIndent(const QVariant& twips);
    QVariant SelRightIndent() const;
    void SetSelRightIndent(const QVariant& twips);
    QVariant SelTabCount() const;
    void SetSelTabCount(const QVariant& count);
    // NOLINTEND(readability-inconsistent-declaration-parameter-name)
    Q_INVOKABLE QVariant SelTabs(int index) const;
    Q_INVOKABLE void SetSelTabs(int index, int twips);

    int RightMargin() const;
    void SetRightMargin(int twips);
    int BulletIndent() const;
    void SetBulletIndent(int twips);
    QColor BackColor() const;
    void SetBackColor(const QColor& colour);
    QFont Font() const;
    void SetFont(const QFont& font);
    int MaxLength() const;
    void SetMaxLength(int units);
    bool Locked() const;
    void SetLocked(bool locked);

    Q_INVOKABLE int Find(const QString& text);
    /// With the option kFindNoHighlight what was found is not scrolled to.
    Q_INVOKABLE int Find(const QString& text, int start, int end = -1, int options = 0);
    /// `kind` is 0 for RTF, 1 for text; the result is the number of a FileError.
    Q_INVOKABLE int LoadFile(const QString& path, int kind = 0);
    Q_INVOKABLE int SaveFile(const QString& path, int kind = 0);
    Q_INVOKABLE void Span(const QString& characters, bool forward = true, bool negate = false);
    Q_INVOKABLE void UpTo(const QString& characters, bool forward = true, bool negate = false);

    // What a menu, a toolbar or a key does: the user's operations, which obey Locked, protection and MaxLength. Keys
    // and the context menu call these too.
    Q_INVOKABLE virtual void Cut();
    Q_INVOKABLE virtual void Copy();
    Q_INVOKABLE virtual void Paste();
    /// Deletes the selection; nothing else.
    Q_INVOKABLE virtual void Clear();
    Q_INVOKABLE virtual void Undo();
    Q_INVOKABLE virtual void Redo();
    Q_INVOKABLE virtual void SelectAll();
    Q_INVOKABLE bool CanPaste() const;

    // The view itself.

    /// Per cent, 10 to 500.
    int Zoom() const;
    void SetZoom(int percent);
    /// Whether the view shows a context menu of its own.
    bool AutoVerbMenu() const;
    void SetAutoVerbMenu(bool on);
    bool Overwrites() const;
    void SetOverwrites(bool on);

    /// Rewrites the RTF of what is copied or dragged away. It is called when somebody asks for the data, which may be
    /// after the view is gone.
    void SetCopyFilter(std::function<std::u16string(std::u16string)> filter);

    /// What Cut, Copy and Paste use instead of the machine's clipboard; null stands for that again.
    void SetClipboard(std::shared_ptr<ClipboardService> clipboard);

    /// Keeps the view from being painted until it is unlocked, which paints it once. One view at a time holds the lock:
    /// false when another does. Locking twice is locking once.
    Q_INVOKABLE bool LockPainting();
    /// Does nothing unless this view holds the lock.
    Q_INVOKABLE void UnlockPainting();

    /// Where the caret stands, and the other end of the selection; equal when nothing is selected.
    int CaretOffset() const;
    int AnchorOffset() const;
    /// Selects from `anchor` to `caret`, as one change.
    void SelectFromTo(int anchor, int caret);

    QRect CaretRectangle() const;
    /// Of the character behind a position; of no width at the end of a line.
    QRect CharacterRectangle(int position) const;
    /// The caret position nearest to a point.
    int PositionAt(const QPoint& point) const;
    /// The character under a point; -1 where there is none.
    int CharacterAt(const QPoint& point) const;
    /// The line that a caret at this position stands in, with the break that ends it.
    TextRange LineAround(int position) const;
    /// Where a link leads that has the character under a point; empty when there is none.
    QString LinkAt(const QPoint& point) const;

    void EnsureVisible(int position);
    /// Pixels to a twip, zoom included.
    qreal PixelsPerTwip() const;

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    void Change();
    void SelChange();
    /// Where the view itself scrolls, it comes when that is done. A slot that hears of the scroll bar being moved must
    /// not delete the view at once: the scroll bar goes on.
    void HScroll();
    void ZoomChanged(int percent);
    void LinkActivated(const QString& target);

    // What happens to the view, before the view acts on it. A slot that is connected directly may set `swallow`: then
    // the view does nothing more.
    void KeyDown(QKeyEvent* event, bool& swallow);
    /// A key that types something; what the slot leaves in `text` is typed.
    void KeyPress(QString& text, bool& swallow);
    void KeyUp(QKeyEvent* event, bool& swallow);
    void MouseDown(QMouseEvent* event, bool& swallow);
    void MouseMove(QMouseEvent* event, bool& swallow);
    void MouseUp(QMouseEvent* event, bool& swallow);
    void Click();
    void DblClick();

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace quillmarker
