#pragma once

#include <QWidget>

namespace quillmarker
{

/// One swatch of the palette, as a child of its own for screen readers: "Shape1(0)" to "Shape1(26)". The palette gets its
/// mouse events and its keys.
class SwatchWidget : public QWidget
{
    Q_OBJECT

public:
    SwatchWidget(int index, QWidget* palette);

    int Index() const { return m_index; }
    /// The one that the keyboard is on.
    bool IsCurrent() const { return m_isCurrent; }
    void SetCurrent(bool isCurrent) { m_isCurrent = isCurrent; }

    /// A screen reader is told that the keyboard is on it.
    void Announce();
    void NameIt();

Q_SIGNALS:
    /// A screen reader pressed it.
    void Pressed(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_index;
    bool m_isCurrent = false;
};

}  // namespace quillmarker
