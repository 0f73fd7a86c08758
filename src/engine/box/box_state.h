#pragma once

#include "engine/box/document_loading.h"
#include "engine/box/undo_history.h"
#include "engine/document/edit.h"
#include "engine/document/format_edit.h"

#include <quillmarker/rtf.h>
#include <quillmarker/text_box.h>

#include <memory>
#include <optional>
#include <vector>

namespace quillmarker
{

/// The tab stops that a host is writing one by one, in its own order; the document holds them sorted.
struct TabDraft
{
    Document document;  // as the latest write left it
    Selection selection;
    std::vector<TabStop> tabs;
};

/// The value that all of a selection has in common; empty when it is mixed.
template <class T>
class CommonValue
{
public:
    void Add(T value)
    {
        m_isMixed = m_isMixed || (m_value && !(*m_value == value));
        m_value = std::move(value);
    }

    std::optional<T> Result() const { return m_isMixed ? std::nullopt : m_value; }

private:
    std::optional<T> m_value;
    bool m_isMixed = false;
};

struct TextBox::State
{
    explicit State(TextBox& owner) : box(owner), document(FormatOf(font)) {}

    /// Expires with the box.
    using Life = std::weak_ptr<const bool>;

    TextBox& box;
    std::shared_ptr<const bool> life = std::make_shared<const bool>(true);
    BoxFont font;
    Document document;
    Selection selection;
    std::optional<CharFormat> insertion;  // set on an empty selection; lasts until the caret moves away
    UndoHistory history;
    std::optional<TabDraft> tabDraft;
    std::int32_t rightMargin = 0;
    std::int32_t bulletIndent = 360;
    Colour backColour = Colour::Of(255, 255, 255);
    std::int32_t maxLength = 0;
    bool locked = false;

    TextRange Range() const { return {{selection.start}, {selection.start + selection.length}}; }

    /// What text put at the selection has.
    CharFormat FormatToInsert() const;

    /// How RTF put there is read: what it does not state is as the place has it.
    RtfReading ReadingHere() const;

    /// Makes `next` the document and selects `after` in it; one step of history, one Change.
    /// `leaves` becomes the insertion format before anybody hears of the edit.
    void Edit(Document next, Selection after, StepKind kind = StepKind::Separate,
              std::optional<CharFormat> leaves = std::nullopt);

    /// The document now, from the history or from outside.
    void Show(Document next, Selection after, std::optional<CharFormat> leaves = std::nullopt);

    /// Moves the selection, whether or not it stands in a mark.
    void Select(Selection next);

    void PutText(std::u16string_view text, StepKind kind);
    void PutFragment(const Document& fragment, StepKind kind);
    void SetChars(const PartialCharFormat& patch);
    void ChangeChars(const CharFormatChange& change);
    void ChangeParagraphs(const ParagraphFormatChange& change);
    std::vector<TabStop> DraftedTabs() const;
    void DraftTabs(std::vector<TabStop> tabs);

    /// Whether the document can take `units` in place of the selection.
    bool HasRoomFor(std::int32_t units) const;

    /// Whether the user may change the text of `range`.
    bool MayEdit(TextRange range) const;
    /// What the user writes beside protected text is not protected.
    void WriteUnprotected();
    /// The units that MaxLength leaves for what replaces the selection; `wanted` when there is no such limit.
    std::int32_t UserRoom(std::int32_t wanted) const;
    /// As much of a text, put over as many units, as MaxLength leaves room for.
    std::u16string_view WithinMaxLength(std::u16string_view text, std::int32_t over) const;
    bool DeleteAsUser(TextRange range);

    void RaiseChange() const;
    void RaiseSelChange() const;
};

}  // namespace quillmarker
