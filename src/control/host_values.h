#pragma once

#include <quillmarker/widgets/late_binding.h>
#include <quillmarker/widgets/type_information.h>

#include <QVariant>

#include <optional>

namespace quillmarker
{

// Values as hosts, their scripts and their settings give them, made into the types of the interface.

/// A number, a numeric text (NumericValue) or a boolean (true is -1) as a number. None for anything else, NaN included.
std::optional<double> NumberOf(const QVariant& value);

/// To the nearest whole number, halves to even, whatever the rounding mode.
double RoundedHalfToEven(double number);

/// The number as a Long; none when it is beyond its 32 bits.
std::optional<int> LongOf(double number);

struct Conversion
{
    DispatchCode code = DispatchCode::TypeMismatch;
    QVariant value;  // when it is Done: a bool, int, float, QString or Picture
};

/// An argument in the type of a member.
Conversion ConvertedTo(MemberType type, const QVariant& argument);

}  // namespace quillmarker
