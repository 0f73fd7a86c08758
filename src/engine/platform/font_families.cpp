#include <quillmarker/widgets/platform_services.h>

#include "engine/document/font_twins.h"

#include <QFontDatabase>

#include <algorithm>

namespace quillmarker
{
namespace
{

QString ToQString(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

bool IsBefore(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; }

/// Families of one name from several makers are told apart by the maker in brackets, which is no part of the face name.
QString FaceName(const QString& family) { return family.section(QStringLiteral(" ["), 0, 0); }

/// Without those that are meant for the system alone.
QStringList InstalledFamilies()
{
    QStringList families;
    for (const QString& family : QFontDatabase::families())
    {
        const bool isPrivate = family.startsWith(u'.') || QFontDatabase::isPrivateFamily(family);
        if (!isPrivate && !families.contains(FaceName(family), Qt::CaseInsensitive))
            families.append(FaceName(family));
    }
    return families;
}

bool IsAnyOf(const QStringList& families, std::span<const std::u16string_view> names)
{
    return std::ranges::any_of(
        names, [&](std::u16string_view name) { return families.contains(ToQString(name), Qt::CaseInsensitive); });
}

/// Each name that the layout shows in a metric twin, put where the alphabet has it; the order is Qt's otherwise.
QStringList OfferedFamilies()
{
    const QStringList installed = InstalledFamilies();
    QStringList offered = installed;
    for (const TwinFont& font : kTwinFonts)
    {
        const QString name = ToQString(font.name);
        if (!installed.contains(name, Qt::CaseInsensitive) && IsAnyOf(installed, font.twins))
            offered.insert(std::ranges::upper_bound(offered, name, IsBefore), name);
    }
    return offered;
}

class QtFontFamilies : public FontFamilyService
{
public:
    void EnumerateFamilies(const std::function<bool(const QString&)>& found) const override
    {
        for (const QString& family : OfferedFamilies())
        {
            if (!found(family))
                return;
        }
    }
};

}  // namespace

std::unique_ptr<FontFamilyService> MakeQtFontFamilies() { return std::make_unique<QtFontFamilies>(); }

}  // namespace quillmarker
