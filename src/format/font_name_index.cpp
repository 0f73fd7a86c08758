#include "font_name_index.h"

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

/// Character by character, as comparing does it: what is folded as a whole takes "ss" for "ß".
QString Folded(const QString& name)
{
    QString folded(name.size(), Qt::Uninitialized);
    std::ranges::transform(name, folded.begin(), [](QChar character) { return character.toCaseFolded(); });
    return folded;
}

}  // namespace

FontNameIndex::FontNameIndex(const QStringList& names)
{
    m_firstIndices.reserve(names.size());
    int index = 0;
    for (const QString& name : names)
    {
        const QString folded = Folded(name);
        if (!m_firstIndices.contains(folded))
            m_firstIndices.insert(folded, index);
        ++index;
    }
}

std::optional<int> FontNameIndex::Find(const QString& name, int count) const
{
    const auto found = m_firstIndices.constFind(Folded(name));
    if (found == m_firstIndices.constEnd() || *found >= count)
        return {};
    return *found;
}

std::optional<int> FontNameIndex::Find(const QString& name) const
{
    return Find(name, std::numeric_limits<int>::max());
}

}  // namespace quillmarker
