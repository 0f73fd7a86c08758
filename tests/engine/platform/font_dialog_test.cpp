#include "engine/platform/color_choice_widget.h"
#include "engine/platform/font_form_widget.h"

#include <quillmarker/widgets/font_dialog_service.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace quillmarker
{
namespace
{

constexpr int kDirect = Qt::FindDirectChildrenOnly;

/// The dialog as it stands on the screen.
struct ShownDialog
{
    FontForm& form;

    template <class Part>
    Part* At(int index) const
    {
        return form.findChildren<Part*>(QString(), Qt::FindChildOption(kDirect)).value(index);
    }
    QListView* Families() const { return At<QListView>(0); }
    QListView* Styles() const { return At<QListView>(1); }
    QListView* Sizes() const { return At<QListView>(2); }
    QLineEdit* Family() const { return At<QLineEdit>(0); }
    QLineEdit* Style() const { return At<QLineEdit>(1); }
    QLineEdit* Size() const { return At<QLineEdit>(2); }
    QCheckBox* Effect(int index) const { return At<QGroupBox>(0)->findChildren<QCheckBox*>().value(index); }
    QLineEdit* Sample() const { return At<QGroupBox>(1)->findChild<QLineEdit*>(); }
    QComboBox* Systems() const { return At<QComboBox>(0); }
    QComboBox* Color() const { return form.findChild<QComboBox*>(QStringLiteral("FontColor")); }
    QPushButton* Button(QDialogButtonBox::StandardButton which) const
    {
        return form.findChild<QDialogButtonBox*>()->button(which);
    }
    void Ok() const { QTest::mouseClick(Button(QDialogButtonBox::Ok), Qt::LeftButton); }
};

QString Chosen(const QListView* list)
{
    const QModelIndexList chosen = list->selectionModel()->selectedIndexes();
    return chosen.isEmpty() ? QString() : chosen.front().data().toString();
}

/// A family is looked for by its letters, a style and a size by the arrows.
void Find(QListView* list, const QString& name)
{
    list->setFocus();
    QTest::keyClicks(list, name);
}

class TheFontDialog : public testing::Test
{
protected:
    TheFontDialog() { AskFor(QStringLiteral("Liberation Serif")); }

    void AskFor(const QString& name)
    {
        SetLogFontFaceName(request.logFont, name);
        request.faceName = name;
    }
    void AskForCharset(int charset) { SetLogFontNumber(request.logFont, LogFontField::CharSet, charset); }

    /// Shows it and does something with it; what the user leaves open is cancelled.
    bool Choose(const std::function<void(const ShownDialog&)>& use, QWidget* owner = nullptr)
    {
        bool wasThere = false;
        QTimer::singleShot(0, QApplication::instance(), [&] {
            const QPointer<FontForm> form = qobject_cast<FontForm*>(QApplication::activeModalWidget());
            wasThere = form && form->isVisible();
            if (!wasThere)
                return;
            use(ShownDialog{*form});
            if (form && form->isVisible())
                form->reject();
        });
        const bool isChosen = MakeQtFontDialog()->Choose(request, owner);
        EXPECT_TRUE(wasThere);
        return isChosen;
    }
    bool ChooseOk()
    {
        return Choose([](const ShownDialog& dialog) { dialog.Ok(); });
    }

    int Number(LogFontField field) const { return LogFontNumber(request.logFont, field); }

    FontDialogRequest request;
};

TEST_F(TheFontDialog, OpensWithWhatIsAsked)
{
    SetLogFontNumber(request.logFont, LogFontField::Height, -16);
    SetLogFontNumber(request.logFont, LogFontField::Weight, -1);
    SetLogFontNumber(request.logFont, LogFontField::Underline, 1);
    request.rgbColors = 0x000000FF;
    Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.form.windowTitle(), QStringLiteral("Font"));
        EXPECT_EQ(Chosen(dialog.Families()), QStringLiteral("Liberation Serif"));
        EXPECT_EQ(Chosen(dialog.Styles()), QStringLiteral("Bold"));
        EXPECT_EQ(Chosen(dialog.Sizes()), QStringLiteral("12"));
        EXPECT_EQ(dialog.Family()->text(), QStringLiteral("Liberation Serif"));
        EXPECT_EQ(dialog.Size()->text(), QStringLiteral("12"));
        EXPECT_FALSE(dialog.Effect(0)->isChecked());
        EXPECT_TRUE(dialog.Effect(1)->isChecked());
        EXPECT_EQ(dialog.Color()->currentText(), QStringLiteral("Red"));
        EXPECT_TRUE(dialog.Sample()->font().underline());
        EXPECT_EQ(dialog.Sample()->font().pointSize(), 12);
        EXPECT_EQ(QFontInfo(dialog.Sample()->font()).family(), QStringLiteral("Liberation Serif"));
        EXPECT_EQ(dialog.Sample()->palette().color(QPalette::Text), QColor(Qt::red));
    });
}

