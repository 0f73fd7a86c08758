#include "clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QVariant>

#include <utility>

namespace quillmarker
{
namespace
{

class QtClipboard : public ClipboardService
{
public:
    const QMimeData* Content() const override { return Board() ? Board()->mimeData() : nullptr; }

    void SetContent(std::unique_ptr<QMimeData> content) override
    {
        if (!Board() || !content)
            return;
        m_own = content.get();
        Board()->setMimeData(content.release());  // which takes it over
    }

    void Clear() override
    {
        if (Board())
            Board()->clear();
    }

    /// Not every platform knows whose it is.
    bool IsOwn() const override
    {
        return Board() && (Board()->ownsClipboard() || (m_own && Board()->mimeData() == m_own));
    }

private:
    static QClipboard* Board() { return qGuiApp ? QGuiApplication::clipboard() : nullptr; }

    QPointer<const QMimeData> m_own;
};

/// A copy of what this program has put on the clipboard, so that another format can be put beside it.
std::unique_ptr<QMimeData> CopyOfOwn(const ClipboardService& clipboard)
{
    auto copy = std::make_unique<QMimeData>();
    const QMimeData* own = clipboard.IsOwn() ? clipboard.Content() : nullptr;
    if (!own)
        return copy;
    const QStringList names = own->formats();
    for (const QString& name : names)
    {
        if (name == QLatin1String("application/x-qt-image"))
            copy->setImageData(own->imageData());
        else
            copy->setData(name, own->data(name));
    }
    return copy;
}

}  // namespace

std::unique_ptr<ClipboardService> MakeQtClipboard() { return std::make_unique<QtClipboard>(); }

bool HasFormat(const ClipboardService& clipboard, int format)
{
    const QMimeData* content = clipboard.Content();
    return content && Offers(*content, format);
}

QString TextOf(const ClipboardService& clipboard, int format)
{
    const QMimeData* content = clipboard.Content();
    if (!content)
        return {};
    if (format == kClipboardRichText)
        return QString::fromLatin1(RichTextOf(*content));
    return format == kClipboardText && Offers(*content, kClipboardText) ? content->text() : QString();
}

bool PutText(ClipboardService& clipboard, const QString& text, int format)
{
    if (format != kClipboardText && format != kClipboardRichText)
        return false;
    std::unique_ptr<QMimeData> content = CopyOfOwn(clipboard);
    if (format == kClipboardText)
        content->setText(text);
    else
    {
        for (const char* name : RichTextTypes())
            content->setData(QString::fromLatin1(name), text.toLatin1());
    }
    clipboard.SetContent(std::move(content));
    return true;
}

QImage ImageOf(const ClipboardService& clipboard)
{
    const QMimeData* content = clipboard.Content();
    if (!content)
        return {};
    if (content->hasImage())
        return qvariant_cast<QImage>(content->imageData());
    for (const char* type : {"image/png", "image/jpeg"})
    {
        QImage image;
        if (image.loadFromData(content->data(QString::fromLatin1(type))))
            return image;
    }
    return {};
}

void PutImage(ClipboardService& clipboard, const QImage& image)
{
    std::unique_ptr<QMimeData> content = CopyOfOwn(clipboard);
    content->setImageData(image);
    clipboard.SetContent(std::move(content));
}

}  // namespace quillmarker
