#include "command_line.h"
#include "main_window.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

namespace
{

using namespace quillmarker::desk;

int Print(std::FILE* stream, const QString& text, int result)
{
    std::fputs(qPrintable(text), stream);
    return result;
}

QString SampleFolder() { return QDir(QApplication::applicationDirPath()).filePath(QStringLiteral(REPORT_DESK_SAMPLE)); }

/// With settings of its own: it neither looks like the user's window nor leaves anything of itself.
int TakeScreenshot(const CommandLine& call)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    MainWindow window(settings);
    window.resize(call.size);
    window.show();
    const bool isFilled = call.file.isEmpty() ? window.OpenSample(SampleFolder()) : window.Load(call.file) == 0;
    if (!isFilled)
        return Print(stderr, QStringLiteral("report-desk: there is nothing to show\n"), 1);
    QApplication::processEvents();
    if (!window.grab().save(call.screenshot, "PNG"))
        return Print(stderr, QStringLiteral("report-desk: %1 cannot be written\n").arg(call.screenshot), 1);
    return 0;
}

int Run(const CommandLine& call)
{
    QSettings settings;
    MainWindow window(settings);
    window.show();
    // A file that cannot be opened has been told of; the window stays, empty.
    if (call.file.isEmpty())
        window.OpenSample(SampleFolder());
    else
        window.OpenPath(call.file);
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv)
{
    const CommandLine call = ParseCommandLine(QStringList(argv, argv + argc));
    if (!call.error.isEmpty())
        return Print(stderr, QStringLiteral("report-desk: %1\n%2").arg(call.error, HelpText()), 2);
    if (call.wantsHelp)
        return Print(stdout, HelpText(), 0);
    if (call.wantsVersion)
        return Print(stdout, QStringLiteral("report-desk %1\n").arg(QStringLiteral(REPORT_DESK_VERSION)), 0);
    if (!call.screenshot.isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Quillmarker"));
    QApplication::setApplicationName(QStringLiteral("report-desk"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setApplicationVersion(QStringLiteral(REPORT_DESK_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("report-desk"));
    return call.screenshot.isEmpty() ? Run(call) : TakeScreenshot(call);
}
