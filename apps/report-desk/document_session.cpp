#include "document_session.h"

#include <quillmarker/rtf.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <optional>
#include <string_view>

namespace quillmarker::desk
{
namespace
{

QString Translated(const char* text) { return QCoreApplication::translate("DocumentSession", text); }

std::optional<FileKind> KindOfSuffix(const QString& path)
{
    for (const FileKind kind : {FileKind::Rtf, FileKind::Text})
        if (path.endsWith(SuffixOf(kind), Qt::CaseInsensitive))
            return kind;
    return std::nullopt;
}

}  // namespace

QString SuffixOf(FileKind kind) { return kind == FileKind::Rtf ? QStringLiteral(".rtf") : QStringLiteral(".txt"); }

QString NameOf(const DocumentSession& session)
{
    if (!session.path.isEmpty())
        return QFileInfo(session.path).fileName();
    return session.provisionalName.isEmpty() ? Translated("Untitled") : session.provisionalName;
}

QString TitleOf(const DocumentSession& session)
{
    // A name that holds the mark's place itself would be taken for it.
    QString name = NameOf(session);
    name.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    return Translated("%1[*] \u2013 Report Desk").arg(name);
}

QString SuggestedFileName(const DocumentSession& session)
{
    const QString name = NameOf(session);
    return QFileInfo(name).suffix().isEmpty() ? name + SuffixOf(session.kind) : name;
}

FileKind KindOfFile(const QString& path)
{
    if (const auto kind = KindOfSuffix(path))
        return *kind;
    constexpr qint64 kBeginning = 256;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileKind::Text;
    const QByteArray head = file.read(kBeginning);
    return IsRtf(std::string_view(head.constData(), static_cast<std::size_t>(head.size()))) ? FileKind::Rtf
                                                                                            : FileKind::Text;
}

FileKind KindToWrite(const QString& path, FileKind chosen) { return KindOfSuffix(path).value_or(chosen); }

bool LosesFormats(const DocumentSession& session, FileKind written)
{
    return session.kind == FileKind::Rtf && written == FileKind::Text;
}

}  // namespace quillmarker::desk
