#pragma once

#include <quillmarker/char_format.h>

#include <QString>

#include <span>
#include <string_view>

namespace quillmarker
{

/// A font's name without what only says how it is read: a leading @ (vertical), a trailing "CE", "Cyr", "(Hebrew)"...
QString PlainFontName(const QString& name);

/// The fonts that measure or at least look like a well-known one, the best first; none for the others.
std::span<const std::u16string_view> FontsLike(const QString& name);

/// The fonts to take for any font of a family, the best first.
std::span<const std::u16string_view> FontsOf(FontFamily family);

}  // namespace quillmarker
