#include "recent_files.h"

#include <QDir>
#include <QFileInfo>

namespace quillmarker::desk
{
namespace
{

const QString kKey = QStringLiteral("recentFiles");

}  // namespace

QStringList RecentFiles::Paths()
{
    const QStringList kept = m_settings.value(kKey).toStringList();
    QStringList there;
    for (const QString& path : kept)
        if (there.size() < kMost && QFileInfo(path).isFile())
            there.append(path);
    if (there != kept)
        m_settings.setValue(kKey, there);
    return there;
}

void RecentFiles::Add(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList paths = Paths();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    m_settings.setValue(kKey, paths.mid(0, kMost));
}

void RecentFiles::Clear() { m_settings.remove(kKey); }

QString RecentFileLabel(int row, const QString& path)
{
    const QFileInfo file(path);
    QString name = QStringLiteral("%1 \u2013 %2").arg(file.fileName(), QDir::toNativeSeparators(file.absolutePath()));
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    return QStringLiteral("&%1  %2").arg(row + 1).arg(name);
}

}  // namespace quillmarker::desk
