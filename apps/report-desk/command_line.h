#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

namespace quillmarker::desk
{

/// What the program was called with.
struct CommandLine
{
    QString file;        // to open; empty: the sample report
    QString screenshot;  // where to write what the window looks like; empty: the window is for a user
    QSize size = {1280, 900};
    bool wantsHelp = false;
    bool wantsVersion = false;
    QString error;  // not empty: the call is wrong, and nothing else counts
};

/// `arguments` begin with the program's name. Needs no application object.
CommandLine ParseCommandLine(const QStringList& arguments);

/// What --help prints.
QString HelpText();

}  // namespace quillmarker::desk
