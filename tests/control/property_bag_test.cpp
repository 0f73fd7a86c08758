#include <quillmarker/widgets/property_bag.h>

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QSettings>
#include <QSize>
#include <QTemporaryDir>

#include <limits>

namespace quillmarker
{
namespace
{

const QString kKey = QStringLiteral("Inches");

QVariant Text(const char* text) { return QString::fromLatin1(text); }

// Settings in a file of their own, which are written and read anew on the way.
class SettingsBag : public ::testing::Test
{
protected:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("host.ini"));

    void Write(const QString& key, const QVariant& value, const QVariant& usual)
    {
        QSettings settings(m_file, QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("Editor"));
        SettingsPropertyBag(settings).WriteProperty(key, value, usual);
    }

    QVariant Read(const QString& key, const QVariant& usual) const
    {
        QSettings settings(m_file, QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("Editor"));
        return SettingsPropertyBag(settings).ReadProperty(key, usual);
    }

    QStringList Keys() const { return QSettings(m_file, QSettings::IniFormat).allKeys(); }
};

TEST_F(SettingsBag, ReadsADefaultWhereThereIsNothing)
{
    EXPECT_EQ(Read(kKey, 1440), 1440);
    EXPECT_FALSE(Read(kKey, {}).isValid());
}

TEST_F(SettingsBag, GivesBackWhatWasWrittenThroughAFile)
{
    Write(kKey, true, false);
    Write(QStringLiteral("LeftMargin"), -720, 1440);
    EXPECT_TRUE(ToBoolean(Read(kKey, false), false));
    EXPECT_EQ(ToLong(Read(QStringLiteral("LeftMargin"), 1440), 1440), -720);
    EXPECT_EQ(Keys(), (QStringList{QStringLiteral("Editor/Inches"), QStringLiteral("Editor/LeftMargin")}));
}

TEST_F(SettingsBag, KeepsNoValueThatIsTheDefault)
{
    Write(kKey, true, false);
    Write(kKey, false, false);
    EXPECT_TRUE(Keys().isEmpty());
    Write(kKey, false, true);
    EXPECT_FALSE(ToBoolean(Read(kKey, true), true));
}

TEST_F(SettingsBag, KeepsNoValueOfNothing)
{
    Write(kKey, true, false);
    Write(kKey, {}, false);
    EXPECT_TRUE(Keys().isEmpty());
}

TEST(JsonBag, ReadsADefaultWhereThereIsNothing)
{
    EXPECT_EQ(JsonPropertyBag().ReadProperty(kKey, 1440), 1440);
    EXPECT_EQ(JsonPropertyBag({{kKey, QJsonValue::Null}}).ReadProperty(kKey, 1440), 1440);
}

TEST(JsonBag, ReadsWhatIsThereWhateverItsType)
{
    const JsonPropertyBag bag(QJsonDocument::fromJson(R"({"a": true, "b": 7, "c": "on", "d": [1]})").object());
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("a"), 5), true);
    EXPECT_EQ(ToLong(bag.ReadProperty(QStringLiteral("b"), 5), 5), 7);
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("c"), 5), Text("on"));
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("d"), 5), QVariantList{1});
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("A"), 5), 5);
}

TEST(JsonBag, GivesBackWhatWasWrittenThroughAText)
{
    JsonPropertyBag bag;
    bag.WriteProperty(kKey, true, false);
    bag.WriteProperty(QStringLiteral("TopMargin"), 1234, 1440);
    bag.WriteProperty(QStringLiteral("Ruler"), true, true);
    const QByteArray text = QJsonDocument(bag.Object()).toJson(QJsonDocument::Compact);
    EXPECT_EQ(text, QByteArray(R"({"Inches":true,"TopMargin":1234})"));

    const JsonPropertyBag again(QJsonDocument::fromJson(text).object());
    EXPECT_TRUE(ToBoolean(again.ReadProperty(kKey, false), false));
    EXPECT_EQ(ToLong(again.ReadProperty(QStringLiteral("TopMargin"), 1440), 1440), 1234);
    EXPECT_EQ(again.ReadProperty(QStringLiteral("Ruler"), true), true);
}

TEST(JsonBag, RemovesWhatBecomesTheDefaultAndKeepsWhatIsOthers)
{
    JsonPropertyBag bag({{kKey, false}, {QStringLiteral("Other"), 1}});
    bag.WriteProperty(kKey, true, true);
    EXPECT_EQ(bag.Object(), (QJsonObject{{QStringLiteral("Other"), 1}}));
}

TEST(StoredBoolean, IsReadFromNumbersAndWords)
{
    for (const QVariant& value : {QVariant(true), QVariant(-1), QVariant(0.5), Text("true"), Text("YES"), Text(" on "),
                                  Text("1"), Text("-1"), QVariant(QByteArray("yes"))})
        EXPECT_TRUE(ToBoolean(value, false)) << value.toString().toStdString();
    for (const QVariant& value :
         {QVariant(false), QVariant(0), QVariant(0.0), Text("False"), Text("no"), Text("Off"), Text("0"), Text("0.0")})
        EXPECT_FALSE(ToBoolean(value, true)) << value.toString().toStdString();
}

TEST(StoredBoolean, IsTheDefaultWhereItIsNone)
{
    for (const QVariant& value :
         {QVariant(), QVariant::fromValue(nullptr), Text(""), Text("perhaps"), QVariant(QVariantList{true}),
          QVariant(QSize(1, 1)), QVariant(std::numeric_limits<double>::quiet_NaN())})
        for (const bool usual : {true, false})
            EXPECT_EQ(ToBoolean(value, usual), usual) << value.typeName();
}

TEST(StoredLong, IsRoundedWithHalvesToEven)
{
    EXPECT_EQ(ToLong(1440, 5), 1440);
    EXPECT_EQ(ToLong(0.5, 5), 0);
    EXPECT_EQ(ToLong(1.5, 5), 2);
    EXPECT_EQ(ToLong(Text("-2.5"), 5), -2);
    EXPECT_EQ(ToLong(Text(" 1,000 "), 5), 1000);
    EXPECT_EQ(ToLong(true, 5), -1);
    EXPECT_EQ(ToLong(false, 5), 0);
}

TEST(StoredLong, IsTheDefaultWhereItIsNoneOrTooLarge)
{
    for (const QVariant& value :
         {QVariant(), QVariant::fromValue(nullptr), Text(""), Text("true"), Text("1440 twips"), QVariant(3e9),
          QVariant(-3e9), Text("4294967296"), QVariant(QVariantMap()), QVariant(QSize(1, 1)),
          QVariant(std::numeric_limits<double>::infinity()), QVariant(std::numeric_limits<double>::quiet_NaN())})
        EXPECT_EQ(ToLong(value, 1440), 1440) << value.toString().toStdString();
}

}  // namespace
}  // namespace quillmarker
