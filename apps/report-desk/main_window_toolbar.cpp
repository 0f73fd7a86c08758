#include "main_window.h"

#include "help_topics.h"
#include "help_window.h"
#include "notice.h"

#include <QApplication>
#include <QPointer>

#include <algorithm>
#include <array>
#include <memory>

namespace quillmarker::desk
{

/// What a button of the control's toolbar leaves to its host: a command, or a sentence that says why there is none.
struct ToolbarRow
{
    const char* key = "";
    void (*command)(MainWindow&) = nullptr;
    const char* refusal = "";

    static const std::array<ToolbarRow, 9> kAll;
};

// What is not here, the control has done itself. It keeps no history to redo from, hence "redo".
constexpr std::array<ToolbarRow, 9> ToolbarRow::kAll = {{
    {"new", [](MainWindow& w) { w.New(); }},
    {"open", [](MainWindow& w) { w.Open(); }},
    {"save", [](MainWindow& w) { w.Save(); }},
    {"print", nullptr, QT_TRANSLATE_NOOP("MainWindow", "Printing is not part of Report Desk yet.")},
    {"preview", nullptr, QT_TRANSLATE_NOOP("MainWindow", "The print preview is not part of Report Desk yet.")},
    {"redo", [](MainWindow& w) { w.Redo(); }},
    {"search", nullptr, QT_TRANSLATE_NOOP("MainWindow", "Search and replace is not part of Report Desk yet.")},
    {"spell", nullptr, QT_TRANSLATE_NOOP("MainWindow", "The spell check is not part of Report Desk yet.")},
    {"help", [](MainWindow& w) { w.ShowHelp(kOverviewTopic); }},
}};

static_assert(std::ranges::all_of(ToolbarRow::kAll,
                                  [](const ToolbarRow& row) { return *row.key && !row.command == !!*row.refusal; }));

void MainWindow::AnswerToolbar(const QString& key)
{
    const auto* row =
        std::ranges::find_if(ToolbarRow::kAll, [&](const ToolbarRow& r) { return key == QLatin1String(r.key); });
    if (row == ToolbarRow::kAll.end())
        return;
    if (row->command)
        row->command(*this);
    else
        m_notice->Tell(tr(row->refusal));
}

/// The help that the control's own messages offer is the window's.
PlatformServices MainWindow::Services()
{
    class WindowHelp : public HelpService
    {
    public:
        explicit WindowHelp(MainWindow& window) : m_window(&window) {}
        void ShowTopic(int context, QWidget* /*owner*/) override
        {
            if (m_window)
                m_window->ShowHelp(context);
        }

    private:
        QPointer<MainWindow> m_window;
    };

    PlatformServices services;
    services.help = std::make_shared<WindowHelp>(*this);
    return services;
}

/// A modal box keeps the keys and the mouse from every window that is not its own: help asked for there is the box's.
void MainWindow::ShowHelp(int context)
{
    QWidget* owner = QApplication::activeModalWidget();
    if (!owner)
        owner = this;
    if (m_help && m_help->parentWidget() != owner)
    {
        const HelpWindow* elsewhere = m_help;
        m_help.clear();
        delete elsewhere;
    }
    if (!m_help)
        m_help = new HelpWindow(owner);
    m_help->ShowTopic(context);
}

}  // namespace quillmarker::desk
