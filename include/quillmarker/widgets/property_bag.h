#pragma once

#include <quillmarker/widgets/export.h>

#include <QJsonObject>
#include <QString>
#include <QVariant>

class QSettings;

namespace quillmarker
{

/// Where a container keeps the persisted properties of its controls. A key that is absent reads as its default; a value
/// that equals its default need not be stored.
class QUILLMARKER_WIDGETS_EXPORT PropertyBag
{
public:
    PropertyBag() = default;
    virtual ~PropertyBag() = default;
    PropertyBag(const PropertyBag&) = delete;
    PropertyBag& operator=(const PropertyBag&) = delete;

    /// The value as it was stored, of whatever type; `usual` when there is none.
    virtual QVariant ReadProperty(const QString& key, const QVariant& usual) const = 0;
    virtual void WriteProperty(const QString& key, const QVariant& value, const QVariant& usual) = 0;
};

/// Over settings, in their current group. They must outlive the bag. What equals its default is removed from them.
class QUILLMARKER_WIDGETS_EXPORT SettingsPropertyBag : public PropertyBag
{
public:
    explicit SettingsPropertyBag(QSettings& settings) : m_settings(settings) {}

    QVariant ReadProperty(const QString& key, const QVariant& usual) const override;
    void WriteProperty(const QString& key, const QVariant& value, const QVariant& usual) override;

private:
    QSettings& m_settings;
};

/// Over a JSON object. What equals its default is left out of it.
class QUILLMARKER_WIDGETS_EXPORT JsonPropertyBag : public PropertyBag
{
public:
    explicit JsonPropertyBag(QJsonObject object = {});

    const QJsonObject& Object() const { return m_object; }
    QVariant ReadProperty(const QString& key, const QVariant& usual) const override;
    void WriteProperty(const QString& key, const QVariant& value, const QVariant& usual) override;

private:
    QJsonObject m_object;
};

/// A stored value as a boolean: a number is true unless it is 0; the words true, false, yes, no, on, off, and numbers as
/// text; `usual` when it is none of these.
QUILLMARKER_WIDGETS_EXPORT bool ToBoolean(const QVariant& stored, bool usual);

/// A stored value as a whole number: a fraction is rounded, halves to even; true is -1; `usual` when it is none or too
/// large.
QUILLMARKER_WIDGETS_EXPORT int ToLong(const QVariant& stored, int usual);

}  // namespace quillmarker
