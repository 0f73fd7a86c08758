#include "general_number.h"

namespace quillmarker
{

QString GeneralNumber(float number)
{
    constexpr int kDigits = 7;
    // A zero has a sign of its own, which is not shown.
    const double shown = number == 0 ? 0 : static_cast<double>(number);
    return QString::number(shown, 'g', kDigits);
}

}  // namespace quillmarker
