#include "engine/layout/page_record.h"

#include "engine/layout/page_record_sample.h"
#include "engine/layout/painted_sample.h"

#include <gmock/gmock.h>

#include <QBuffer>

#include <set>

namespace quillmarker
{
namespace
{

class PageRecordTest : public testing::Test
{
protected:
    std::optional<PageRecord> Read(std::string_view bytes) { return PageFromBytes(bytes, *m_fonts); }

    const std::unique_ptr<FontHost> m_fonts = SystemFonts();
};

using PageBytes = PageRecordTest;

TEST_F(PageBytes, APageWithEveryTypeOfItemComesBackEqual)
{
    const PageRecord page = FullPage(*m_fonts);
    std::set<std::size_t> types;
    for (const DisplayItem& item : page.list.items)
        types.insert(item.index());
    ASSERT_EQ(types.size(), std::variant_size_v<DisplayItem>) << "the sample holds every type";

    const std::optional<PageRecord> read = Read(ToBytes(page));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->width, page.width);
    EXPECT_EQ(read->height, page.height);
    EXPECT_EQ(read->list.faces, page.list.faces);
    ASSERT_EQ(read->list.items.size(), page.list.items.size());
    for (std::size_t i = 0; i < page.list.items.size(); ++i)
        EXPECT_TRUE(read->list.items[i] == page.list.items[i]) << i;
}

TEST_F(PageBytes, AnEmptyPageComesBackToo)
{
    const auto read = Read(ToBytes({}));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->width, Twips());
    EXPECT_TRUE(read->list.items.empty());
    EXPECT_TRUE(read->list.faces.empty());
}

TEST_F(PageBytes, WritingWhatWasReadGivesTheSameBytes)
{
    const std::string bytes = ToBytes(FullPage(*m_fonts));
    EXPECT_EQ(ToBytes(*Read(bytes)), bytes);
}

TEST_F(PageBytes, EverySingleChangedByteIsRefused)
{
    const std::string bytes = ToBytes(FullPage(*m_fonts));
    ASSERT_TRUE(Read(bytes));
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        for (const char mask : {'\x01', '\x80', '\xFF'})
        {
            std::string damaged = bytes;
            damaged[i] = static_cast<char>(damaged[i] ^ mask);
            EXPECT_FALSE(Read(damaged)) << i;
        }
    }
}

TEST_F(PageBytes, EveryTruncationAndEveryAdditionIsRefused)
{
    const std::string bytes = ToBytes(FullPage(*m_fonts));
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(Read(std::string_view(bytes).substr(0, size))) << size;
    EXPECT_FALSE(Read(bytes + '\0'));
    EXPECT_FALSE(Read(bytes + bytes));
}

// What stands behind the checksum, damaged by somebody who knows how to make one.
class PageBody : public PageRecordTest
{
protected:
    static constexpr std::size_t kHead = 8 + 4 + 20;
    std::string Body() { return ToBytes(FullPage(*m_fonts)).substr(kHead); }
};

TEST_F(PageBody, IsReadWhenItIsSealedAnew) { EXPECT_TRUE(Read(SealedPage(Body()))); }

TEST_F(PageBody, CutAnywhereIsRefused)
{
    const std::string body = Body();
    for (std::size_t size = 0; size < body.size(); ++size)
        EXPECT_FALSE(Read(SealedPage(std::string_view(body).substr(0, size)))) << size;
    EXPECT_FALSE(Read(SealedPage(body + '\0')));
}

TEST_F(PageBody, DamagedAnywhereIsRefusedOrAPageThatCanBePainted)
{
    const std::string body = Body();
    int refused = 0;
    int painted = 0;
    for (std::size_t i = 0; i < body.size(); ++i)
    {
        for (const char mask : {'\x01', '\x40', '\x80', '\xFF'})
        {
            std::string damaged = body;
            damaged[i] = static_cast<char>(damaged[i] ^ mask);
            const auto page = Read(SealedPage(damaged));
            ++(page ? painted : refused);
            if (page)
                PaintedImage(page->list, QSize(100, 100), 0.3);
        }
    }
    EXPECT_GT(refused, 100);
    EXPECT_GT(painted, 100);
}

TEST_F(PageBytes, PicturesThatShareTheirBytesHoldThemOnce)
{
    const std::string big(100000, 'x');
    PageRecord page = FullPage(*m_fonts, big);
    const std::size_t size = ToBytes(page).size();
    EXPECT_LT(size, big.size() + 3000);
    page.list.Add(PlacedPicture{QRectF(0, 0, 10, 10), Shared<InlineObject>(InlinePicture{.bytes = Shared(big)})});
    EXPECT_LT(ToBytes(page).size(), size + 500) << "equal bytes held twice are written once";

    const auto read = Read(ToBytes(page));
    ASSERT_TRUE(read);
    std::vector<const Shared<InlineObject>*> objects;
    for (const DisplayItem& item : read->list.items)
    {
        if (const auto* placed = std::get_if<PlacedPicture>(&item))
            objects.push_back(&placed->object);
    }
    EXPECT_EQ(objects[0]->Identity(), objects[1]->Identity());
    EXPECT_EQ(std::get<InlinePicture>(**objects[0]).bytes.Identity(),
              std::get<InlinePicture>(**objects.back()).bytes.Identity());
}

TEST_F(PageBytes, APageThatWasReadPaintsEveryPixelTheSame)
{
    QImage pixels(20, 10, QImage::Format_RGB32);
    pixels.fill(Qt::darkGreen);
    QByteArray png;
    QBuffer buffer(&png);
    pixels.save(&buffer, "PNG");
    const PageRecord page = FullPage(*m_fonts, png.toStdString());
    const QSize size(800, 1130);
    const QImage before = PaintedImage(page.list, size);
    EXPECT_EQ(PaintedImage(Read(ToBytes(page))->list, size), before);
    EXPECT_EQ(QColor(before.pixel(70, 150)), QColor(Qt::darkGreen)) << "the picture is there";
}

// A host whose fonts have other glyphs under other numbers.
class OtherFonts final : public FontHost
{
public:
    explicit OtherFonts(FontHost& fonts) : m_face(fonts.Face(FontRequest{.name = u"DejaVu Sans"})) {}

    const FontFace& Face(const FontRequest&) override { return m_face; }
    const FontFace& Face(const FaceIdentity&) override { return m_face; }

private:
    const FontFace& m_face;
};

TEST_F(PageBytes, AFontThatIsGoneIsReplacedByTheSameLettersOfAnother)
{
    PageRecord page;
    page.list.Add(RunOf(page.list, m_fonts->Face(FontRequest{.name = u"Liberation Sans"}), u"\u0416uill", 240, {}));
    OtherFonts others(*m_fonts);
    const auto read = PageFromBytes(ToBytes(page), others);
    ASSERT_TRUE(read);
    const FontFace& other = others.Face(FaceIdentity());
    const auto& glyphs = std::get<GlyphRun>(read->list.items[0]).glyphs;
    const auto& before = std::get<GlyphRun>(page.list.items[0]).glyphs;
    ASSERT_EQ(glyphs.size(), 5U);
    ASSERT_NE(other.Simple(u'\u0416').glyph, before[0].glyph) << "the sample's fonts number their glyphs alike";
    EXPECT_EQ(glyphs[0].glyph, other.Simple(u'\u0416').glyph);
    EXPECT_EQ(glyphs[4].glyph, other.Simple(u'l').glyph);
    EXPECT_EQ(glyphs[4].x, before[4].x);
}

}  // namespace
}  // namespace quillmarker
