#include "clipboard_format.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr std::array kRichTextTypes = {"text/rtf", "application/rtf", "text/richtext"};

QString Type(const char* name) { return QString::fromLatin1(name); }

/// text/richtext is also the name of an older kind of text.
bool BeginsAsRtf(const QByteArray& bytes) { return bytes.trimmed().startsWith("{\\"); }

}  // namespace

std::span<const char* const> RichTextTypes() { return kRichTextTypes; }

bool Offers(const QMimeData& data, int format)
{
    const auto has = [&](const char* name) { return data.hasFormat(Type(name)); };
    switch (format)
    {
    case kClipboardText:
        return has("text/plain");
    case kClipboardBitmap:
        return data.hasImage() || has("image/png") || has("image/jpeg");
    case kClipboardRichText:
        return std::ranges::any_of(kRichTextTypes, has);
    default:
        return false;
    }
}

QByteArray RichTextOf(const QMimeData& data)
{
    for (const char* name : kRichTextTypes)
    {
        QByteArray bytes = data.hasFormat(Type(name)) ? data.data(Type(name)) : QByteArray();
        while (bytes.endsWith('\0'))
            bytes.chop(1);
        if (BeginsAsRtf(bytes))
            return bytes;
    }
    return {};
}

}  // namespace quillmarker
