#pragma once

#include <QStringListModel>

namespace quillmarker
{

/// The entries of a picker. Some begin with blanks, so that numbers stand one under the other; whoever types does not type
/// those: a search for what an entry starts with passes over them.
class PickerItems : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;
    /// Nobody edits them in the list.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
};

/// `text` without the blanks that it begins with.
QStringView WithoutLeadingBlanks(QStringView text);

}  // namespace quillmarker
