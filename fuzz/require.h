#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace quillmarker
{

/// What is being done, for the message.
inline const char* underWay = "";

/// Ends the program when a law does not hold, so that the fuzzer keeps the input. `detail` makes the text that says
/// how; it is called only then.
template <class Detail>
void Require(bool holds, const char* law, Detail detail)
{
    if (holds)
        return;
    const std::string text = detail();
    std::fprintf(stderr, "\nLaw broken: %s\nat: %s\n%s\n", law, underWay, text.c_str());
    std::abort();
}

inline void Require(bool holds, const char* law)
{
    Require(holds, law, [] { return std::string(); });
}

}  // namespace quillmarker
