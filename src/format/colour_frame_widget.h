#pragma once

#include "colour_palette.h"
#include "picker_frame_widget.h"

#include <array>
#include <optional>

namespace quillmarker
{

class SwatchWidget;

/// "ColFrame", the palette of 27 swatches. A mouse button that is released over one chooses it, wherever it was pressed; in
/// a gap it does nothing. Arrows move a ring from swatch to swatch, Enter and the space bar choose.
class ColFrame : public PickerFrame
{
    Q_OBJECT

public:
    explicit ColFrame(QWidget* parent);

    /// Called before it is shown: the ring is on the swatch of `selected`, on the first where there is none. The panel has its
    /// own size again.
    void Prepare(std::optional<Colour> selected);

    int CurrentSwatch() const { return m_current; }

    QSize sizeHint() const override;
    int LeastHeight() const override { return sizeHint().height(); }

Q_SIGNALS:
    /// The index of a swatch.
    void Chosen(int index);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::optional<int> SwatchUnder(QPointF position) const;
    QRect PixelRectangle(int index) const;
    void MoveTo(int index);
    void Hover(std::optional<int> index);
    void ShowTip(QPoint position, QPoint onScreen);
    void SetNames();

    std::array<SwatchWidget*, kSwatchCount> m_swatches{};
    int m_current = 0;
    std::optional<int> m_hovered;
};

}  // namespace quillmarker
