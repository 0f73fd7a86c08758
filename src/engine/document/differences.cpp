#include "engine/document/differences.h"

namespace quillmarker
{

std::vector<DocumentChange> Differences(const Document& before, const Document& after)
{
    return TreeDifference<32>().Find(before.Content().Content()->tree, after.Content().Content()->tree);
}

}  // namespace quillmarker
