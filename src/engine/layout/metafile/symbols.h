#pragma once

#include <QString>

namespace quillmarker::metafile
{

/// The font of Greek letters and mathematical signs that formulas are set in; its characters are numbered, not named.
bool IsGreekSymbolFont(const QString& family);

/// U+F020 to U+F0FF as the characters that this font shows under those numbers; others stay.
QString WithGreekSymbols(const QString& text);

}  // namespace quillmarker::metafile
