#include "file_messages.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <iterator>

namespace quillmarker::desk
{
namespace
{

struct Sentences
{
    const char* what;
    const char* advice;
};

struct MessageRow
{
    FileError error;
    Sentences open;
    Sentences save;
};

constexpr const char* kContext = "FileMessages";
constexpr const char* kTryAgain =
    QT_TRANSLATE_NOOP("FileMessages", "Close other documents and programs, and try again.");
constexpr const char* kCheckDevice =
    QT_TRANSLATE_NOOP("FileMessages", "Check that the drive or the network is connected, and try again.");
constexpr const char* kElsewhere =
    QT_TRANSLATE_NOOP("FileMessages", "Choose File > Save As to save in another folder or under another name.");

constexpr MessageRow kMessages[] = {
    {FileError::OutOfMemory,
     {QT_TRANSLATE_NOOP("FileMessages", "There is not enough memory to open \u201c%1\u201d."), kTryAgain},
     {QT_TRANSLATE_NOOP("FileMessages", "There is not enough memory to save \u201c%1\u201d."), kTryAgain}},
    {FileError::BadFileName,
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d is not a valid file name."),
      QT_TRANSLATE_NOOP("FileMessages", "Choose the file in File > Open.")},
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d is not a valid file name."),
      QT_TRANSLATE_NOOP("FileMessages", "Choose a shorter name of letters, digits and blanks in File > Save As.")}},
    {FileError::FileNotFound,
     {QT_TRANSLATE_NOOP("FileMessages", "There is no file \u201c%1\u201d."),
      QT_TRANSLATE_NOOP("FileMessages", "It may have been moved or renamed. Look for it in File > Open.")},
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d could not be made."), kElsewhere}},
    {FileError::DeviceError,
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d could not be read: the device reported an error."),
      kCheckDevice},
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d could not be written: the device reported an error."),
      kCheckDevice}},
    {FileError::DiskFull,
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d could not be opened: the disk is full."),
      QT_TRANSLATE_NOOP("FileMessages", "Delete what you no longer need, and try again.")},
     {QT_TRANSLATE_NOOP("FileMessages", "There is no room for \u201c%1\u201d: the disk is full."),
      QT_TRANSLATE_NOOP("FileMessages",
                        "Delete what you no longer need, or choose File > Save As to save on another disk.")}},
    {FileError::PermissionDenied,
     {QT_TRANSLATE_NOOP("FileMessages", "You have no permission to read \u201c%1\u201d."),
      QT_TRANSLATE_NOOP("FileMessages", "Ask its owner to let you read it.")},
     {QT_TRANSLATE_NOOP("FileMessages", "You have no permission to write \u201c%1\u201d."), kElsewhere}},
    {FileError::PathFileAccess,
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d cannot be read as a file."),
      QT_TRANSLATE_NOOP("FileMessages",
                        "It may be a folder, or on a drive that is not there. Look for it in File > Open.")},
     {QT_TRANSLATE_NOOP("FileMessages", "\u201c%1\u201d cannot be written as a file."), kElsewhere}},
    {FileError::PathNotFound,
     {QT_TRANSLATE_NOOP("FileMessages", "The folder of \u201c%1\u201d does not exist."),
      QT_TRANSLATE_NOOP("FileMessages", "It may have been moved or renamed. Look for the file in File > Open.")},
     {QT_TRANSLATE_NOOP("FileMessages", "The folder of \u201c%1\u201d does not exist."),
      QT_TRANSLATE_NOOP("FileMessages", "Choose File > Save As to save in another folder.")}},
};

}  // namespace

FileMessage MessageFor(FileTask task, const QString& path, FileError error)
{
    const auto translated = [](const char* text) { return QCoreApplication::translate(kContext, text); };
    const QString file = QDir::toNativeSeparators(path);
    const auto* row = std::ranges::find(kMessages, error, &MessageRow::error);
    if (row == std::end(kMessages))
    {
        const QString what = task == FileTask::Open ? translated("\u201c%1\u201d could not be opened (error %2).")
                                                    : translated("\u201c%1\u201d could not be saved (error %2).");
        return {what.arg(file, QString::number(static_cast<int>(error))), translated(kTryAgain)};
    }
    const Sentences& sentences = task == FileTask::Open ? row->open : row->save;
    return {translated(sentences.what).arg(file), translated(sentences.advice)};
}

}  // namespace quillmarker::desk
