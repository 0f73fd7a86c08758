#include "late_call.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPainter>
#include <QUrl>

#include <limits>

namespace quillmarker
{
namespace
{

std::string Refusal(DispatchCode code, int argument)
{
    return "refused " + std::to_string(static_cast<std::int32_t>(code)) + " at " + std::to_string(argument);
}

// What a Boolean, a Long, ... was made of: the call that the editor saw, or why it saw none.
std::string Seen(const char* name, MemberKind kind, const QVariantList& arguments)
{
    const Outcome outcome = Called(name, kind, arguments);
    if (outcome.code == DispatchCode::Done)
        return outcome.called;
    EXPECT_EQ(outcome.called, "");
    EXPECT_EQ(outcome.arguments, arguments);
    return Refusal(outcome.code, outcome.argument);
}

const std::string kMismatch = Refusal(DispatchCode::TypeMismatch, 0);
const std::string kTooLarge = Refusal(DispatchCode::Overflow, 0);

std::string AsBoolean(const QVariant& value) { return Seen("Ruler", kPut, {value}); }
std::string AsLong(const QVariant& value) { return Seen("SelectText", kMethod, {value, 0}); }
std::string AsSingle(const QVariant& value) { return Seen("TopMargin", kPut, {value}); }
std::string AsString(const QVariant& value) { return Seen("SaveFileRTF", kMethod, {value}); }
std::string AsPicture(const QVariant& value) { return Seen("InsertPictureObject", kMethod, {value, "x"}); }

TEST(LateBoundArgument, MakesABooleanOfAnythingButZero)
{
    for (const QVariant& value :
         {QVariant(true), QVariant(1), QVariant(-1), QVariant(0.25), QVariant(1e300), QVariant(1LL << 40), Text("True"),
          Text(" tRUE "), Text("-1"), Text("0.5"), QVariant(QByteArray("true")), QVariant(QChar(u'7'))})
        EXPECT_EQ(AsBoolean(value), "SetRuler(true)") << value.toString().toStdString();
    for (const QVariant& value : {QVariant(false), QVariant(0), QVariant(0.0), QVariant(-0.0F), Text("False"),
                                  Text("FALSE"), Text("0"), Text("0.0"), Text("&H0")})
        EXPECT_EQ(AsBoolean(value), "SetRuler(false)") << value.toString().toStdString();
}

TEST(LateBoundArgument, RefusesABooleanOfOtherTexts)
{
    for (const char* text : {"", "yes", "on", "Truee", "1x"})
        EXPECT_EQ(AsBoolean(Text(text)), kMismatch) << text;
    EXPECT_EQ(AsBoolean(std::numeric_limits<double>::quiet_NaN()), kMismatch);
    EXPECT_EQ(AsBoolean(QVariantList{true}), kMismatch);
}

TEST(LateBoundArgument, RoundsToALongWithHalvesToEven)
{
    EXPECT_EQ(AsLong(12), "SelectText(12, 0)");
    EXPECT_EQ(AsLong(0.5), "SelectText(0, 0)");
    EXPECT_EQ(AsLong(1.5F), "SelectText(2, 0)");
    EXPECT_EQ(AsLong(2.5), "SelectText(2, 0)");
    EXPECT_EQ(AsLong(2.51), "SelectText(3, 0)");
    EXPECT_EQ(AsLong(-0.5), "SelectText(0, 0)");
    EXPECT_EQ(AsLong(-1.5), "SelectText(-2, 0)");
    EXPECT_EQ(AsLong(-2.5), "SelectText(-2, 0)");
    EXPECT_EQ(AsLong(0.49999999999999994), "SelectText(0, 0)");
}

TEST(LateBoundArgument, MakesALongOfABooleanAndOfANumericText)
{
    EXPECT_EQ(AsLong(true), "SelectText(-1, 0)");
    EXPECT_EQ(AsLong(false), "SelectText(0, 0)");
    EXPECT_EQ(AsLong(Text(" 1,234.5 ")), "SelectText(1234, 0)");
    EXPECT_EQ(AsLong(Text("1e3")), "SelectText(1000, 0)");
    EXPECT_EQ(AsLong(Text("&HFF")), "SelectText(255, 0)");
    EXPECT_EQ(AsLong(QByteArray("-7")), "SelectText(-7, 0)");
    EXPECT_EQ(AsLong(QVariant::fromValue(Qt::AlignRight)), "SelectText(2, 0)");
}

TEST(LateBoundArgument, RefusesALongBeyondItsBits)
{
    EXPECT_EQ(AsLong(2147483647.4), "SelectText(2147483647, 0)");
    EXPECT_EQ(AsLong(2147483647.5), kTooLarge);
    EXPECT_EQ(AsLong(-2147483648.5), "SelectText(-2147483648, 0)");
    EXPECT_EQ(AsLong(-2147483648.6), kTooLarge);
    EXPECT_EQ(AsLong(2147483648U), kTooLarge);
    EXPECT_EQ(AsLong(std::numeric_limits<qulonglong>::max()), kTooLarge);
    EXPECT_EQ(AsLong(std::numeric_limits<qlonglong>::min()), kTooLarge);
    EXPECT_EQ(AsLong(Text("9999999999")), kTooLarge);
    EXPECT_EQ(AsLong(std::numeric_limits<double>::infinity()), kTooLarge);
}

TEST(LateBoundArgument, RefusesANumberOfWhatIsNone)
{
    for (const QVariant& value : {Text(""), Text("x"), Text("True"), Text("1 2"), QVariant(QVariantMap()),
                                  QVariant(QSize(1, 1)), QVariant(std::numeric_limits<double>::quiet_NaN())})
    {
        EXPECT_EQ(AsLong(value), kMismatch) << value.typeName();
        EXPECT_EQ(AsSingle(value), kMismatch) << value.typeName();
    }
}

TEST(LateBoundArgument, MakesASingleOfNumbersAndNumericTexts)
{
    EXPECT_EQ(AsSingle(2), "SetTopMargin(2f)");
    EXPECT_EQ(AsSingle(2.25), "SetTopMargin(2.25f)");
    EXPECT_EQ(AsSingle(Text("1.75")), "SetTopMargin(1.75f)");
    EXPECT_EQ(AsSingle(true), "SetTopMargin(-1f)");
    EXPECT_EQ(AsSingle(1e39), kTooLarge);
    EXPECT_EQ(AsSingle(-1e39), kTooLarge);
    EXPECT_EQ(AsSingle(std::numeric_limits<float>::infinity()), kTooLarge);
    EXPECT_EQ(AsSingle(1e-60), "SetTopMargin(0f)");
}

TEST(LateBoundArgument, MakesAStringOfWhatHasAText)
{
    EXPECT_EQ(AsString(Text("ä")), "SaveFileRTF('ä')");
    EXPECT_EQ(AsString(QString()), "SaveFileRTF('')");
    EXPECT_EQ(AsString(QByteArray("bytes")), "SaveFileRTF('bytes')");
    EXPECT_EQ(AsString(-12), "SaveFileRTF('-12')");
    EXPECT_EQ(AsString(0.5), "SaveFileRTF('0.5')");
    EXPECT_EQ(AsString(true), "SaveFileRTF('True')");
    EXPECT_EQ(AsString(false), "SaveFileRTF('False')");
    EXPECT_EQ(AsString(QChar(u'q')), "SaveFileRTF('q')");
    EXPECT_EQ(AsString(QUrl(QStringLiteral("file:a.rtf"))), "SaveFileRTF('file:a.rtf')");
}

TEST(LateBoundArgument, RefusesAStringOfWhatHasNone)
{
    EXPECT_EQ(AsString(QSize(1, 2)), kMismatch);
    EXPECT_EQ(AsString(QVariantMap()), kMismatch);
    EXPECT_EQ(AsString(Pixels(1, 1)), kMismatch);
}

TEST(LateBoundArgument, MakesAPictureOfWhatIsOne)
{
    QByteArray png;
    QBuffer buffer(&png);
    Pixels(4, 5).save(&buffer, "PNG");
    QPicture drawing;
    QPainter painter(&drawing);
    painter.fillRect(0, 0, 8, 9, Qt::blue);
    painter.end();

    EXPECT_EQ(AsPicture(QVariant::fromValue(Picture(Pixels(1, 2)))), "InsertPictureObject(1x2, 'x')");
    EXPECT_EQ(AsPicture(QVariant::fromValue(Picture())), "InsertPictureObject(0x0, 'x')");
    EXPECT_EQ(AsPicture(Pixels(2, 3)), "InsertPictureObject(2x3, 'x')");
    EXPECT_EQ(AsPicture(QPixmap::fromImage(Pixels(3, 4))), "InsertPictureObject(3x4, 'x')");
    EXPECT_EQ(AsPicture(png), "InsertPictureObject(4x5, 'x')");
    EXPECT_EQ(AsPicture(QVariant::fromValue(drawing)), "InsertPictureObject(8x9, 'x')");
    for (const QVariant& value : {Text("a.png"), QVariant(1), QVariant(true)})
        EXPECT_EQ(AsPicture(value), kMismatch);
}

TEST(LateBoundArgument, NamesTheArgumentAtFault)
{
    EXPECT_EQ(Seen("SetIndents", kMethod, {1, 2, Text("x")}), Refusal(DispatchCode::TypeMismatch, 2));
    EXPECT_EQ(Seen("SetIndents", kMethod, {1, 1e50, Text("x")}), Refusal(DispatchCode::Overflow, 1));
    EXPECT_EQ(Seen("SelectText", kMethod, {Text("5"), 1e10}), Refusal(DispatchCode::Overflow, 1));
}

TEST(LateBoundArgument, RefusesAnArgumentOfNothing)
{
    EXPECT_EQ(AsBoolean({}), kMismatch);
    EXPECT_EQ(AsLong({}), kMismatch);
    EXPECT_EQ(AsSingle({}), kMismatch);
    EXPECT_EQ(AsString({}), kMismatch);
    EXPECT_EQ(AsPicture({}), kMismatch);
    EXPECT_EQ(AsString(QVariant::fromValue(nullptr)), kMismatch);
}

}  // namespace
}  // namespace quillmarker
