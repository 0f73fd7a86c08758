// Metafiles as strangers send them: cut, with sizes, handles and numbers that mean nothing. Nothing here may crash, and
// none may take long: the suite's time limit is what notices.

#include "engine/layout/metafile/metafile.h"
#include "engine/layout/metafile_builder.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

#include <QImage>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <variant>
#include <vector>

using namespace quillmarker;

namespace
{

constexpr std::uint32_t kCopy = 0x00CC0020;

struct Outcome
{
    bool isPlayed = false;
    int inked = 0;
};

Outcome Play(const std::string& bytes, int side = 32)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    Outcome outcome;
    {
        QPainter painter(&image);
        SizeOfMetafile(bytes);
        outcome.isPlayed = PlayMetafile(painter, QRectF(0, 0, side, side), bytes, {});
    }
    for (int y = 0; y < side; ++y)
    {
        for (int x = 0; x < side; ++x)
            outcome.inked += image.pixelColor(x, y) == QColor(Qt::white) ? 0 : 1;
    }
    return outcome;
}

std::string SomeWmf()
{
    ByteWriter bitmap;
    bitmap.U32(kCopy).U16(0).I16(2).I16(2).I16(0).I16(0).I16(50).I16(50).I16(0).I16(0).Bytes(
        DibOf(2, 2, {0xFF0000, 0x00FF00, 0x0000FF, 0}));
    return WmfBuilder()
        .Pen(0, 1, 3, 0)
        .Brush(1, 0xFF)
        .Words(0x001E, {})
        .Words(0x0416, {90, 90, 10, 10})
        .Rectangle(10, 10, 90, 90)
        .Words(0x081A, {0, 50, 50, 100, 100, 100, 0, 0})
        .Words(0x0538, {2, 3, 3, 0, 0, 50, 0, 0, 50, 60, 60, 90, 60, 60, 90})
        .Record(0x0F43, bitmap)
        .Record(0x0A32, ByteWriter()
                            .I16(10)
                            .I16(10)
                            .U16(3)
                            .U16(2)
                            .I16(0)
                            .I16(0)
                            .I16(40)
                            .I16(40)
                            .Bytes("abc")
                            .U8(0)
                            .I16(9)
                            .I16(9)
                            .I16(9))
        .Words(0x0127, {-1})
        .Rectangle(0, 0, 5, 5)
        .Placeable(0, 0, 100, 100, 96);
}

std::string SomeEmf()
{
    ByteWriter bitmap;
    bitmap.I32(20).I32(20).I32(0).I32(0).I32(1).I32(1).U32(80).U32(40).U32(120).U32(4).U32(0).U32(kCopy).I32(60).I32(
        60);
    ByteWriter text;
    text.U32(1).F32(1).F32(1).I32(10).I32(20).U32(2).U32(76).U32(6).I32(0).I32(50).I32(90).I32(90).U32(80);
    ByteWriter region;
    region.U32(48).U32(1).U32(32).U32(1).U32(1).U32(16).I32(0).I32(0).I32(80).I32(80).I32(0).I32(0).I32(80).I32(80);
    return EmfBuilder()
        .Pen(1, 2, 2, 0xFF)
        .Brush(2, 0xFF00)
        .Record(33, {})
        .Record(35, ByteWriter().F32(1).F32(0.2F).F32(0).F32(1).F32(3).F32(4))
        .Record(75, region)
        .Rectangle(5, 5, 60, 60)
        .Record(59, {})
        .Longs(27, {0, 0})
        .Longs(54, {50, 50})
        .Record(61, {})
        .Record(60, {})
        .Drawing(63, {})
        .Drawing(91, ByteWriter().U32(2).U32(6).U32(3).U32(3).U32(0).U32(50).U32(0x320000).U32(7).U32(8).U32(9))
        .Drawing(92, ByteWriter().U32(2).U32(5).U32(0x100010).U8(6).U8(3))
        .Drawing(81, bitmap.Bytes(DibOf(1, 1, {0xFF0000})))
        .Drawing(84, text.U16('I').U16('I').I32(60).I32(10))
        .Longs(34, {-1})
        .Rectangle(0, 0, 5, 5)
        .Whole();
}

/// Every place of four bytes in turn holds a number that nobody expects.
void PlayWithNumbersReplaced(const std::string& bytes, std::size_t step)
{
    for (std::size_t place = 0; place + 4 <= bytes.size(); place += step)
    {
        for (const std::uint32_t number :
             {0U, 1U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0x7F800000U, 0x7FC00000U, 0x00010001U})
        {
            std::string changed = bytes;
            changed.replace(place, 4, ByteWriter().U32(number).Written());
            Play(changed);
        }
    }
}

