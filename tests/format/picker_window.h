#pragma once

#include <QCoreApplication>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <gtest/gtest.h>

namespace quillmarker
{

/// A window with a text in it, which has the focus, and with room for the pickers. Keys and mouse go the way of real ones:
/// to the window first.
class PickerWindow : public QWidget
{
public:
    PickerWindow()
    {
        m_text.setGeometry(0, 0, 300, 30);
        resize(500, 560);
    }

    void Open()
    {
        show();
        activateWindow();
        m_text.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(this));
    }

    QLineEdit& Text() { return m_text; }

    template <typename Key>
    void Press(Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(windowHandle(), key, modifiers);
    }

    void PressMouse(const QWidget& on, QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(windowHandle(), button, {}, on.mapTo(this, at));
    }
    void ReleaseMouse(const QWidget& on, QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(windowHandle(), button, {}, on.mapTo(this, at));
    }
    void Click(const QWidget& on, QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        PressMouse(on, at, button);
        ReleaseMouse(on, at, button);
    }
    void MoveMouse(const QWidget& on, QPoint at) { QTest::mouseMove(windowHandle(), on.mapTo(this, at)); }

    /// How often the wheel turned over the window itself.
    int Turns() const { return m_turns; }
    int Presses() const { return m_presses; }

protected:
    void wheelEvent(QWheelEvent* /*event*/) override { ++m_turns; }
    void mousePressEvent(QMouseEvent* /*event*/) override { ++m_presses; }

private:
    QLineEdit m_text{this};
    int m_turns = 0;
    int m_presses = 0;
};

/// Turns the wheel over the middle of a widget, by a notch towards the user.
inline void TurnWheel(PickerWindow& window, const QWidget& over)
{
    const QPoint at = over.mapTo(&window, over.rect().center());
    QWheelEvent turn(window.childAt(at)->mapFrom(&window, at), window.mapToGlobal(at), {}, QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    // Only a turn that comes from the user goes on to whoever is around.
    QSpontaneKeyEvent::setSpontaneous(&turn);
    QCoreApplication::instance()->notify(window.childAt(at), &turn);
}

/// A palette of light text on a dark ground.
inline QPalette DarkPalette()
{
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, QColor(230, 230, 230));
    palette.setColor(QPalette::WindowText, QColor(230, 230, 230));
    palette.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

}  // namespace quillmarker