TEST_F(TheFontDialog, ThatIsCancelledLeavesTheRequestAsItWas)
{
    const FontDialogRequest before = request;
    const auto change = [](const ShownDialog& dialog) {
        Find(dialog.Families(), QStringLiteral("Liberation Mono"));
        dialog.Effect(0)->click();
    };
    EXPECT_FALSE(Choose([&](const ShownDialog& dialog) {
        change(dialog);
        QTest::mouseClick(dialog.Button(QDialogButtonBox::Cancel), Qt::LeftButton);
    }));
    EXPECT_FALSE(Choose([&](const ShownDialog& dialog) {
        change(dialog);
        QTest::keyClick(&dialog.form, Qt::Key_Escape);
        EXPECT_FALSE(dialog.form.isVisible());
    }));
    EXPECT_FALSE(Choose([&](const ShownDialog& dialog) {
        change(dialog);
        dialog.form.close();
    }));
    EXPECT_EQ(request.logFont, before.logFont);
    EXPECT_EQ(request.faceName, before.faceName);
    EXPECT_EQ(request.rgbColors, before.rgbColors);
    EXPECT_EQ(request.pointSizeTenths, 0);
}

TEST_F(TheFontDialog, GivesAFamilyThatIsLookedForByItsLetters)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        Find(dialog.Families(), QStringLiteral("Liberation Mono"));
        EXPECT_EQ(dialog.Family()->text(), QStringLiteral("Liberation Mono"));
        EXPECT_EQ(QFontInfo(dialog.Sample()->font()).family(), QStringLiteral("Liberation Mono"));
        QTest::keyClick(dialog.Families(), Qt::Key_Return);
    }));
    EXPECT_EQ(request.faceName, QStringLiteral("Liberation Mono"));
    EXPECT_EQ(LogFontFaceName(request.logFont), QStringLiteral("Liberation Mono"));
    EXPECT_EQ(Number(LogFontField::Weight), 400);
    EXPECT_EQ(Number(LogFontField::Italic), 0);
}

TEST_F(TheFontDialog, GivesAStyle)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(Chosen(dialog.Styles()), QStringLiteral("Regular"));
        dialog.Styles()->setFocus();
        QTest::keyClick(dialog.Styles(), Qt::Key_End);
        EXPECT_EQ(dialog.Style()->text(), QStringLiteral("Bold Italic"));
        dialog.Ok();
    }));
    EXPECT_EQ(Number(LogFontField::Weight), 700);
    EXPECT_EQ(Number(LogFontField::Italic), 1);
}

TEST_F(TheFontDialog, KeepsTheStyleThatIsAskedWhereAFamilyDoesNotHaveIt)
{
    AskFor(QStringLiteral("Z003"));
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.Style()->text(), QStringLiteral("Medium Italic"));
        dialog.Ok();
    }));
    EXPECT_EQ(Number(LogFontField::Weight), 400);
    EXPECT_EQ(Number(LogFontField::Italic), 0);
}

TEST_F(TheFontDialog, HasNoSizeUntilOneIsChosen)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.Size()->text(), QString());
        Find(dialog.Families(), QStringLiteral("Liberation Mono"));
        EXPECT_EQ(dialog.Size()->text(), QString());
        EXPECT_EQ(Chosen(dialog.Sizes()), QString());
        dialog.Ok();
    }));
    EXPECT_EQ(request.pointSizeTenths, 0);
    EXPECT_EQ(Number(LogFontField::Height), 0);
}

