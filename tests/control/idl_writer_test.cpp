#include "control/idl_writer.h"
#include "support/golden.h"

namespace quillmarker
{
namespace
{

TEST(InterfaceDescription, StaysAsItIs) { ExpectGolden("tests/control/golden/QuillmarkerEd.idl", TypeLibraryIdl()); }

}  // namespace
}  // namespace quillmarker
