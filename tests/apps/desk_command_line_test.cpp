#include "command_line.h"

#include <gtest/gtest.h>

namespace quillmarker::desk
{
namespace
{

CommandLine Parsed(const QStringList& arguments) { return ParseCommandLine(QStringList{"report-desk"} + arguments); }

TEST(DeskCommandLine, NothingMeansTheSampleInAWindow)
{
    const CommandLine call = Parsed({});
    EXPECT_TRUE(call.error.isEmpty() && call.file.isEmpty() && call.screenshot.isEmpty());
    EXPECT_FALSE(call.wantsHelp || call.wantsVersion);
    EXPECT_EQ(call.size, QSize(1280, 900));
}

TEST(DeskCommandLine, TakesAFileAScreenshotAndASize)
{
    const CommandLine call = Parsed({"--screenshot", "a.png", "--size", "640x480", "b.rtf"});
    EXPECT_TRUE(call.error.isEmpty()) << call.error.toStdString();
    EXPECT_EQ(call.screenshot, "a.png");
    EXPECT_EQ(call.size, QSize(640, 480));
    EXPECT_EQ(call.file, "b.rtf");
}

TEST(DeskCommandLine, HelpAndVersionHaveShortNames)
{
    EXPECT_TRUE(Parsed({"-h"}).wantsHelp && Parsed({"--help"}).wantsHelp);
    EXPECT_TRUE(Parsed({"-v"}).wantsVersion && Parsed({"--version"}).wantsVersion);
}

TEST(DeskCommandLine, WhatIsWrongIsTold)
{
    for (const QStringList& arguments : {QStringList{"--nothing"},
                                         {"a", "b"},
                                         {"--size", "12"},
                                         {"--size", "0x5"},
                                         {"--size", "5x99999"},
                                         {"--screenshot", ""}})
        EXPECT_FALSE(Parsed(arguments).error.isEmpty()) << arguments.join(' ').toStdString();
}

}  // namespace
}  // namespace quillmarker::desk
