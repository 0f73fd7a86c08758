#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QMainWindow>

namespace quillmarker
{
namespace
{

QWidget& Child(RichTextEditor& editor, const char* name) { return *editor.findChild<QWidget*>(QLatin1String(name)); }

TEST(EditorLayout, StacksToolbarRulerTextAndStatusBar)
{
    RichTextEditor editor;
    ShowForTyping(editor);
    const QWidget& toolbar = Child(editor, "iToolbar");
    const QWidget& ruler = Child(editor, "iRuler");
    const QWidget& engine = Child(editor, "RTF");
    const QWidget& status = Child(editor, "iStatus");
    EXPECT_TRUE(toolbar.isVisible() && ruler.isVisible() && engine.isVisible() && status.isVisible());
    EXPECT_EQ(toolbar.y(), 0);
    EXPECT_EQ(ruler.y(), toolbar.height());
    EXPECT_EQ(ruler.height(), 22);
    EXPECT_EQ(engine.y(), ruler.geometry().bottom() + 1);
    EXPECT_EQ(engine.geometry().bottom() + 1, status.y());
    EXPECT_EQ(status.geometry().bottom() + 1, editor.height());
    EXPECT_EQ(engine.width(), editor.width());
}

TEST(EditorLayout, WithoutBarsTheTextOccupiesTheWholeControl)
{
    RichTextEditor editor;
    editor.SetToolbar(false);
    editor.SetRuler(false);
    editor.SetStatusbar(false);
    ShowForTyping(editor);
    EXPECT_EQ(Child(editor, "RTF").geometry(), editor.rect());
    EXPECT_FALSE(Child(editor, "iToolbar").isVisible());
    EXPECT_FALSE(Child(editor, "iRuler").isVisible());
    EXPECT_FALSE(Child(editor, "iStatus").isVisible());
}

TEST(EditorLayout, ATextWithoutRoomKeepsItsSize)
{
    RichTextEditor editor;
    ShowForTyping(editor);
    const QRect before = Child(editor, "RTF").geometry();
    editor.resize(400, 10);
    EXPECT_EQ(Child(editor, "RTF").geometry(), before);
}

TEST(EditorLayout, MinimisingTheHostHidesTheFindDialogAndRestoringShowsIt)
{
    QMainWindow host;
    auto* editor = new RichTextEditor(&host);
    host.setCentralWidget(editor);
    std::vector<QString> log;
    EditorState::Of(*editor).parts = std::make_unique<RecordingParts>(log);
    host.show();
    log.clear();
    host.setWindowState(Qt::WindowMinimized);
    EXPECT_THAT(log, testing::ElementsAre(QStringLiteral("find hidden")));
    log.clear();
    host.setWindowState(Qt::WindowNoState);
    EXPECT_THAT(log, testing::IsSupersetOf({QStringLiteral("find restored"), QStringLiteral("ruler, reread")}));
    EditorState::Of(*editor).parts = std::make_unique<ControlParts>();
}

TEST(EditorStart, LeavesTheDocumentUnchangedInArialOfTenPoints)
{
    int changes = 0;
    RichTextEditor editor;
    QObject::connect(&editor, &RichTextEditor::Change, [&] { ++changes; });
    RichTextView& engine = EngineOf(editor);
    EXPECT_FALSE(editor.Changed());
    EXPECT_EQ(engine.SelFontName(), QStringLiteral("Arial"));
    EXPECT_EQ(engine.SelFontSize(), 10);
    EXPECT_EQ(engine.SelAlignment(), 0);
    EXPECT_EQ(engine.BulletIndent(), 567);
    EXPECT_EQ(editor.TextString(), QString());
    ShowForTyping(editor);
    EXPECT_EQ(changes, 0);
    QTest::keyClicks(engine.viewport(), QStringLiteral("abc"));
    EXPECT_EQ(changes, 3);
    EXPECT_TRUE(editor.Changed());
    EXPECT_EQ(editor.TextString(), QStringLiteral("abc"));
}

TEST(EditorStart, WithoutAPrinterTakesFixedOffsetsAndTheWidthOfASheet)
{
    ScriptedServices scripted;
    RichTextEditor editor(scripted.Services());
    const EditorState& state = EditorState::Of(editor);
    EXPECT_TRUE(state.noPrinter);
    EXPECT_EQ(state.printerOffsets.left, 182);
    EXPECT_EQ(state.printerOffsets.right, 384);
    EXPECT_EQ(state.printerOffsets.top, 182);
    EXPECT_EQ(state.printerOffsets.bottom, 720);
    ShowForTyping(editor);
    EXPECT_EQ(EngineOf(editor).RightMargin(), 11'904);
}

TEST(EditorStart, ComputesOffsetsAndTheLinesWidthFromThePrinter)
{
    ScriptedServices scripted;
    scripted.printers->printers.push_back(SamplePrinter());
    RichTextEditor editor(scripted.Services());
    const EditorState& state = EditorState::Of(editor);
    EXPECT_FALSE(state.noPrinter);
    EXPECT_EQ(state.printerOffsets.left, 360);
    EXPECT_EQ(state.printerOffsets.top, 360);
    // The margin, not the left border, is what is taken off.
    EXPECT_EQ(state.printerOffsets.right, 720 - 720);
    EXPECT_EQ(state.printerOffsets.bottom, 720 - 720);
    ShowForTyping(editor);
    EXPECT_EQ(EngineOf(editor).RightMargin(), 11'906 - 1'440);
}

TEST(EditorStart, APrinterWithoutAPageIsNone)
{
    ScriptedServices scripted;
    scripted.printers->printers.push_back(SamplePrinter());
    scripted.printers->printers.front().pageWidth = 0;
    RichTextEditor editor(scripted.Services());
    EXPECT_TRUE(EditorState::Of(editor).noPrinter);
}

TEST(EditorStart, FillsTheListsOfThePickers)
{
    RichTextEditor editor;
    const EditorState& state = EditorState::Of(editor);
    const QStringList sizes = {" 6", " 8", " 9", "10", "11", "12", "14", "16", "18",
                               "20", "22", "24", "26", "28", "30", "36", "48", "72"};
    EXPECT_EQ(state.popupSizes, sizes);
    EXPECT_EQ(state.comboSizes, sizes);
    EXPECT_TRUE(state.popupFontNames.contains(QStringLiteral("Arial")));
    EXPECT_EQ(state.comboFontNames, state.popupFontNames);
}

TEST(EditorEnd, UnloadsTheFormsInTheirOrder)
{
    std::vector<QString> log;
    {
        RichTextEditor editor;
        EditorState::Of(editor).parts = std::make_unique<RecordingParts>(log);
    }
    EXPECT_THAT(log, testing::ElementsAre(QStringLiteral("ViewFrm"), QStringLiteral("ParaDlg"),
                                          QStringLiteral("FindDlg"), QStringLiteral("ComFrm")));
}

}  // namespace
}  // namespace quillmarker