TEST_F(TheFontDialog, GivesASizeThatIsTypedInTenthsOfAPoint)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        dialog.Size()->setFocus();
        QTest::keyClicks(dialog.Size(), QStringLiteral("24"));
        EXPECT_EQ(Chosen(dialog.Sizes()), QStringLiteral("24"));
        dialog.Size()->selectAll();
        QTest::keyClicks(dialog.Size(), QStringLiteral("10x.5"));
        EXPECT_EQ(Chosen(dialog.Sizes()), QString());
        QTest::keyClick(dialog.Size(), Qt::Key_Return);
    }));
    EXPECT_EQ(request.pointSizeTenths, 105);
    EXPECT_EQ(Number(LogFontField::Height), -14);
}

TEST_F(TheFontDialog, GivesASizeOfTheList)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        dialog.Sizes()->setFocus();
        QTest::keyClick(dialog.Sizes(), Qt::Key_Home);
        EXPECT_EQ(dialog.Size()->text(), QStringLiteral("6"));
        QTest::keyClick(dialog.Sizes(), Qt::Key_End);
        EXPECT_EQ(dialog.Size()->text(), QStringLiteral("72"));
        dialog.Ok();
    }));
    EXPECT_EQ(request.pointSizeTenths, 720);
    EXPECT_EQ(Number(LogFontField::Height), -96);
}

TEST_F(TheFontDialog, GivesTheWholePointsThatAHeightCameFrom)
{
    for (const int points : {8, 9, 10, 11, 12, 13, 16, 72})
    {
        SetLogFontNumber(request.logFont, LogFontField::Height, -qRound(points * 96 / 72.0));
        EXPECT_TRUE(ChooseOk());
        EXPECT_EQ(request.pointSizeTenths, points * 10);
    }
}

TEST_F(TheFontDialog, GivesUnderlineAndStrikeOut)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        dialog.Effect(1)->setFocus();
        QTest::keyClick(dialog.Effect(1), Qt::Key_Space);
        EXPECT_TRUE(dialog.Sample()->font().underline());
        dialog.Ok();
    }));
    EXPECT_EQ(Number(LogFontField::Underline), 1);
    EXPECT_EQ(Number(LogFontField::StrikeOut), 0);
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        dialog.Effect(0)->click();
        dialog.Effect(1)->click();
        dialog.Ok();
    }));
    EXPECT_EQ(Number(LogFontField::Underline), 0);
    EXPECT_EQ(Number(LogFontField::StrikeOut), 1);
}

TEST_F(TheFontDialog, GivesAColorOfTheList)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.Color()->currentText(), QStringLiteral("Black"));
        dialog.Color()->setFocus();
        QTest::keyClick(dialog.Color(), Qt::Key_Down);
        EXPECT_EQ(dialog.Color()->currentText(), QStringLiteral("Maroon"));
        EXPECT_EQ(dialog.Sample()->palette().color(QPalette::Text), QColor(0x80, 0, 0));
        dialog.Ok();
    }));
    EXPECT_EQ(request.rgbColors, 0x00000080U);
}

TEST_F(TheFontDialog, KeepsAColorThatHasNoName)
{
    request.rgbColors = 0x00102030;
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.Color()->currentText(), QStringLiteral("Other (#302010)"));
        dialog.Ok();
    }));
    EXPECT_EQ(request.rgbColors, 0x00102030U);
}

TEST_F(TheFontDialog, LeadsToAllOtherColors)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        QTest::mouseClick(dialog.form.findChild<QPushButton*>(QStringLiteral("FontColorMore")), Qt::LeftButton);
        auto* colors = dialog.form.findChild<QColorDialog*>();
        ASSERT_TRUE(colors);
        EXPECT_TRUE(colors->isVisible());
        colors->setCurrentColor(QColor(1, 2, 3));
        colors->accept();
        EXPECT_EQ(dialog.Color()->currentText(), QStringLiteral("Other (#010203)"));
        EXPECT_EQ(dialog.Sample()->palette().color(QPalette::Text), QColor(1, 2, 3));
        dialog.Ok();
    }));
    EXPECT_EQ(request.rgbColors, 0x00030201U);
}

TEST_F(TheFontDialog, OffersNamesThatATwinStandsForInTheStylesOfTheTwin)
{
    AskFor(QStringLiteral("Arial"));
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(Chosen(dialog.Families()), QStringLiteral("Arial"));
        EXPECT_EQ(dialog.Styles()->model()->rowCount(), 4);
        EXPECT_EQ(QFontInfo(dialog.Sample()->font()).family(), QStringLiteral("Liberation Sans"));
        dialog.Ok();
    }));
    EXPECT_EQ(request.faceName, QStringLiteral("Arial"));
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        Find(dialog.Families(), QStringLiteral("Times New"));
        dialog.Ok();
    }));
    EXPECT_EQ(request.faceName, QStringLiteral("Times New Roman"));
}

