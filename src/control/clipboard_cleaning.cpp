#include "clipboard_cleaning.h"

#include "content/strip_markers.h"
#include "engine/box/attempt.h"
#include "engine/platform/clipboard.h"

namespace quillmarker
{
namespace
{

QString Stripped(const QString& text)
{
    std::u16string stripped = text.toStdU16String();
    StripMarkers(stripped);
    return QString::fromStdU16String(stripped);
}

}  // namespace

void CleanClipboard(ClipboardService& clipboard, PendingEventService& pendingEvents)
{
    if (!HasFormat(clipboard, kClipboardRichText))
        return;
    QString richText;
    QString plainText;
    Attempt([&] { pendingEvents.Process(); });
    Attempt([&] { richText = TextOf(clipboard, kClipboardRichText); });
    Attempt([&] { plainText = TextOf(clipboard, kClipboardText); });
    Attempt([&] { richText = Stripped(richText); });
    Attempt([&] { pendingEvents.Process(); });
    Attempt([&] { clipboard.Clear(); });
    Attempt([&] { PutText(clipboard, richText, kClipboardRichText); });
    if (plainText.isEmpty())
        return;
    Attempt([&] { plainText = Stripped(plainText); });
    Attempt([&] { pendingEvents.Process(); });
    Attempt([&] { PutText(clipboard, plainText, kClipboardText); });
}

}  // namespace quillmarker
