#include "engine/box/file_store_sample.h"

#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace quillmarker
{
namespace
{

namespace fs = std::filesystem;

TEST_F(FileStore, WhatWasWrittenIsRead)
{
    const std::string bytes("a\0\r\n\xFF", 5);
    EXPECT_EQ(WriteFile(In("new.rtf"), bytes), FileError::None);
    const FileContents contents = ReadFile(In("new.rtf"));
    EXPECT_EQ(contents.error, FileError::None);
    EXPECT_EQ(contents.bytes, bytes);
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(FileStore, EmptyAndLargeFilesAreReadWhole)
{
    EXPECT_EQ(WriteFile(In("empty"), ""), FileError::None);
    EXPECT_EQ(ReadFile(In("empty")).error, FileError::None);
    EXPECT_EQ(ReadFile(In("empty")).bytes, "");
    const std::string large(3'000'001, 'x');
    EXPECT_EQ(WriteFile(In("large"), large), FileError::None);
    EXPECT_TRUE(ReadFile(In("large")).bytes == large);
}

TEST_F(FileStore, WhatHasNoSizeIsReadToItsEnd)
{
    ASSERT_EQ(::mkfifo(In("pipe").c_str(), 0600), 0);
    const std::string bytes(300'000, 'p');
    std::thread writer([&] { EXPECT_EQ(WriteFile(In("pipe"), bytes), FileError::None); });
    const FileContents contents = ReadFile(In("pipe"));
    writer.join();
    EXPECT_TRUE(contents.bytes == bytes);
    EXPECT_TRUE(fs::is_fifo(In("pipe")));
    EXPECT_FALSE(ReadFile("/proc/self/status").bytes.empty());
}

TEST_F(FileStore, ReadingTellsWhatIsMissing)
{
    EXPECT_EQ(ReadFile(In("no.rtf")).error, FileError::FileNotFound);
    EXPECT_EQ(ReadFile("there-is-no-such-file").error, FileError::FileNotFound);
    EXPECT_EQ(ReadFile(In("no/no.rtf")).error, FileError::PathNotFound);
    EXPECT_EQ(ReadFile(Made("file", "x") / "no.rtf").error, FileError::PathNotFound);
    EXPECT_EQ(ReadFile(In("")).error, FileError::PathFileAccess);
}

TEST_F(FileStore, NamesThatCannotBeAreRefused)
{
    for (const fs::path& path : {fs::path(), In(std::string_view("a\0b", 3)), In(std::string(300, 'n')),
                                 fs::path(std::string(5000, '/') + "x")})
    {
        EXPECT_EQ(ReadFile(path).error, FileError::BadFileName);
        EXPECT_EQ(WriteFile(path, "x"), FileError::BadFileName);
    }
    EXPECT_EQ(FileCount(), 0);
}

TEST_F(FileStore, WhatMayNotBeReadIsRefused)
{
    const fs::path path = Made("secret", "x");
    fs::permissions(path, fs::perms::none);
    EXPECT_EQ(InOwnProcess([&] {
                  BecomeNobody();
                  return ReadFile(path).error;
              }),
              FileError::PermissionDenied);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)  // they need more memory than is left
TEST_F(FileStore, AFileLargerThanMemoryIsRefused)
{
    const fs::path path = Made("sparse", "");
    fs::resize_file(path, std::uintmax_t{8} << 30);
    EXPECT_EQ(InOwnProcess([&] {
                  const rlimit oneGigabyte = {rlim_t{1} << 30, rlim_t{1} << 30};
                  ::setrlimit(RLIMIT_AS, &oneGigabyte);
                  return ReadFile(path).error;
              }),
              FileError::OutOfMemory);
}
#endif

TEST(FileErrors, EachHasItsOwnClause)
{
    std::vector<std::string> clauses;
    for (const FileError error : {FileError::None, FileError::OutOfMemory, FileError::BadFileName,
                                  FileError::FileNotFound, FileError::DeviceError, FileError::DiskFull,
                                  FileError::PermissionDenied, FileError::PathFileAccess, FileError::PathNotFound})
        clauses.emplace_back(Describe(error));
    std::sort(clauses.begin(), clauses.end());
    EXPECT_EQ(std::unique(clauses.begin(), clauses.end()), clauses.end());
    EXPECT_STREQ(Describe(static_cast<FileError>(-1)), "the error is not known");
}

}  // namespace
}  // namespace quillmarker
