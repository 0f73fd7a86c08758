#include "format/picker_items.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

const QStringList kSizes = {QStringLiteral(" 6"), QStringLiteral(" 8"), QStringLiteral("10"), QStringLiteral("18"),
                            QStringLiteral("80")};

int RowOf(const PickerItems& items, const char* typed, int from)
{
    const QModelIndexList found = items.match(items.index(from), Qt::DisplayRole, QString::fromLatin1(typed), 1,
                                              Qt::MatchStartsWith | Qt::MatchWrap);
    return found.isEmpty() ? -1 : found.first().row();
}

TEST(ThePickersItems, AreKeptAsTheyWereGiven)
{
    const PickerItems items(kSizes);
    EXPECT_EQ(items.index(0).data().toString(), QStringLiteral(" 6"));
    EXPECT_FALSE(items.flags(items.index(0)).testFlag(Qt::ItemIsEditable));
}

TEST(ThePickersItems, AreFoundWithoutTheBlanksTheyBeginWith)
{
    const PickerItems items(kSizes);
    EXPECT_EQ(RowOf(items, "8", 0), 1);
    EXPECT_EQ(RowOf(items, "8", 2), 4);
    EXPECT_EQ(RowOf(items, "6", 2), 0);
    EXPECT_EQ(RowOf(items, "18", 0), 3);
    EXPECT_EQ(RowOf(items, " 8", 0), 1);
    EXPECT_EQ(RowOf(items, "9", 0), -1);
}

TEST(ThePickersItems, AreFoundIgnoringCase)
{
    const PickerItems items({QStringLiteral("Arial"), QStringLiteral("Symbol")});
    EXPECT_EQ(RowOf(items, "sy", 0), 1);
    EXPECT_EQ(RowOf(items, "ymbol", 0), -1);
}

TEST(ThePickersItems, AreFoundToTheEndOnlyIfNotToBeWrapped)
{
    const PickerItems items(kSizes);
    EXPECT_TRUE(items.match(items.index(1), Qt::DisplayRole, QStringLiteral("6"), -1, Qt::MatchStartsWith).isEmpty());
    EXPECT_EQ(items.match(items.index(0), Qt::DisplayRole, QStringLiteral("8"), -1, Qt::MatchStartsWith).size(), 2);
}

}  // namespace
}  // namespace quillmarker
