#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

namespace quillmarker::desk
{

/// The files that were opened or saved last, the newest first, kept in the settings.
class RecentFiles
{
public:
    static constexpr int kMost = 8;

    /// The settings must outlive it.
    explicit RecentFiles(QSettings& settings) : m_settings(settings) {}

    /// Those that are still there; the others are forgotten.
    QStringList Paths();
    void Add(const QString& path);
    void Clear();

private:
    QSettings& m_settings;
};

/// What the menu says for the file in this row, counted from 0: the number is its mnemonic.
QString RecentFileLabel(int row, const QString& path);

}  // namespace quillmarker::desk
