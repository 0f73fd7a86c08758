#include "font_lists.h"

namespace quillmarker
{

void FillFontList(QStringList& list, const FontFamilyService& families)
{
    list.clear();
    families.EnumerateFamilies([&](const QString& name) {
        list.append(name);
        return true;
    });
}

QStringList FontSizeEntries()
{
    constexpr qsizetype kFieldWidth = 2;
    const QString packed = QStringLiteral(" 6 8 9101112141618202224262830364872");
    QStringList entries;
    for (qsizetype at = 0; at < packed.size(); at += kFieldWidth)
        entries.append(packed.mid(at, kFieldWidth));
    return entries;
}

}  // namespace quillmarker
