#pragma once

#include "caret_blink.h"
#include "caret_track.h"
#include "key_table.h"
#include "mouse_selection.h"
#include "pre_edit.h"
#include "shown_lines.h"
#include "view_scale.h"

#include "engine/layout/document_flow.h"
#include "engine/layout/paint_list.h"
#include "engine/platform/clipboard.h"

#include <quillmarker/widgets/rich_text_view.h>

#include <QBasicTimer>
#include <QPainter>
#include <QPointer>

#include <memory>
#include <optional>

namespace quillmarker
{

/// What the mouse is about while a button is down.
enum class MouseGesture : std::uint8_t { None, Selecting, MayDrag, OnLink };

/// Sets a flag of a view, and back at its end if the view is still there: slots may delete it.
class ViewFlag
{
public:
    ViewFlag(RichTextView& view, bool& flag, bool value) : m_view(&view), m_flag(flag), m_before(flag) { flag = value; }
    ~ViewFlag()
    {
        if (m_view)
            m_flag = m_before;
    }
    ViewFlag(const ViewFlag&) = delete;
    ViewFlag& operator=(const ViewFlag&) = delete;

private:
    QPointer<RichTextView> m_view;
    bool& m_flag;
    bool m_before;
};

/// The inside of a view. Each group of functions has a file of its own; each geometric question goes through Flow(),
/// which first learns what the document is now. What is shown differs from the document by the pre-edit text, so that
/// positions of the flow are not always positions of the box.
///
/// A slot may delete the view in each signal. Whatever goes on behind an edit or a selection asks first whether the view
/// is still there; SelectFromTo and FinishPreEdit are false when it is gone.
struct RichTextView::State
{
    explicit State(RichTextView& owner);

    RichTextView& view;
    TextBox box;
    std::shared_ptr<FontHost> fonts;
    DocumentFlow flow;
    CaretTrack track;
    PreEdit preEdit;
    CaretBlink blink;
    ShownLines shown;
    QRect shownCaret;
    std::optional<CaretPosition> shownCaretAt;
    QRegion beingPainted;
    std::function<std::u16string(std::u16string)> copyFilter;
    std::shared_ptr<ClipboardService> clipboard = MakeQtClipboard();
    int zoom = 100;
    bool hasVerbMenu = false;
    bool overwrites = false;

    bool isStale = false;       // the flow shows an older document
    QBasicTimer refreshTimer;   // runs while a refresh is due
    bool isRefreshing = false;  // scroll bars that move now are moved by us
    bool mustReveal = false;    // the caret is to be scrolled to
    bool staysPut = false;      // what happens now does not scroll
    QBasicTimer scrolledTimer;  // runs while HScroll is due
    bool holdsHScroll = false;  // a signal would come in the middle of something
    bool isOwnDrag = false;     // the user drags this view's selection
    MouseGesture gesture = MouseGesture::None;
    MouseSelection mouseSelection;
    bool isPressed = false;  // the left button went down here, and no slot took that
    QPoint pressedAt;
    QPoint fingerAt;  // where a finger came down
    QPoint mouseAt;   // while a button is down
    QString pressedLink;
    QBasicTimer autoscroll;
    QBasicTimer tripleClick;
    std::optional<CaretPosition> dropCaret;
    QPoint dropAt;
    QBasicTimer dropScroll;
    int wheelRest = 0;

    // rich_text_view.cpp: what the box says.
    void OnChange();
    void OnSelChange();
    Selection BoxSelection() const { return {box.SelStart(), box.SelLength()}; }

    // view_geometry.cpp: the flow, and pixels.
    DocumentFlow& Flow();
    const Document& Value() const { return box.Value(); }
    ViewScale Scale() const;
    Twips LineWidth() const;
    QPoint Offset() const;
    /// Where the flow's upper left corner is in the viewport.
    QPointF Origin() const;
    int PixelTop(Fine y) const;
    FlowHit HitAt(const QPoint& point);
    CaretPosition ShownCaret() const;
    QRect CaretRectangle(CaretPosition caret);
    QRect CharacterRectangle(Position position);
    Position FromShown(Position position) const;
    Position ToShown(Position position) const;
    const CharFormat* FormatUnder(const FlowHit& hit) const;
    QString LinkAt(const QPoint& point);

    // view_refresh.cpp: from a change to what is painted.
    bool IsPaintingLocked() const;
    void ScheduleRefresh();
    void Refresh();
    /// Has a part of the viewport painted, unless it is being painted already.
    void Update(const QRegion& region);
    /// Everything looks different.
    void RefreshAll();
    ShownLines LinesNow();
    void RefreshCaret();
    void RestartCaret();
    void RaiseHScroll();
    /// The caret is scrolled to, whether or not it has moved.
    void RevealCaret();

    // view_scrolling.cpp
    void Settle();
    void FitScrollBars();
    void Reveal(CaretPosition caret);
    void PlaceAt(int top);
    void SetZoom(int percent);
    void TakeWidth(Twips width);

    // view_painting.cpp
    void Paint(QPainter& painter, const QRegion& region);
    void PaintText(QPainter& painter, const QRegion& region, const GroundColours& ground);
    QRegion SelectedRegion(std::int32_t paragraph, std::uint32_t first, std::uint32_t last);
    void PaintCaret(QPainter& painter, const GroundColours& ground);
    QPalette::ColorGroup ColourGroup() const;
    GroundColours Ground() const;

    // view_commands.cpp: what keys and menus do.
    void Run(const KeyCommand& command);
    void Run(KeyMotion key);
    void Run(KeyAction action);
    [[nodiscard]] bool SelectFromTo(Position anchor, CaretPosition caret, std::optional<Fine> column = std::nullopt);
    void TypeText(const QString& text);
    void TypeOverCharacters(const QString& text);
    void DeleteBeside(Deletion deletion);
    bool MayEdit() const { return !box.Locked(); }
    bool TakesKey(QKeyEvent& event);
    /// What is being written becomes text, or nothing.
    [[nodiscard]] bool FinishPreEdit();
    void DropPreEdit();

    // view_mouse.cpp
    void PressLeft(const QMouseEvent& event);
    bool Tap(const QMouseEvent& event);
    void PressMiddle(const QMouseEvent& event);
    void SelectByMouse(const QPoint& point, SelectionUnit unit);
    void ExtendByMouse(const QPoint& point);
    void MoveMouse(const QMouseEvent& event);
    /// False when the view followed a link, or is gone.
    bool ReleaseLeft(const QMouseEvent& event);
    void Autoscroll();
    void ShowCursorFor(const QPoint& point, Qt::KeyboardModifiers modifiers);
    bool IsOnSelection(const QPoint& point);
    void OfferPrimarySelection();

    // view_drag.cpp
    void StartDrag();
    bool TakesDrop(const QDropEvent& event) const;
    void ShowDropCaret(const QPoint& point);
    void HideDropCaret();
    void StopDropping();
    bool Drop(const QDropEvent& event);

    // view_input_method.cpp
    void TakeInput(QInputMethodEvent& event);
    [[nodiscard]] bool TakeCommit(const QInputMethodEvent& event);
    [[nodiscard]] bool TakeSelection(const QInputMethodEvent& event);
    QVariant InputMethodValue(Qt::InputMethodQuery query);
};

}  // namespace quillmarker
