#pragma once

#include <QHash>
#include <QStringList>

#include <optional>

namespace quillmarker
{

/// Finds names in a list at once, however long it is.
class FontNameIndex
{
public:
    FontNameIndex() = default;
    explicit FontNameIndex(const QStringList& names);

    /// The first index below `count` whose name equals `name`, case ignored.
    std::optional<int> Find(const QString& name, int count) const;
    std::optional<int> Find(const QString& name) const;

private:
    QHash<QString, int> m_firstIndices;  // by folded name
};

}  // namespace quillmarker
