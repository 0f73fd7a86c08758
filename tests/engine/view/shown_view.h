#pragma once

#include "support/sample.h"

#include <quillmarker/widgets/rich_text_view.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>

#include <string>
#include <string_view>

namespace quillmarker
{

/// A view with a sample in it, shown and with the focus; the caret stands where the sample says.
class ShownView : public RichTextView
{
public:
    explicit ShownView(std::string_view sample, QSize size = {400, 300})
    {
        const SampleBox given(sample);
        Box().OpenValue(given.Value());
        Box().Select({given.SelStart(), given.SelLength()});
        setFrameStyle(QFrame::NoFrame);
        resize(size);
        show();
        activateWindow();
        setFocus();
        QCoreApplication::processEvents();
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { QTest::keyClick(this, key, modifiers); }
    void PressTimes(int times, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        for (int i = 0; i < times; ++i)
            Press(key, modifiers);
    }
    void Type(const char* text) { QTest::keyClicks(this, QString::fromUtf8(text)); }

    /// The middle of the character behind a position.
    QPoint MiddleOf(int position) const { return CharacterRectangle(position).center(); }
    /// The left edge of the character behind a position, a bit inside it.
    QPoint LeftOf(int position) const
    {
        const QRect rectangle = CharacterRectangle(position);
        return {rectangle.left() + 1, rectangle.center().y()};
    }

    void ClickAt(QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(viewport(), Qt::LeftButton, modifiers, point);
    }
    void DoubleClickAt(QPoint point)
    {
        QTest::mouseClick(viewport(), Qt::LeftButton, {}, point);
        QTest::mouseDClick(viewport(), Qt::LeftButton, {}, point);
    }
    /// Moves the mouse with the button held.
    void DragTo(QPoint point)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(point), viewport()->mapToGlobal(QPointF(point)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport(), &move);
    }
    void DragFromTo(QPoint from, QPoint to)
    {
        QTest::mousePress(viewport(), Qt::LeftButton, {}, from);
        DragTo(to);
        QTest::mouseRelease(viewport(), Qt::LeftButton, {}, to);
    }

    QImage Picture() { return viewport()->grab().toImage(); }
};

/// The view's document and selection, with the caret where the view has it.
inline std::string Dump(const RichTextView& view)
{
    std::string dump = Dump(view.Box());
    const std::size_t anchor = dump.find('^');
    const std::size_t caret = dump.find('|');
    if (view.CaretOffset() < view.AnchorOffset() && anchor != dump.npos && caret != dump.npos)
        std::swap(dump[anchor], dump[caret]);
    return dump;
}

/// How many pixels of a picture have a colour.
inline int CountOf(const QImage& image, const QColor& colour, QRect in = {})
{
    int count = 0;
    const QRect area = in.isNull() ? image.rect() : in.intersected(image.rect());
    for (int y = area.top(); y <= area.bottom(); ++y)
    {
        for (int x = area.left(); x <= area.right(); ++x)
            count += image.pixelColor(x, y).rgb() == colour.rgb() ? 1 : 0;
    }
    return count;
}

}  // namespace quillmarker
