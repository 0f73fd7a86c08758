#include "engine/rtf/keyword_actions.h"

namespace quillmarker
{

void KeepInPicture(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Picture))
        KeepWord(reader.PictureNow().picture.kept, keyword.name, parameter, kMaxKeptOnce);
}

void KeepInObject(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Object))
        KeepWord(reader.ObjectNow()->object.kept, keyword.name, parameter, kMaxKeptOnce);
}

void KeepInField(Reader& reader, const Keyword& keyword, const Parameter& parameter)
{
    if (reader.IsIn(Destination::Field))
        KeepWord(reader.FieldNow()->field.switches, keyword.name, parameter, kMaxKeptRepeated);
}

void SetObjectKind(Reader& reader, const Keyword& keyword, const Parameter&)
{
    if (reader.IsIn(Destination::Object))
        reader.ObjectNow()->object.kind = keyword.name;
}

void BeginPicture(Reader& reader, const Keyword&, const Parameter&) { reader.BeginPicture(); }

void BeginObjectWord(Reader& reader, const Keyword&, const Parameter&) { reader.BeginObject(); }

void BeginObjectResult(Reader& reader, const Keyword&, const Parameter&)
{
    if (reader.IsIn(Destination::Object))
        reader.BeginStory(Destination::ObjectResult);
}

void BeginTextBox(Reader& reader, const Keyword&, const Parameter&) { reader.BeginTextBox(); }

void BeginFieldWord(Reader& reader, const Keyword&, const Parameter&) { reader.BeginField(); }

void BeginFieldResultWord(Reader& reader, const Keyword&, const Parameter&) { reader.BeginFieldResult(); }

void BeginFootnote(Reader& reader, const Keyword&, const Parameter&) { reader.BeginNote(NoteKind::Footnote); }

void BeginAnnotation(Reader& reader, const Keyword&, const Parameter&) { reader.BeginNote(NoteKind::Annotation); }

void SetEndnote(Reader& reader, const Keyword&, const Parameter&) { reader.MakeNoteEndnote(); }

void NestedRowGroup(Reader& reader, const Keyword&, const Parameter&) { reader.BeginNestedRow(); }

void ReadUnicodeForm(Reader& reader, const Keyword&, const Parameter&) { reader.SkipAlternative(); }

void EndParagraphWord(Reader& reader, const Keyword&, const Parameter&) { reader.EndParagraph(Mark::Break); }

void PutUnicodeWord(Reader& reader, const Keyword&, const Parameter& parameter) { reader.PutUnicode(parameter.value); }

void SetUnicodeSkip(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.ChangeState().unicodeSkip = std::max(parameter.value, 0);
}

void PutPageNumber(Reader& reader, const Keyword&, const Parameter&) { reader.PutPageNumber(); }

}  // namespace quillmarker
