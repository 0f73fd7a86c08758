#pragma once

#include "clipboard_format.h"

#include <QImage>
#include <QMimeData>
#include <QString>

#include <memory>

namespace quillmarker
{

/// The machine's clipboard. A host may put another in its place.
class ClipboardService
{
public:
    ClipboardService() = default;
    virtual ~ClipboardService() = default;
    ClipboardService(const ClipboardService&) = delete;
    ClipboardService& operator=(const ClipboardService&) = delete;

    /// What is on it; null when it cannot be had. Valid until something else is put on it.
    virtual const QMimeData* Content() const = 0;
    virtual void SetContent(std::unique_ptr<QMimeData> content) = 0;
    virtual void Clear() = 0;

    /// Whether what SetContent put there is still what it holds.
    virtual bool IsOwn() const = 0;
};

/// The clipboard of the application object.
std::unique_ptr<ClipboardService> MakeQtClipboard();

bool HasFormat(const ClipboardService& clipboard, int format);

/// The text (kClipboardText) or the RTF (kClipboardRichText); empty when there is none, and for other formats.
QString TextOf(const ClipboardService& clipboard, int format = kClipboardText);

/// Puts text or RTF there, beside what this program has put there in other formats; false for other formats.
bool PutText(ClipboardService& clipboard, const QString& text, int format = kClipboardText);

QImage ImageOf(const ClipboardService& clipboard);
void PutImage(ClipboardService& clipboard, const QImage& image);

}  // namespace quillmarker
