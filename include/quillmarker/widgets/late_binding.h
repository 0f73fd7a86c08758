#pragma once

#include <quillmarker/widgets/export.h>
#include <quillmarker/widgets/type_information.h>

#include <QString>
#include <QVariant>

#include <cstdint>

namespace quillmarker
{

class IRichTextEditor;

/// How a late-bound call went. The numbers are those that automation clients know.
enum class DispatchCode : std::int32_t {
    Done = 0,
    MemberNotFound = -2147352573,     // 0x80020003: no member has this id, or none of this kind
    TypeMismatch = -2147352571,       // 0x80020005: an argument cannot be made what the member takes
    UnknownName = -2147352570,        // 0x80020006
    Overflow = -2147352566,           // 0x8002000A: a number too large for the member's type
    BadParameterCount = -2147352562,  // 0x8002000E
};

struct DispatchResult
{
    DispatchCode code = DispatchCode::Done;
    QVariant value;     // invalid when the member has no result
    int argument = -1;  // the one at fault
};

constexpr std::int32_t kUnknownDispatchId = -1;

/// The dispatch id of a member, case ignored; kUnknownDispatchId when there is none.
QUILLMARKER_WIDGETS_EXPORT std::int32_t DispatchIdOf(const QString& name);

/// Calls a member. Arguments are converted to its types (as a host's script would expect: numbers and texts into each
/// other, anything but 0 is true); those passed by reference are written back in the member's type. `kind` may be
/// several flags at once, as a script has them that cannot tell a method from a property.
QUILLMARKER_WIDGETS_EXPORT DispatchResult InvokeMember(IRichTextEditor& editor, std::int32_t dispatchId,
                                                       MemberKind kind, QVariantList& arguments);

}  // namespace quillmarker
