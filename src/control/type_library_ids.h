#pragma once

#include <string_view>

namespace quillmarker
{

// Who registers the type library goes by these: they never change.
constexpr std::string_view kTypeLibraryId = "6326256e-d479-4462-8181-a486937f06a1";
constexpr std::string_view kInterfaceId = "fa51f604-9c6b-4a7c-8803-e80ff976f551";
constexpr std::string_view kEventInterfaceId = "d281ab0c-349e-4fa7-9af5-51f4e99159e8";
constexpr std::string_view kClassId = "885c122c-f584-4a13-825d-07dae0bf0232";

}  // namespace quillmarker
