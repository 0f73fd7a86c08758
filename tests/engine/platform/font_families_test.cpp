#include "engine/document/font_twins.h"
#include "engine/layout/font_host.h"

#include <quillmarker/widgets/platform_services.h>

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QStringList>

#include <algorithm>

namespace quillmarker
{
namespace
{

QStringList Families()
{
    QStringList families;
    MakeQtFontFamilies()->EnumerateFamilies([&](const QString& family) {
        families.append(family);
        return true;
    });
    return families;
}

bool AreSame(QStringView a, QStringView b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

QStringView View(std::u16string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

TEST(FontFamilies, HoldTheInstalledOnes)
{
    const QStringList families = Families();
    ASSERT_TRUE(QFontDatabase::families().contains(QStringLiteral("Liberation Sans")));
    EXPECT_TRUE(families.contains(QStringLiteral("Liberation Sans")));
    EXPECT_GE(families.size(), QFontDatabase::families().filter(QStringLiteral("Liberation")).size());
}

TEST(FontFamilies, HoldTheNamesThatATwinStandsFor)
{
    const QStringList families = Families();
    ASSERT_TRUE(families.contains(QStringLiteral("Liberation Serif")));
    ASSERT_TRUE(families.contains(QStringLiteral("Liberation Mono")));
    for (const char* name : {"Arial", "Courier", "Courier New", "Helvetica", "Times", "Times New Roman"})
        EXPECT_TRUE(families.contains(QLatin1String(name))) << name;
}

TEST(FontFamilies, AreNamedOnceAndInAlphabeticalOrder)
{
    const QStringList families = Families();
    const auto isNotBefore = [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) >= 0; };
    const auto fault = std::ranges::adjacent_find(families, isNotBefore);
    EXPECT_EQ(fault, families.end()) << fault->toStdString();
}

TEST(FontFamilies, HaveNoPrivateOnesAndNoMakersInTheirNames)
{
    for (const QString& family : Families())
    {
        EXPECT_FALSE(family.startsWith(u'.')) << family.toStdString();
        EXPECT_FALSE(family.contains(u'[')) << family.toStdString();
    }
}

// What is offered as a name is shown in a font that measures like it.
TEST(FontFamilies, AreShownByTheLayoutInAFontOfTheirMeasures)
{
    const QStringList families = Families();
    const std::unique_ptr<FontHost> fonts = SystemFonts();
    int count = 0;
    for (const TwinFont& font : kTwinFonts)
    {
        if (!std::ranges::any_of(families, [&](const QString& family) { return AreSame(family, View(font.name)); }))
            continue;
        FontRequest request;
        request.name = font.name;
        const QString shown = fonts->Face(request).Identity().family;
        EXPECT_TRUE(std::ranges::any_of(font.twins, [&](auto twin) { return AreSame(View(twin), shown); }))
            << View(font.name).toString().toStdString() << " in " << shown.toStdString();
        ++count;
    }
    EXPECT_GE(count, 6);
}

TEST(FontFamilies, EndWhenNoMoreAreWanted)
{
    int count = 0;
    MakeQtFontFamilies()->EnumerateFamilies([&](const QString&) { return ++count < 3; });
    EXPECT_EQ(count, 3);
}

}  // namespace
}  // namespace quillmarker
