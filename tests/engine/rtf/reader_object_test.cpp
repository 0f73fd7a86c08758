#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

TEST(ReadObjects, AnObjectIsOneCharacterWithItsResult)
{
    const Document document = ReadSample(
        R"(a{\object\objemb\objw300\objh200\objscalex50{\*\objclass Word.Document.8}{\*\objname N}{\*\objdata 01 0f}{\result{\b shown}\par}}b)");
    EXPECT_EQ(document.Text(), u"a b");
    const auto* object = ObjectIn<EmbeddedObject>(document, 1);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(DumpOf(*object),
              " kind=objemb class=\"Word.Document.8\" name=\"N\" width=300 height=200 kept=\\objscalex50 bytes=2");
    EXPECT_EQ(*object->data, "\x01\x0F");
    EXPECT_EQ(TextOf(document, object->result), "shown");
}

TEST(ReadObjects, EachKindIsKept)
{
    for (const char* kind : {"objemb", "objlink", "objautlink", "objsub", "objpub", "objicemb", "objhtml", "objocx"})
    {
        const Document document = ReadSample(std::string("{\\object\\") + kind + "{\\*\\objdata 00}}");
        ASSERT_NE(ObjectIn<EmbeddedObject>(document, 0), nullptr) << kind;
        EXPECT_EQ(ObjectIn<EmbeddedObject>(document, 0)->kind, kind);
    }
}

TEST(ReadObjects, AnObjectOfNothingIsNothing) { EXPECT_EQ(ReadSample(R"(a{\object\objemb}b)").Text(), u"ab"); }

TEST(ReadObjects, AResultMayHoldAPicture)
{
    const Document document = ReadSample(R"({\object\objemb{\result{\pict\wmetafile8 0102}}})");
    const auto* object = ObjectIn<EmbeddedObject>(document, 0);
    ASSERT_NE(object, nullptr);
    const Document result = document.Nested(object->result);
    ASSERT_NE(ObjectIn<InlinePicture>(result, 0), nullptr);
    EXPECT_EQ(ObjectIn<InlinePicture>(result, 0)->kind, PictureKind::Wmf);
}

TEST(ReadObjects, AnObjectInAResultIsNestedInIt)
{
    const Document document =
        ReadSample(R"({\object\objemb{\*\objdata 01}{\result a{\object\objlink{\*\objdata 02}{\result b}}c}}d)");
    EXPECT_EQ(document.Text(), u" d");
    const auto* outer = ObjectIn<EmbeddedObject>(document, 0);
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(TextOf(document, outer->result), "a c");
    const Document result = document.Nested(outer->result);
    ASSERT_NE(ObjectIn<EmbeddedObject>(result, 1), nullptr);
    EXPECT_EQ(TextOf(document, ObjectIn<EmbeddedObject>(result, 1)->result), "b");
    EXPECT_EQ(*outer->data, "\x01");
}

TEST(ReadObjects, BinaryDataIsDataToo)
{
    const Document document = ReadSample("{\\object\\objemb{\\*\\objdata \\bin3 }{\\}}x");
    EXPECT_EQ(document.Text(), u" x");
    EXPECT_EQ(*ObjectIn<EmbeddedObject>(document, 0)->data, "}{\\");
}

TEST(ReadNotes, AFootnoteIsOneCharacterWithItsText)
{
    const Document document = ReadSample(R"(a{\super\chftn{\footnote\pard\plain{\super\chftn} note\par more}}b\par)");
    EXPECT_EQ(document.Text(), u"a b");
    const auto* note = ObjectIn<Note>(document, 1);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->kind, NoteKind::Footnote);
    EXPECT_EQ(TextOf(document, note->body), " note\r\nmore");
}

TEST(ReadNotes, AnEndnoteSaysSo)
{
    const Document document = ReadSample(R"(a{\footnote\ftnalt note})");
    ASSERT_NE(ObjectIn<Note>(document, 1), nullptr);
    EXPECT_EQ(ObjectIn<Note>(document, 1)->kind, NoteKind::Endnote);
}

TEST(ReadNotes, AnAnnotationKnowsItsAuthor)
{
    const Document document = ReadSample(
        R"({\*\atrfstart 1}a{\*\atrfend 1}{\*\atnid AB}{\*\atnauthor Ann}\chatn{\*\annotation{\*\atndate 12}remark}b)");
    EXPECT_EQ(document.Text(), u"a b");
    const auto* note = ObjectIn<Note>(document, 1);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->kind, NoteKind::Annotation);
    EXPECT_EQ(note->author, u"Ann");
    EXPECT_EQ(note->id, u"AB");
    EXPECT_EQ(TextOf(document, note->body), "remark");
}

TEST(ReadNotes, ANoteLeavesTheFormatsAroundIt)
{
    const Document document = ReadSample(R"(\pard\qc\b a{\footnote\pard\plain\i note}b\par)");
    EXPECT_EQ(ParagraphOf(document).alignment, Alignment::Centre);
    EXPECT_TRUE(CharsAt(document, 2).bold);
    EXPECT_FALSE(CharsAt(document, 2).italic);
    const Document note = document.Nested(ObjectIn<Note>(document, 1)->body);
    EXPECT_EQ(ParagraphOf(note).alignment, Alignment::Left);
    EXPECT_TRUE(CharsAt(note, 0).italic);
}

TEST(ReadShapes, ATextBoxBecomesParagraphsWhereItStands)
{
    const Document document = ReadSample(
        R"(a{\shp{\*\shpinst\shpleft0{\sp{\sn shapeType}{\sv 202}}{\shptxt inside\par}}{\shprslt{\*\do\dptxbx old}}}b)");
    EXPECT_EQ(document.Text(), u"a\r\ninside\r\nb");
}

TEST(ReadShapes, AnOldTextBoxToo)
{
    EXPECT_EQ(ReadSample(R"({\*\do\dobxpage\dptxbx{\dptxbxtext inside\par}\dpx0}b)").Text(), u"inside\r\nb");
}

TEST(ReadShapes, APictureInAShapeIsShown)
{
    const Document document = ReadSample(R"(a{\shp{\*\shpinst{\sp{\sn pib}{\sv{\pict\pngblip 00}}}}}b)");
    EXPECT_EQ(document.Text(), u"a b");
    EXPECT_NE(ObjectIn<InlinePicture>(document, 1), nullptr);
}

}  // namespace
}  // namespace quillmarker
