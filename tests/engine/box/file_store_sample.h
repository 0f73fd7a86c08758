#pragma once

#include "engine/box/file_store.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace quillmarker
{

// The calls go out in a process of their own, so that what it gives up (rights, space, memory) stays given up there.
template <typename Action>
FileError InOwnProcess(Action action)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(static_cast<int>(action()));
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status)) << status;
    return static_cast<FileError>(WEXITSTATUS(status));
}

// Root may read and write everything, so that tests of permissions drop to a user who may not.
inline void BecomeNobody()
{
    constexpr uid_t kNobody = 65534;
    if (::geteuid() == 0 && ::seteuid(kNobody) != 0)
        ::_exit(99);
}

inline mode_t ModeOf(const std::filesystem::path& path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

// A folder of its own for each test.
class FileStore : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::string name = std::filesystem::temp_directory_path() / "quillmarker-test-XXXXXX";
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        m_folder = name;
        std::filesystem::permissions(m_folder, std::filesystem::perms::all);
    }

    void TearDown() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    std::filesystem::path In(std::string_view name) const { return m_folder / name; }

    std::filesystem::path Made(std::string_view name, std::string_view bytes) const
    {
        std::ofstream(In(name), std::ios::binary) << bytes;
        return In(name);
    }

    static std::string Bytes(const std::filesystem::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::ptrdiff_t FileCount() const
    {
        return std::distance(std::filesystem::directory_iterator(m_folder), std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path m_folder;
};

}  // namespace quillmarker
