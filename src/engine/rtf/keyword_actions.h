#pragma once

#include "engine/rtf/keywords.h"
#include "engine/rtf/reader.h"

#include <algorithm>
#include <functional>
#include <string>

namespace quillmarker
{

// The actions of the keyword table. Most are made from the member they set.

// Actions that are more than one assignment, by what they change.

using Action = void(Reader&, const Keyword&, const Parameter&);

// Characters and paragraphs.
Action AddBarTab;
Action AddTab;
Action BorderBox;
Action BorderColour;
Action BorderElsewhere;
Action KeepInParagraph;
Action ResetCharacters;
Action ResetParagraphWord;
Action SetCharacterStyle;
Action SetFont;
Action SetHyphenation;
Action SetInTable;
Action SetLanguage;
Action SetLineDistance;
Action SetLineMultiple;
Action SetList;
Action SetListLevel;
Action SetOtherStyle;
Action SetOutlineLevel;
Action SetSize;
Action SetStyle;
Action SetTableDepth;
Action SetWidth;

// Rows, sections, the document.
Action AddCell;
Action BeginRow;
Action KeepInCell;
Action KeepInRow;
Action SetCellShade;
Action KeepInDocument;
Action KeepInSection;
Action ResetSection;
Action SectionEnd;
Action SetColumns;
Action SetDefaultTab;
Action SetFacingPages;
Action SetFirstPage;
Action SetLandscape;
Action SetSectionLandscape;
Action SetTitlePage;
Action InfoEntry;
Action EnterInfo;
Action InfoNumber;
Action InfoTime;
Action InfoTimePart;

// The head: fonts, styles, lists.
Action KeepInStyle;
Action SetBaseStyle;
Action SetNextStyle;
Action SetAnsiPage;
Action SetDefaultFontWord;
Action SetDefaultLanguageWord;
Action SetFontCharset;
Action SetFontPage;
Action BeginList;
Action BeginListLevel;
Action SetListIdWord;
Action SetLevelKind;
Action SetLevelStart;
Action SetLevelAlign;
Action SetLevelFollow;
Action SetLevelIndent;
Action BeginListOverride;
Action BeginOverrideLevel;
Action BeginNumbering;
Action SetNumberBody;
Action SetNumberContinues;
Action SetNumberFont;
Action SetNumberHanging;
Action SetNumberIndent;
Action SetNumberLevel;
Action SetNumberStart;

// Groups and text.
Action BeginAnnotation;
Action BeginFieldResultWord;
Action BeginFieldWord;
Action BeginFootnote;
Action BeginObjectResult;
Action BeginObjectWord;
Action BeginPicture;
Action BeginTextBox;
Action EndParagraphWord;
Action KeepInField;
Action KeepInObject;
Action KeepInPicture;
Action NestedRowGroup;
Action PutPageNumber;
Action PutUnicodeWord;
Action ReadUnicodeForm;
Action SetEndnote;
Action SetObjectKind;
Action SetUnicodeSkip;

/// Lengths beyond this are damage; they would only overflow what is computed from them.
constexpr std::int32_t kMaxLength = 4'000'000;

constexpr Twips Length(std::int32_t value, std::int32_t unit = 1)
{
    return {std::clamp(value, -kMaxLength / unit, kMaxLength / unit) * unit};
}

/// How much of the words that are only kept a thing keeps. What is written once may keep more than what a single short
/// word of the source makes the writer repeat.
constexpr std::size_t kMaxKeptOnce = 4'096;
constexpr std::size_t kMaxKeptRepeated = 256;

inline void KeepWord(std::string& kept, std::string_view name, const Parameter& parameter, std::size_t most)
{
    if (kept.size() >= most)
        return;
    kept += '\\';
    kept += name;
    if (parameter.IsGiven())
        kept += std::to_string(parameter.value);
}

// Characters.

template <bool CharFormat::*field>
void CharFlag(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Chars().*field = parameter.Or(1) != 0;
}

template <bool CharFormat::*field, bool value>
void CharSet(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Chars().*field = value;
}

template <Colour CharFormat::*field>
void CharColour(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Chars().*field = reader.Colours()[parameter.value];
}

template <Underline kind>
void UnderlineAs(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Chars().underline = parameter.Or(1) != 0 ? kind : Underline::None;
}

template <Script script>
void ScriptAs(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Chars().script = parameter.Or(1) != 0 ? script : Script::None;
}

/// \up and \dn count half-points; without a number they mean three points.
template <int sign>
void Offset(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Chars().offset = Length(parameter.Or(6), 10) * sign;
}

template <Twips CharFormat::*field, int unit>
void CharLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Chars().*field = Length(parameter.value, unit);
}

// Paragraphs.

template <Twips ParagraphFormat::*field>
void ParagraphLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.ParagraphProperties().*field = Length(parameter.value);
}

template <bool ParagraphFormat::*field>
void ParagraphFlag(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.ParagraphProperties().*field = parameter.Or(1) != 0;
}

template <bool ParagraphFormat::*field, bool value>
void ParagraphSet(Reader& reader, const Keyword&, const Parameter&)
{
    reader.ParagraphProperties().*field = value;
}

template <Alignment alignment>
void AlignAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.ParagraphProperties().alignment = alignment;
}

template <TabKind kind>
void TabKindAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.NextTab().kind = kind;
}

