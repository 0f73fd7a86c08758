#pragma once

#include "engine/rtf/code_page.h"
#include "engine/rtf/header_tables.h"
#include "engine/rtf/object_reading.h"
#include "engine/rtf/reader_state.h"
#include "engine/rtf/story.h"
#include "engine/rtf/table_reading.h"
#include "engine/rtf/tokenizer.h"

#include <quillmarker/rtf.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillmarker
{

/// A field whose group is open.
struct OpenField
{
    Field field;
    std::int64_t begin = 0;  // units read before it
    bool isNested = false;   // inside another field's instruction, of which it becomes a part
};

/// Reads one RTF source into a document. The keyword table drives it: each word is a row that calls the members here.
class Reader
{
public:
    Reader(std::string_view source, SourceKind kind, const RtfReading& options);

    Document Read();

    /// Reads the source, hands the main text's paragraphs out and keeps none.
    void Visit(const ParagraphVisitor& visit);

    // What words change.
    CharFormat& Chars();
    ParagraphFormat& ParagraphProperties();
    ReaderState& ChangeState() { return m_states.Change(); }
    const ReaderState& State() const { return m_states.Current(); }
    bool IsIn(Destination destination) const { return State().destination == destination; }

    FontTable& Fonts() { return m_fonts; }
    ColourTable& Colours() { return m_colours; }
    StyleSheet& Styles() { return m_styles; }
    ListTable& Lists() { return m_lists; }
    TableReading& Table() { return m_table; }
    BorderReading& BorderTarget() { return m_border; }
    PictureReading& PictureNow() { return m_picture; }
    DocumentFormat& Properties() { return m_properties; }
    Section& SectionNow() { return m_section; }
    OldNumbering& NumberingNow() { return m_numbering; }
    TabStop& NextTab() { return m_nextTab; }
    ObjectReading* ObjectNow() { return m_objects.empty() ? nullptr : &m_objects.back(); }
    OpenField* FieldNow() { return m_openFields.empty() ? nullptr : &m_openFields.back(); }

    void SelectFont(std::int32_t number);
    void SetDefaultFont(std::int32_t number) { m_defaultFont = number; }
    void SetDefaultLanguage(std::int32_t language) { m_defaultLanguage = language; }
    void SetCodePage(CodePage page) { m_documentPage = page; }
    void SetListId(std::int32_t id) { m_listId = id; }
    void SetOverrideNumber(std::int32_t number) { m_overrideNumber = number; }
    void SetInfoKey(std::string_view key) { m_infoKey = key; }
    /// The date of \info that is under way, whatever groups stand in it; empty when there is none.
    std::string& OpenTime() { return m_openTime; }
    bool IsInMainText() const { return m_stories.size() == 1; }
    void MakeNoteEndnote();
    void ResetChars();
    void ResetParagraph();

    void BeginStyle(StyleKind kind, std::int32_t number);

    // Groups.
    bool Enter(Destination destination);  // false: the group was skipped
    void SkipGroup();
    void SkipAlternative();
    void BeginObject();
    void BeginTextBox();
    void BeginPicture();
    void BeginNumbering();
    void BeginField();
    void BeginFieldResult();
    void BeginStory(Destination destination);
    void BeginHeader(HeaderKind kind);
    void BeginNote(NoteKind kind);
    void BeginNestedRow();

    // Text.
    void PutPageNumber();
    void PutUnit(char16_t unit);
    void PutUnicode(std::int32_t value);
    void EndParagraph(Mark kind, Shared<TableRow> row = {}, Shared<Section> section = {});
    void EndCell(int depth);
    void EndRow(int depth);
    void EndSection();
    bool IsSkipping() const { return m_skip > 0; }
    bool IsInStory() const { return IsStory(State().destination); }

private:
    void HandleWord(const Token& token);
    void HandleSymbol(char symbol);
    void HandleText(const Token& source);
    void HandleByte(unsigned char byte);
    void CloseGroup();
    void EndGroup(const ReaderState& left);
    void EndDestination(const ReaderState& left);

    void EndField();
    void PutMissingResult(const Field& field);
    Shared<Field> Finished(Field field);
    void EndHeader();
    void EndNote();
    void EndPicture();
    void EndObject();
    void EndNumbering();
    void PutObject(InlineObject object);
    Body EndStory();

    bool ConsumeSkipped(Token& token);
    void PutBytes(std::string_view bytes);
    void PutAscii(std::string_view text);
    void PutText(std::u16string_view text);
    void FlushBytes();
    std::u16string* NameTarget();
    void PutName(std::u16string_view text);
    void PutNamePart(std::u16string_view text);
    const Decoder& DecoderNow();
    const Decoder& DecoderOf(const FontEntry& font) const;
    bool HasRoomFor(std::size_t units);

    void SetFontOf(CharFormat& format, std::int32_t font) const;
    void EndStyle();
    void DefineStyles();
    CharFormatId CharsId();
    ParagraphFormatId ParagraphId();
    ParagraphMark MarkNow(Mark kind);
    Shared<Numbering> ListNumbering(std::int32_t list, std::int32_t level);
    Numbering NumberingOf(const ListLevel& source, std::int32_t list, std::int32_t level) const;
    void SetNumberFont(Numbering& numbering, std::int32_t font) const;
    std::int32_t ListNumber(std::int32_t list);
    Story& StoryNow() { return *m_stories.back(); }

    static constexpr std::size_t kMaxStories = 32;
    static constexpr std::size_t kMaxFields = 16;

    Tokenizer m_tokens;
    SourceKind m_kind;
    const RtfReading& m_options;
    std::shared_ptr<FormatTable> m_formats;

    StateStack m_states;
    std::uint32_t m_groups = 0;
    bool m_isStarred = false;
    bool m_isDone = false;
    std::int64_t m_skip = 0;
    std::string m_bytes;  // of a multi-byte code page, until their sequence ends
    std::int64_t m_units = 0;

    FontTable m_fonts;
    ColourTable m_colours;
    StyleSheet m_styles;
    ListTable m_lists;
    std::int32_t m_defaultFont = 0;
    std::int32_t m_defaultLanguage = 0;
    std::int32_t m_listId = 0;
    std::int32_t m_overrideNumber = 0;
    CodePage m_documentPage;
    std::size_t m_endedCells = 0;            // since the latest row ended
    std::size_t m_excessCells;               // that rows may still describe without having them
    std::size_t m_lookAhead;                 // bytes that may still be looked at before their time
    std::optional<ParagraphMark> m_openEnd;  // what holds where the text ends
    std::map<std::pair<std::int32_t, std::int32_t>, Shared<Numbering>> m_listNumberings;

    std::map<std::int32_t, std::int32_t> m_listNumbers;  // as in the source -> as in the document

    TableReading m_table;
    std::vector<TableReading> m_outerTables;
    BorderReading m_border;
    PictureReading m_picture;
    std::vector<ObjectReading> m_objects;
    OldNumbering m_numbering;
    TabStop m_nextTab;
    std::vector<OpenField> m_openFields;
    std::vector<HeaderKind> m_headerKinds;
    std::vector<Note> m_notes;
    Note m_nextNote;

    DocumentFormat m_properties;
    Section m_section;
    std::string m_infoKey;
    std::string m_openTime;
    std::u16string m_infoText;
    std::vector<std::unique_ptr<Story>> m_stories;
    Body m_endedStory;
};

}  // namespace quillmarker