std::vector<InlinePicture> MetafilesOf(const std::filesystem::path& report)
{
    std::ifstream stream(report, std::ios::binary);
    const std::string rtf{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    std::vector<InlinePicture> found;
    ReadRtf(std::string_view(rtf)).Visit(0, [&](const Paragraph& paragraph) {
        for (const PlacedObject& placed : paragraph.Extras().objects)
        {
            const auto* const picture = std::get_if<InlinePicture>(&*placed.object);
            if (picture && (picture->kind == PictureKind::Emf || picture->kind == PictureKind::Wmf) && picture->bytes)
                found.push_back(*picture);
        }
        return true;
    });
    return found;
}

}  // namespace

TEST(HostileMetafile, TheSamplesDraw)
{
    EXPECT_GT(Play(SomeWmf()).inked, 300);
    EXPECT_GT(Play(SomeEmf()).inked, 200);
}

TEST(HostileMetafile, CutAtEveryByteItDrawsNoMoreThanWhole)
{
    for (const std::string& bytes : {SomeWmf(), SomeEmf()})
    {
        const bool isWmf = bytes.front() != 1;
        const std::size_t header = isWmf ? 22 + 18 : 88;
        for (std::size_t size = 0; size < bytes.size(); ++size)
        {
            const Outcome outcome = Play(bytes.substr(0, size));
            EXPECT_EQ(outcome.isPlayed, size >= header) << size;
            EXPECT_TRUE(outcome.isPlayed || outcome.inked == 0) << size;
        }
    }
}

TEST(HostileMetafile, NumbersNobodyExpectsDoNoHarm)
{
    PlayWithNumbersReplaced(SomeWmf(), 2);
    PlayWithNumbersReplaced(SomeEmf(), 4);
    EXPECT_TRUE(Play(SomeEmf()).isPlayed);
}

TEST(HostileMetafile, ARecordWithoutSizeEndsThePlaying)
{
    const std::string before = WmfBuilder().Brush(0, 0xFF).Rectangle(0, 0, 50, 50).Standard();
    const std::string records = before.substr(0, before.size() - 6);
    const std::string behind = WmfBuilder().Brush(1, 0xFF00).Rectangle(0, 0, 100, 100).Standard().substr(18);
    const int whole = Play(before).inked;
    EXPECT_EQ(Play(records + ByteWriter().U32(0).U16(0x041B).Written() + behind).inked, whole);
    EXPECT_EQ(Play(records + ByteWriter().U32(0xFFFFFFFF).U16(0x041B).Written() + behind).inked, whole);
    EXPECT_GT(Play(records + behind).inked, whole);
}

TEST(HostileMetafile, HandlesOfNothingSelectNothing)
{
    EmfBuilder builder;
    builder.NullPen().Brush(1, 0xFF);
    for (const int handle : {0, 2, 77, 0x7FFFFFFF, -1, static_cast<int>(0x80000063U)})
        builder.Longs(37, {handle}).Longs(40, {handle});
    EXPECT_EQ(Play(builder.Rectangle(0, 0, 100, 100).Whole()).inked, 32 * 32);
}

TEST(HostileMetafile, SavingWithoutEndKeepsThePlayerWhole)
{
    WmfBuilder builder;
    builder.Brush(0, 0xFF);
    for (int i = 0; i < 100000; ++i)
        builder.Words(0x001E, {});
    for (const int level : {-32768, 32767, 0, 5, -1})
        builder.Words(0x0127, {level});
    EXPECT_GT(Play(builder.Rectangle(0, 0, 100, 100).Standard()).inked, 900);
}

TEST(HostileMetafile, ManyFillsOfEverythingEnd)
{
    EmfBuilder builder;
    builder.Brush(1, 0xFF);
    for (int i = 0; i < 100000; ++i)
        builder.Rectangle(-2147483647, -2147483647, 2147483647, 2147483647);
    EXPECT_TRUE(Play(builder.Whole(), 600).isPlayed);
}

TEST(HostileMetafile, DashesWithoutNumberEnd)
{
    EmfBuilder builder;
    builder.Pen(1, 1, 0, 0);
    for (int i = 0; i < 2000; ++i)
        builder.Longs(27, {-2000000000, i}).Longs(54, {2000000000, -i});
    EXPECT_TRUE(Play(builder.Whole(), 300).isPlayed);
}

