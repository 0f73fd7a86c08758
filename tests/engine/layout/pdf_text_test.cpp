// What is painted on a PDF is text there, and links are links: another program reads it.

#include "engine/layout/painted_sample.h"

#include <quillmarker/pages/paged_document.h>

#include <gmock/gmock.h>

#include <QFile>
#include <QMarginsF>
#include <QPageSize>
#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cmath>
#include <limits>

namespace quillmarker
{
namespace
{

constexpr int kTwipsPerInch = 1440;

class Pdf : public testing::Test
{
protected:
    void Write(const DisplayList& list)
    {
        QPdfWriter writer(m_path);
        writer.setResolution(kTwipsPerInch);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF());
        QPainter painter(&writer);
        Paint(painter, list, {}, 1);
    }

    static std::string OutputOf(const char* program, const QStringList& arguments)
    {
        const QString path = QStandardPaths::findExecutable(QString::fromLatin1(program));
        EXPECT_FALSE(path.isEmpty()) << program << " (poppler-utils) is needed";
        QProcess process;
        process.start(path, arguments);
        EXPECT_TRUE(process.waitForFinished(60000) && process.exitCode() == 0);
        return process.readAllStandardOutput().toStdString();
    }

    std::string Text() const
    {
        return OutputOf("pdftotext", {QStringLiteral("-enc"), QStringLiteral("UTF-8"), m_path, QStringLiteral("-")});
    }
    std::string Fonts() const { return OutputOf("pdffonts", {m_path}); }

    std::string Bytes() const
    {
        QFile file(m_path);
        file.open(QIODevice::ReadOnly);
        return file.readAll().toStdString();
    }

    // Shaped, so that fallback faces come in; a run for each face.
    void AddShaped(DisplayList& list, const FontFace& face, std::u16string_view text, float size, QPointF origin)
    {
        const ShapedText shaped = face.Shape(text, TextDirection::LeftToRight, Kerning::Off);
        const float unit = size / static_cast<float>(kAdvancesPerUnit * face.Metrics().unitsPerEm);
        for (const ShapedGlyph& glyph : shaped.glyphs)
        {
            const std::uint32_t index = list.FaceIndex(*glyph.face);
            auto* last = list.items.empty() ? nullptr : std::get_if<GlyphRun>(&list.items.back());
            if (last == nullptr || last->face != index)
            {
                list.Add(GlyphRun{.face = index, .size = size, .origin = origin});
                last = &std::get<GlyphRun>(list.items.back());
            }
            last->glyphs.push_back(
                {glyph.glyph, static_cast<float>(glyph.x) * unit, static_cast<float>(-glyph.y) * unit});
        }
    }

    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("page.pdf"));
    const std::unique_ptr<FontHost> m_fonts = SystemFonts();
};

TEST_F(Pdf, TextIsTextInAnEmbeddedFont)
{
    DisplayList list;
    const FontFace& sans = m_fonts->Face(FontRequest{.name = u"Liberation Sans"});
    list.Add(RunOf(list, sans, u"Quillmarker \u00E4\u20AC fi", 240, {720, 1000}));
    list.Add(RunOf(list, sans, u"Second line", 480, {720, 2000}));
    Write(list);
    EXPECT_THAT(Text(), testing::HasSubstr("Quillmarker \u00E4\u20AC fi\n"));
    EXPECT_THAT(Text(), testing::HasSubstr("Second line\n"));
    EXPECT_THAT(Fonts(), testing::ContainsRegex("LiberationSans +CID TrueType +Identity-H +yes"));
    EXPECT_THAT(Fonts(), testing::Not(testing::HasSubstr("Type 3")));
}

TEST_F(Pdf, TextOfAFallbackFontIsTextToo)
{
    DisplayList list;
    const FontFace& sans = m_fonts->Face(FontRequest{.name = u"Liberation Sans"});
    const std::u16string_view text = u"a\u2713z \u10A0\u10A1";  // a check mark and Georgian
    AddShaped(list, sans, text, 240, {720, 1000});
    ASSERT_GT(list.faces.size(), 1U) << "the sample's characters are not in the face itself";
    Write(list);
    EXPECT_THAT(Text(), testing::HasSubstr("a\u2713z \u10A0\u10A1"));
}

