#pragma once

#include <quillmarker/text_box.h>

#include <QString>

namespace quillmarker::desk
{

/// Which document the window shows. Whether it was changed is the editor's to know.
struct DocumentSession
{
    QString path;  // absolute; empty: it was never saved
    FileKind kind = FileKind::Rtf;
    QString provisionalName;  // what it is called until it is saved

    bool operator==(const DocumentSession&) const = default;
};

/// What the document is called where the user reads it: its file's name without the folder.
QString NameOf(const DocumentSession& session);

/// For the window's title, with the place of the mark of changes: "report.rtf[*] – Report Desk".
QString TitleOf(const DocumentSession& session);

/// What to offer where the document is saved under a name: its own, with the suffix of its kind where it has none.
QString SuggestedFileName(const DocumentSession& session);

/// By the suffix; where that says nothing, by how the file begins. Text when it cannot be read.
FileKind KindOfFile(const QString& path);

/// What a file of this name is written as; `chosen` where the suffix says nothing.
FileKind KindToWrite(const QString& path, FileKind chosen);

/// Whether writing the document as `written` leaves formats and pictures behind that it has.
bool LosesFormats(const DocumentSession& session, FileKind written);

/// With the dot.
QString SuffixOf(FileKind kind);

}  // namespace quillmarker::desk
