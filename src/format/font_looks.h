#pragma once

#include <QCache>
#include <QFont>
#include <QString>

namespace quillmarker
{

/// How the name of a family is shown in a list.
struct FontLook
{
    QFont face;             // the family's own
    bool isLegible = true;  // its name can be read in it
    QString sample;         // where it cannot: something to be shown in the face, if the family has anything
};

/// The looks of families, found out when they are first asked for. Those not asked for in a while are forgotten.
class FontLooks
{
public:
    /// For a list whose own text is in `listFont`, in that size.
    FontLook Of(const QString& family, const QFont& listFont);

private:
    static constexpr int kKept = 512;

    QFont m_listFont;
    QCache<QString, FontLook> m_looks{kKept};
};

}  // namespace quillmarker
