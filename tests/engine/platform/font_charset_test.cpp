#include "engine/platform/font_charset.h"
#include "engine/platform/sample_ground.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

const QString kSans = QStringLiteral("Liberation Sans");
const QString kSerif = QStringLiteral("Liberation Serif");
const QString kSigns = QStringLiteral("Standard Symbols PS");

CharsetChoice Choice(int asked, const QString& askedFamily, const QString& chosen,
                     QFontDatabase::WritingSystem system = QFontDatabase::Any)
{
    return {.askedCharset = asked,
            .askedFamily = askedFamily,
            .chosenFamily = chosen,
            .shownFamily = chosen,
            .system = system};
}

TEST(AWritingSystem, HasItsCharacterSet)
{
    constexpr struct
    {
        QFontDatabase::WritingSystem system;
        int charset;
    } kRows[] = {
        {QFontDatabase::Greek, 161},      {QFontDatabase::Cyrillic, 204},
        {QFontDatabase::Hebrew, 177},     {QFontDatabase::Arabic, 178},
        {QFontDatabase::Thai, 222},       {QFontDatabase::Japanese, 128},
        {QFontDatabase::Korean, 129},     {QFontDatabase::SimplifiedChinese, 134},
        {QFontDatabase::Vietnamese, 163}, {QFontDatabase::TraditionalChinese, 136},
    };
    for (const auto& row : kRows)
    {
        EXPECT_EQ(ChosenCharset(Choice(0, kSans, kSans, row.system)), row.charset);
        EXPECT_EQ(SystemOfCharset(row.charset), row.system);
    }
    EXPECT_EQ(SystemOfCharset(2), QFontDatabase::Symbol);
    EXPECT_EQ(SystemOfCharset(0), QFontDatabase::Any);
    EXPECT_EQ(SystemOfCharset(238), QFontDatabase::Any);
}

TEST(TheChosenCharacterSet, IsTheOneThatWasAskedWhereNoneIsMeant)
{
    EXPECT_EQ(ChosenCharset(Choice(0, kSans, kSerif)), 0);
    EXPECT_EQ(ChosenCharset(Choice(161, kSans, kSerif)), 161);
    EXPECT_EQ(ChosenCharset(Choice(238, kSans, kSerif, QFontDatabase::Latin)), 238);
    EXPECT_EQ(ChosenCharset(Choice(161, kSans, kSerif, QFontDatabase::Latin)), 0);
    EXPECT_EQ(ChosenCharset(Choice(0, kSans, kSans, QFontDatabase::Georgian)), 0);
}

TEST(TheChosenCharacterSet, IsSymbolForAFontOfSignsAlone)
{
    EXPECT_TRUE(HasOnlySigns(kSigns));
    EXPECT_FALSE(HasOnlySigns(kSans));
    EXPECT_EQ(ChosenCharset(Choice(0, kSans, kSigns)), 2);
    EXPECT_EQ(ChosenCharset(Choice(0, kSans, kSigns, QFontDatabase::Symbol)), 2);
    EXPECT_EQ(ChosenCharset(Choice(0, kSans, kSans, QFontDatabase::Symbol)), 0);
    EXPECT_EQ(ChosenCharset(Choice(2, kSigns, kSans)), 0);
}

TEST(TheChosenCharacterSet, StaysSymbolWithAFontOfSignsThatIsNotInstalled)
{
    CharsetChoice choice = Choice(2, QStringLiteral("Wingdings"), QStringLiteral("Wingdings"));
    choice.shownFamily.clear();
    EXPECT_EQ(ChosenCharset(choice), 2);
}

TEST(TheGroundOfASample, IsTheUsualOneUnlessTheTextCannotBeReadOnIt)
{
    const QColor dark(30, 30, 30);
    EXPECT_EQ(SampleGround(Qt::black, Qt::white), QColor(Qt::white));
    EXPECT_EQ(SampleGround(Qt::white, Qt::white), QColor(Qt::black));
    EXPECT_EQ(SampleGround(Qt::yellow, Qt::white), QColor(Qt::black));
    EXPECT_EQ(SampleGround(Qt::black, dark), QColor(Qt::white));
    EXPECT_EQ(SampleGround(Qt::yellow, dark), dark);
}

}  // namespace
}  // namespace quillmarker
