#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace quillmarker
{
namespace
{

using namespace std::string_literals;

std::string PictureDump(const std::string& group)
{
    const Document document = ReadSample(group);
    const auto* picture = ObjectIn<InlinePicture>(document, 0);
    return picture ? DumpOf(*picture) : "(none)";
}

TEST(ReadPictures, APictureIsOneCharacter)
{
    const Document document = ReadSample(R"(a{\pict\pngblip 89504e47}b)");
    EXPECT_EQ(document.Text(), u"a b");
    EXPECT_EQ(FirstOf(document).Text(), u"a\uFFFCb");
    const auto* picture = ObjectIn<InlinePicture>(document, 1);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->kind, PictureKind::Png);
    EXPECT_EQ(*picture->bytes, "\x89PNG");
}

TEST(ReadPictures, EachKindHasItsWord)
{
    constexpr std::pair<const char*, PictureKind> kWords[] = {
        {"pngblip", PictureKind::Png},     {"jpegblip", PictureKind::Jpeg},     {"emfblip", PictureKind::Emf},
        {"wmetafile8", PictureKind::Wmf},  {"dibitmap0", PictureKind::Dib},     {"wbitmap0", PictureKind::Ddb},
        {"macpict", PictureKind::MacPict}, {"pmmetafile4", PictureKind::Other},
    };
    for (const auto& [word, kind] : kWords)
    {
        const Document document = ReadSample(std::string("{\\pict\\") + word + " 00}");
        const auto* picture = ObjectIn<InlinePicture>(document, 0);
        ASSERT_NE(picture, nullptr) << word;
        EXPECT_EQ(picture->kind, kind) << word;
    }
    EXPECT_EQ(PictureDump(R"({\pict\wmetafile8 00})"), " mapping=8 bytes=1");
}

TEST(ReadPictures, DigitsMayBeInLinesAndAnyCase)
{
    const Document document = ReadSample("{\\pict\\pngblip\r\n 89\r\n5\r\n0 4E\t4e\r\n}");
    EXPECT_EQ(*ObjectIn<InlinePicture>(document, 0)->bytes, "\x89PNN");
}

TEST(ReadPictures, BinaryDataIsTakenAsItIs)
{
    const Document document = ReadSample("{\\pict\\pngblip\\bin6 }{\\\0\xFFz}b"s);
    EXPECT_EQ(document.Text(), u" b");
    EXPECT_EQ(*ObjectIn<InlinePicture>(document, 0)->bytes, "}{\\\0\xFFz"s);
}

TEST(ReadPictures, SizesScalesAndCropsAreKept)
{
    EXPECT_EQ(PictureDump(R"({\pict\pngblip\picw640\pich480\picwgoal4800\pichgoal3600\picscalex50\picscaley75)"
                          R"(\piccropl10\piccropt-20\piccropr30\piccropb40 00})"),
              " width=640 height=480 goal-width=4800 goal-height=3600 scale-x=50 scale-y=75 crop-left=10 crop-top=-20"
              " crop-right=30 crop-bottom=40 bytes=1");
}

TEST(ReadPictures, FurtherWordsAreKept)
{
    EXPECT_EQ(PictureDump(R"({\pict{\*\picprop\shplid1025{\sp{\sn x}{\sv 1}}}\picscaled\wmetafile8\picbmp\picbpp4)"
                          R"(\bliptag12{\*\blipuid 00ff}00})"),
              " mapping=8 kept=\\picscaled\\picbmp\\picbpp4\\bliptag12 bytes=1");
}

TEST(ReadPictures, OfTwoFormsTheNewOneIsRead)
{
    const Document document = ReadSample(R"(a{\*\shppict{\pict\pngblip 01}}{\nonshppict{\pict\wmetafile8 02}}b)");
    EXPECT_EQ(document.Text(), u"a b");
    EXPECT_EQ(ObjectIn<InlinePicture>(document, 1)->kind, PictureKind::Png);
}

TEST(ReadPictures, APictureWithoutDataIsNothing)
{
    EXPECT_EQ(ReadSample(R"(a{\pict\pngblip}b)").Text(), u"ab");
    EXPECT_EQ(ReadSample(R"(a{\pict\pngblip zz}b)").Text(), u"ab");
}

TEST(ReadPictures, APictureHasTheFormatWhereItStands)
{
    const Document document = ReadSample(R"(\b{\pict\pngblip 00}\b0 x)");
    EXPECT_TRUE(CharsAt(document, 0).bold);
    EXPECT_FALSE(CharsAt(document, 1).bold);
}

TEST(ReadPictures, APictureInAFieldsResultBelongsToTheField)
{
    const Document document = ReadSample(R"({\field{\*\fldinst INCLUDEPICTURE x}{\fldrslt{\pict\pngblip 00}}})");
    EXPECT_EQ(document.Text(), u" ");
    ASSERT_TRUE(CharsAt(document, 0).field);
    EXPECT_EQ(CharsAt(document, 0).field->instruction, u"INCLUDEPICTURE x");
}

TEST(ReadPictures, HugeDimensionsAreNumbersOnly)
{
    EXPECT_EQ(PictureDump(R"({\pict\pngblip\picw100000\pich100000 00})"), " width=100000 height=100000 bytes=1");
}

TEST(ReadPictures, APictureInAListsTableIsNotInTheText)
{
    EXPECT_EQ(ReadSample(R"({\*\listpicture{\*\shppict{\pict\pngblip 00}}}x)").Text(), u"x");
}

}  // namespace
}  // namespace quillmarker
