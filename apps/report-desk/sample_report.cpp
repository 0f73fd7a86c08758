#include "sample_report.h"

#include <quillmarker/file_error.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quillmarker::desk
{
namespace
{

int InsertTextFile(RichTextEditor& editor, const QString& path, const QString& marker)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return -static_cast<int>(FileError::FileNotFound);
    QString text = QString::fromUtf8(file.readAll());
    // The last line's end is not the beginning of a further paragraph.
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return editor.InsertStringText(text, marker);
}

int InsertFile(RichTextEditor& editor, const QString& path, const QString& marker)
{
    return path.endsWith(QLatin1String(".txt")) ? InsertTextFile(editor, path, marker)
                                                : editor.InsertFileRTF(path, marker);
}

/// Hidden text has no marker of its own to replace: it goes where the marker was taken out.
int InsertHidden(RichTextEditor& editor, const QString& text, const QString& marker)
{
    if (!marker.isEmpty() && editor.InsertStringText({}, marker) < 0)
        return -1;
    return editor.InsertStringHidden(text, {});
}

/// In place of the marker, or at the caret when the marker is empty. Negative: there is no marker, or no such file.
int Insert(RichTextEditor& editor, const QJsonValue& value, const QString& marker, const QDir& folder)
{
    const QJsonObject object = value.toObject();
    if (object.contains(QLatin1String("rtf")))
        return editor.InsertStringRTF(object[QLatin1String("rtf")].toString(), marker);
    if (object.contains(QLatin1String("file")))
        return InsertFile(editor, folder.filePath(object[QLatin1String("file")].toString()), marker);
    if (object.contains(QLatin1String("hidden")))
        return InsertHidden(editor, object[QLatin1String("hidden")].toString(), marker);
    const QJsonValue text = value.isObject() ? object[QLatin1String("text")] : value;
    return editor.InsertStringText(text.toVariant().toString(), marker);
}

void FillMarker(RichTextEditor& editor, const QString& marker, const QJsonArray& values, const QDir& folder)
{
    editor.CursorStart();
    while (Insert(editor, values.isEmpty() ? QJsonValue(QString()) : values[0], marker, folder) >= 0)
        for (qsizetype i = 1; i < values.size(); ++i)
            Insert(editor, values[i], {}, folder);
}

}  // namespace

bool OpenFilledReport(RichTextEditor& editor, const QString& folder)
{
    const QDir place(folder);
    QFile data(place.filePath(QStringLiteral("data.json")));
    if (!data.open(QIODevice::ReadOnly) || editor.OpenFileRTF(place.filePath(QStringLiteral("template.rtf"))) != 0)
        return false;
    // Its markers come sorted; here none of the values holds another one's marker, so the order does not matter.
    const QJsonObject markers = QJsonDocument::fromJson(data.readAll()).object();
    editor.SetRedraw(false);
    for (auto marker = markers.begin(); marker != markers.end(); ++marker)
    {
        const QJsonValue value = marker.value();
        FillMarker(editor, marker.key(), value.isArray() ? value.toArray() : QJsonArray{value}, place);
    }
    editor.CursorStart();
    editor.SetRedraw(true);
    editor.SetChanged(false);
    return true;
}

}  // namespace quillmarker::desk
