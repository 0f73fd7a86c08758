#pragma once

#include <quillmarker/export.h>

#include <optional>
#include <string_view>

namespace quillmarker
{

/// The value of a numeric text; none for any other. Numeric are, whatever the locale: blanks around, one leading sign,
/// digits with a decimal point and with commas anywhere between the first digit and the point, an exponent after e or d;
/// &H and &O before hexadecimal and octal digits. A number too large for a double is not numeric.
QUILLMARKER_CORE_EXPORT std::optional<double> NumericValue(std::u16string_view text);

/// The same, and 0 for what is not numeric.
QUILLMARKER_CORE_EXPORT double ParseNumber(std::u16string_view text);

/// The same as a single-precision number; 0 also for what is too large for one.
QUILLMARKER_CORE_EXPORT float ParseSize(std::u16string_view text);

}  // namespace quillmarker
