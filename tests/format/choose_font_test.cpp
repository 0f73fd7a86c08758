#include "format/choose_font.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <stdexcept>

namespace quillmarker
{
namespace
{

constexpr int kWestern = 0;
constexpr int kGreek = 161;
constexpr int kDots = 96;

class ScriptedFontDialog : public FontDialogService
{
public:
    bool Choose(FontDialogRequest& request, QWidget* owner) override
    {
        asked.push_back(request);
        owners.push_back(owner);
        return answer && answer(request);
    }

    std::function<bool(FontDialogRequest&)> answer;  // none: Cancel
    std::vector<FontDialogRequest> asked;
    std::vector<QWidget*> owners;
};

class ScriptedMessageBoxes : public MessageBoxService
{
public:
    QMessageBox::StandardButton Show(const Message& message, QWidget* owner) override
    {
        shown.push_back(message);
        owners.push_back(owner);
        if (isFailing)
            throw std::runtime_error("no box");
        return QMessageBox::Ok;
    }

    std::vector<Message> shown;
    std::vector<QWidget*> owners;
    bool isFailing = false;
};

class RecordingHelp : public HelpService
{
public:
    void ShowTopic(int context, QWidget* owner) override { shown.emplace_back(context, owner); }

    std::vector<std::pair<int, QWidget*>> shown;
};

class ChoosingAFont : public testing::Test
{
protected:
    bool Choose(QWidget* owner = nullptr, int defaultCharset = kWestern)
    {
        return ChooseFontDialog(rec, {dialog, boxes, help}, owner, kDots, defaultCharset);
    }

    /// The chooser takes a face of a character set.
    void Answer(const QString& name, int charset)
    {
        dialog.answer = [=](FontDialogRequest& request) {
            SetLogFontFaceName(request.logFont, name);
            request.faceName = name;
            SetLogFontNumber(request.logFont, LogFontField::CharSet, charset);
            return true;
        };
    }

    void AnswerSize(int tenths)
    {
        dialog.answer = [=](FontDialogRequest& request) {
            request.pointSizeTenths = tenths;
            return true;
        };
    }

