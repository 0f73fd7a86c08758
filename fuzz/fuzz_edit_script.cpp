// Random calls of a text box, checked one by one against a naive model of it.

#include "edit_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr int kMostSteps = 150;
    quillmarker::ByteScript script(data, size);
    quillmarker::EditSession session;
    for (int step = 0; step < kMostSteps && !script.IsAtEnd() && !session.IsTooLong(); ++step)
    {
        session.Step(script);
    }
    return 0;
}
