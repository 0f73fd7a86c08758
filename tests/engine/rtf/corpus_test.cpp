#include "engine/rtf/corpus_events.h"
#include "engine/rtf/rtf_sample.h"
#include "engine/rtf/visited_document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace quillmarker
{
namespace
{

namespace fs = std::filesystem;

fs::path Corpus()
{
    const char* folder = std::getenv("QUILLMARKER_CORPUS");  // NOLINT(concurrency-mt-unsafe): nobody sets it here
    return folder ? folder : "";
}

std::vector<fs::path> FilesWith(std::string_view extension)
{
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Corpus()))
    {
        if (entry.is_regular_file() && entry.path().extension() == extension)
            files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

std::string Bytes(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

class RealFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        if (Corpus().empty())
            GTEST_SKIP() << "QUILLMARKER_CORPUS is not set";
    }

    void Report(const std::string& what, std::size_t count)
    {
        RecordProperty(what, std::to_string(count));
        std::cout << count << ' ' << what << '\n';
    }
};

TEST_F(RealFiles, EachSurvivesWritingAndReading)
{
    std::size_t count = 0;
    for (const fs::path& file : FilesWith(".rtf"))
    {
        const Document document = ReadRtf(Bytes(file));
        const std::string written = WriteRtf(document);
        const Document again = ReadRtf(written);
        EXPECT_EQ(again.Text(), document.Text()) << file;
        EXPECT_TRUE(SameContent(again, document)) << file;
        EXPECT_TRUE(WriteRtf(again) == written) << file << " changes when it is written again";
        ++count;
    }
    Report("files", count);
    EXPECT_GT(count, 0U);
}

TEST_F(RealFiles, EachIsReadAsAFragmentToo)
{
    std::size_t count = 0;
    for (const fs::path& file : FilesWith(".rtf"))
    {
        const RtfReading fragment{.scope = RtfScope::Fragment};
        const Document document = ReadRtf(Bytes(file), fragment);
        const Document again = ReadRtf(WriteRtf(document, RtfScope::Fragment), fragment);
        EXPECT_EQ(again.Text(), document.Text()) << file;
        ++count;
    }
    Report("files", count);
    EXPECT_GT(count, 0U);
}

TEST_F(RealFiles, EachIsTheSameInASinglePass)
{
    std::size_t count = 0;
    for (const fs::path& file : FilesWith(".rtf"))
    {
        const std::string source = Bytes(file);
        const Document document = ReadRtf(source);
        EXPECT_TRUE(SameContent(VisitedDocument(source, document), document)) << file;
        ++count;
    }
    Report("files", count);
    EXPECT_GT(count, 0U);
}

TEST_F(RealFiles, WhatIsWrittenIsNotMuchLargerThanTheFile)
{
    for (const fs::path& file : FilesWith(".rtf"))
    {
        const std::string source = Bytes(file);
        EXPECT_LT(WriteRtf(ReadRtf(source)).size(), source.size() * 3 + 4'096) << file;
    }
}

TEST_F(RealFiles, TheTextIsTheRecordedOne)
{
    std::size_t pairs = 0;
    for (const fs::path& recording : FilesWith(".xml"))
    {
        const fs::path file = fs::path(recording).replace_extension(".rtf");
        if (!fs::exists(file))
            continue;
        std::string expected = TextOfEvents(Bytes(recording));
        if (expected.ends_with("\r\n"))
            expected.resize(expected.size() - 2);
        EXPECT_FALSE(expected.empty()) << recording;
        EXPECT_EQ(TextOf(Bytes(file)), expected) << file;
        ++pairs;
    }
    Report("pairs", pairs);
    EXPECT_GT(pairs, 0U);
}

TEST(RecordedEvents, GiveTheTextOfTheDocumentOnly)
{
    EXPECT_EQ(TextOfEvents(R"(<rtf><group><command name="rtf" parameter="1"/><group><command name="fonttbl"/>)"
                           R"(<group><command name="f"/><chars>Arial;</chars></group></group><group>)"
                           R"(<command name="generator" optional="true"/><chars>No</chars></group>)"
                           R"(<chars>a &lt;b&gt;</chars><command name="emdash"/><command name="par"/></group></rtf>)"),
              "a <b>\u2014\r\n");
}

}  // namespace
}  // namespace quillmarker
