#pragma once

#include "clipboard_format.h"

#include <quillmarker/widgets/clipboard_service.h>

#include <QImage>
#include <QString>

#include <memory>

namespace quillmarker
{

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
