#pragma once

#include "document_session.h"
#include "file_messages.h"
#include "recent_files.h"

#include <quillmarker/rich_text_editor.h>
#include <quillmarker/widgets/rich_text_view.h>

#include <QMainWindow>
#include <QPointer>
#include <QSettings>
#include <QTimer>

namespace quillmarker::desk
{

class HelpWindow;
class Notice;

/// The window: menus around one editor. What it asks and tells are message boxes and file dialogs of its own.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Takes its place on the screen and the editor's properties from the settings, which must outlive it; closing
    /// writes them back.
    explicit MainWindow(QSettings& settings, QWidget* parent = nullptr);

    RichTextEditor& Editor() { return *m_editor; }
    const DocumentSession& Session() const { return m_session; }

    /// Opens a file in place of the document, without asking whether that may be lost. 0, or the number of the error:
    /// then the document stays.
    int Load(const QString& path);
    /// The same, and tells the user of an error.
    bool OpenPath(const QString& path);
    /// The report that fills the window when there is nothing else to show. False: the folder does not hold it.
    bool OpenSample(const QString& folder);
    /// The help at the topic with that number; the overview when there is none. What was being done goes on.
    void ShowHelp(int context);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    friend struct ActionRow;
    friend struct ToolbarRow;

    PlatformServices Services();

    // What the menus do.
    void New();
    void Open();
    bool Save();
    bool SaveAs();
    void Undo();
    void Redo();
    void SelectAll();
    void ZoomIn();
    void ZoomOut();
    void ZoomReset();
    void About();
    void FillRecentMenu();
    void OpenRecent(const QString& path);

    /// After a click on the control's toolbar: what the control leaves to its host.
    void AnswerToolbar(const QString& key);

    void MakeActions();
    void MakeRecentMenu();
    void ConnectEditor();
    void RestoreSettings();
    void SaveSettings();

    RichTextView& View() { return *qobject_cast<RichTextView*>(m_editor->RTFObj()); }
    /// Whether the document may be lost: it is unchanged, or the user saved it or gives it up.
    bool MayLoseDocument();
    /// True: saved under that name, which is the document's from now on.
    bool SaveTo(const QString& path, FileKind kind);
    bool AgreesToLoseFormats(FileKind kind);
    void TellError(FileTask task, const QString& path, int error);
    QString FolderForDialogs() const;
    void SetSession(DocumentSession session);
    void UpdateTitle();
    void UpdateActions();
    /// The entry of a menu.
    QAction& Action(const char* name) const;

    QSettings& m_settings;
    RecentFiles m_recent;
    RichTextEditor* m_editor;
    Notice* m_notice;
    QPointer<HelpWindow> m_help;
    QMenu* m_recentMenu = nullptr;
    QTimer m_update;
    DocumentSession m_session;
};

}  // namespace quillmarker::desk
