#include "control/type_library_ids.h"

#include <quillmarker/widgets/rich_text_editor.h>
#include <quillmarker/widgets/type_information.h>

#include <gmock/gmock.h>

#include <cstring>
#include <fstream>
#include <set>
#include <sstream>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

std::string TypeWord(MemberType type)
{
    constexpr const char* kWords[] = {"-", "Boolean", "Long", "Single", "String", "Picture", "Object"};
    return kWords[static_cast<std::size_t>(type)];
}

// What a property is set to is not named in the contract.
std::string Described(std::span<const Parameter> parameters, bool isNamed)
{
    std::string list;
    for (const Parameter& parameter : parameters)
    {
        list += list.empty() ? "" : ", ";
        list += parameter.passedBy == PassedBy::Reference ? "ByRef " : "";
        list += TypeWord(parameter.type);
        list += isNamed ? " " + std::string(parameter.name) : "";
    }
    return "(" + list + ")";
}

std::string Hexadecimal(std::int32_t id)
{
    std::ostringstream text;
    text << std::hex << std::uppercase << id;
    return text.str();
}

std::string Described(const Member& member)
{
    const char* kind = member.kind == MemberKind::Method        ? " method "
                       : member.kind == MemberKind::PropertyGet ? " get "
                                                                : " put ";
    std::string line = std::string(member.name) + kind + Hexadecimal(member.dispatchId) + " " +
                       Described(member.parameters, member.kind == MemberKind::Method);
    if (member.result != MemberType::None)
        line += " -> " + TypeWord(member.result);
    return line + (member.isBrowsable ? "" : " nonbrowsable");
}

std::string Described(const EventMember& event)
{
    return std::string(event.name) + " event " + Hexadecimal(event.dispatchId) + " " +
           Described(event.parameters, true);
}

// The file is the contract, written by hand; it is never accepted anew.
TEST(InterfaceTable, IsTheContractLineByLine)
{
    std::ifstream file("tests/control/interface.txt");
    ASSERT_TRUE(file.is_open());
    std::vector<std::string> wanted;
    for (std::string line; std::getline(file, line);)
        wanted.push_back(line);

    std::vector<std::string> found;
    for (const Member& member : InterfaceMembers())
        found.push_back(Described(member));
    for (const EventMember& event : InterfaceEvents())
        found.push_back(Described(event));

    EXPECT_EQ(found.size(), 54U + 5U);
    EXPECT_THAT(found, testing::ElementsAreArray(wanted));
}

TEST(InterfaceTable, SaysInALineWhatEachMemberIsFor)
{
    std::vector<std::string_view> helps;
    for (const Member& member : InterfaceMembers())
        helps.push_back(member.help);
    for (const EventMember& event : InterfaceEvents())
        helps.push_back(event.help);
    for (const std::string_view help : helps)
    {
        EXPECT_GT(help.size(), 10U) << help;
        EXPECT_LT(help.size(), 100U) << help;
        EXPECT_EQ(help.find('\n'), std::string_view::npos) << help;
        EXPECT_NE(help.back(), '.') << help;
    }
}

TEST(InterfaceTable, NamesThePendingMembers)
{
    EXPECT_THAT(PendingMembers(), ElementsAre("InsertPictureFile", "InsertPictureObject", "SetIndents",
                                              "ShowPageDialog", "ShowParagraphDialog", "ShowPrintDialog",
                                              "ShowPrintPreview", "ShowPrintSetupDialog", "ShowSearchDialog"));
}

TEST(InterfaceTable, HasFourIdentifiersOfTheUsualForm)
{
    const std::set<std::string_view> ids{kTypeLibraryId, kInterfaceId, kEventInterfaceId, kClassId};
    EXPECT_EQ(ids.size(), 4U);
    for (const std::string_view id : ids)
        EXPECT_THAT(std::string(id), testing::MatchesRegex("[0-9a-f]+-[0-9a-f]+-4[0-9a-f]+-[89ab][0-9a-f]+-[0-9a-f]+"));
    for (const std::string_view id : ids)
        EXPECT_EQ(id.size(), 36U);
}

