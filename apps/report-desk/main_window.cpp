#include "main_window.h"

#include "help_window.h"
#include "notice.h"
#include "sample_report.h"
#include "text_file.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QTemporaryFile>

#include <utility>

namespace quillmarker::desk
{
namespace
{

const QString kGeometryKey = QStringLiteral("window/geometry");
const QString kEditorGroup = QStringLiteral("editor");

/// A document without text, in the font that reports are written in.
constexpr const char* kBlankReport =
    R"({\rtf1\ansi\deff0{\fonttbl{\f0\fswiss\fcharset0 Arial;}}\pard\plain\f0\fs20\par})";

struct KindRow
{
    FileKind kind;
    const char* filter;
};

constexpr KindRow kKinds[] = {
    {FileKind::Rtf, QT_TRANSLATE_NOOP("MainWindow", "Rich text (*.rtf)")},
    {FileKind::Text, QT_TRANSLATE_NOOP("MainWindow", "Plain text (*.txt)")},
};

QString FilterOf(const KindRow& row) { return QCoreApplication::translate("MainWindow", row.filter); }

FileKind KindOfFilter(const QString& filter)
{
    for (const KindRow& row : kKinds)
        if (FilterOf(row) == filter)
            return row.kind;
    return FileKind::Rtf;
}

QStringList Filters()
{
    QStringList filters;
    for (const KindRow& row : kKinds)
        filters.append(FilterOf(row));
    return filters;
}

}  // namespace

MainWindow::MainWindow(QSettings& settings, QWidget* parent)
    : QMainWindow(parent),
      m_settings(settings),
      m_recent(settings),
      m_editor(new RichTextEditor(Services(), this)),
      m_notice(new Notice(this))
{
    constexpr QSize kFirstSize(1000, 760);
    resize(kFirstSize);
    setCentralWidget(m_editor);
    MakeActions();
    MakeRecentMenu();
    ConnectEditor();
    RestoreSettings();
    // From here on Undo is the engine's own, step by step; until then it would go back to the control's snapshot.
    m_editor->SetRedraw(true);
    m_editor->SetChanged(false);
    SetSession({});
}

/// The change is told before the editor's mark is set, and a selection several times in one edit: both are looked at
/// when the edit is over.
void MainWindow::ConnectEditor()
{
    m_update.setSingleShot(true);
    m_update.setInterval(0);
    const auto updateSoon = [this] { m_update.start(); };
    connect(&m_update, &QTimer::timeout, this, [this] {
        UpdateTitle();
        UpdateActions();
    });
    connect(m_editor, &RichTextEditor::Change, this, updateSoon);
    connect(m_editor, &RichTextEditor::PropertyChanged, this, updateSoon);
    connect(m_editor, &RichTextEditor::ToolbarClick, this, &MainWindow::AnswerToolbar);
    connect(&View(), &RichTextView::SelChange, this, updateSoon);
    connect(&View(), &RichTextView::ZoomChanged, this, updateSoon);
}

void MainWindow::RestoreSettings()
{
    restoreGeometry(m_settings.value(kGeometryKey).toByteArray());
    m_settings.beginGroup(kEditorGroup);
    m_editor->ReadProperties(SettingsPropertyBag(m_settings));
    m_settings.endGroup();
}

void MainWindow::SaveSettings()
{
    m_settings.setValue(kGeometryKey, saveGeometry());
    m_settings.beginGroup(kEditorGroup);
    SettingsPropertyBag bag(m_settings);
    m_editor->WriteProperties(bag);
    m_settings.endGroup();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!MayLoseDocument())
        return event->ignore();
    SaveSettings();
    if (m_help)
        m_help->close();
    event->accept();
}

