#include "control/host_values.h"

#include "engine/document/parse_number.h"

#include <quillmarker/widgets/picture.h>

#include <cmath>
#include <limits>

namespace quillmarker
{

namespace
{

bool IsNumber(const QMetaType& type)
{
    switch (type.id())
    {
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return type.flags().testFlag(QMetaType::IsEnumeration);
    }
}

bool IsText(const QMetaType& type)
{
    return type.id() == QMetaType::QString || type.id() == QMetaType::QByteArray || type.id() == QMetaType::QChar;
}

std::u16string_view UnitsOf(const QString& text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

Conversion Done(const QVariant& value) { return {DispatchCode::Done, value}; }

Conversion AsBoolean(const QVariant& argument)
{
    if (IsText(argument.metaType()))
    {
        const QString word = argument.toString().trimmed();
        for (const bool truth : {true, false})
            if (word.compare(QLatin1String(truth ? "True" : "False"), Qt::CaseInsensitive) == 0)
                return Done(truth);
    }
    const std::optional<double> number = NumberOf(argument);
    return number ? Done(*number != 0) : Conversion();
}

Conversion AsLong(const QVariant& argument)
{
    const std::optional<double> number = NumberOf(argument);
    if (!number)
        return {};
    const std::optional<int> whole = LongOf(*number);
    return whole ? Done(*whole) : Conversion{DispatchCode::Overflow, {}};
}

Conversion AsSingle(const QVariant& argument)
{
    const std::optional<double> number = NumberOf(argument);
    if (!number)
        return {};
    if (std::abs(*number) > double{std::numeric_limits<float>::max()})
        return {DispatchCode::Overflow, {}};
    return Done(static_cast<float>(*number));
}

Conversion AsString(const QVariant& argument)
{
    if (argument.metaType().id() == QMetaType::Bool)
        return Done(argument.toBool() ? QStringLiteral("True") : QStringLiteral("False"));
    QVariant text = argument;
    return text.convert(QMetaType::fromType<QString>()) ? Done(text) : Conversion();
}

Conversion AsPicture(const QVariant& argument)
{
    const auto is = [&argument](const QMetaType& type) { return argument.metaType() == type; };
    const auto done = [](const Picture& picture) { return Done(QVariant::fromValue(picture)); };
    if (is(QMetaType::fromType<Picture>()))
        return Done(argument);
    if (is(QMetaType::fromType<QImage>()))
        return done(argument.value<QImage>());
    if (is(QMetaType::fromType<QPixmap>()))
        return done(argument.value<QPixmap>());
    if (is(QMetaType::fromType<QPicture>()))
        return done(argument.value<QPicture>());
    if (is(QMetaType::fromType<QByteArray>()))
        return done(Picture::FromEncoded(argument.toByteArray()));
    return {};
}

}  // namespace

std::optional<double> NumberOf(const QVariant& value)
{
    const QMetaType type = value.metaType();
    if (type.id() == QMetaType::Bool)
        return value.toBool() ? -1 : 0;
    if (IsText(type))
        return NumericValue(UnitsOf(value.toString()));
    if (!IsNumber(type))
        return std::nullopt;
    const double number = value.toDouble();
    return std::isnan(number) ? std::nullopt : std::optional(number);
}

double RoundedHalfToEven(double number)
{
    const double below = std::floor(number);
    const double rest = number - below;
    const bool isUp = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    return isUp ? below + 1 : below;
}

std::optional<int> LongOf(double number)
{
    const double whole = RoundedHalfToEven(number);
    if (!(whole >= std::numeric_limits<int>::min() && whole <= std::numeric_limits<int>::max()))
        return std::nullopt;
    return static_cast<int>(whole);
}

Conversion ConvertedTo(MemberType type, const QVariant& argument)
{
    if (!argument.isValid() || argument.isNull())
        return {};
    switch (type)
    {
    case MemberType::Boolean:
        return AsBoolean(argument);
    case MemberType::Long:
        return AsLong(argument);
    case MemberType::Single:
        return AsSingle(argument);
    case MemberType::String:
        return AsString(argument);
    case MemberType::Picture:
        return AsPicture(argument);
    case MemberType::None:
    case MemberType::Object:
        break;  // no parameter is one
    }
    return {};
}

}  // namespace quillmarker
