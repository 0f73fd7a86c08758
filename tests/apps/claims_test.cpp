#include "line_queue.h"
#include "name_claims.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace quillmarker::tool
{
namespace
{

TEST(NameClaiming, RefusesTheLaterOfTwo)
{
    NameClaims claims;
    EXPECT_EQ(claims.Claim(0, 1, "out/a.rtf"), 0);
    EXPECT_EQ(claims.Claim(1, 3, "out/b.rtf"), 0);
    EXPECT_EQ(claims.Claim(2, 4, "out/a.rtf"), 1);
    EXPECT_EQ(claims.Claim(3, 5, "out/a.rtf"), 1);
}

TEST(NameClaiming, KnowsOneFileByDifferentSpellings)
{
    NameClaims claims;
    EXPECT_EQ(claims.Claim(0, 1, "out/a.rtf"), 0);
    EXPECT_EQ(claims.Claim(1, 2, "./out//x/../a.rtf"), 1);
}

TEST(NameClaiming, LinesWithoutANameTakeTheirTurnOnly)
{
    NameClaims claims;
    EXPECT_EQ(claims.Claim(0, 1, std::nullopt), 0);
    EXPECT_EQ(claims.Claim(1, 2, std::nullopt), 0);
    EXPECT_EQ(claims.Claim(2, 3, "a"), 0);
}

TEST(NameClaiming, FollowsTheOrderOfTheLinesWhoeverComesFirst)
{
    constexpr int kLines = 64;
    NameClaims claims;
    std::vector<std::int64_t> owners(kLines, -1);
    std::vector<std::thread> threads;
    for (int i = kLines - 1; i >= 0; --i)
        threads.emplace_back([&, i] { owners[static_cast<std::size_t>(i)] = claims.Claim(i, i + 1, "same"); });
    for (std::thread& thread : threads)
        thread.join();
    for (int i = 0; i < kLines; ++i)
        EXPECT_EQ(owners[static_cast<std::size_t>(i)], i == 0 ? 0 : 1);
}

TEST(LineQueues, HandOutEachLineOnceAndInOrder)
{
    constexpr int kLines = 1000;
    LineQueue queue(3);
    std::atomic<int> sum = 0;
    std::vector<std::thread> workers;
    workers.reserve(4);
    for (int i = 0; i < 4; ++i)
        workers.emplace_back([&] {
            std::int64_t last = -1;
            while (const auto line = queue.Pop())
            {
                EXPECT_GT(line->ticket, last);
                last = line->ticket;
                sum += static_cast<int>(line->ticket);
            }
        });
    for (int i = 0; i < kLines; ++i)
        queue.Push({i + 1, i, 1, "x"});
    queue.Close();
    for (std::thread& worker : workers)
        worker.join();
    EXPECT_EQ(sum, kLines * (kLines - 1) / 2);
}

TEST(LineQueues, StillHandOutWhatTheyHoldWhenClosed)
{
    LineQueue queue(3);
    queue.Push({1, 0, 1, "a"});
    queue.Push({2, 1, 1, "b"});
    queue.Close();
    EXPECT_EQ(queue.Pop()->text, "a");
    EXPECT_EQ(queue.Pop()->text, "b");
    EXPECT_FALSE(queue.Pop());
    EXPECT_FALSE(queue.Pop());
}

}  // namespace
}  // namespace quillmarker::tool