TEST(HostileMetafile, ClipsAndClipsAgainEnd)
{
    EmfBuilder builder;
    builder.Brush(1, 0xFF);
    for (int i = 0; i < 20000; ++i)
        builder.Longs(29, {i % 90, i % 80, i % 90 + 5, i % 80 + 5}).Rectangle(0, 0, 100, 100);
    EXPECT_TRUE(Play(builder.Whole(), 200).isPlayed);
}

TEST(HostileMetafile, ABitmapLargerThanItsBytesIsLeftOut)
{
    std::string dib = DibOf(2, 2, {0, 0, 0, 0});
    dib.replace(4, 4, ByteWriter().I32(30000).Written());
    dib.replace(8, 4, ByteWriter().I32(30000).Written());
    ByteWriter body;
    body.U32(kCopy).U16(0).I16(2).I16(2).I16(0).I16(0).I16(100).I16(100).I16(0).I16(0).Bytes(dib);
    EXPECT_EQ(Play(WmfBuilder().Record(0x0F43, body).Standard()).inked, 0);
}

TEST(HostileMetafile, TransformsThatAreNoNumbersAreNotTaken)
{
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    const float endless = std::numeric_limits<float>::infinity();
    EmfBuilder builder;
    builder.NullPen().Brush(1, 0xFF);
    builder.Record(35, ByteWriter().F32(notANumber).F32(0).F32(0).F32(1).F32(0).F32(0));
    builder.Record(35, ByteWriter().F32(1).F32(0).F32(0).F32(endless).F32(0).F32(0));
    for (int i = 0; i < 100; ++i)
        builder.Record(36, ByteWriter().F32(1e30F).F32(0).F32(0).F32(1e30F).F32(0).F32(0).U32(2));
    EXPECT_EQ(Play(builder.Rectangle(0, 0, 100, 100).Whole()).inked, 32 * 32);
}

// Qt's cache of glyphs wrote beyond its end. Letters that are shaped together are stretched to the width of their steps.
TEST(HostileMetafile, TextOutOfAllProportionIsOnlyOddText)
{
    constexpr int kLetters = 20;
    for (const int height : {-1, -2, -3, -4, -10, -30})
    {
        for (const int step : {100, 1000, 3000, 10000, 40000})
        {
            ByteWriter font;
            font.U32(1).I32(height).I32(0).I32(0).I32(0).I32(400).U32(0).U32(0).U16('A').U16(0);
            ByteWriter text;
            text.U32(1).F32(1).F32(1).I32(0).I32(30).U32(kLetters).U32(76).U32(0);
            text.I32(0).I32(0).I32(0).I32(0).U32(76 + 2 * kLetters);
            for (int i = 0; i < kLetters; ++i)
                text.U16(0x0627U + static_cast<std::uint32_t>(i));
            for (int i = 0; i < kLetters; ++i)
                text.I32(step);
            EXPECT_TRUE(Play(EmfBuilder().Record(82, font).Longs(37, {1}).Drawing(84, text).Whole()).isPlayed);
        }
    }
}

TEST(HostileMetafile, NoiseBehindAHeaderDoesNoHarm)
{
    std::mt19937 random(20240917);  // NOLINT: always the same noise
    const std::string header = EmfBuilder().Whole().substr(0, 88);
    int played = 0;
    for (int i = 0; i < 300; ++i)
    {
        ByteWriter noise;
        for (int record = 0; record < 20; ++record)
        {
            const std::uint32_t words = random() % 40;
            noise.U32(random() % 120).U32(8 + words * 4);
            for (std::uint32_t word = 0; word < words; ++word)
                noise.U32(random() % 3 == 0 ? random() : random() % 100);
        }
        played += Play(header + noise.Written()).isPlayed ? 1 : 0;
    }
    EXPECT_EQ(played, 300);
}

// Reports of others, which are no part of the project: QUILLMARKER_CORPUS names a folder of RTF.
TEST(HostileMetafile, MetafilesOfOthersDrawWholeAndCut)
{
    const char* const folder = std::getenv("QUILLMARKER_CORPUS");  // NOLINT(concurrency-mt-unsafe): nobody sets it here
    if (!folder)
        GTEST_SKIP() << "QUILLMARKER_CORPUS is not set";
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    {
        if (entry.path().extension() != ".rtf")
            continue;
        for (const InlinePicture& picture : MetafilesOf(entry.path()))
        {
            const std::string& bytes = *picture.bytes;
            count += Play(bytes).isPlayed ? 1 : 0;
            for (std::size_t part = 1; part < 8; ++part)
                Play(bytes.substr(0, bytes.size() * part / 8));
        }
    }
    EXPECT_GT(count, 0) << folder << " holds no metafile";
    std::printf("%d metafiles drawn\n", count);
}
