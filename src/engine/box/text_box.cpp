#include <quillmarker/text_box.h>

#include "engine/box/box_state.h"
#include "engine/box/document_loading.h"
#include "engine/box/file_store.h"
#include "engine/document/document_search.h"
#include "engine/document/utf.h"
#include "engine/rtf/plain_text.h"

#include <algorithm>

namespace quillmarker
{

TextBox::TextBox() : m_state(std::make_unique<State>(*this)) {}
TextBox::~TextBox() = default;

std::u16string TextBox::Text() const { return m_state->document.Text(); }

std::int32_t TextBox::TextLength() const { return m_state->document.Size(); }

void TextBox::SetText(std::u16string_view text)
{
    if (LengthInDocument(text) > kMaxTextUnits)
        return;
    const Document empty(FormatOf(m_state->font));
    m_state->Edit(WithText(empty, {}, text, empty.ParagraphAt(0).Ending().charFormat), {});
}

std::u16string TextBox::TextRTF() const
{
    const std::string rtf = WriteRtf(m_state->document);
    return {rtf.begin(), rtf.end()};
}

void TextBox::SetTextRTF(std::u16string_view rtf)
{
    m_state->Edit(ReadRtf(rtf, {.defaultFormat = FormatOf(m_state->font), .formats = {}}), {});
}

void TextBox::SetTextRTFBytes(std::string_view rtf)
{
    m_state->Edit(ReadRtf(rtf, {.defaultFormat = FormatOf(m_state->font), .formats = {}}), {});
}

FileError TextBox::LoadFile(const std::filesystem::path& path, FileKind kind)
{
    LoadedDocument loaded = LoadDocument(path, kind, m_state->font);
    if (loaded.document)
        OpenValue(*std::move(loaded.document));
    return loaded.error;
}

FileError TextBox::SaveFile(const std::filesystem::path& path, FileKind kind) const
{
    return WriteFile(path, kind == FileKind::Rtf ? WriteRtf(m_state->document) : ToUtf8(m_state->document.Text()));
}

std::int32_t TextBox::SelStart() const { return m_state->selection.start; }

void TextBox::SetSelStart(std::int32_t start)
{
    if (start < 0)
        return;
    const Position end{TextLength()};
    const Position caret = std::min(Position{start}, end);
    m_state->Select({Snapped(m_state->document, {caret, caret}).begin.value, 0});
}

std::int32_t TextBox::SelLength() const { return m_state->selection.length; }

void TextBox::SetSelLength(std::int32_t length)
{
    if (length < 0)
        return;
    const Position begin{m_state->selection.start};
    const Position end = begin + std::min(length, TextLength() - begin.value);
    m_state->Select({begin.value, Snapped(m_state->document, {begin, end}).Length()});
}

void TextBox::Select(Selection selection)
{
    if (selection.start < 0 || selection.length < 0)
        return;
    const Position end{TextLength()};
    const Position begin = std::min(Position{selection.start}, end);
    const TextRange range = Snapped(m_state->document, {begin, begin + std::min(selection.length, end - begin)});
    m_state->Select({range.begin.value, range.Length()});
}

std::u16string TextBox::SelText() const { return m_state->document.Text(m_state->Range()); }

void TextBox::SetSelText(std::u16string_view text) { m_state->PutText(text, StepKind::Separate); }

std::u16string TextBox::SelRTF() const
{
    const std::string rtf = WriteRtf(Slice(m_state->document, m_state->Range()), RtfScope::Fragment);
    return {rtf.begin(), rtf.end()};
}

void TextBox::SetSelRTF(std::u16string_view rtf)
{
    // Of a long text that is no RTF only the begin is looked at here.
    if (IsRtf(ToUtf8(rtf.substr(0, 4'096))))
        m_state->PutFragment(ReadRtf(rtf, m_state->ReadingHere()), StepKind::Separate);
    else
        m_state->PutText(rtf, StepKind::Separate);
}

void TextBox::SetSelRTFBytes(std::string_view rtf)
{
    if (IsRtf(rtf))
        m_state->PutFragment(ReadRtf(rtf, m_state->ReadingHere()), StepKind::Separate);
    else
        m_state->PutText(DecodePlainText(rtf), StepKind::Separate);
}

std::int32_t TextBox::Find(std::u16string_view text) { return Find(text, m_state->selection.start); }

std::int32_t TextBox::Find(std::u16string_view text, std::int32_t start, std::int32_t end, int options)
{
    if (start < 0)
        return -1;
    const MatchCase matchCase{(options & kFindMatchCase) != 0};
    const WholeWord wholeWord{(options & kFindWholeWord) != 0};
    const Position limit{end < 0 ? TextLength() : end};
    const auto found = DocumentSearch(text, matchCase, wholeWord).First(m_state->document, {{start}, limit});
    if (!found)
        return -1;
    const TextRange match = Snapped(m_state->document, {*found, *found + static_cast<std::int32_t>(text.size())});
    m_state->Select({match.begin.value, match.Length()});
    return found->value;
}

void TextBox::InsertObject(InlineObject object)
{
    if (!m_state->HasRoomFor(1))
        return;
    const CharFormatId format = m_state->document.SharedFormats().Intern(m_state->FormatToInsert());
    m_state->Edit(WithObject(m_state->document, m_state->Range(), Shared(std::move(object)), format),
                  {m_state->selection.start + 1, 0});
}

RtfReading TextBox::ReadingHere() const { return m_state->ReadingHere(); }

const Document& TextBox::Value() const { return m_state->document; }

void TextBox::SetValue(Document document, Selection selection)
{
    const Position begin{std::max(selection.start, 0)};
    const TextRange range = Snapped(document, {begin, begin + std::clamp(selection.length, 0, kMaxTextUnits)});
    m_state->Edit(std::move(document), {range.begin.value, range.Length()});
}

void TextBox::OpenValue(Document document)
{
    m_state->history.Clear();
    m_state->Show(std::move(document), {});
}

bool TextBox::CanUndo() const { return m_state->history.CanUndo(); }

bool TextBox::CanRedo() const { return m_state->history.CanRedo(); }

void TextBox::Undo()
{
    if (!CanUndo())
        return;
    Moment earlier = m_state->history.Undo({m_state->document, m_state->selection});
    if (!earlier.document.IsSameAs(m_state->document))
        m_state->Show(std::move(earlier.document), earlier.selection);
}

void TextBox::Redo()
{
    if (!CanRedo())
        return;
    Moment later = m_state->history.Redo({m_state->document, m_state->selection});
    m_state->Show(std::move(later.document), later.selection);
}

void TextBox::ClearHistory() { m_state->history.Clear(); }

void TextBox::BeginStep() { m_state->history.Begin({m_state->document, m_state->selection}); }

void TextBox::EndStep() { m_state->history.End(m_state->document); }

}  // namespace quillmarker