#if defined(__GXX_ABI_VERSION) && defined(__x86_64__)

// The place of a virtual function in its table, as this ABI keeps it in the pointer to the function.
template <class Function>
std::size_t SlotOf(Function function)
{
    std::size_t words[2];
    static_assert(sizeof function == sizeof words);
    std::memcpy(words, &function, sizeof words);
    return (words[0] - 1) / sizeof(void*);
}

TEST(InterfaceTable, IsTheOrderOfTheFunctionTable)
{
    using Editor = IRichTextEditor;
    const std::pair<std::size_t, std::size_t> rows[] = {
        {1, SlotOf(&Editor::NoPrinterMsg)},
        {2, SlotOf(&Editor::Changed)},
        {3, SlotOf(&Editor::SetChanged)},
        {4, SlotOf(&Editor::Clear)},
        {5, SlotOf(&Editor::CursorEnd)},
        {6, SlotOf(&Editor::CursorStart)},
        {7, SlotOf(&Editor::hWnd)},
        {8, SlotOf(&Editor::MeasureInches)},
        {9, SlotOf(&Editor::SetMeasureInches)},
        {10, SlotOf(&Editor::OpenFileText)},
        {11, SlotOf(&Editor::PreviousField)},
        {12, SlotOf(&Editor::Refresh)},
        {13, SlotOf(&Editor::RTFString)},
        {14, SlotOf(&Editor::SelectText)},
        {15, SlotOf(&Editor::SetFont)},
        {16, SlotOf(&Editor::SetIndents)},
        {17, SlotOf(&Editor::ShowParagraphDialog)},
        {18, SlotOf(&Editor::Redraw)},
        {19, SlotOf(&Editor::Copy)},
        {20, SlotOf(&Editor::Cut)},
        {21, SlotOf(&Editor::Delete)},
        {22, SlotOf(&Editor::SetRedraw)},
        {23, SlotOf(&Editor::InsertPictureFile)},
        {24, SlotOf(&Editor::InsertFileRTF)},
        {25, SlotOf(&Editor::OpenFileRTF)},
        {26, SlotOf(&Editor::Paste)},
        {27, SlotOf(&Editor::InsertPictureObject)},
        {28, SlotOf(&Editor::InsertStringHidden)},
        {29, SlotOf(&Editor::InsertStringText)},
        {30, SlotOf(&Editor::InsertStringRTF)},
        {31, SlotOf(&Editor::SaveFileRTF)},
        {32, SlotOf(&Editor::ShowFontDialog)},
        {33, SlotOf(&Editor::ShowPrintPreview)},
        {34, SlotOf(&Editor::ShowPrintDialog)},
        {35, SlotOf(&Editor::ShowPageDialog)},
        {36, SlotOf(&Editor::ShowPrintSetupDialog)},
        {37, SlotOf(&Editor::ShowSearchDialog)},
        {38, SlotOf(&Editor::TextString)},
        {39, SlotOf(&Editor::SetToolbar)},
        {40, SlotOf(&Editor::Toolbar)},
        {41, SlotOf(&Editor::SetRuler)},
        {42, SlotOf(&Editor::Ruler)},
        {43, SlotOf(&Editor::SetStatusbar)},
        {44, SlotOf(&Editor::Statusbar)},
        {45, SlotOf(&Editor::Undo)},
        {46, SlotOf(&Editor::LeftMargin)},
        {47, SlotOf(&Editor::RightMargin)},
        {48, SlotOf(&Editor::TopMargin)},
        {49, SlotOf(&Editor::BottomMargin)},
        {50, SlotOf(&Editor::SetLeftMargin)},
        {51, SlotOf(&Editor::SetRightMargin)},
        {52, SlotOf(&Editor::SetTopMargin)},
        {53, SlotOf(&Editor::SetBottomMargin)},
        {54, SlotOf(&Editor::RTFObj)},
    };
    const std::size_t first = rows[0].second;
    for (const auto& [row, slot] : rows)
        EXPECT_EQ(slot - first + 1, row);
}

#endif

}  // namespace
}  // namespace quillmarker
