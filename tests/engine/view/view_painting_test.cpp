#include "shown_view.h"

#include "engine/view/paint_lock.h"

#include <QBackingStore>
#include <QPaintEvent>
#include <QPalette>
#include <QScreen>

namespace quillmarker
{
namespace
{

/// Notes which parts of a viewport are painted.
class PaintSpy : public QObject
{
public:
    explicit PaintSpy(QWidget& widget) { widget.installEventFilter(this); }

    QRegion Take() { return std::exchange(m_painted, QRegion()); }
    int Times() const { return m_times; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
        {
            ++m_times;
            m_painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }

private:
    QRegion m_painted;
    int m_times = 0;
};

void Settle()
{
    // A scroll bar that appears is laid out in an event of its own.
    for (int i = 0; i < 4; ++i)
        QCoreApplication::processEvents();
}

QPalette Colours(QColor base, QColor text, QColor highlight, QColor highlighted)
{
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlighted);
    return palette;
}

class Flashing
{
public:
    explicit Flashing(int milliseconds) : m_before(QApplication::cursorFlashTime())
    {
        QApplication::setCursorFlashTime(milliseconds);
    }
    ~Flashing() { QApplication::setCursorFlashTime(m_before); }
    Flashing(const Flashing&) = delete;
    Flashing& operator=(const Flashing&) = delete;

private:
    int m_before;
};

TEST(Painting, TextBeginsFortyFiveTwipsFromTheLeftEdge)
{
    ShownView view("|H");
    EXPECT_NEAR(view.CharacterRectangle(0).left(), 45 * view.PixelsPerTwip(), 1);
    view.SetZoom(400);
    EXPECT_NEAR(view.CharacterRectangle(0).left(), 45 * view.PixelsPerTwip(), 1);
    EXPECT_NEAR(view.PixelsPerTwip(), view.logicalDpiY() * 4.0 / 1440, 1e-9);
}

TEST(Painting, AutomaticColoursFollowThePalette)
{
    ShownView view("some text|");
    view.setPalette(Colours(Qt::black, Qt::white, Qt::blue, Qt::yellow));
    Settle();
    const QImage dark = view.Picture();
    EXPECT_GT(CountOf(dark, Qt::white), 20);
    EXPECT_EQ(dark.pixelColor(390, 290), QColor(Qt::black));
    view.setPalette(Colours(Qt::white, Qt::black, Qt::blue, Qt::yellow));
    const QImage light = view.Picture();
    EXPECT_GT(CountOf(light, Qt::black), 20);
    EXPECT_EQ(light.pixelColor(390, 290), QColor(Qt::white));
}

TEST(Painting, AChosenBackgroundKeepsItsTextReadable)
{
    ShownView view("some text|");
    view.setPalette(Colours(Qt::white, Qt::black, Qt::blue, Qt::yellow));
    view.SetBackColor(QColor(0, 0, 80));
    const QImage image = view.Picture();
    EXPECT_EQ(image.pixelColor(390, 290), QColor(0, 0, 80));
    EXPECT_GT(CountOf(image, Qt::white), 20);
    view.SetBackColor(QColor());
    EXPECT_EQ(view.Picture().pixelColor(390, 290), QColor(Qt::white));
}

TEST(Painting, TheSelectionIsInThePalettesColours)
{
    ShownView view("one ^two| three");
    view.setPalette(Colours(Qt::white, Qt::black, Qt::blue, Qt::yellow));
    const QImage image = view.Picture();
    const QRect word = view.CharacterRectangle(4).united(view.CharacterRectangle(6));
    EXPECT_GT(CountOf(image, Qt::blue, word), word.width() * word.height() / 3);
    EXPECT_GT(CountOf(image, Qt::yellow, word), 0);
    EXPECT_EQ(CountOf(image, Qt::black, word.adjusted(2, 0, -2, 0)), 0);
    const QRect before = view.CharacterRectangle(0).united(view.CharacterRectangle(2));
    EXPECT_EQ(CountOf(image, Qt::blue, before), 0);
    EXPECT_LT(CountOf(image, Qt::white, before), before.width() * before.height() - 10);
}

TEST(Painting, TheSelectionWithoutFocusIsInTheInactiveColour)
{
    ShownView view("one ^two| three");
    QPalette palette = Colours(Qt::white, Qt::black, Qt::blue, Qt::yellow);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, Qt::gray);
    view.setPalette(palette);
    const QRect word = view.CharacterRectangle(4).united(view.CharacterRectangle(6));
    EXPECT_GT(CountOf(view.Picture(), Qt::blue, word), 20);
    view.clearFocus();
    EXPECT_EQ(CountOf(view.Picture(), Qt::blue, word), 0);
    EXPECT_GT(CountOf(view.Picture(), Qt::gray, word), 20);
}

TEST(Painting, TheCaretIsSeenWithTheFocusOnly)
{
    const Flashing steady(0);
    ShownView view("|");
    const QRect caret = view.CaretRectangle();
    EXPECT_GT(caret.height(), 8);
    EXPECT_EQ(CountOf(view.Picture(), view.palette().color(QPalette::Text)), caret.width() * caret.height());
    view.clearFocus();
    EXPECT_EQ(CountOf(view.Picture(), view.palette().color(QPalette::Text)), 0);
}

TEST(Painting, ABlinkPaintsTheCaretAndNothingElse)
{
    const Flashing quick(40);
    ShownView view("one two|");
    Settle();
    PaintSpy spy(*view.viewport());
    ASSERT_TRUE(QTest::qWaitFor([&] { return spy.Times() >= 2; }));
    const QRect painted = spy.Take().boundingRect();
    EXPECT_TRUE(view.CaretRectangle().adjusted(-6, -2, 6, 2).contains(painted));
    EXPECT_FALSE(painted.isEmpty());
}

TEST(Painting, AKeyPaintsItsLineOnly)
{
    const Flashing steady(0);
    ShownView view("one\ntwo\nthr|ee\nfour\nfive");
    Settle();
    PaintSpy spy(*view.viewport());
    view.Type("x");
    Settle();
    const QRegion painted = spy.Take();
    EXPECT_TRUE(painted.contains(view.MiddleOf(13)));
    EXPECT_FALSE(painted.contains(view.MiddleOf(0)));
    EXPECT_FALSE(painted.contains(view.MiddleOf(24)));
}

TEST(Painting, AMoveOfTheCaretPaintsTheCaretOnly)
{
    const Flashing steady(0);
    ShownView view("one two three|\nfour");
    Settle();
    PaintSpy spy(*view.viewport());
    view.Press(Qt::Key_Home);
    Settle();
    const QRegion painted = spy.Take();
    EXPECT_TRUE(painted.contains(view.CaretRectangle().center()));
    EXPECT_FALSE(painted.contains(view.MiddleOf(6)));
    EXPECT_FALSE(painted.contains(view.MiddleOf(16)));
}

TEST(Painting, WhatIsPaintedInPartsIsWhatIsPaintedAtOnce)
{
    const Flashing steady(0);
    ShownView view("one two three four\nfive six\nseven|", {200, 150});
    Settle();
    const QStringList words{QStringLiteral("alpha "), QStringLiteral("\n"), QStringLiteral("g"), QStringLiteral("y ")};
    for (int i = 0; i < 24; ++i)
    {
        if (i % 5 == 4)
            view.PressTimes(3, Qt::Key_Left, i % 2 == 0 ? Qt::ShiftModifier : Qt::NoModifier);
        else if (i % 7 == 6)
            view.Press(Qt::Key_Home, Qt::ControlModifier);
        else
            view.Box().Type(words[i % 4].toStdU16String());
        Settle();
        // What stands in the window now, against a picture made of everything anew.
        const QImage inParts =
            view.window()->backingStore() ? view.screen()->grabWindow(view.winId()).toImage() : QImage();
        if (inParts.isNull())
            FAIL() << "this platform shows no windows";
        const QImage atOnce = view.grab().toImage();
        ASSERT_EQ(inParts.convertToFormat(QImage::Format_RGB32), atOnce.convertToFormat(QImage::Format_RGB32)) << i;
    }
}

TEST(ThePaintingLock, StopsLayoutAndPaintingUntilItIsLetGo)
{
    const Flashing steady(0);
    ShownView view("one|");
    view.Box().SetSelText(std::u16string(60, u'\n'));
    Settle();
    PaintSpy spy(*view.viewport());
    ASSERT_TRUE(PaintLock::OfTheProcess().Lock(view));
    for (int i = 0; i < 50; ++i)
        view.Box().SetSelText(u"line\n");
    view.SetSelBold(true);
    Settle();
    EXPECT_EQ(spy.Times(), 0);
    PaintLock::OfTheProcess().Unlock();
    Settle();
    EXPECT_EQ(spy.Times(), 1);
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
}

TEST(Painting, OverwritingShowsABlock)
{
    const Flashing steady(0);
    ShownView view("|mmm");
    const QRect letter = view.CharacterRectangle(0);
    const QImage before = view.Picture();
    view.SetOverwrites(true);
    const QImage after = view.Picture();
    EXPECT_EQ(before.pixelColor(letter.right() - 1, letter.top() + 1), view.palette().color(QPalette::Base));
    EXPECT_NE(after.pixelColor(letter.right() - 1, letter.top() + 1), view.palette().color(QPalette::Base));
}

TEST(Painting, ACaretThatIsSeenStaysInSightWhenTheViewBecomesNarrow)
{
    ShownView view("a line of text that is wrapped in a narrow view and not in a wide one\n"
                   "a line of text that is wrapped in a narrow view and not in a wide one\n"
                   "a line of text that is wrapped in a narrow view and not in a wide one|",
                   {600, 60});
    Settle();
    view.resize(150, 60);
    Settle();
    EXPECT_TRUE(view.viewport()->rect().contains(view.CaretRectangle()));
}

TEST(Zooming, MakesEverythingLarger)
{
    ShownView view("text|");
    const QRect before = view.CharacterRectangle(0);
    view.SetZoom(200);
    const QRect after = view.CharacterRectangle(0);
    EXPECT_NEAR(after.height(), 2 * before.height(), 2);
    EXPECT_NEAR(after.width(), 2 * before.width(), 2);
    EXPECT_EQ(view.property("Zoom").toInt(), 200);
    view.SetText(QStringLiteral("other"));
    EXPECT_EQ(view.Zoom(), 200);
}

TEST(Painting, ADocumentWithOtherFormatsIsPaintedAnew)
{
    ShownView view("|");
    view.SetTextRTF(QStringLiteral("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf1\\fs72 Hello}"));
    QCoreApplication::processEvents();
    const QImage red = view.Picture();
    EXPECT_GT(CountOf(red, Qt::red), 50);
    PaintSpy spy(*view.viewport());
    QRegion painted;
    view.SetTextRTF(QStringLiteral("{\\rtf1{\\colortbl;\\red0\\green0\\blue255;}\\cf1\\fs72 Hello}"));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            painted += spy.Take();
            return QRegion(view.CharacterRectangle(1)).subtracted(painted).isEmpty();
        },
        1000));
    EXPECT_GT(CountOf(view.Picture(), Qt::blue), 50);
    EXPECT_EQ(CountOf(view.Picture(), Qt::red), 0);
}

