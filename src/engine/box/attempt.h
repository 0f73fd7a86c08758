#pragma once

namespace quillmarker
{

/// Tries one step of a member. A step that fails is skipped and what follows it runs: nothing thrown, by a host's
/// handler or for lack of memory, leaves the library. This is its only catch.
template <class Step>
void Attempt(Step&& step) noexcept
{
    try
    {
        step();
    }
    catch (...)  // NOLINT(bugprone-empty-catch)
    {
    }
}

}  // namespace quillmarker
