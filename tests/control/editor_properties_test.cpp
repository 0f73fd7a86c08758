#include "control/editor_sample.h"

#include <quillmarker/rich_text_editor.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonObject>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <limits>

namespace quillmarker
{
namespace
{

const QStringList kKeys = {
    QStringLiteral("Toolbar"),   QStringLiteral("Ruler"),        QStringLiteral("Statusbar"),
    QStringLiteral("Inches"),    QStringLiteral("LeftMargin"),   QStringLiteral("RightMargin"),
    QStringLiteral("TopMargin"), QStringLiteral("BottomMargin"),
};

/// A bag that notes what it is asked for, in order.
class RecordingBag : public PropertyBag
{
public:
    QVariant ReadProperty(const QString& key, const QVariant& usual) const override
    {
        read.append(key);
        return values.value(key, usual);
    }
    void WriteProperty(const QString& key, const QVariant& value, const QVariant& usual) override
    {
        written.append(key);
        values[key] = value;
        defaults[key] = usual;
    }

    mutable QStringList read;
    QStringList written;
    QVariantMap values;
    QVariantMap defaults;
};

TEST(EditorProperties, ABagWithoutKeysGivesBarsCentimetresAndMarginsOfHalfAnInch)
{
    RichTextEditor editor;
    editor.SetToolbar(false);
    editor.SetRuler(false);
    editor.SetStatusbar(false);
    editor.SetMeasureInches(true);
    editor.SetLeftMargin(2);
    editor.ReadProperties(JsonPropertyBag());
    EXPECT_TRUE(editor.Toolbar() && editor.Ruler() && editor.Statusbar());
    EXPECT_FALSE(editor.MeasureInches());
    const Margins& margins = EditorState::Of(editor).margins;
    EXPECT_EQ(margins.left, 720);
    EXPECT_EQ(margins.right, 720);
    EXPECT_EQ(margins.top, 720);
    EXPECT_EQ(margins.bottom, 720);
}

TEST(EditorProperties, AreTheSameAtCreation)
{
    RichTextEditor editor;
    editor.InitProperties();
    EXPECT_TRUE(editor.Toolbar() && editor.Ruler() && editor.Statusbar());
    EXPECT_FALSE(editor.MeasureInches());
    EXPECT_FALSE(editor.Changed());
    EXPECT_FALSE(editor.Redraw());
    EXPECT_FLOAT_EQ(editor.LeftMargin(), 720.0F / 567);
    EXPECT_FLOAT_EQ(editor.BottomMargin(), 720.0F / 567);
}

TEST(EditorProperties, AreReadAndWrittenInTheirOrderWithTheirDefaults)
{
    RichTextEditor editor;
    RecordingBag bag;
    editor.ReadProperties(bag);
    EXPECT_EQ(bag.read, kKeys);
    editor.WriteProperties(bag);
    EXPECT_EQ(bag.written, kKeys);
    EXPECT_EQ(bag.values, bag.defaults);
    EXPECT_EQ(bag.values[QStringLiteral("Toolbar")], QVariant(true));
    EXPECT_EQ(bag.values[QStringLiteral("Inches")], QVariant(false));
    EXPECT_EQ(bag.values[QStringLiteral("TopMargin")], QVariant(720));
}

TEST(EditorProperties, GoThroughJsonAndSettingsWhole)
{
    const auto set = [](RichTextEditor& editor) {
        editor.SetToolbar(false);
        editor.SetStatusbar(false);
        editor.SetMeasureInches(true);
        editor.SetLeftMargin(1);
        editor.SetBottomMargin(-0.25F);
    };
    const auto check = [](const RichTextEditor& editor) {
        EXPECT_FALSE(editor.Toolbar());
        EXPECT_TRUE(editor.Ruler());
        EXPECT_FALSE(editor.Statusbar());
        EXPECT_TRUE(editor.MeasureInches());
        const Margins& margins = EditorState::Of(const_cast<RichTextEditor&>(editor)).margins;
        EXPECT_EQ(margins.left, 1440);
        EXPECT_EQ(margins.right, 720);
        EXPECT_EQ(margins.bottom, -360);
    };
    RichTextEditor first;
    set(first);

    JsonPropertyBag json;
    first.WriteProperties(json);
    EXPECT_EQ(json.Object().keys(), (QStringList{"BottomMargin", "Inches", "LeftMargin", "Statusbar", "Toolbar"}));
    RichTextEditor fromJson;
    fromJson.ReadProperties(JsonPropertyBag(json.Object()));
    check(fromJson);

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("host.ini"));
    {
        QSettings settings(file, QSettings::IniFormat);
        SettingsPropertyBag bag(settings);
        first.WriteProperties(bag);
    }
    QSettings settings(file, QSettings::IniFormat);
    RichTextEditor fromSettings;
    fromSettings.ReadProperties(SettingsPropertyBag(settings));
    check(fromSettings);
}

TEST(EditorProperties, OfTheWrongTypeAreConverted)
{
    RecordingBag bag;
    bag.values = {{"Toolbar", 0}, {"Ruler", "False"}, {"Inches", -1}, {"LeftMargin", "1000"}, {"TopMargin", 12.5}};
    RichTextEditor editor;
    editor.ReadProperties(bag);
    EXPECT_FALSE(editor.Toolbar());
    EXPECT_FALSE(editor.Ruler());
    EXPECT_TRUE(editor.MeasureInches());
    EXPECT_EQ(EditorState::Of(editor).margins.left, 1000);
    EXPECT_EQ(EditorState::Of(editor).margins.top, 12);
}

TEST(EditorProperties, ReadWhileShownTakeEffectAtOnce)
{
    RichTextEditor editor;
    ShowForTyping(editor);
    RecordingBag bag;
    bag.values = {{"Toolbar", false}, {"Ruler", false}, {"Statusbar", false}, {"Inches", true}};
    editor.ReadProperties(bag);
    EXPECT_EQ(EngineOf(editor).geometry(), editor.rect());
    EXPECT_EQ(editor.LeftMargin(), 0.5F);
}

TEST(EditorProperties, TellTheContainerTheirKey)
{
    RichTextEditor editor;
    QSignalSpy told(&editor, &RichTextEditor::PropertyChanged);
    editor.SetToolbar(true);
    editor.SetRuler(true);
    editor.SetStatusbar(true);
    editor.SetMeasureInches(false);
    editor.SetLeftMargin(1);
    editor.SetRightMargin(1);
    editor.SetTopMargin(1);
    editor.SetBottomMargin(1);
    editor.SetRedraw(false);
    editor.SetRedraw(true);
    editor.SetChanged(true);
    QStringList keys;
    for (const QVariantList& arguments : told)
        keys.append(arguments.front().toString());
    EXPECT_EQ(keys, kKeys + QStringList({"Redraw", "Redraw"}));
}

TEST(EditorMargins, AreStoredInTwipsAndReadInTheUnitOfTheDay)
{
    RichTextEditor editor;
    editor.SetMeasureInches(true);
    editor.SetLeftMargin(1);
    EXPECT_EQ(EditorState::Of(editor).margins.left, 1440);
    EXPECT_EQ(editor.LeftMargin(), 1.0F);
    editor.SetMeasureInches(false);
    EXPECT_FLOAT_EQ(editor.LeftMargin(), 1440.0F / 567);
    editor.SetRightMargin(2);
    EXPECT_EQ(EditorState::Of(editor).margins.right, 1134);
    editor.SetMeasureInches(true);
    EXPECT_FLOAT_EQ(editor.RightMargin(), 1134.0F / 1440);
}

TEST(EditorMargins, AreRoundedToTwipsHalvesToEven)
{
    RichTextEditor editor;
    editor.SetMeasureInches(true);
    const struct
    {
        float inches;
        int twips;  // of 22.5 times the number of sixty-fourths
    } kRows[] = {{1 / 64.0F, 22}, {3 / 64.0F, 68}, {5 / 64.0F, 112}, {-1 / 64.0F, -22}, {-3 / 64.0F, -68}, {0.3F, 432}};
    for (const auto& row : kRows)
    {
        editor.SetTopMargin(row.inches);
        EXPECT_EQ(EditorState::Of(editor).margins.top, row.twips) << row.inches;
    }
}

TEST(EditorMargins, ThatAreNoLengthAreSkippedAndStillTold)
{
    RichTextEditor editor;
    editor.SetLeftMargin(1);
    QSignalSpy told(&editor, &RichTextEditor::PropertyChanged);
    for (const float margin : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                               -std::numeric_limits<float>::infinity(), 1e20F})
        editor.SetLeftMargin(margin);
    EXPECT_EQ(EditorState::Of(editor).margins.left, 567);
    EXPECT_EQ(told.count(), 4);
}

