#include "shown_view.h"

#include "engine/platform/clipboard.h"

#include <QClipboard>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QTemporaryDir>

namespace quillmarker
{
namespace
{

/// A value that a property takes over the selection and gives back.
struct PropertyRow
{
    const char* name;
    QVariant value;
};

std::vector<PropertyRow> Rows()
{
    return {
        {"SelBold", true},
        {"SelItalic", true},
        {"SelUnderline", true},
        {"SelStrikeThru", true},
        {"SelProtected", true},
        {"SelCharOffset", 60},
        {"SelFontName", QStringLiteral("Courier New")},
        {"SelFontSize", 14.0F},
        {"SelColor", QColor(1, 2, 3)},
        {"SelAlignment", 2},
        {"SelBullet", true},
        {"SelIndent", 720},
        {"SelHangingIndent", 360},
        {"SelRightIndent", 400},
        {"SelTabCount", 2},
        {"RightMargin", 5000},
        {"BulletIndent", 300},
        {"BackColor", QColor(200, 200, 255)},
        {"MaxLength", 99},
        {"Locked", true},
        {"SelStart", 2},
        {"SelLength", 3},
        {"Zoom", 150},
        {"AutoVerbMenu", true},
        {"Overwrites", true},
    };
}

TEST(Properties, GiveBackWhatTheyWereGiven)
{
    for (const PropertyRow& row : Rows())
    {
        ShownView view("one\n^two|\nthree");
        ASSERT_GE(view.metaObject()->indexOfProperty(row.name), 0) << row.name;
        EXPECT_TRUE(view.setProperty(row.name, row.value)) << row.name;
        EXPECT_EQ(view.property(row.name), row.value) << row.name;
    }
}

TEST(Properties, OfTextReplaceIt)
{
    ShownView view("one ^two| three");
    EXPECT_EQ(view.property("SelText"), QStringLiteral("two"));
    view.setProperty("SelText", QStringLiteral("2"));
    EXPECT_EQ(Dump(view), "one 2| three");
    view.SetSelStart(4);
    view.SetSelLength(1);
    view.setProperty("SelRTF", QStringLiteral("{\\rtf1 \\b 3}"));
    EXPECT_EQ(Dump(view), "one <b>3</b>| three");
    EXPECT_TRUE(view.property("TextRTF").toString().startsWith(QStringLiteral("{\\rtf1")));
    view.setProperty("Text", QStringLiteral("new"));
    EXPECT_EQ(Dump(view), "|new");
    view.setProperty("TextRTF", QStringLiteral("{\\rtf1 newer\\par}"));
    EXPECT_EQ(view.property("Text"), QStringLiteral("newer"));
}

TEST(Properties, OfAMixedSelectionAreInvalid)
{
    ShownView view("^one <b>two|</b>");
    EXPECT_FALSE(view.property("SelBold").isValid());
    EXPECT_TRUE(view.property("SelItalic").isValid());
    view.setProperty("SelBold", QVariant());
    EXPECT_EQ(Dump(view), "^one <b>two</b>|");
    view.setProperty("SelBold", 7);
    EXPECT_EQ(view.property("SelBold"), true);
    view.setProperty("SelBold", 0);
    EXPECT_EQ(Dump(view), "^one two|");
}

TEST(Properties, AnAutomaticColourIsAnInvalidOne)
{
    ShownView view("^one|");
    EXPECT_TRUE(view.SelColor().isValid());
    EXPECT_FALSE(view.SelColor().value<QColor>().isValid());
    view.SetSelColor(QColor(Qt::red));
    EXPECT_EQ(view.SelColor().value<QColor>(), QColor(Qt::red));
    view.SetSelColor(QColor());
    EXPECT_FALSE(view.SelColor().value<QColor>().isValid());
}

TEST(Properties, TheFontIsThatOfTextWithoutAnother)
{
    ShownView view("|");
    view.setProperty("Font", QFont(QStringLiteral("Courier New"), 13));
    EXPECT_EQ(view.property("Font").value<QFont>().family(), QStringLiteral("Courier New"));
    view.SetText(QStringLiteral("text"));
    EXPECT_EQ(view.SelFontName(), QStringLiteral("Courier New"));
    EXPECT_EQ(view.SelFontSize(), 13.0F);
}

TEST(Invokables, AreReachedThroughTheMetaObject)
{
    ShownView view("one two one|");
    int found = -2;
    ASSERT_TRUE(QMetaObject::invokeMethod(&view, "Find", Q_RETURN_ARG(int, found),
                                          Q_ARG(QString, QStringLiteral("one")), Q_ARG(int, 1)));
    EXPECT_EQ(found, 8);
    view.SetSelStart(0);
    ASSERT_TRUE(
        QMetaObject::invokeMethod(&view, "Find", Q_RETURN_ARG(int, found), Q_ARG(QString, QStringLiteral("two"))));
    EXPECT_EQ(found, 4);
    ASSERT_TRUE(QMetaObject::invokeMethod(&view, "SelectAll"));
    EXPECT_EQ(Dump(view), "^one two one|");
    for (const char* name : {"Cut", "Copy", "Paste", "Clear", "Undo", "Redo"})
        EXPECT_TRUE(QMetaObject::invokeMethod(&view, name)) << name;
    view.SelectFromTo(0, 0);
    ASSERT_TRUE(QMetaObject::invokeMethod(&view, "Span", Q_ARG(QString, QStringLiteral("eno"))));
    EXPECT_EQ(view.SelLength(), 3);
    ASSERT_TRUE(QMetaObject::invokeMethod(&view, "UpTo", Q_ARG(QString, QStringLiteral("w"))));
    EXPECT_EQ(view.SelStart(), 5);
}

TEST(Invokables, TabStopsAreSetOneByOne)
{
    ShownView view("one|");
    view.SetSelTabCount(2);
    EXPECT_TRUE(QMetaObject::invokeMethod(&view, "SetSelTabs", Q_ARG(int, 0), Q_ARG(int, 500)));
    view.SetSelTabs(1, 1500);
    EXPECT_EQ(view.SelTabs(0), 500);
    EXPECT_EQ(view.SelTabs(1), 1500);
    EXPECT_FALSE(view.SelTabs(2).isValid());
}

TEST(Invokables, FilesAreSavedAndLoaded)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.rtf"));
    ShownView view("one <b>two</b>|");
    EXPECT_EQ(view.SaveFile(path), 0);
    view.SetText(QString());
    EXPECT_EQ(view.LoadFile(path), 0);
    EXPECT_EQ(Dump(view), "|one <b>two</b>");
    EXPECT_EQ(view.LoadFile(folder.filePath(QStringLiteral("none.rtf"))), static_cast<int>(FileError::FileNotFound));
    EXPECT_EQ(view.SaveFile(path, 1), 0);
    EXPECT_EQ(view.LoadFile(path, 1), 0);
    EXPECT_EQ(Dump(view), "|one two");
}

TEST(Operations, ClearDeletesTheSelectionOnly)
{
    ShownView view("one ^two| three");
    view.Clear();
    EXPECT_EQ(Dump(view), "one | three");
    view.Clear();
    EXPECT_EQ(Dump(view), "one | three");
    view.Undo();
    EXPECT_EQ(view.Text(), QStringLiteral("one two three"));
    view.Redo();
    EXPECT_EQ(view.Text(), QStringLiteral("one  three"));
}

TEST(Operations, CuttingProtectedTextDoesNothing)
{
    ShownView view("^a|<p>b</p>");
    view.Copy();
    view.SelectAll();
    view.Cut();
    EXPECT_EQ(Dump(view), "^a<p>b</p>|");
    view.SelectFromTo(0, 0);
    view.Paste();
    EXPECT_EQ(Dump(view), "a|a<p>b</p>");
}

TEST(Operations, ACopyFilterSeesWhatIsCopied)
{
    ShownView view("^secret| text");
    view.SetCopyFilter([](std::u16string) { return std::u16string(u"{\\rtf1 public}"); });
    view.Copy();
    view.SelectFromTo(11, 11);
    view.Paste();
    EXPECT_EQ(view.Text(), QStringLiteral("secret textpublic"));
}

/// A clipboard of a host's own.
class PrivateClipboard : public ClipboardService
{
public:
    const QMimeData* Content() const override { return m_content.get(); }
    void SetContent(std::unique_ptr<QMimeData> content) override { m_content = std::move(content); }
    void Clear() override { m_content.reset(); }
    bool IsOwn() const override { return m_content != nullptr; }

private:
    std::unique_ptr<QMimeData> m_content;
};

TEST(Operations, UseTheClipboardTheyAreGiven)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("outside"));
    ShownView view("one ^two| three");
    const auto clipboard = std::make_shared<PrivateClipboard>();
    view.SetClipboard(clipboard);
    EXPECT_FALSE(view.CanPaste());
    view.Copy();
    EXPECT_EQ(TextOf(*clipboard), QStringLiteral("two"));
    view.SelectFromTo(0, 4);
    view.Cut();
    EXPECT_EQ(TextOf(*clipboard), QStringLiteral("one "));
    view.SelectFromTo(3, 3);
    view.Paste();
    EXPECT_EQ(Dump(view), "twoone | three");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("outside"));
    view.SetClipboard({});
    view.Paste();
    EXPECT_EQ(Dump(view), "twoone outside| three");
}

}  // namespace
}  // namespace quillmarker
