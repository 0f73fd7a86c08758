#include "engine/document/field_instruction.h"
#include "engine/rtf/reader.h"

#include <algorithm>
#include <utility>

namespace quillmarker
{

void Reader::CloseGroup()
{
    m_skip = 0;
    m_isStarred = false;
    if (!m_states.CanClose())
    {
        m_isDone = true;  // what stands behind the last brace is no part of the document
        return;
    }
    if (m_states.ClosesGroup() && IsNestedStory(State().destination))
        m_endedStory = EndStory();
    if (m_states.ClosesGroup() && IsIn(Destination::TextBox) && StoryNow().TextSize() > 0)
        EndParagraph(Mark::Break);
    if (m_states.IsOutermost() && IsInStory())
        m_openEnd = MarkNow(Mark::Break);
    ReaderState left;
    if (m_states.Close(left))
        EndGroup(left);
    if (!m_states.CanClose())
        m_isDone = true;
}

void Reader::EndGroup(const ReaderState& left)
{
    if (left.group != State().group)
        EndDestination(left);
    else if (left.destination == Destination::Fonts)
        m_fonts.EndEntry();
}

bool Reader::Enter(Destination destination)
{
    if (m_states.IsFull())
    {
        SkipGroup();
        return false;
    }
    ReaderState& state = m_states.Change();
    state.destination = destination;
    state.group = ++m_groups;
    return true;
}

void Reader::SkipGroup()
{
    m_tokens.SkipGroup();
    CloseGroup();
}

/// Of \upr, which says the same twice, only the Unicode form is read.
void Reader::SkipAlternative()
{
    const std::size_t start = m_tokens.Offset();
    if (m_lookAhead == 0 || !m_tokens.SkipNextGroup())
        return;
    const std::size_t behind = m_tokens.Offset();
    // Where no Unicode form follows, all was looked at in vain; alternatives inside of it must not do so again and again.
    m_lookAhead -= std::min(m_lookAhead, behind - start);
    for (Token token = m_tokens.Next(); token.kind == TokenKind::Open;)
    {
        token = m_tokens.Next();
        if (token.kind == TokenKind::Symbol && token.byte == '*' && m_tokens.IsAt("\\ud"))
            return m_tokens.MoveTo(behind);
    }
    m_tokens.MoveTo(start);
}

void Reader::EndDestination(const ReaderState& left)
{
    switch (left.destination)
    {
    case Destination::Fonts:
        m_fonts.EndEntry();
        break;
    case Destination::ListTable:
        m_lists.EndList(m_listId);
        break;
    case Destination::ListOverrides:
        m_lists.EndOverride(m_overrideNumber);
        break;
    case Destination::InfoText:
        m_properties.info.emplace_back(m_infoKey, std::exchange(m_infoText, {}));
        break;
    case Destination::InfoTime:
        m_properties.infoKept += std::exchange(m_openTime, {}) + '}';
        break;
    case Destination::Picture:
        EndPicture();
        break;
    case Destination::Object:
        EndObject();
        break;
    case Destination::ObjectData:
        if (ObjectNow())
            ObjectNow()->object.data = Shared(ObjectNow()->data.Take());
        break;
    case Destination::ObjectResult:
        if (ObjectNow())
            ObjectNow()->object.result = std::move(m_endedStory);
        break;
    case Destination::Field:
        EndField();
        break;
    case Destination::Numbering:
        EndNumbering();
        break;
    case Destination::Header:
        EndHeader();
        break;
    case Destination::Note:
        EndNote();
        break;
    case Destination::NestedRow:
        m_table = std::move(m_outerTables.back());
        m_outerTables.pop_back();
        break;
    default:
        break;
    }
}

void Reader::BeginObject()
{
    if (!IsInStory())
        return SkipGroup();
    if (Enter(Destination::Object))
        m_objects.emplace_back();
}

/// The text of a drawn box becomes paragraphs of its own where the box is anchored, so that it is not lost.
void Reader::BeginTextBox()
{
    if (!IsIn(Destination::Nothing))
        return SkipGroup();
    if (!Enter(Destination::TextBox))
        return;
    if (StoryNow().TextSize() > 0)
        EndParagraph(Mark::Break);
}

void Reader::BeginPicture()
{
    if (Enter(Destination::Picture))
        m_picture = {};
}

void Reader::BeginNumbering()
{
    if (Enter(Destination::Numbering))
        m_numbering = {};
}

void Reader::MakeNoteEndnote()
{
    if (IsIn(Destination::Note) && !m_notes.empty())
        m_notes.back().kind = NoteKind::Endnote;
}

void Reader::BeginField()
{
    const bool isNested = IsIn(Destination::FieldInstruction);
    if (m_openFields.size() >= kMaxFields || (!isNested && !IsInStory()))
        return;
    const Shared<Field> outer = State().chars.field;
    if (Enter(Destination::Field))
        m_openFields.push_back({{.instruction = {}, .switches = {}, .outer = outer}, m_units, isNested});
}

/// A field whose instruction is complete. Two equal fields side by side would be read as one, so the second one is told
/// apart.
Shared<Field> Reader::Finished(Field field)
{
    std::u16string& instruction = field.instruction;
    instruction.erase(0, std::min(instruction.find_first_not_of(u' '), instruction.size()));
    instruction.erase(instruction.find_last_not_of(u' ') + 1);
    const auto latest = StoryNow().LatestFormat();
    for (Shared<Field> before = latest ? (*m_formats)[*latest].field : Shared<Field>(); before; before = before->outer)
    {
        Field unnumbered = *before;
        unnumbered.serial = 0;
        if (unnumbered == field)
        {
            field.serial = before->serial + 1;
            break;
        }
    }
    return Shared(std::move(field));
}

void Reader::BeginFieldResult()
{
    OpenField* open = FieldNow();
    if (!open || !IsIn(Destination::Field))
        return open && open->isNested ? SkipGroup() : void();
    if (open->isNested)
        return SkipGroup();
    const Shared<Field> field = Finished(open->field);
    if (Enter(Destination::FieldResult))
        Chars().field = field;
}

void Reader::EndField()
{
    const OpenField ended = std::move(m_openFields.back());
    m_openFields.pop_back();
    if (!ended.isNested && m_units == ended.begin && IsInStory())
        PutMissingResult(ended.field);
    if (!ended.isNested)
        return;
    if (OpenField* outer = FieldNow())
        outer->field.instruction += u"{" + ended.field.instruction + u"}";
}

/// Some writers leave out results that others compute. Without one a field would have no place in the text, so those
/// that everybody can compute get theirs here.
void Reader::PutMissingResult(const Field& field)
{
    const MissingResult result = ResultOf(field);
    if (result.text.empty())
        return;
    m_states.Open();
    Chars().field = Finished(field);
    const std::int32_t font = result.font.empty() ? -1 : m_fonts.IndexOf(result.font);
    if (font >= 0)
        m_states.Change().font = font;
    PutText(result.text);
    CloseGroup();
}

void Reader::BeginStory(Destination destination)
{
    if (m_stories.size() >= kMaxStories)
        return SkipGroup();
    if (!Enter(destination))
        return;
    m_stories.push_back(std::make_unique<Story>());
    m_outerTables.push_back(std::exchange(m_table, {}));
    ResetParagraph();
    Chars().field = {};
}

Body Reader::EndStory()
{
    const ParagraphMark end = MarkNow(Mark::Break);
    ParagraphMark plain = end;
    plain.tableDepth = 0;
    Body body = StoryNow().Finish(plain, true);
    m_stories.pop_back();
    m_table = std::move(m_outerTables.back());
    m_outerTables.pop_back();
    return body;
}

void Reader::BeginHeader(HeaderKind kind)
{
    if (!IsInStory())
        return SkipGroup();
    const std::size_t depth = m_stories.size();
    BeginStory(Destination::Header);
    if (m_stories.size() > depth)
        m_headerKinds.push_back(kind);
}

void Reader::EndHeader()
{
    if (m_stories.size() == 1)
        m_section[m_headerKinds.back()] = std::move(m_endedStory);
    m_headerKinds.pop_back();
}

void Reader::BeginNote(NoteKind kind)
{
    if (!IsInStory())
        return SkipGroup();
    const std::size_t depth = m_stories.size();
    BeginStory(Destination::Note);
    if (m_stories.size() == depth)
        return;
    m_notes.push_back(kind == NoteKind::Annotation ? std::exchange(m_nextNote, {}) : Note());
    m_notes.back().kind = kind;
}

void Reader::EndNote()
{
    Note note = std::move(m_notes.back());
    m_notes.pop_back();
    note.body = std::move(m_endedStory);
    PutObject(std::move(note));
}

void Reader::BeginNestedRow()
{
    if (!IsInStory())
        return SkipGroup();
    if (Enter(Destination::NestedRow))
        m_outerTables.push_back(std::exchange(m_table, {}));
}

void Reader::PutObject(InlineObject object)
{
    const bool isPlaced = IsInStory() || IsIn(Destination::Nothing);
    if (isPlaced && HasRoomFor(1))
        StoryNow().Builder().Append(Shared(std::move(object)), CharsId());
}

void Reader::EndPicture()
{
    PictureReading ended = std::exchange(m_picture, {});
    std::string bytes = ended.bytes.Take();
    if (bytes.empty())
        return;
    ended.picture.bytes = Shared(std::move(bytes));
    PutObject(std::move(ended.picture));
}

void Reader::EndObject()
{
    ObjectReading ended = std::move(m_objects.back());
    m_objects.pop_back();
    if (ended.object.data || !ended.object.result.IsAbsent())
        PutObject(std::move(ended.object));
}

/// A page number as a character is a field like the one that \field states.
void Reader::PutPageNumber()
{
    if (!IsInStory())
        return;
    PutMissingResult({.instruction = u"PAGE", .switches = {}, .outer = State().chars.field});
}

void Reader::EndNumbering()
{
    if (!IsInStory() || m_numbering.continues)
        return;
    Numbering numbering = m_numbering.Finish();
    SetNumberFont(numbering, m_numbering.font);
    ParagraphProperties().numbering = Shared(std::move(numbering));
}

}  // namespace quillmarker