    FontChoice rec{.Name = QStringLiteral("Arial"), .Weight = 0, .Size = 0, .Color = 0x00112233};
    ScriptedFontDialog dialog;
    ScriptedMessageBoxes boxes;
    RecordingHelp help;
};

TEST_F(ChoosingAFont, AsksWithTheImageOfTheRecord)
{
    QWidget owner;
    rec.Weight = -1;
    rec.Size = 12;
    Choose(&owner);
    ASSERT_EQ(dialog.asked.size(), 1U);
    const FontDialogRequest& asked = dialog.asked.front();
    EXPECT_EQ(LogFontNumber(asked.logFont, LogFontField::Height), -16);
    EXPECT_EQ(LogFontNumber(asked.logFont, LogFontField::Weight), -1);
    EXPECT_EQ(LogFontFaceName(asked.logFont), QStringLiteral("Arial"));
    EXPECT_EQ(asked.rgbColors, 0x00112233U);
    EXPECT_EQ(asked.flags, 0x20141U);
    EXPECT_EQ(dialog.owners.front(), &owner);
}

TEST_F(ChoosingAFont, OfGreekOnAWesternSystemTakesTheFaceAndPutsTheCharacterSetBack)
{
    Answer(QStringLiteral("Greek Face"), kGreek);
    EXPECT_TRUE(Choose());
    EXPECT_EQ(rec.Name, QStringLiteral("Greek Face"));
    EXPECT_EQ(rec.Charset, kWestern);
    ASSERT_EQ(boxes.shown.size(), 1U);
    const Message& message = boxes.shown.front();
    EXPECT_EQ(message.text,
              QStringLiteral("The font character set has been re-set to be your system's default: Western."));
    EXPECT_EQ(message.title, QStringLiteral("Font"));
    EXPECT_EQ(message.icon, QMessageBox::Information);
    EXPECT_EQ(message.buttons, QMessageBox::Ok | QMessageBox::Help);
    EXPECT_EQ(message.helpContext, 12'897);
}

TEST_F(ChoosingAFont, NamesTheDefaultSetInTheMessageNotTheChosenOne)
{
    Answer(QStringLiteral("Arial"), kWestern);
    rec.Charset = kGreek;
    EXPECT_TRUE(Choose(nullptr, 204));
    EXPECT_EQ(rec.Charset, 204);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(boxes.shown.front().text.endsWith(QStringLiteral("default: Cyrillic.")));
}

TEST_F(ChoosingAFont, OfSymbolsIsNoReasonForAMessage)
{
    Answer(QStringLiteral("Symbol"), 2);
    EXPECT_TRUE(Choose());
    EXPECT_EQ(rec.Charset, 2);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ChoosingAFont, OfTheDefaultCharacterSetIsNoReasonForAMessage)
{
    Answer(QStringLiteral("Greek Face"), kGreek);
    EXPECT_TRUE(Choose(nullptr, kGreek));
    EXPECT_EQ(rec.Charset, kGreek);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ChoosingAFont, ThatIsCancelledChangesNothing)
{
    dialog.answer = [](FontDialogRequest& request) {
        request = {};
        return false;
    };
    const FontChoice before = rec;
    EXPECT_FALSE(Choose());
    EXPECT_EQ(rec, before);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ChoosingAFont, ThatIsCancelledStillPutsTheCharacterSetBack)
{
    rec.Charset = kGreek;
    FontChoice expected = rec;
    expected.Charset = kWestern;
    EXPECT_FALSE(Choose());
    EXPECT_EQ(rec, expected);
    EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(ChoosingAFont, ThatIsCancelledKeepsTheSymbolCharacterSet)
{
    rec.Charset = 2;
    EXPECT_FALSE(Choose());
    EXPECT_EQ(rec.Charset, 2);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ChoosingAFont, RoundsHalfPointsToTheEvenNumber)
{
    AnswerSize(105);
    EXPECT_TRUE(Choose());
    EXPECT_EQ(rec.Size, 10);
    AnswerSize(115);
    EXPECT_TRUE(Choose());
    EXPECT_EQ(rec.Size, 12);
}

TEST_F(ChoosingAFont, OpensWithALongNameCut)
{
    rec.Name = QString(40, u'x');
    Choose();
    EXPECT_EQ(LogFontFaceName(dialog.asked.front().logFont), QString(32, u'x'));
    EXPECT_EQ(dialog.asked.front().faceName, QString(32, u'x'));
    EXPECT_EQ(rec.Name, QString(40, u'x')) << "nothing was chosen";
}

TEST_F(ChoosingAFont, WithAChooserThatFailsIsNoChoice)
{
    dialog.answer = [](FontDialogRequest& request) -> bool {
        request = {};
        throw std::runtime_error("no chooser");
    };
    rec.Charset = kGreek;
    FontChoice expected = rec;
    expected.Charset = kWestern;
    EXPECT_FALSE(Choose());
    EXPECT_EQ(rec, expected);
    EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(ChoosingAFont, PutsTheCharacterSetBackEvenIfTheMessageFails)
{
    Answer(QStringLiteral("Greek Face"), kGreek);
    boxes.isFailing = true;
    EXPECT_TRUE(Choose());
    EXPECT_EQ(rec.Charset, kWestern);
    EXPECT_EQ(rec.Name, QStringLiteral("Greek Face"));
}

TEST_F(ChoosingAFont, LeadsFromTheMessageToTheHelpOfTheHost)
{
    Answer(QStringLiteral("Greek Face"), kGreek);
    Choose();
    ASSERT_EQ(boxes.shown.size(), 1U);
    ASSERT_TRUE(boxes.shown.front().showHelp);
    QWidget box;
    boxes.shown.front().showHelp(&box);
    ASSERT_EQ(help.shown.size(), 1U);
    EXPECT_EQ(help.shown.front(), std::pair(12'897, &box));
}

TEST_F(ChoosingAFont, ShowsTheMessageOverNothingWhenTheOwnerHasGone)
{
    auto owner = std::make_unique<QWidget>();
    dialog.answer = [&](FontDialogRequest&) {
        owner.reset();
        return false;
    };
    rec.Charset = kGreek;
    EXPECT_FALSE(Choose(owner.get()));
    ASSERT_EQ(boxes.owners.size(), 1U);
    EXPECT_EQ(boxes.owners.front(), nullptr);
}

}  // namespace
}  // namespace quillmarker
