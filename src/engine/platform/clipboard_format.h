#pragma once

#include <QMimeData>
#include <QString>

#include <span>

namespace quillmarker
{

/// The classic numbers of clipboard formats.
enum ClipboardFormat : int {
    kClipboardText = 1,
    kClipboardBitmap = 2,
    kClipboardRichText = -16639,
};

/// The MIME types under which rich text travels, the one most programs know first.
std::span<const char* const> RichTextTypes();

/// Whether the data can be had in a classic format; false for numbers that name none.
bool Offers(const QMimeData& data, int format);

/// The bytes of the first rich text that is offered, without NULs at their end; empty when none is.
QByteArray RichTextOf(const QMimeData& data);

}  // namespace quillmarker