bool MainWindow::MayLoseDocument()
{
    if (!m_editor->Changed())
        return true;
    QMessageBox box(QMessageBox::Warning, tr("Report Desk"),
                    tr("Save the changes to \u201c%1\u201d?").arg(NameOf(m_session)),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setInformativeText(tr("Without saving, they are lost."));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec())
    {
    case QMessageBox::Save:
        return Save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

/// A new report is opened like any other, so that nothing of the old one is left, in the history either.
void MainWindow::New()
{
    if (!MayLoseDocument())
        return;
    QTemporaryFile blank;
    if (!blank.open() || blank.write(kBlankReport) < 0 || !blank.flush())
        return TellError(FileTask::Save, QDir::tempPath(), static_cast<int>(FileError::DiskFull));
    if (const int error = m_editor->OpenFileRTF(blank.fileName()); error != 0)
        return TellError(FileTask::Open, blank.fileName(), error);
    SetSession({});
}

void MainWindow::Open()
{
    if (!MayLoseDocument())
        return;
    QFileDialog dialog(this, tr("Open"), FolderForDialogs());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(QStringList{tr("Reports and text (*.rtf *.txt)")} + Filters() +
                          QStringList{tr("All files (*)")});
    if (dialog.exec() == QDialog::Accepted)
        OpenPath(dialog.selectedFiles().constFirst());
}

void MainWindow::OpenRecent(const QString& path)
{
    if (MayLoseDocument())
        OpenPath(path);
}

int MainWindow::Load(const QString& path)
{
    const QFileInfo file(path);
    const FileKind kind = KindOfFile(path);
    const BusyTime busy(*m_notice, tr("Opening %1\u2026").arg(file.fileName()));
    const QString absolute = file.absoluteFilePath();
    const int error = kind == FileKind::Rtf ? m_editor->OpenFileRTF(absolute) : m_editor->OpenFileText(absolute);
    if (error != 0)
        return error;
    m_recent.Add(path);
    SetSession({absolute, kind, {}});
    return 0;
}

bool MainWindow::OpenPath(const QString& path)
{
    const int error = Load(path);
    if (error != 0)
        TellError(FileTask::Open, path, error);
    return error == 0;
}

bool MainWindow::OpenSample(const QString& folder)
{
    bool isFilled = false;
    {
        const BusyTime busy(*m_notice, tr("Filling the sample report\u2026"));
        isFilled = OpenFilledReport(*m_editor, folder);
    }
    if (isFilled)
        SetSession({{}, FileKind::Rtf, tr("Sample report")});
    return isFilled;
}

bool MainWindow::Save() { return m_session.path.isEmpty() ? SaveAs() : SaveTo(m_session.path, m_session.kind); }

bool MainWindow::SaveAs()
{
    QFileDialog dialog(this, tr("Save As"), FolderForDialogs());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(Filters());
    dialog.selectNameFilter(FilterOf(kKinds[m_session.kind == FileKind::Rtf ? 0 : 1]));
    const auto useSuffix = [&](const QString& filter) { dialog.setDefaultSuffix(SuffixOf(KindOfFilter(filter))); };
    useSuffix(dialog.selectedNameFilter());
    connect(&dialog, &QFileDialog::filterSelected, &dialog, useSuffix);
    dialog.selectFile(SuggestedFileName(m_session));
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QString path = dialog.selectedFiles().constFirst();
    const FileKind kind = KindToWrite(path, KindOfFilter(dialog.selectedNameFilter()));
    return AgreesToLoseFormats(kind) && SaveTo(path, kind);
}

bool MainWindow::AgreesToLoseFormats(FileKind kind)
{
    if (!LosesFormats(m_session, kind))
        return true;
    QMessageBox box(QMessageBox::Warning, tr("Report Desk"), tr("Save as plain text?"),
                    QMessageBox::Save | QMessageBox::Cancel, this);
    box.setInformativeText(
        tr("The file will hold the words alone. Fonts, tables and pictures stay behind; to keep them, "
           "save as rich text."));
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Save;
}

/// What was there before stays whole until the new file is: the editor and WriteTextFile both see to that.
bool MainWindow::SaveTo(const QString& path, FileKind kind)
{
    int error = 0;
    {
        const BusyTime busy(*m_notice, tr("Saving %1\u2026").arg(QFileInfo(path).fileName()));
        error = kind == FileKind::Rtf ? m_editor->SaveFileRTF(path)
                                      : static_cast<int>(WriteTextFile(path, m_editor->TextString()));
    }
    if (error != 0)
    {
        TellError(FileTask::Save, path, error);
        return false;
    }
    m_editor->SetChanged(false);
    m_recent.Add(path);
    SetSession({QFileInfo(path).absoluteFilePath(), kind, {}});
    m_notice->Tell(tr("Saved %1").arg(NameOf(m_session)));
    return true;
}

void MainWindow::TellError(FileTask task, const QString& path, int error)
{
    const FileMessage message = MessageFor(task, path, static_cast<FileError>(error));
    QMessageBox box(QMessageBox::Critical, tr("Report Desk"), message.what, QMessageBox::Ok, this);
    box.setInformativeText(message.advice);
    box.exec();
}

QString MainWindow::FolderForDialogs() const
{
    if (!m_session.path.isEmpty())
        return QFileInfo(m_session.path).absolutePath();
    RecentFiles recent(m_settings);
    const QStringList paths = recent.Paths();
    return paths.isEmpty() ? QDir::homePath() : QFileInfo(paths.constFirst()).absolutePath();
}

void MainWindow::SetSession(DocumentSession session)
{
    m_session = std::move(session);
    UpdateTitle();
    UpdateActions();
}

void MainWindow::UpdateTitle()
{
    setWindowTitle(TitleOf(m_session));
    setWindowModified(m_editor->Changed());
}

}  // namespace quillmarker::desk