TEST(ThePaintingLock, BelongsToHostsToo)
{
    ShownView view("one|");
    ShownView other("two|");
    EXPECT_TRUE(view.LockPainting());
    EXPECT_TRUE(view.LockPainting());
    EXPECT_FALSE(other.LockPainting());
    other.UnlockPainting();
    EXPECT_FALSE(view.updatesEnabled());
    view.UnlockPainting();
    EXPECT_TRUE(view.updatesEnabled());
    EXPECT_TRUE(other.LockPainting());
    other.UnlockPainting();
    // What the host itself has stopped stays so.
    view.setUpdatesEnabled(false);
    bool isLocked = false;
    EXPECT_TRUE(QMetaObject::invokeMethod(&view, "LockPainting", Q_RETURN_ARG(bool, isLocked)));
    EXPECT_TRUE(isLocked);
    EXPECT_TRUE(QMetaObject::invokeMethod(&view, "UnlockPainting"));
    EXPECT_FALSE(view.updatesEnabled());
}

TEST(Painting, AutomaticTextIsReadOnAHighlightOfItsOwn)
{
    QApplication::setCursorFlashTime(0);
    ShownView view("|");
    view.setPalette(Colours(Qt::black, Qt::white, Qt::darkBlue, Qt::white));
    view.SetTextRTF(QStringLiteral("{\\rtf1{\\colortbl;\\red255\\green255\\blue0;}\\fs96 H{\\highlight1 H}}"));
    QCoreApplication::processEvents();
    const QImage image = view.Picture();
    EXPECT_GT(CountOf(image, Qt::white, view.CharacterRectangle(0)), 50);
    const QRect marked = view.CharacterRectangle(1);
    EXPECT_GT(CountOf(image, Qt::yellow, marked), 50);
    EXPECT_GT(CountOf(image, Qt::black, marked.adjusted(2, 2, -2, -2)), 50);
    EXPECT_EQ(CountOf(image, Qt::white, marked.adjusted(2, 2, -2, -2)), 0);
}

}  // namespace
}  // namespace quillmarker
