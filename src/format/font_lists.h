#pragma once

#include <quillmarker/widgets/platform_services.h>

#include <QStringList>

namespace quillmarker
{

/// Clears `list` and fills it with the face names of all installed font families, in the order of their enumeration.
void FillFontList(QStringList& list, const FontFamilyService& families);

/// The sizes that the pickers offer, in points: two characters each, blank included (" 6", " 8", … "72").
QStringList FontSizeEntries();

}  // namespace quillmarker
