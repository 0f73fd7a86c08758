#pragma once

#include <QString>

namespace quillmarker
{

/// A number with no more decimals than it has, whatever the locale: 10 is "10", 10.5 is "10.5". A single-precision number is
/// good for seven digits, and no more are shown.
QString GeneralNumber(float number);

}  // namespace quillmarker
