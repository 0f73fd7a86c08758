#include <quillmarker/widgets/property_bag.h>

#include "control/host_values.h"

#include <QJsonValue>
#include <QLatin1String>
#include <QSettings>

#include <array>
#include <utility>

namespace quillmarker
{

namespace
{

struct Word
{
    const char* text;
    bool truth;
};

constexpr std::array kWords{
    Word{"true", true}, Word{"false", false}, Word{"yes", true},
    Word{"no", false},  Word{"on", true},     Word{"off", false},
};

// A value of nothing is not stored either.
bool IsLeftOut(const QVariant& value, const QVariant& usual) { return !value.isValid() || value == usual; }

}  // namespace

QVariant SettingsPropertyBag::ReadProperty(const QString& key, const QVariant& usual) const
{
    return m_settings.value(key, usual);
}

void SettingsPropertyBag::WriteProperty(const QString& key, const QVariant& value, const QVariant& usual)
{
    if (IsLeftOut(value, usual))
        m_settings.remove(key);
    else
        m_settings.setValue(key, value);
}

JsonPropertyBag::JsonPropertyBag(QJsonObject object) : m_object(std::move(object)) {}

QVariant JsonPropertyBag::ReadProperty(const QString& key, const QVariant& usual) const
{
    const QJsonValue stored = m_object.value(key);
    return stored.isUndefined() || stored.isNull() ? usual : stored.toVariant();
}

void JsonPropertyBag::WriteProperty(const QString& key, const QVariant& value, const QVariant& usual)
{
    if (IsLeftOut(value, usual))
        m_object.remove(key);
    else
        m_object.insert(key, QJsonValue::fromVariant(value));
}

bool ToBoolean(const QVariant& stored, bool usual)
{
    const QString text = stored.toString().trimmed();
    for (const Word& word : kWords)
        if (text.compare(QLatin1String(word.text), Qt::CaseInsensitive) == 0)
            return word.truth;
    const std::optional<double> number = NumberOf(stored);
    return number ? *number != 0 : usual;
}

int ToLong(const QVariant& stored, int usual)
{
    const std::optional<double> number = NumberOf(stored);
    return number ? LongOf(*number).value_or(usual) : usual;
}

}  // namespace quillmarker
