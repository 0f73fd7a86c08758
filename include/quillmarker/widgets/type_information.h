#pragma once

#include <quillmarker/widgets/export.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace quillmarker
{

// What the control's type library says of its interface, as data. Late binding, the generated interface description and
// the tests read this table; the member functions and Qt properties of RichTextEditor agree with it.

/// Values as in the flags of a late-bound call.
enum class MemberKind : std::uint8_t { Method = 1, PropertyGet = 2, PropertyPut = 4 };

/// Boolean is 16 bits wide at a COM boundary and -1 when true; a C++ host sees bool.
enum class MemberType : std::uint8_t { None, Boolean, Long, Single, String, Picture, Object };

enum class PassedBy : std::uint8_t { Value, Reference };

struct Parameter
{
    std::string_view name;
    MemberType type = MemberType::None;
    PassedBy passedBy = PassedBy::Value;
};

struct Member
{
    std::string_view name;
    MemberKind kind = MemberKind::Method;
    std::int32_t dispatchId = 0;
    std::span<const Parameter> parameters;
    MemberType result = MemberType::None;
    bool isBrowsable = true;  // whether object browsers show it
    std::string_view help;
};

struct EventMember
{
    std::string_view name;
    std::int32_t dispatchId = 0;
    std::span<const Parameter> parameters;
    std::string_view help;
};

/// The 54 members, in the order of the interface's function table.
QUILLMARKER_WIDGETS_EXPORT std::span<const Member> InterfaceMembers();

QUILLMARKER_WIDGETS_EXPORT std::span<const EventMember> InterfaceEvents();

/// Members whose work is not done yet: calling them does nothing.
QUILLMARKER_WIDGETS_EXPORT std::span<const std::string_view> PendingMembers();

}  // namespace quillmarker