template <TabLeader leader>
void TabLeaderAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.NextTab().leader = leader;
}

// Borders and shading.

void ChangeBorder(Reader&, const std::function<void(Border&)>& change);

template <BorderOwner owner, BorderSide side>
void BorderAt(Reader& reader, const Keyword&, const Parameter&)
{
    reader.BorderTarget() = {owner, side, false};
}

template <BorderStyle style>
void BorderStyleAs(Reader& reader, const Keyword&, const Parameter&)
{
    ChangeBorder(reader, [](Border& border) { border.style = style; });
}

template <Twips Border::*field>
void BorderLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    ChangeBorder(reader, [&](Border& border) { border.*field = Length(parameter.value); });
}

template <std::int32_t Shading::*field>
void ParagraphShade(Reader& reader, const Keyword&, const Parameter& parameter)
{
    Shared<Shading>& shading = reader.ParagraphProperties().shading;
    Shading changed = shading ? *shading : Shading();
    changed.*field = std::clamp(parameter.value, 0, 10'000);
    shading = Shared(changed);
}

template <Colour Shading::*field>
void ParagraphShadeColour(Reader& reader, const Keyword&, const Parameter& parameter)
{
    Shared<Shading>& shading = reader.ParagraphProperties().shading;
    Shading changed = shading ? *shading : Shading();
    changed.*field = reader.Colours()[parameter.value];
    shading = Shared(changed);
}

// Tables.

template <Twips TableRow::*field>
void RowLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Table().row.*field = Length(parameter.value);
}

template <bool TableRow::*field>
void RowFlag(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Table().row.*field = parameter.Or(1) != 0;
}

template <RowAlign align>
void RowAlignAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Table().row.align = align;
}

template <CellAlign align>
void CellAlignAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Table().cell.align = align;
}

template <CellMerge TableCell::*field, CellMerge merge>
void MergeAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Table().cell.*field = merge;
}

template <Colour Shading::*field>
void CellShadeColour(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Table().cell.shading.*field = reader.Colours()[parameter.value];
}

template <int depth>
void CellEnd(Reader& reader, const Keyword&, const Parameter&)
{
    reader.EndCell(depth);
}

template <int depth>
void RowEnd(Reader& reader, const Keyword&, const Parameter&)
{
    reader.EndRow(depth);
}

// Sections and the document.

template <Twips PageFormat::*field>
void PaperLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.Properties().page.*field = Length(parameter.value);
}

template <Twips PageFormat::*field>
void SectionPaper(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SectionNow().page.*field = Length(parameter.value);
}

template <SectionBreak kind>
void SectionBreakAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.SectionNow().breakKind = kind;
}

template <Twips Section::*field>
void SectionLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.SectionNow().*field = Length(parameter.value);
}

template <HeaderKind kind>
void HeaderAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.BeginHeader(kind);
}

// Pictures, objects, lists.

template <PictureKind kind>
void PictureAs(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.PictureNow().picture.kind = kind;
    constexpr bool hasNumber =
        kind == PictureKind::Wmf || kind == PictureKind::Dib || kind == PictureKind::Ddb || kind == PictureKind::Other;
    reader.PictureNow().picture.mapping = hasNumber ? parameter.value : 0;
}

template <std::int32_t InlinePicture::*field>
void PictureNumber(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.PictureNow().picture.*field = parameter.value;
}

template <Twips InlinePicture::*field>
void PictureLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    reader.PictureNow().picture.*field = Length(parameter.value);
}

template <Twips EmbeddedObject::*field>
void ObjectLength(Reader& reader, const Keyword&, const Parameter& parameter)
{
    if (reader.ObjectNow())
        reader.ObjectNow()->object.*field = Length(parameter.value);
}

template <NumberKind kind>
void NumberAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.NumberingNow().numbering.kind = kind;
}

template <FontFamily family>
void FontFamilyAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Fonts().Current().family = family;
}

template <void (ColourTable::*part)(std::int32_t)>
void ColourPart(Reader& reader, const Keyword&, const Parameter& parameter)
{
    (reader.Colours().*part)(parameter.value);
}

template <int align>
void NumberAlignAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.NumberingNow().numbering.align = align;
}

template <CodePage page>
void SetPage(Reader& reader, const Keyword&, const Parameter&)
{
    reader.SetCodePage(page);
}

template <bool restarts>
void SetPageRestart(Reader& reader, const Keyword&, const Parameter&)
{
    reader.SectionNow().restartPages = restarts;
}

template <bool rightToLeft>
void SetRowDirection(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Table().row.rightToLeft = rightToLeft;
}

// Groups and text.

template <Destination destination>
void EnterAs(Reader& reader, const Keyword&, const Parameter&)
{
    reader.Enter(destination);
}

template <Destination destination, Destination parent>
void EnterWithin(Reader& reader, const Keyword&, const Parameter&)
{
    if (reader.IsIn(parent))
        reader.Enter(destination);
    else
        reader.SkipGroup();
}

inline void Skip(Reader& reader, const Keyword&, const Parameter&) { reader.SkipGroup(); }

/// A known word without an effect here; without a row of its own, a starred group it begins would be skipped.
inline void Ignore(Reader&, const Keyword&, const Parameter&) {}

template <char16_t unit>
void Put(Reader& reader, const Keyword&, const Parameter&)
{
    reader.PutUnit(unit);
}

}  // namespace quillmarker