TEST_F(TheFontDialog, KeepsANameThatIsNotInstalled)
{
    const QString name = QString::fromUtf8("Ωραία Γράμματα");
    AskFor(name);
    EXPECT_TRUE(Choose([&](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.Family()->text(), name);
        EXPECT_EQ(Chosen(dialog.Families()), QString());
        dialog.Families()->setFocus();
        dialog.Styles()->setFocus();
        QTest::keyClick(dialog.Styles(), Qt::Key_End);
        dialog.Ok();
    }));
    EXPECT_EQ(request.faceName, name);
    EXPECT_EQ(Number(LogFontField::Weight), 700);
}

TEST_F(TheFontDialog, HasNoFamilyUntilOneIsChosen)
{
    AskFor({});
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(Chosen(dialog.Families()), QString());
        EXPECT_EQ(dialog.Family()->text(), QString());
        dialog.Ok();
    }));
    EXPECT_EQ(request.faceName, QString());
    EXPECT_EQ(LogFontFaceName(request.logFont), QString());
    EXPECT_EQ(Number(LogFontField::Weight), 400);
}

TEST_F(TheFontDialog, GivesTheCharacterSetOfTheWritingSystem)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.Systems()->currentIndex(), 0);
        dialog.Systems()->setFocus();
        QTest::keyClicks(dialog.Systems(), QStringLiteral("Gree"));
        EXPECT_EQ(dialog.Systems()->currentText(), QStringLiteral("Greek"));
        EXPECT_EQ(Chosen(dialog.Families()), QStringLiteral("Liberation Serif"));
        dialog.Ok();
    }));
    EXPECT_EQ(Number(LogFontField::CharSet), 161);
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        EXPECT_EQ(dialog.Systems()->currentText(), QStringLiteral("Greek"));
        QTest::keyClicks(dialog.Systems(), QStringLiteral("Lat"));
        dialog.Ok();
    }));
    EXPECT_EQ(Number(LogFontField::CharSet), 0);
}

TEST_F(TheFontDialog, GivesTheSymbolCharacterSetWithAFontOfSigns)
{
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        Find(dialog.Families(), QStringLiteral("Standard Symbols"));
        dialog.Ok();
    }));
    EXPECT_EQ(request.faceName, QStringLiteral("Standard Symbols PS"));
    EXPECT_EQ(Number(LogFontField::CharSet), 2);
    EXPECT_TRUE(Choose([](const ShownDialog& dialog) {
        QTest::keyClicks(dialog.Systems(), QStringLiteral("Any"));
        Find(dialog.Families(), QStringLiteral("Liberation Mono"));
        dialog.Ok();
    }));
    EXPECT_EQ(Number(LogFontField::CharSet), 0);
}

TEST_F(TheFontDialog, KeepsACharacterSetThatNoWritingSystemMeans)
{
    AskForCharset(238);
    EXPECT_TRUE(ChooseOk());
    EXPECT_EQ(Number(LogFontField::CharSet), 238);
}

TEST_F(TheFontDialog, StartsWithNothingWhereTheImageDoesNotCount)
{
    request.flags &= ~FontDialogRequest::kStartFromLogFont;
    EXPECT_TRUE(ChooseOk());
    EXPECT_EQ(request.faceName, QString());
}

TEST_F(TheFontDialog, HasNoEffectsWhereNoneAreAsked)
{
    request.flags &= ~FontDialogRequest::kEffects;
    Choose([](const ShownDialog& dialog) {
        EXPECT_FALSE(dialog.Effect(0)->isVisible());
        EXPECT_FALSE(dialog.Color()->isVisible());
    });
}

