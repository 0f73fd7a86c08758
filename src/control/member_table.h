#pragma once

#include <quillmarker/widgets/type_information.h>

#include <array>

namespace quillmarker
{

// The rows behind InterfaceMembers(), where what is built on them (glue, checks) needs them while compiling.

namespace parameters
{

inline constexpr auto kByValue = PassedBy::Value;
inline constexpr auto kByReference = PassedBy::Reference;

inline constexpr std::array kFileName{Parameter{"FileName", MemberType::String, kByReference}};
inline constexpr std::array kFileNameFindText{Parameter{"FileName", MemberType::String, kByReference},
                                              Parameter{"FindText", MemberType::String, kByReference}};
inline constexpr std::array kPrefixSuffix{Parameter{"Prefix", MemberType::String, kByValue},
                                          Parameter{"Suffix", MemberType::String, kByReference},
                                          Parameter{"RTFcode", MemberType::Boolean, kByReference}};
inline constexpr std::array kStartFinish{Parameter{"start", MemberType::Long, kByReference},
                                         Parameter{"finish", MemberType::Long, kByReference}};
inline constexpr std::array kFont{Parameter{"FontName", MemberType::String, kByValue},
                                  Parameter{"FontSize", MemberType::Single, kByValue}};
inline constexpr std::array kIndents{Parameter{"Left", MemberType::Single, kByValue},
                                     Parameter{"Right", MemberType::Single, kByValue},
                                     Parameter{"hanging", MemberType::Single, kByValue}};
inline constexpr std::array kPictureFindText{Parameter{"Picture", MemberType::Picture, kByReference},
                                             Parameter{"FindText", MemberType::String, kByReference}};
inline constexpr std::array kHiddenText{Parameter{"txth", MemberType::String, kByReference},
                                        Parameter{"LF", MemberType::String, kByReference}};
inline constexpr std::array kTextFindText{Parameter{"txt", MemberType::String, kByReference},
                                          Parameter{"FindText", MemberType::String, kByReference}};
inline constexpr std::array kRichTextFindText{Parameter{"richtext", MemberType::String, kByReference},
                                              Parameter{"FindText", MemberType::String, kByReference}};

// What a property is set to.
inline constexpr std::array kBoolean{Parameter{"value", MemberType::Boolean, kByValue}};
inline constexpr std::array kBooleanByReference{Parameter{"value", MemberType::Boolean, kByReference}};
inline constexpr std::array kSingle{Parameter{"value", MemberType::Single, kByValue}};

}  // namespace parameters

namespace rows
{

using Parameters = std::span<const Parameter>;

constexpr Member Method(std::string_view name, std::int32_t id, Parameters parameters, MemberType result,
                        std::string_view help)
{
    return {name, MemberKind::Method, id, parameters, result, true, help};
}

constexpr Member Command(std::string_view name, std::int32_t id, std::string_view help)
{
    return Method(name, id, {}, MemberType::None, help);
}

constexpr Member Reader(std::string_view name, std::int32_t id, MemberType type, std::string_view help)
{
    return {name, MemberKind::PropertyGet, id, {}, type, true, help};
}

constexpr Member Writer(std::string_view name, std::int32_t id, Parameters value, std::string_view help)
{
    return {name, MemberKind::PropertyPut, id, value, MemberType::None, true, help};
}

constexpr Member Hidden(Member member)
{
    member.isBrowsable = false;
    return member;
}

}  // namespace rows

/// In the order of the interface's function table.
inline constexpr std::array kMembers{
    rows::Command("NoPrinterMsg", 0x600300A1, "Tells the user that printing needs a printer"),
    rows::Hidden(rows::Reader("Changed", 0x680300A0, MemberType::Boolean,
                              "Whether the document was changed since this was last set to False")),
    rows::Hidden(rows::Writer("Changed", 0x680300A0, parameters::kBooleanByReference,
                              "Whether the document was changed since this was last set to False")),
    rows::Command("Clear", 0x600300A3, "Empties the document"),
    rows::Command("CursorEnd", 0x600300A4, "Moves the caret to the end of the document"),
    rows::Command("CursorStart", 0x600300A5, "Moves the caret to the start of the document"),
    rows::Reader("hWnd", 0x6803009F, MemberType::Long, "The handle of the control's own window"),
    rows::Reader("MeasureInches", 0x6803009E, MemberType::Boolean,
                 "Whether rulers and margins are measured in inches, or else in centimetres"),
    rows::Writer("MeasureInches", 0x6803009E, parameters::kBooleanByReference,
                 "Whether rulers and margins are measured in inches, or else in centimetres"),
    rows::Method("OpenFileText", 0x600300B2, parameters::kFileName, MemberType::Long,
                 "Opens a plain text file; 0, or the number of the error"),
    rows::Method("PreviousField", 0x600300B3, parameters::kPrefixSuffix, MemberType::String,
                 "The text between the last Prefix before the caret and the Suffix behind that"),
    rows::Command("Refresh", 0x600300B5, "Repaints the control"),
    rows::Reader("RTFString", 0x6803009D, MemberType::String, "The whole document as RTF"),
    rows::Method("SelectText", 0x600300B6, parameters::kStartFinish, MemberType::None,
                 "Selects the text from start to finish, -1 being the end"),
    rows::Method("SetFont", 0x600300B7, parameters::kFont, MemberType::None, "Sets the font of the selection"),
    rows::Method("SetIndents", 0x600300B8, parameters::kIndents, MemberType::None,
                 "Sets the indents of the selected paragraphs"),
    rows::Command("ShowParagraphDialog", 0x600300B9, "Lets the user format the selected paragraphs"),
    rows::Hidden(rows::Reader("Redraw", 0x6803009C, MemberType::Boolean, "Whether changes of the text are painted")),
    rows::Command("Copy", 0x600300BA, "Copies the selection to the clipboard"),
    rows::Command("Cut", 0x600300BB, "Moves the selection to the clipboard"),
    rows::Command("Delete", 0x600300BC, "Deletes the selection"),
    rows::Hidden(rows::Writer("Redraw", 0x6803009C, parameters::kBoolean,
                              "Whether changes of the text are painted; put it around many insertions")),
    rows::Method("InsertPictureFile", 0x600300C7, parameters::kFileNameFindText, MemberType::Long,
                 "Inserts the picture of a file at the caret, or in place of FindText"),
    rows::Method("InsertFileRTF", 0x600300C8, parameters::kFileNameFindText, MemberType::Long,
                 "Inserts an RTF file at the caret, or in place of FindText"),
    rows::Method("OpenFileRTF", 0x600300C9, parameters::kFileName, MemberType::Long,
                 "Opens an RTF file; 0, or the number of the error"),
    rows::Command("Paste", 0x600300CA, "Inserts what the clipboard holds"),
    rows::Method("InsertPictureObject", 0x600300CB, parameters::kPictureFindText, MemberType::Long,
                 "Inserts a picture at the caret, or in place of FindText"),
    rows::Method("InsertStringHidden", 0x600300CC, parameters::kHiddenText, MemberType::Long,
                 "Inserts hidden text at the caret, and LF behind it as ordinary text"),
    rows::Method("InsertStringText", 0x600300CD, parameters::kTextFindText, MemberType::Long,
                 "Inserts plain text at the caret, or in place of FindText"),
    rows::Method("InsertStringRTF", 0x600300CE, parameters::kRichTextFindText, MemberType::Long,
                 "Inserts RTF at the caret, or in place of FindText"),
    rows::Method("SaveFileRTF", 0x600300D5, parameters::kFileName, MemberType::Long,
                 "Saves the document as RTF; 0, or the number of the error"),
    rows::Command("ShowFontDialog", 0x600300D6, "Lets the user choose the font of the selection"),
    rows::Command("ShowPrintPreview", 0x600300D7, "Shows the pages as they will be printed"),
    rows::Command("ShowPrintDialog", 0x600300D8, "Lets the user print the document"),
    rows::Command("ShowPageDialog", 0x600300D9, "Lets the user set the margins of the page"),
    rows::Command("ShowPrintSetupDialog", 0x600300DA, "Lets the user choose and set up the printer"),
    rows::Command("ShowSearchDialog", 0x600300DB, "Lets the user find and replace text"),
    rows::Reader("TextString", 0x6803009B, MemberType::String, "The whole document as plain text"),
    rows::Writer("Toolbar", 0x6803009A, parameters::kBoolean, "Whether the toolbar is shown"),
    rows::Reader("Toolbar", 0x6803009A, MemberType::Boolean, "Whether the toolbar is shown"),
    rows::Writer("Ruler", 0x68030099, parameters::kBoolean, "Whether the ruler is shown"),
    rows::Reader("Ruler", 0x68030099, MemberType::Boolean, "Whether the ruler is shown"),
    rows::Writer("Statusbar", 0x68030098, parameters::kBoolean, "Whether the status bar is shown"),
    rows::Reader("Statusbar", 0x68030098, MemberType::Boolean, "Whether the status bar is shown"),
    rows::Command("Undo", 0x600300DD,
                  "Restores the document as it was before Redraw was set to False, or undoes a step"),
    rows::Reader("LeftMargin", 0x68030097, MemberType::Single, "The left margin of the page, in inches or centimetres"),
    rows::Reader("RightMargin", 0x68030096, MemberType::Single,
                 "The right margin of the page, in inches or centimetres"),
    rows::Reader("TopMargin", 0x68030095, MemberType::Single, "The top margin of the page, in inches or centimetres"),
    rows::Reader("BottomMargin", 0x68030094, MemberType::Single,
                 "The bottom margin of the page, in inches or centimetres"),
    rows::Writer("LeftMargin", 0x68030097, parameters::kSingle,
                 "The left margin of the page, in inches or centimetres"),
    rows::Writer("RightMargin", 0x68030096, parameters::kSingle,
                 "The right margin of the page, in inches or centimetres"),
    rows::Writer("TopMargin", 0x68030095, parameters::kSingle, "The top margin of the page, in inches or centimetres"),
    rows::Writer("BottomMargin", 0x68030094, parameters::kSingle,
                 "The bottom margin of the page, in inches or centimetres"),
    rows::Reader("RTFObj", 0x680300DE, MemberType::Object, "The text itself, whose members can be used directly"),
};

}  // namespace quillmarker
