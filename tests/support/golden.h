#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace quillmarker
{

/// Expects `text` to be what the file at `path` (from the root of the source tree) holds. To accept what the tests
/// give now: QUILLMARKER_ACCEPT_GOLDENS=1 ctest --preset dev
inline void ExpectGolden(const std::string& path, const std::string& text)
{
    if (const char* accept = std::getenv("QUILLMARKER_ACCEPT_GOLDENS"); accept && *accept == '1')
    {
        std::ofstream(path, std::ios::binary) << text;
        return;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file.is_open()) << path;
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(file), {})) << path;
}

}  // namespace quillmarker
