#pragma once

#include <quillmarker/rich_text_editor.h>

#include <QString>

namespace quillmarker::desk
{

/// Opens `template.rtf` of a folder and puts the values of its `data.json` in place of the markers, each everywhere it
/// stands. A value is text or a number; an object with `text`, `rtf`, `hidden` or `file`; or an array of these, which
/// stand one behind the other. Names of files are relative to the folder. Undo takes the last insertion back.
/// False: the folder does not hold both files; the document is as it was.
bool OpenFilledReport(RichTextEditor& editor, const QString& folder);

}  // namespace quillmarker::desk
