#pragma once

#include <QFontDatabase>
#include <QList>
#include <QString>

namespace quillmarker
{

/// The writing system whose letters a character set has; Any for those of which several have them.
QFontDatabase::WritingSystem SystemOfCharset(int charset);

/// Whether an installed family shows signs in the place of letters.
bool HasOnlySigns(const QString& family);

/// What a chooser is asked and answers, as far as the character set goes.
struct CharsetChoice
{
    int askedCharset = 0;
    QString askedFamily;
    QString chosenFamily;
    QString shownFamily;  // the installed one that shows the chosen one; may be empty
    QFontDatabase::WritingSystem system = QFontDatabase::Any;
};

/// The character set of a family of signs is Symbol; that of another is the writing system's it was looked for in, and
/// where that has none the one that was asked, as long as it may be meant.
int ChosenCharset(const CharsetChoice& choice);

}  // namespace quillmarker
