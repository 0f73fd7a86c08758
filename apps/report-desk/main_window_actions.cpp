#include "main_window.h"

#include "help_topics.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace quillmarker::desk
{
namespace
{

enum class MenuName : std::uint8_t { File, Edit, View, Help };

constexpr std::array kMenuTitles = {QT_TRANSLATE_NOOP("MainWindow", "&File"), QT_TRANSLATE_NOOP("MainWindow", "&Edit"),
                                    QT_TRANSLATE_NOOP("MainWindow", "&View"), QT_TRANSLATE_NOOP("MainWindow", "&Help")};

constexpr const char* kRecentMenu = "recentMenu";

enum class Kind : std::uint8_t { Plain, Checkable, Separator, Submenu };

using Command = void (*)(MainWindow&, bool checked);

}  // namespace

/// One line of a menu. Keys are separated by "; ", the first one is shown. They win over the keys that the control
/// keeps from the text.
struct ActionRow
{
    MenuName menu = MenuName::File;
    const char* name = "";
    const char* text = "";
    const char* keys = "";
    Command command = nullptr;
    Kind kind = Kind::Plain;

    static const std::array<ActionRow, 28> kAll;
};

using enum MenuName;

// Delete has no key: the text's own deletes the next character too, which this does not.
constexpr std::array<ActionRow, 28> ActionRow::kAll = {{
    {File, "new", QT_TRANSLATE_NOOP("MainWindow", "&New"), "Ctrl+N", [](MainWindow& w, bool) { w.New(); }},
    {File, "open", QT_TRANSLATE_NOOP("MainWindow", "&Open\u2026"), "Ctrl+O", [](MainWindow& w, bool) { w.Open(); }},
    {File, kRecentMenu, QT_TRANSLATE_NOOP("MainWindow", "Open &Recent"), "", nullptr, Kind::Submenu},
    {File, "", "", "", nullptr, Kind::Separator},
    {File, "save", QT_TRANSLATE_NOOP("MainWindow", "&Save"), "Ctrl+S", [](MainWindow& w, bool) { w.Save(); }},
    {File, "saveAs", QT_TRANSLATE_NOOP("MainWindow", "Save &As\u2026"), "Ctrl+Shift+S",
     [](MainWindow& w, bool) { w.SaveAs(); }},
    {File, "", "", "", nullptr, Kind::Separator},
    {File, "quit", QT_TRANSLATE_NOOP("MainWindow", "&Quit"), "Ctrl+Q", [](MainWindow& w, bool) { w.close(); }},

    {Edit, "undo", QT_TRANSLATE_NOOP("MainWindow", "&Undo"), "Ctrl+Z", [](MainWindow& w, bool) { w.Undo(); }},
    {Edit, "redo", QT_TRANSLATE_NOOP("MainWindow", "&Redo"), "Ctrl+Y; Ctrl+Shift+Z",
     [](MainWindow& w, bool) { w.Redo(); }},
    {Edit, "", "", "", nullptr, Kind::Separator},
    {Edit, "cut", QT_TRANSLATE_NOOP("MainWindow", "Cu&t"), "Ctrl+X; Shift+Del",
     [](MainWindow& w, bool) { w.Editor().Cut(); }},
    {Edit, "copy", QT_TRANSLATE_NOOP("MainWindow", "&Copy"), "Ctrl+C; Ctrl+Ins",
     [](MainWindow& w, bool) { w.Editor().Copy(); }},
    {Edit, "paste", QT_TRANSLATE_NOOP("MainWindow", "&Paste"), "Ctrl+V; Shift+Ins",
     [](MainWindow& w, bool) { w.Editor().Paste(); }},
    {Edit, "delete", QT_TRANSLATE_NOOP("MainWindow", "&Delete"), "", [](MainWindow& w, bool) { w.Editor().Delete(); }},
    {Edit, "", "", "", nullptr, Kind::Separator},
    {Edit, "selectAll", QT_TRANSLATE_NOOP("MainWindow", "Select &All"), "Ctrl+A",
     [](MainWindow& w, bool) { w.SelectAll(); }},

    {View, "toolbar", QT_TRANSLATE_NOOP("MainWindow", "&Toolbar"), "",
     [](MainWindow& w, bool shown) { w.Editor().SetToolbar(shown); }, Kind::Checkable},
    {View, "ruler", QT_TRANSLATE_NOOP("MainWindow", "&Ruler"), "",
     [](MainWindow& w, bool shown) { w.Editor().SetRuler(shown); }, Kind::Checkable},
    {View, "statusbar", QT_TRANSLATE_NOOP("MainWindow", "&Status Bar"), "",
     [](MainWindow& w, bool shown) { w.Editor().SetStatusbar(shown); }, Kind::Checkable},
    {View, "", "", "", nullptr, Kind::Separator},
    {View, "inches", QT_TRANSLATE_NOOP("MainWindow", "Measure in I&nches"), "",
     [](MainWindow& w, bool inches) { w.Editor().SetMeasureInches(inches); }, Kind::Checkable},
    {View, "", "", "", nullptr, Kind::Separator},
    {View, "zoomIn", QT_TRANSLATE_NOOP("MainWindow", "Zoom &In"),
     "Ctrl++; Ctrl+=", [](MainWindow& w, bool) { w.ZoomIn(); }},
    {View, "zoomOut", QT_TRANSLATE_NOOP("MainWindow", "Zoom &Out"), "Ctrl+-", [](MainWindow& w, bool) { w.ZoomOut(); }},
    {View, "zoomReset", QT_TRANSLATE_NOOP("MainWindow", "&Actual Size"), "Ctrl+0",
     [](MainWindow& w, bool) { w.ZoomReset(); }},

    {Help, "contents", QT_TRANSLATE_NOOP("MainWindow", "&Contents"), "F1",
     [](MainWindow& w, bool) { w.ShowHelp(kOverviewTopic); }},
    {Help, "about", QT_TRANSLATE_NOOP("MainWindow", "&About Report Desk"), "", [](MainWindow& w, bool) { w.About(); }},
}};

// A row too few in the table would be an empty line in a menu.
static_assert(!std::string_view(ActionRow::kAll.back().name).empty());

void MainWindow::MakeActions()
{
    std::array<QMenu*, kMenuTitles.size()> menus{};
    std::ranges::transform(kMenuTitles, menus.begin(),
                           [this](const char* title) { return menuBar()->addMenu(tr(title)); });
    for (const ActionRow& row : ActionRow::kAll)
    {
        QMenu& menu = *menus[static_cast<std::size_t>(row.menu)];
        if (row.kind == Kind::Separator)
        {
            menu.addSeparator();
            continue;
        }
        QAction* action =
            row.kind == Kind::Submenu ? menu.addMenu(tr(row.text))->menuAction() : menu.addAction(tr(row.text));
        action->setObjectName(QLatin1String(row.name));
        action->setShortcuts(QKeySequence::listFromString(QLatin1String(row.keys)));
        action->setCheckable(row.kind == Kind::Checkable);
        if (row.command)
            connect(action, &QAction::triggered, this, [this, &row](bool checked) { row.command(*this, checked); });
    }
    Action("quit").setMenuRole(QAction::QuitRole);
    Action("about").setMenuRole(QAction::AboutRole);
}

void MainWindow::MakeRecentMenu()
{
    m_recentMenu = Action(kRecentMenu).menu();
    connect(m_recentMenu->menuAction()->menu(), &QMenu::aboutToShow, this, &MainWindow::FillRecentMenu);
    FillRecentMenu();
}

/// Files that are gone meanwhile leave the menu when it opens.
void MainWindow::FillRecentMenu()
{
    m_recentMenu->clear();
    const QStringList paths = m_recent.Paths();
    for (int row = 0; row < paths.size(); ++row)
    {
        const QString& path = paths[row];
        connect(m_recentMenu->addAction(RecentFileLabel(row, path)), &QAction::triggered, this,
                [this, path] { OpenRecent(path); });
    }
    m_recentMenu->addSeparator();
    QAction* clear = m_recentMenu->addAction(tr("&Clear List"));
    clear->setObjectName(QStringLiteral("clearRecent"));
    clear->setEnabled(!paths.isEmpty());
    connect(clear, &QAction::triggered, this, [this] { m_recent.Clear(); });
}

/// Sought in the menus alone: the control has actions of the same names.
QAction& MainWindow::Action(const char* name) const { return *menuBar()->findChild<QAction*>(QLatin1String(name)); }

/// Paste stays on: what the clipboard will hold when the key is pressed is not known before.
void MainWindow::UpdateActions()
{
    const bool hasSelection = View().SelLength() > 0;
    for (const char* action : {"cut", "copy", "delete"})
        Action(action).setEnabled(hasSelection);
    Action("undo").setEnabled(View().Box().CanUndo());
    Action("redo").setEnabled(View().Box().CanRedo());
    Action("toolbar").setChecked(m_editor->Toolbar());
    Action("ruler").setChecked(m_editor->Ruler());
    Action("statusbar").setChecked(m_editor->Statusbar());
    Action("inches").setChecked(m_editor->MeasureInches());
}

void MainWindow::Undo() { m_editor->Undo(); }

/// The control has no Redo: it is the engine's.
void MainWindow::Redo() { View().Redo(); }

void MainWindow::SelectAll() { View().SelectAll(); }

// A tenth of the natural size a step; the view keeps within its bounds.

void MainWindow::ZoomIn() { View().SetZoom(View().Zoom() + 10); }

void MainWindow::ZoomOut() { View().SetZoom(View().Zoom() - 10); }

void MainWindow::ZoomReset() { View().SetZoom(100); }

void MainWindow::About()
{
    QMessageBox::about(
        this, tr("About Report Desk"),
        tr("<h3>Report Desk %1</h3><p>An editor for rich-text reports, made of the Quillmarker control.</p>")
            .arg(QStringLiteral(REPORT_DESK_VERSION)));
}

}  // namespace quillmarker::desk
