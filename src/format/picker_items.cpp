#include "picker_items.h"

#include <algorithm>

namespace quillmarker
{

QModelIndexList PickerItems::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                   Qt::MatchFlags flags) const
{
    constexpr auto kKind = Qt::MatchFlags(Qt::MatchTypeMask);
    const QString sought = value.toString();
    const bool isTyped = (flags & kKind) == Qt::MatchStartsWith && !sought.startsWith(u' ');
    if (!isTyped || !start.isValid())
        return QStringListModel::match(start, role, value, hits, flags);
    const auto sensitivity = flags.testFlag(Qt::MatchCaseSensitive) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const QStringList entries = stringList();
    const auto count = static_cast<int>(entries.size());
    const int end = flags.testFlag(Qt::MatchWrap) ? start.row() + count : count;
    QModelIndexList found;
    for (int at = start.row(); at < end && (hits < 0 || found.size() < hits); ++at)
    {
        const int row = at % count;
        if (WithoutLeadingBlanks(entries[row]).startsWith(sought, sensitivity))
            found.append(index(row));
    }
    return found;
}

Qt::ItemFlags PickerItems::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

QStringView WithoutLeadingBlanks(QStringView text)
{
    const auto* first = std::ranges::find_if(text, [](QChar character) { return character != u' '; });
    return text.sliced(first - text.begin());
}

}  // namespace quillmarker
