#include "font_families.h"

#include "engine/document/font_twins.h"

#include <quillmarker/widgets/platform_services.h>

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
QStringList InstalledFamilies(QFontDatabase::WritingSystem system = QFontDatabase::Any, FontKind kind = FontKind::Every)
{
    QStringList families;
    for (const QString& family : QFontDatabase::families(system))
    {
        const bool isPrivate = family.startsWith(u'.') || QFontDatabase::isPrivateFamily(family);
        const bool isOfKind = kind == FontKind::Every || QFontDatabase::isSmoothlyScalable(family);
        if (!isPrivate && isOfKind && !families.contains(FaceName(family), Qt::CaseInsensitive))
            families.append(FaceName(family));
    }
    return families;
}

/// Its name as it is installed; empty when it is not.
QString Installed(const QStringList& families, const QString& name)
{
    const qsizetype at = IndexOfFamily(families, name);
    return at < 0 ? QString() : families.at(at);
}

bool IsAnyOf(const QStringList& families, std::span<const std::u16string_view> names)
{
    return std::ranges::any_of(
        names, [&](std::u16string_view name) { return families.contains(ToQString(name), Qt::CaseInsensitive); });
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

qsizetype IndexOfFamily(const QStringList& families, const QString& name)
{
    const auto isName = [&](const QString& family) { return family.compare(name, Qt::CaseInsensitive) == 0; };
    const auto found = std::ranges::find_if(families, isName);
    return found == families.end() ? -1 : found - families.begin();
}

/// Each name that the layout shows in a metric twin, put where the alphabet has it; the order is Qt's otherwise.
QStringList OfferedFamilies(QFontDatabase::WritingSystem system, FontKind kind)
{
    const QStringList installed = InstalledFamilies(system, kind);
    QStringList offered = installed;
    for (const TwinFont& font : kTwinFonts)
    {
        const QString name = ToQString(font.name);
        if (!installed.contains(name, Qt::CaseInsensitive) && IsAnyOf(installed, font.twins))
            offered.insert(std::ranges::upper_bound(offered, name, IsBefore), name);
    }
    return offered;
}

QString ShownFamily(const QString& name)
{
    const QStringList installed = InstalledFamilies();
    if (QString own = Installed(installed, name); !own.isEmpty())
        return own;
    for (const TwinFont& font : kTwinFonts)
    {
        if (ToQString(font.name).compare(name, Qt::CaseInsensitive) != 0)
            continue;
        for (const std::u16string_view twin : font.twins)
            if (QString shown = Installed(installed, ToQString(twin)); !shown.isEmpty())
                return shown;
    }
    return {};
}

std::unique_ptr<FontFamilyService> MakeQtFontFamilies() { return std::make_unique<QtFontFamilies>(); }

}  // namespace quillmarker
