#include "engine/box/file_store_sample.h"

#include <sys/resource.h>

#include <csignal>
#include <string>

namespace quillmarker
{
namespace
{

namespace fs = std::filesystem;

TEST_F(FileStore, AReplacedFileKeepsItsPermissions)
{
    const fs::path path = Made("report", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    EXPECT_EQ(WriteFile(path, "new"), FileError::None);
    EXPECT_EQ(Bytes(path), "new");
    EXPECT_EQ(ModeOf(path), mode_t{0640});
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(FileStore, ANewFileHasThePermissionsTheProcessGives)
{
    const mode_t before = ::umask(027);
    EXPECT_EQ(WriteFile(In("new"), "x"), FileError::None);
    ::umask(before);
    EXPECT_EQ(ModeOf(In("new")), mode_t{0640});
}

TEST_F(FileStore, AReplacedFileIsANewOne)
{
    const fs::path path = Made("report", "old");
    std::ifstream reader(path);
    EXPECT_EQ(WriteFile(path, "new"), FileError::None);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}),
              "old");  // who reads the old one goes on doing so
}

TEST_F(FileStore, ASymbolicLinkKeepsPointing)
{
    fs::create_directory(In("deep"));
    Made("deep/report", "old");
    fs::create_symlink("deep/report", In("first"));
    fs::create_symlink(In("first"), In("second"));
    EXPECT_EQ(WriteFile(In("second"), "new"), FileError::None);
    EXPECT_TRUE(fs::is_symlink(In("second")));
    EXPECT_TRUE(fs::is_symlink(In("first")));
    EXPECT_EQ(Bytes(In("deep/report")), "new");
}

TEST_F(FileStore, ALinkToNothingMakesItsFile)
{
    fs::create_symlink("later", In("link"));
    EXPECT_EQ(WriteFile(In("link"), "x"), FileError::None);
    EXPECT_TRUE(fs::is_symlink(In("link")));
    EXPECT_EQ(Bytes(In("later")), "x");
}

TEST_F(FileStore, LinksInACircleAreRefused)
{
    fs::create_symlink("two", In("one"));
    fs::create_symlink("one", In("two"));
    EXPECT_EQ(WriteFile(In("one"), "x"), FileError::PathFileAccess);
    EXPECT_EQ(ReadFile(In("one")).error, FileError::PathFileAccess);
}

TEST_F(FileStore, WritingTellsWhatIsMissing)
{
    EXPECT_EQ(WriteFile(In("no/no.rtf"), "x"), FileError::PathNotFound);
    EXPECT_EQ(WriteFile(Made("file", "x") / "no.rtf", "x"), FileError::PathNotFound);
    EXPECT_EQ(WriteFile(In(""), "x"), FileError::PathFileAccess);
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(FileStore, AReadOnlyFileIsRefused)
{
    const fs::path path = Made("report", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(InOwnProcess([&] {
                  BecomeNobody();
                  return WriteFile(path, "new");
              }),
              FileError::PermissionDenied);
    EXPECT_EQ(Bytes(path), "old");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(FileStore, AFolderThatMayNotBeWrittenIsRefused)
{
    fs::create_directory(In("locked"));
    Made("locked/report", "old");
    ASSERT_EQ(::chmod(In("locked/report").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(In("locked").c_str(), 0555), 0);
    for (const char* name : {"locked/report", "locked/new"})
    {
        EXPECT_EQ(InOwnProcess([&] {
                      BecomeNobody();
                      return WriteFile(In(name), "new");
                  }),
                  FileError::PermissionDenied);
    }
    EXPECT_EQ(Bytes(In("locked/report")), "old");
}

TEST_F(FileStore, AFullDeviceSaysSo)
{
    EXPECT_EQ(WriteFile("/dev/full", "x"), FileError::DiskFull);
    EXPECT_EQ(WriteFile("/dev/null", "x"), FileError::None);
}

TEST_F(FileStore, AFailedSaveLeavesTheOldFileWholeAndNothingElse)
{
    const fs::path path = Made("report", "old");
    EXPECT_EQ(InOwnProcess([&] {
                  const rlimit fewBytes = {1000, 1000};
                  ::setrlimit(RLIMIT_FSIZE, &fewBytes);
                  std::signal(SIGXFSZ, SIG_IGN);
                  return WriteFile(path, std::string(5000, 'n'));
              }),
              FileError::DiskFull);
    EXPECT_EQ(Bytes(path), "old");
    EXPECT_EQ(FileCount(), 1);
}

}  // namespace
}  // namespace quillmarker
