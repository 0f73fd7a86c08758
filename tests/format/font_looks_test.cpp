#include "format/font_looks.h"

#include <QFontDatabase>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

const QString kReadable = QStringLiteral("DejaVu Serif");
const QString kOfSigns = QStringLiteral("D050000L");  // dingbats, and no letters

TEST(TheLookOfAFamily, IsItsOwnFaceWhereThatCanBeRead)
{
    FontLooks looks;
    const FontLook look = looks.Of(kReadable, QFont());
    EXPECT_TRUE(look.isLegible);
    EXPECT_EQ(look.sample, QString());
    EXPECT_EQ(look.face.family(), kReadable);
}

TEST(TheLookOfAFamily, IsANameAndASampleWhereThereAreOnlySigns)
{
    if (!QFontDatabase::hasFamily(kOfSigns))
        GTEST_SKIP() << "this machine has no such font";
    FontLooks looks;
    const FontLook look = looks.Of(kOfSigns, QFont());
    EXPECT_FALSE(look.isLegible);
    EXPECT_FALSE(look.sample.isEmpty());
    EXPECT_EQ(look.face.family(), kOfSigns);
}

TEST(TheLookOfAFamily, IsReadableForANameThatTheMachineMaps)
{
    FontLooks looks;
    EXPECT_TRUE(looks.Of(QStringLiteral("Arial"), QFont()).isLegible);
    EXPECT_TRUE(looks.Of(QStringLiteral("Nobody has this one"), QFont()).isLegible);
}

TEST(TheLookOfAFamily, IsAsLargeAsTheList)
{
    FontLooks looks;
    QFont list;
    list.setPixelSize(12);
    EXPECT_EQ(looks.Of(kReadable, list).face.pixelSize(), 12);
    list.setPixelSize(20);
    EXPECT_EQ(looks.Of(kReadable, list).face.pixelSize(), 20);
}

}  // namespace
}  // namespace quillmarker