TEST(EditorMargins, TooLargeForAnyPageLeaveTheLinesAsTheyAre)
{
    ScriptedServices scripted;
    scripted.printers->printers.push_back(SamplePrinter());
    RichTextEditor editor(scripted.Services());
    ShowForTyping(editor);
    ASSERT_EQ(EngineOf(editor).RightMargin(), 11'906 - 1'440);
    RecordingBag bag;
    bag.values = {{"LeftMargin", 2'000'000'000}, {"RightMargin", 2'000'000'000}};
    editor.ReadProperties(bag);
    EXPECT_EQ(EditorState::Of(editor).margins.left, 2'000'000'000);
    EXPECT_EQ(EngineOf(editor).RightMargin(), 11'906 - 1'440);
}

TEST(EditorMessages, SaysThatPrintingNeedsAPrinter)
{
    ScriptedServices scripted;
    RichTextEditor editor(scripted.Services());
    editor.NoPrinterMsg();
    ASSERT_EQ(scripted.messageBoxes->shown.size(), 1U);
    const Message& message = scripted.messageBoxes->shown.front();
    EXPECT_EQ(message.text, QStringLiteral("You can not print unless you add a printer via Windows control pannel."));
    EXPECT_EQ(message.title, QStringLiteral("Quillmarker Report"));
    EXPECT_EQ(message.icon, QMessageBox::Warning);
    EXPECT_EQ(message.buttons, QMessageBox::Ok);
}

}  // namespace
}  // namespace quillmarker
