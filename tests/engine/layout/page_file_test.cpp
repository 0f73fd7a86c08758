#include "engine/layout/page_file.h"

#include "engine/layout/page_record_sample.h"

#include <gmock/gmock.h>

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>

namespace quillmarker
{
namespace
{

namespace fs = std::filesystem;

class PageFile : public testing::Test
{
protected:
    fs::path InFolder(const char* name) const { return fs::path(m_folder.path().toStdString()) / name; }

    const QTemporaryDir m_folder;
    const std::unique_ptr<FontHost> m_fonts = SystemFonts();
};

TEST_F(PageFile, ComesBackAndIsForItsUserAlone)
{
    const PageRecord page = FullPage(*m_fonts);
    ASSERT_EQ(WritePageFile(InFolder("page"), page), FileError::None);
    EXPECT_EQ(fs::status(InFolder("page")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    const PageFileContents read = ReadPageFile(InFolder("page"), *m_fonts);
    EXPECT_EQ(read.error, FileError::None);
    ASSERT_TRUE(read.page);
    EXPECT_EQ(read.page->list.items.size(), page.list.items.size());
}

TEST_F(PageFile, IsReplacedByAShorterOne)
{
    ASSERT_EQ(WritePageFile(InFolder("page"), FullPage(*m_fonts)), FileError::None);
    ASSERT_EQ(WritePageFile(InFolder("page"), {}), FileError::None);
    const PageFileContents read = ReadPageFile(InFolder("page"), *m_fonts);
    ASSERT_TRUE(read.page);
    EXPECT_TRUE(read.page->list.items.empty());
}

TEST_F(PageFile, FollowsNoLinkNeitherToWriteNorToRead)
{
    ASSERT_EQ(WritePageFile(InFolder("target"), FullPage(*m_fonts)), FileError::None);
    const auto size = fs::file_size(InFolder("target"));
    fs::create_symlink(InFolder("target"), InFolder("link"));
    fs::create_symlink(InFolder("nothing"), InFolder("dangling"));
    EXPECT_EQ(WritePageFile(InFolder("link"), {}), FileError::PathFileAccess);
    EXPECT_EQ(WritePageFile(InFolder("dangling"), {}), FileError::PathFileAccess);
    EXPECT_EQ(ReadPageFile(InFolder("link"), *m_fonts).error, FileError::PathFileAccess);
    EXPECT_EQ(fs::file_size(InFolder("target")), size);
    EXPECT_FALSE(fs::exists(InFolder("nothing")));
}

TEST_F(PageFile, IsNeitherAPipeNorAFolder)
{
    ASSERT_EQ(::mkfifo(InFolder("pipe").c_str(), 0600), 0);
    EXPECT_NE(WritePageFile(InFolder("pipe"), {}), FileError::None);
    EXPECT_EQ(ReadPageFile(InFolder("pipe"), *m_fonts).error, FileError::PathFileAccess);
    EXPECT_EQ(WritePageFile(InFolder("."), {}), FileError::PathFileAccess);
}

TEST_F(PageFile, SaysWhyItCannotBeRead)
{
    std::ofstream(InFolder("other")) << "no page";
    EXPECT_EQ(ReadPageFile(InFolder("other"), *m_fonts).error, FileError::PathFileAccess);
    EXPECT_EQ(ReadPageFile(InFolder("none"), *m_fonts).error, FileError::FileNotFound);
    EXPECT_EQ(ReadPageFile(InFolder("no/where"), *m_fonts).error, FileError::PathNotFound);
    EXPECT_EQ(WritePageFile(InFolder("no/where"), {}), FileError::PathNotFound);
    EXPECT_EQ(WritePageFile({}, {}), FileError::BadFileName);
}

}  // namespace
}  // namespace quillmarker
