#include "format/font_name_index.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

const QStringList kNames = {QStringLiteral("Arial"), QStringLiteral("Übergrößen"), QStringLiteral("ARIAL"),
                            QStringLiteral("Symbol")};

TEST(AnIndexOfFontNames, FindsTheFirstIgnoringCase)
{
    const FontNameIndex index(kNames);
    EXPECT_EQ(index.Find(QStringLiteral("arial")), 0);
    EXPECT_EQ(index.Find(QStringLiteral("ARIAL")), 0);
    EXPECT_EQ(index.Find(QStringLiteral("üBERGRÖßEN")), 1);
    EXPECT_EQ(index.Find(QStringLiteral("symbol")), 3);
}

TEST(AnIndexOfFontNames, FindsWholeNamesOnly)
{
    const FontNameIndex index(kNames);
    EXPECT_EQ(index.Find(QStringLiteral("Aria")), std::nullopt);
    EXPECT_EQ(index.Find(QStringLiteral("Arial ")), std::nullopt);
    EXPECT_EQ(index.Find(QStringLiteral("Übergrössen")), std::nullopt);
    EXPECT_EQ(index.Find(QString()), std::nullopt);
}

TEST(AnIndexOfFontNames, LooksNoFurtherThanTheCount)
{
    const FontNameIndex index(kNames);
    EXPECT_EQ(index.Find(QStringLiteral("symbol"), 4), 3);
    EXPECT_EQ(index.Find(QStringLiteral("symbol"), 3), std::nullopt);
    EXPECT_EQ(index.Find(QStringLiteral("arial"), 1), 0);
    EXPECT_EQ(index.Find(QStringLiteral("arial"), 0), std::nullopt);
    EXPECT_EQ(index.Find(QStringLiteral("arial"), 100), 0);
}

TEST(AnIndexOfFontNames, AgreesWithComparingOneByOne)
{
    QStringList names;
    for (int number = 0; number < 2000; ++number)
        names.append(QStringLiteral("Family %1").arg(number % 700));
    const FontNameIndex index(names);
    for (int number = 0; number < 800; ++number)
    {
        const QString name = QStringLiteral("fAMILY %1").arg(number);
        int first = 0;
        while (first < names.size() && names[first].compare(name, Qt::CaseInsensitive) != 0)
            ++first;
        EXPECT_EQ(index.Find(name), first < names.size() ? std::optional(first) : std::nullopt);
    }
}

TEST(AnIndexOfFontNames, OfNothingFindsNothing)
{
    EXPECT_EQ(FontNameIndex().Find(QStringLiteral("Arial")), std::nullopt);
    EXPECT_EQ(FontNameIndex(QStringList()).Find(QString()), std::nullopt);
}

}  // namespace
}  // namespace quillmarker
