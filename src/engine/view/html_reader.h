#pragma once

#include <quillmarker/rtf.h>

#include <QString>

#include <optional>

namespace quillmarker
{

/// Longer HTML is not read: whoever offers so much offers text too.
constexpr qsizetype kMaxHtmlUnits = 8 * 1024 * 1024;

/// HTML as a fragment: text, basic formats, lists, links, pictures that stand in the source itself. Nothing is loaded
/// from anywhere. What it does not state is as `reading` says. Empty when it is too long or too deep to be read.
std::optional<Document> ReadHtml(const QString& html, const RtfReading& reading);

}  // namespace quillmarker