TEST_F(Pdf, StretchedTextStaysText)
{
    DisplayList list;
    GlyphRun run = RunOf(list, m_fonts->Face(FontRequest{.name = u"Liberation Serif", .bold = true}), u"Stretched", 240,
                         {720, 1000});
    run.stretch = 1.5F;
    for (GlyphPlace& place : run.glyphs)
        place.x *= run.stretch;
    list.Add(run);
    Write(list);
    EXPECT_THAT(Text(), testing::HasSubstr("Stretched"));
}

TEST_F(Pdf, ALinkCoversItsRectangle)
{
    DisplayList list;
    list.Add(LinkArea{QRectF(1000, 2000, 3000, 400), u"https://example.org/)a(\\b?c=\u00E4#d"});
    Write(list);
    const std::string bytes = Bytes();
    const std::size_t at = bytes.find("/Subtype /Link");
    ASSERT_NE(at, std::string::npos);
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
    const std::size_t rectangle = bytes.find("/Rect [", at);
    ASSERT_EQ(std::sscanf(bytes.c_str() + rectangle, "/Rect [%lf %lf %lf %lf]", &left, &bottom, &right, &top), 4);
    EXPECT_NEAR(left, 50, 0.5);
    EXPECT_NEAR(right, 200, 0.5);
    EXPECT_NEAR(top, 842 - 100, 0.7);
    EXPECT_NEAR(bottom, 842 - 120, 0.7);
    EXPECT_THAT(bytes, testing::HasSubstr("/URI (https://example.org/%29a%28%5Cb?c=%C3%A4#d)\n"));
    EXPECT_EQ(Text().find_first_not_of(" \n\f\u00A0"), std::string::npos) << "and leaves no text";
}

TEST_F(Pdf, OnlyAddressesOfWebAndMailAreLinks)
{
    DisplayList list;
    for (const char16_t* target : {u"file:///etc/passwd", u"javascript:alert(1)", u"#bookmark", u"", u"other.rtf"})
        list.Add(LinkArea{QRectF(1000, 2000, 3000, 400), target});
    Write(list);
    EXPECT_THAT(Bytes(), testing::Not(testing::HasSubstr("/URI")));
    list.Add(LinkArea{QRectF(1000, 2000, 3000, 400), u"mailto:someone@example.org"});
    Write(list);
    EXPECT_THAT(Bytes(), testing::HasSubstr("/URI (mailto:someone@example.org)"));
}

TEST_F(Pdf, WhatLiesInTheMarginsIsPainted)
{
    DisplayList list;
    list.Add(RunOf(list, m_fonts->Face(FontRequest{.name = u"Liberation Sans"}), u"Margin", 240, {300, 400}));
    {
        QPdfWriter writer(m_path);
        writer.setResolution(kTwipsPerInch);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(20, 20, 20, 20));
        QPainter painter(&writer);
        const QRect inside = writer.pageLayout().paintRectPixels(kTwipsPerInch);
        Paint(painter, list, -QPointF(inside.topLeft()), 1);
    }
    EXPECT_THAT(Text(), testing::HasSubstr("Margin"));
}

TEST(PagedDocument, GivesNoImageOfASizeThatCannotBe)
{
    PagedDocument pages{Document()};
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double dotsPerInch : {infinite, -infinite, std::nan(""), 1e300, 1e15, 0.0, -96.0})
        EXPECT_TRUE(pages.Image(1, dotsPerInch).isNull()) << dotsPerInch;
    EXPECT_EQ(pages.Image(1, 1e-9).size(), QSize(1, 1));
    EXPECT_TRUE(pages.Image(2, 96).isNull()) << "there is one page";
    EXPECT_FALSE(pages.Image(1, 96).isNull());
}

TEST(PagedDocument, StoppingAPdfIsNoErrorAndLeavesTheFile)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("stopped.pdf"));
    PagedDocument pages{Document()};
    EXPECT_TRUE(ToPdf(pages, [](int) { return false; }).empty());
    EXPECT_EQ(WritePdf(pages, file.toStdString(), [](int) { return false; }), FileError::None);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(WritePdf(pages, file.toStdString(), [](int) { return true; }), FileError::None);
    EXPECT_TRUE(QFile::exists(file));
}

}  // namespace
}  // namespace quillmarker
