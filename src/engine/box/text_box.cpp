#include <quillmarker/text_box.h>

#include "engine/box/box_state.h"
#include "engine/box/file_store.h"
#include "engine/document/document_search.h"
#include "engine/document/utf.h"
#include "engine/rtf/plain_text.h"

#include <algorithm>

namespace quillmarker
{

TextBox::TextBox() : m(std::make_unique<State>(*this)) {}
TextBox::~TextBox() = default;

std::u16string TextBox::Text() const { return m->document.Text(); }

std::int32_t TextBox::TextLength() const { return m->document.Size(); }

void TextBox::SetText(std::u16string_view text)
{
    if (LengthInDocument(text) > kMaxTextUnits)
        return;
    const Document empty(m->FormatOfFont());
    m->Edit(WithText(empty, {}, text, empty.ParagraphAt(0).Ending().charFormat), {});
}

std::u16string TextBox::TextRTF() const
{
    const std::string rtf = WriteRtf(m->document);
    return {rtf.begin(), rtf.end()};
}

void TextBox::SetTextRTF(std::u16string_view rtf)
{
    m->Edit(ReadRtf(rtf, {.defaultFormat = m->FormatOfFont(), .formats = {}}), {});
}

void TextBox::SetTextRTFBytes(std::string_view rtf)
{
    m->Edit(ReadRtf(rtf, {.defaultFormat = m->FormatOfFont(), .formats = {}}), {});
}

FileError TextBox::LoadFile(const std::filesystem::path& path, FileKind kind)
{
    const FileContents file = ReadFile(path);
    if (file.error != FileError::None)
        return file.error;
    const CharFormat format = m->FormatOfFont();
    if (kind == FileKind::Rtf)
    {
        OpenValue(ReadRtf(file.bytes, {.defaultFormat = format, .formats = {}}));
        return FileError::None;
    }
    const Document empty(format);
    OpenValue(WithText(empty, {}, DecodePlainText(file.bytes), empty.ParagraphAt(0).Ending().charFormat));
    return FileError::None;
}

FileError TextBox::SaveFile(const std::filesystem::path& path, FileKind kind) const
{
    return WriteFile(path, kind == FileKind::Rtf ? WriteRtf(m->document) : ToUtf8(m->document.Text()));
}

std::int32_t TextBox::SelStart() const { return m->selection.start; }

void TextBox::SetSelStart(std::int32_t start)
{
    if (start < 0)
        return;
    const Position end{TextLength()};
    const Position caret = std::min(Position{start}, end);
    m->Select({Snapped(m->document, {caret, caret}).begin.value, 0});
}

std::int32_t TextBox::SelLength() const { return m->selection.length; }

void TextBox::SetSelLength(std::int32_t length)
{
    if (length < 0)
        return;
    const Position begin{m->selection.start};
    const Position end = begin + std::min(length, TextLength() - begin.value);
    m->Select({begin.value, Snapped(m->document, {begin, end}).Length()});
}

std::u16string TextBox::SelText() const { return m->document.Text(m->Range()); }

void TextBox::SetSelText(std::u16string_view text) { m->PutText(text, StepKind::Separate); }

std::u16string TextBox::SelRTF() const
{
    const std::string rtf = WriteRtf(Slice(m->document, m->Range()), RtfScope::Fragment);
    return {rtf.begin(), rtf.end()};
}

void TextBox::SetSelRTF(std::u16string_view rtf)
{
    // Of a long text that is no RTF only the begin is looked at here.
    if (IsRtf(ToUtf8(rtf.substr(0, 4'096))))
        m->PutFragment(ReadRtf(rtf, m->ReadingHere()), StepKind::Separate);
    else
        m->PutText(rtf, StepKind::Separate);
}

void TextBox::SetSelRTFBytes(std::string_view rtf)
{
    if (IsRtf(rtf))
        m->PutFragment(ReadRtf(rtf, m->ReadingHere()), StepKind::Separate);
    else
        m->PutText(DecodePlainText(rtf), StepKind::Separate);
}

std::int32_t TextBox::Find(std::u16string_view text) { return Find(text, m->selection.start); }

std::int32_t TextBox::Find(std::u16string_view text, std::int32_t start, std::int32_t end, int options)
{
    if (start < 0)
        return -1;
    const MatchCase matchCase{(options & kFindMatchCase) != 0};
    const WholeWord wholeWord{(options & kFindWholeWord) != 0};
    const Position limit{end < 0 ? TextLength() : end};
    const auto found = DocumentSearch(text, matchCase, wholeWord).First(m->document, {{start}, limit});
    if (!found)
        return -1;
    const TextRange match = Snapped(m->document, {*found, *found + static_cast<std::int32_t>(text.size())});
    m->Select({match.begin.value, match.Length()});
    return found->value;
}

void TextBox::InsertObject(InlineObject object)
{
    if (!m->HasRoomFor(1))
        return;
    const CharFormatId format = m->document.SharedFormats().Intern(m->FormatToInsert());
    m->Edit(WithObject(m->document, m->Range(), Shared(std::move(object)), format), {m->selection.start + 1, 0});
}

const Document& TextBox::Value() const { return m->document; }

void TextBox::SetValue(Document document, Selection selection)
{
    const Position begin{std::max(selection.start, 0)};
    const TextRange range = Snapped(document, {begin, begin + std::clamp(selection.length, 0, kMaxTextUnits)});
    m->Edit(std::move(document), {range.begin.value, range.Length()});
}

void TextBox::OpenValue(Document document)
{
    m->history.Clear();
    m->Show(std::move(document), {});
    m->history.Clear();
}

bool TextBox::CanUndo() const { return m->history.CanUndo(); }

bool TextBox::CanRedo() const { return m->history.CanRedo(); }

void TextBox::Undo()
{
    if (!CanUndo())
        return;
    Moment earlier = m->history.Undo({m->document, m->selection});
    if (!earlier.document.IsSameAs(m->document))
        m->Show(std::move(earlier.document), earlier.selection);
}

void TextBox::Redo()
{
    if (!CanRedo())
        return;
    Moment later = m->history.Redo({m->document, m->selection});
    m->Show(std::move(later.document), later.selection);
}

void TextBox::ClearHistory() { m->history.Clear(); }

void TextBox::BeginStep() { m->history.Begin({m->document, m->selection}); }

void TextBox::EndStep() { m->history.End(m->document); }

}  // namespace quillmarker
