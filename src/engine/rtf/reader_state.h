#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/paragraph.h>
#include <quillmarker/paragraph_format.h>

#include <cstdint>
#include <vector>

namespace quillmarker
{

/// What a group's text is for.
enum class Destination : std::uint8_t {
    Nothing,  // text is dropped, words have their effect, groups that matter may stand inside
    Body,
    Fonts,
    Colours,
    Styles,
    ListTable,
    ListName,
    ListLevelText,
    ListOverrides,
    Info,
    InfoText,
    InfoTime,
    Picture,
    Object,
    ObjectClass,
    ObjectName,
    ObjectData,
    ObjectResult,
    Field,
    FieldInstruction,
    FieldResult,
    Numbering,
    NumberBefore,
    NumberAfter,
    Header,
    Note,
    NoteId,
    NoteAuthor,
    NestedRow,
    TextBox,
};

/// Where text goes into a story.
constexpr bool IsStory(Destination destination)
{
    return destination == Destination::Body || destination == Destination::FieldResult ||
           destination == Destination::Header || destination == Destination::Note ||
           destination == Destination::ObjectResult || destination == Destination::NestedRow ||
           destination == Destination::TextBox;
}

/// Where text goes into a story of its own.
constexpr bool IsNestedStory(Destination destination)
{
    return destination == Destination::Header || destination == Destination::Note ||
           destination == Destination::ObjectResult;
}

/// What a brace saves and its partner brings back.
struct ReaderState
{
    CharFormat chars;        // without its font, which is a number until text needs it
    std::int32_t font = -1;  // index into the table of fonts
    ParagraphFormat paragraph;
    std::int32_t lineDistance = 0;  // \sl
    bool isMultiple = false;        // \slmult
    std::int32_t list = 0;          // \ls
    std::int32_t listLevel = 0;     // \ilvl
    std::int32_t tableDepth = 0;    // \itap; -1 when only \intbl was said
    std::int32_t unicodeSkip = 1;   // \uc
    Destination destination = Destination::Body;
    std::uint32_t group = 0;  // tells one destination's group from the next one's
    bool charsKnown = false;
    bool paragraphKnown = false;
    CharFormatId charsId{};
    ParagraphFormatId paragraphId{};
};

/// The states that open braces saved. Braces between which nothing changes share one saved state, and beyond a depth
/// that no writer reaches nothing is saved any more, so that braces alone cannot fill memory.
class StateStack
{
public:
    static constexpr std::size_t kMaxSaved = 10'000;

    const ReaderState& Current() const { return m_current; }

    /// The state, to be changed until the current group ends.
    ReaderState& Change()
    {
        if (m_opened > 0 && m_saved.size() < kMaxSaved)
        {
            m_saved.push_back({m_current, m_opened});
            m_opened = 0;
        }
        return m_current;
    }

    /// Keeps what is known of the state, whether or not a group was opened since: it says nothing new.
    ReaderState& Note() { return m_current; }

    void Open()
    {
        ++m_opened;
        ++m_depth;
    }
    bool IsOutermost() const { return m_depth == 1; }
    bool CanClose() const { return m_opened > 0 || !m_saved.empty(); }

    /// Whether the next closing brace ends the group whose destination is in force.
    bool ClosesGroup() const
    {
        return m_opened == 0 && !m_saved.empty() && m_saved.back().state.group != m_current.group;
    }

    /// Whether nothing more can be saved.
    bool IsFull() const { return m_saved.size() >= kMaxSaved; }

    /// Closes a group; true when that brought back an earlier state, `left` being the one that ended.
    bool Close(ReaderState& left)
    {
        --m_depth;
        if (m_opened > 0)
        {
            --m_opened;
            return false;
        }
        left = std::move(m_current);
        m_current = std::move(m_saved.back().state);
        m_opened = m_saved.back().opened - 1;
        m_saved.pop_back();
        return true;
    }

private:
    struct Saved
    {
        ReaderState state;
        std::size_t opened = 0;
    };

    ReaderState m_current;
    std::vector<Saved> m_saved;
    std::size_t m_opened = 0;
    std::size_t m_depth = 0;
};

}  // namespace quillmarker
