#include "engine/platform/clipboard.h"

#include <QGuiApplication>
#include <QImage>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

/// What a host may put in the place of the machine's clipboard.
class OwnClipboard : public ClipboardService
{
public:
    const QMimeData* Content() const override { return m_content.get(); }
    void SetContent(std::unique_ptr<QMimeData> content) override { m_content = std::move(content); }
    void Clear() override { m_content.reset(); }
    bool IsOwn() const override { return isOwn; }

    bool isOwn = true;

private:
    std::unique_ptr<QMimeData> m_content;
};

QImage TestImage()
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::blue);
    return image;
}

TEST(Clipboard, HoldsSeveralFormatsAtOnce)
{
    OwnClipboard clipboard;
    EXPECT_FALSE(HasFormat(clipboard, kClipboardText));
    EXPECT_TRUE(PutText(clipboard, QStringLiteral("text")));
    EXPECT_TRUE(PutText(clipboard, QStringLiteral("{\\rtf1 rtf}"), kClipboardRichText));
    PutImage(clipboard, TestImage());
    EXPECT_TRUE(HasFormat(clipboard, kClipboardText));
    EXPECT_TRUE(HasFormat(clipboard, kClipboardRichText));
    EXPECT_TRUE(HasFormat(clipboard, kClipboardBitmap));
    EXPECT_EQ(TextOf(clipboard), QStringLiteral("text"));
    EXPECT_EQ(TextOf(clipboard, kClipboardRichText), QStringLiteral("{\\rtf1 rtf}"));
    EXPECT_EQ(ImageOf(clipboard).size(), QSize(3, 2));
    clipboard.Clear();
    EXPECT_FALSE(HasFormat(clipboard, kClipboardText));
    EXPECT_EQ(TextOf(clipboard), QString());
    EXPECT_TRUE(ImageOf(clipboard).isNull());
}

TEST(Clipboard, WhatAnotherProgramPutThereGoesWhenWePutSomethingThere)
{
    OwnClipboard clipboard;
    EXPECT_TRUE(PutText(clipboard, QStringLiteral("theirs")));
    clipboard.isOwn = false;
    EXPECT_TRUE(PutText(clipboard, QStringLiteral("{\\rtf1 ours}"), kClipboardRichText));
    EXPECT_FALSE(HasFormat(clipboard, kClipboardText));
}

TEST(Clipboard, KnowsOnlyTheClassicFormats)
{
    OwnClipboard clipboard;
    EXPECT_FALSE(PutText(clipboard, QStringLiteral("text"), 7));
    EXPECT_FALSE(PutText(clipboard, QStringLiteral("text"), kClipboardBitmap));
    EXPECT_FALSE(HasFormat(clipboard, 7));
    EXPECT_EQ(TextOf(clipboard, kClipboardBitmap), QString());
}

TEST(Clipboard, OfTheApplicationIsTheDefault)
{
    const std::unique_ptr<ClipboardService> clipboard = MakeQtClipboard();
    EXPECT_TRUE(PutText(*clipboard, QStringLiteral("text")));
    EXPECT_TRUE(PutText(*clipboard, QStringLiteral("{\\rtf1 rtf}"), kClipboardRichText));
    EXPECT_TRUE(clipboard->IsOwn());
    EXPECT_EQ(TextOf(*clipboard), QStringLiteral("text"));
    EXPECT_EQ(TextOf(*clipboard, kClipboardRichText), QStringLiteral("{\\rtf1 rtf}"));
    clipboard->Clear();
    EXPECT_FALSE(HasFormat(*clipboard, kClipboardText));
}

}  // namespace
}  // namespace quillmarker
