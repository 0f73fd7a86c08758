#include "shown_view.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

namespace quillmarker
{
namespace
{

/// The view's menu, as the right button opens it; none where it opens none.
QMenu* MenuAt(RichTextView& view, QPoint point)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, view.viewport()->mapToGlobal(point));
    QApplication::sendEvent(view.viewport(), &event);
    return view.findChild<QMenu*>(QStringLiteral("AutoVerbMenu"));
}

/// The names of the actions that can be chosen.
std::string Enabled(const QMenu& menu)
{
    std::string names;
    for (const QAction* action : menu.actions())
    {
        if (!action->isSeparator() && action->isEnabled())
            names += action->objectName().toStdString() + ' ';
    }
    return names;
}

TEST(TheContextMenu, IsShownOnlyWhereTheHostWantsIt)
{
    ShownView view("one|");
    EXPECT_EQ(MenuAt(view, view.MiddleOf(1)), nullptr);
    view.SetAutoVerbMenu(true);
    EXPECT_NE(MenuAt(view, view.MiddleOf(1)), nullptr);
}

TEST(TheContextMenu, OffersWhatApplies)
{
    QGuiApplication::clipboard()->clear();
    ShownView view("one ^two| three");
    view.SetAutoVerbMenu(true);
    EXPECT_EQ(Enabled(*MenuAt(view, view.MiddleOf(5))), "Cut Copy Clear SelectAll ");
    EXPECT_EQ(Dump(view), "one ^two| three");
}

TEST(TheContextMenu, PutsTheCaretWhereItIsOpenedAndRunsItsActions)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    ShownView view("one ^two| three");
    view.SetAutoVerbMenu(true);
    QMenu* menu = MenuAt(view, view.LeftOf(1));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Dump(view), "o|ne two three");
    EXPECT_EQ(Enabled(*menu), "Paste SelectAll ");
    menu->findChild<QAction*>(QStringLiteral("Paste"))->trigger();
    EXPECT_EQ(Dump(view), "ox|ne two three");
}

TEST(TheContextMenu, OfALockedViewChangesNothing)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    ShownView view("one ^two| three");
    view.Type("2");
    view.SelectFromTo(4, 5);
    view.SetLocked(true);
    view.SetAutoVerbMenu(true);
    EXPECT_EQ(Enabled(*MenuAt(view, view.MiddleOf(4))), "Copy SelectAll ");
}

}  // namespace
}  // namespace quillmarker
