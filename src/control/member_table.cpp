#include "control/member_table.h"

#include <algorithm>
#include <cstddef>

namespace quillmarker
{

namespace
{

constexpr std::array kKeyName{Parameter{"KeyName", MemberType::String, PassedBy::Value}};

constexpr std::array kEvents{
    EventMember{"Change", 1, {}, "The document changed"},
    EventMember{"Click", 2, {}, "The text was clicked"},
    EventMember{"DblClick", 3, {}, "The text was double-clicked"},
    EventMember{"RClick", 4, {}, "The right mouse button was pressed in the text"},
    EventMember{"ToolbarClick", 5, kKeyName,
                "A button of the toolbar was clicked, after the control's own action for it"},
};

// Sorted.
constexpr std::array<std::string_view, 9> kPendingMembers{
    "InsertPictureFile", "InsertPictureObject", "SetIndents",           "ShowPageDialog",   "ShowParagraphDialog",
    "ShowPrintDialog",   "ShowPrintPreview",    "ShowPrintSetupDialog", "ShowSearchDialog",
};

// A name and an id belong to each other: those that get and put a property share both, nothing else does either.
constexpr bool NamesAndIdsAgree()
{
    return std::all_of(kMembers.begin(), kMembers.end(), [](const Member& one) {
        return std::all_of(kMembers.begin(), kMembers.end(), [&one](const Member& other) {
            return (one.name == other.name) == (one.dispatchId == other.dispatchId);
        });
    });
}

constexpr bool EachKindStandsOnce()
{
    for (std::size_t row = 0; row < kMembers.size(); ++row)
        for (std::size_t other = row + 1; other < kMembers.size(); ++other)
            if (kMembers[row].name == kMembers[other].name &&
                (kMembers[row].kind == kMembers[other].kind || kMembers[row].kind == MemberKind::Method ||
                 kMembers[other].kind == MemberKind::Method))
                return false;
    return true;
}

// Who writes a property writes what is read from it.
constexpr bool WritersTakeWhatReadersGive()
{
    return std::all_of(kMembers.begin(), kMembers.end(), [](const Member& writer) {
        if (writer.kind != MemberKind::PropertyPut)
            return true;
        return std::any_of(kMembers.begin(), kMembers.end(), [&writer](const Member& reader) {
            return reader.name == writer.name && reader.kind == MemberKind::PropertyGet &&
                   writer.parameters.size() == 1 && writer.parameters[0].type == reader.result &&
                   writer.isBrowsable == reader.isBrowsable;
        });
    });
}

// The ids of the interface tell methods from properties, and both from the events.
constexpr bool IdsTellTheKind()
{
    return std::all_of(kMembers.begin(), kMembers.end(), [](const Member& member) {
        return (member.dispatchId & ~0xFF) == (member.kind == MemberKind::Method ? 0x60030000 : 0x68030000);
    });
}

constexpr bool EventsAreCountedFromOne()
{
    for (std::size_t row = 0; row < kEvents.size(); ++row)
        if (kEvents[row].dispatchId != static_cast<std::int32_t>(row) + 1)
            return false;
    return true;
}

constexpr bool PendingMembersAreMembers()
{
    return std::is_sorted(kPendingMembers.begin(), kPendingMembers.end()) &&
           std::all_of(kPendingMembers.begin(), kPendingMembers.end(), [](std::string_view name) {
               return std::any_of(kMembers.begin(), kMembers.end(),
                                  [name](const Member& member) { return member.name == name; });
           });
}

static_assert(kMembers.size() == 54);
static_assert(kEvents.size() == 5);
static_assert(NamesAndIdsAgree());
static_assert(EachKindStandsOnce());
static_assert(WritersTakeWhatReadersGive());
static_assert(IdsTellTheKind());
static_assert(EventsAreCountedFromOne());
static_assert(PendingMembersAreMembers());

}  // namespace

std::span<const Member> InterfaceMembers() { return kMembers; }

std::span<const EventMember> InterfaceEvents() { return kEvents; }

std::span<const std::string_view> PendingMembers() { return kPendingMembers; }

}  // namespace quillmarker
