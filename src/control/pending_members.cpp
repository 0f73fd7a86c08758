#include <quillmarker/rich_text_editor.h>

// The members whose work is still to come, as PendingMembers() names them: they do nothing and say so.

namespace quillmarker
{

void RichTextEditor::SetIndents(float /*Left*/, float /*Right*/, float /*hanging*/) {}

void RichTextEditor::ShowParagraphDialog() {}

int RichTextEditor::InsertPictureFile(const QString& /*FileName*/, const QString& /*FindText*/) { return -1; }

int RichTextEditor::InsertPictureObject(const quillmarker::Picture& /*Picture*/, const QString& /*FindText*/)
{
    return -1;
}

void RichTextEditor::ShowPrintPreview() {}

void RichTextEditor::ShowPrintDialog() {}

void RichTextEditor::ShowPageDialog() {}

void RichTextEditor::ShowPrintSetupDialog() {}

void RichTextEditor::ShowSearchDialog() {}

}  // namespace quillmarker
