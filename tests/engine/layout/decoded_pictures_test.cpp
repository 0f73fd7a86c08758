#include "engine/layout/decoded_pictures.h"

#include "engine/layout/picture_sample.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>
#include <vector>

namespace quillmarker
{
namespace
{

TEST(DecodedPictures, DecodeABitmapOnceAndReduceItOnceForASize)
{
    DecodedPictures pictures(1 << 24);
    const InlinePicture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(400, 400), "PNG"));
    EXPECT_EQ(pictures.Pixels(picture).cacheKey(), pictures.Pixels(picture).cacheKey());
    const QImage reduced = pictures.Reduced(picture, QSize(100, 100));
    EXPECT_EQ(reduced.size(), QSize(100, 100));
    EXPECT_EQ(pictures.Reduced(picture, QSize(100, 100)).cacheKey(), reduced.cacheKey());
    EXPECT_EQ(pictures.Reduced(picture, QSize(390, 390)).size(), QSize(400, 400)) << "too little to be worth it";
    EXPECT_EQ(pictures.Reduced(picture, QSize()).size(), QSize(400, 400));
}

TEST(DecodedPictures, AreBoundedByWhatTheyHold)
{
    constexpr qsizetype kMost = qsizetype{4} * 1024 * 1024;
    DecodedPictures pictures(kMost);
    const std::string png = EncodedAs(Quarters(400, 400), "PNG");
    for (int i = 0; i < 50; ++i)
    {
        EXPECT_FALSE(pictures.Pixels(PictureOf(PictureKind::Png, png)).isNull());
        EXPECT_LE(pictures.Weight(), kMost);
    }
    for (int i = 0; i < 200; ++i)
        pictures.Pixels(PictureOf(PictureKind::Png, "broken"));
    EXPECT_LE(pictures.Weight(), kMost);
    DecodedPictures tiny(1);
    const InlinePicture picture = PictureOf(PictureKind::Png, png);
    EXPECT_EQ(tiny.Pixels(picture).cacheKey(), tiny.Pixels(picture).cacheKey()) << "the newest stays";
}

TEST(DecodedPictures, TakeOtherNumbersForOtherDeviceBitmaps)
{
    DecodedPictures pictures(1 << 20);
    const InlinePicture wide = DeviceBitmap(16, 1, "", std::string("\xFF\x00\xFF\x00", 4));
    InlinePicture tall = wide;
    tall.width = 8;
    tall.height = 2;
    EXPECT_EQ(pictures.Pixels(wide).size(), QSize(16, 1));
    EXPECT_EQ(pictures.Pixels(tall).size(), QSize(8, 2));
}

TEST(DecodedPictures, ServeSeveralThreads)
{
    DecodedPictures pictures(1 << 20);
    const std::string png = EncodedAs(Quarters(100, 100), "PNG");
    std::vector<InlinePicture> shared;
    for (int i = 0; i < 20; ++i)
        shared.push_back(PictureOf(PictureKind::Png, png));
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 200; ++i)
                wrong +=
                    pictures.Reduced(shared[static_cast<std::size_t>(i % 20)], QSize(20, 20)).width() == 20 ? 0 : 1;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace quillmarker