TEST_F(TheFontDialog, CanBeUsedWithKeysAndHeardInEveryPart)
{
    Choose([](const ShownDialog& dialog) {
        for (QWidget* part : {static_cast<QWidget*>(dialog.Families()), static_cast<QWidget*>(dialog.Styles()),
                              static_cast<QWidget*>(dialog.Sizes()), static_cast<QWidget*>(dialog.Size()),
                              static_cast<QWidget*>(dialog.Color())})
        {
            EXPECT_FALSE(part->accessibleName().isEmpty()) << part->metaObject()->className();
            EXPECT_TRUE(part->focusPolicy() & Qt::TabFocus) << part->metaObject()->className();
        }
        QSet<QWidget*> reached;
        for (QWidget* part = dialog.form.nextInFocusChain(); part != &dialog.form; part = part->nextInFocusChain())
            reached.insert(part);
        EXPECT_TRUE(reached.contains(dialog.Color()));
        QSet<QString> letters;
        for (const QLabel* label : dialog.form.findChildren<QLabel*>())
        {
            const qsizetype at = label->text().indexOf(u'&');
            if (at >= 0)
            {
                EXPECT_TRUE(label->buddy()) << label->text().toStdString();
                const QString letter = label->text().mid(at + 1, 1).toLower();
                EXPECT_FALSE(letters.contains(letter)) << letter.toStdString();
                letters.insert(letter);
            }
        }
        EXPECT_EQ(letters.size(), 5);
        EXPECT_FALSE(letters.contains(QStringLiteral("m"))) << "of the button More";
    });
}

TEST_F(TheFontDialog, OpensOverTheWindowOfItsOwnerInItsColors)
{
    QWidget window;
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::darkGray);
    window.setPalette(dark);
    QWidget owner(&window);
    window.show();
    Choose(
        [&](const ShownDialog& dialog) {
            EXPECT_EQ(dialog.form.parentWidget(), &window);
            EXPECT_EQ(dialog.form.palette().color(QPalette::Window), QColor(Qt::darkGray));
            EXPECT_TRUE(dialog.form.isModal());
        },
        &owner);
}

TEST_F(TheFontDialog, IsNoChoiceWhenItsOwnerGoes)
{
    const QPointer<QWidget> owner = new QWidget;
    owner->show();
    const FontDialogRequest before = request;
    EXPECT_FALSE(Choose(
        [&](const ShownDialog& dialog) {
            dialog.Effect(0)->click();
            delete owner;
        },
        owner));
    EXPECT_EQ(request.logFont, before.logFont);
}

TEST_F(TheFontDialog, IsNoChoiceWhenItsOwnerGoesWhileColorsAreShown)
{
    const QPointer<QWidget> owner = new QWidget;
    owner->show();
    EXPECT_FALSE(Choose(
        [&](const ShownDialog& dialog) {
            dialog.form.findChild<QPushButton*>(QStringLiteral("FontColorMore"))->click();
            EXPECT_TRUE(dialog.form.findChild<QColorDialog*>());
            delete owner;
        },
        owner));
}

QPalette DarkPalette()
{
    QPalette dark(QColor(45, 45, 48), QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    return dark;
}

// The pictures are for whoever asks for them; what is checked is that the sample's text can be told from its ground.
TEST_F(TheFontDialog, ShowsASampleThatCanBeReadInEveryPalette)
{
    SetLogFontNumber(request.logFont, LogFontField::Height, -19);
    AskFor(QStringLiteral("Arial"));
    for (const bool isDark : {false, true})
    {
        QWidget owner;
        if (isDark)
            owner.setPalette(DarkPalette());
        for (const std::uint32_t color : {0x000000U, 0xFFFFFFU, 0x0000FFU})
        {
            request.rgbColors = color;
            Choose(
                [&](const ShownDialog& dialog) {
                    const QImage sample = dialog.Sample()->grab().toImage();
                    const QColor ground = sample.pixelColor(sample.width() / 10, sample.height() / 4);
                    EXPECT_NE(ground, dialog.Sample()->palette().color(QPalette::Text));
                    EXPECT_EQ(ground, dialog.Sample()->palette().color(QPalette::Base));
                    const QString folder = qEnvironmentVariable("QUILLMARKER_PICTURES");
                    if (!folder.isEmpty())
                        dialog.form.grab().save(
                            QStringLiteral("%1/fontdlg-%2-%3.png")
                                .arg(folder, isDark ? QStringLiteral("dark") : QStringLiteral("light"))
                                .arg(color, 6, 16, QChar(u'0')));
                },
                &owner);
        }
    }
}

}  // namespace
}  // namespace quillmarker
