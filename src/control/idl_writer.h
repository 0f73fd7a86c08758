#pragma once

#include <string>

namespace quillmarker
{

/// The type library `QuillmarkerEd` as a text in the interface definition language, of which an IDL compiler makes what
/// automation clients read. It says what InterfaceMembers() and InterfaceEvents() say, in their order.
std::string TypeLibraryIdl();

}  // namespace quillmarker
