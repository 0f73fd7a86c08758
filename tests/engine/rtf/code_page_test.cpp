#include "engine/rtf/code_page.h"

#include <gtest/gtest.h>

#include "engine/rtf/known_pages.h"

#include <array>
#include <string>
#include <thread>
#include <vector>

namespace quillmarker
{
namespace
{

std::u16string Decoded(CodePage page, std::string_view bytes)
{
    std::u16string text = u"|";  // what stands in `out` stays
    DecoderFor(page).Append(bytes, text);
    EXPECT_EQ(text.front(), u'|');
    return text.substr(1);
}

TEST(CodePage, EachPageHasItsLetters)
{
    EXPECT_EQ(Decoded(1252, "\x80 \x93Qu\xE9\x94"), u"€ “Qué”");
    EXPECT_EQ(Decoded(1250, "\xF8\x9E"), u"řž");
    EXPECT_EQ(Decoded(1251, "\xCF\xF0\xE8"), u"При");
    EXPECT_EQ(Decoded(1253, "\xD9\xE1"), u"Ωα");
    EXPECT_EQ(Decoded(1254, "\xDD\xFD\xDE"), u"İıŞ");
    EXPECT_EQ(Decoded(1255, "\xF9\xE0"), u"שא");
    EXPECT_EQ(Decoded(1256, "\xC7\xE1"), u"ال");
    EXPECT_EQ(Decoded(1257, "\xE8\xFE"), u"čž");
    EXPECT_EQ(Decoded(1258, "\xD0\xFE"), u"Đ₫");
    EXPECT_EQ(Decoded(874, "\xA1\xE0"), u"กเ");
    EXPECT_EQ(Decoded(437, "\x81\xE1\xE6\xC4"), u"üßµ─");
    EXPECT_EQ(Decoded(850, "\x9B\xD5"), u"øı");
    EXPECT_EQ(Decoded(852, "\xFD\xAA"), u"ř¬");
    EXPECT_EQ(Decoded(866, "\x8F\xE0"), u"Пр");
    EXPECT_EQ(Decoded(708, "\xC7\xE4"), u"ال");
    EXPECT_EQ(Decoded(720, "\x9F\xE9"), u"ال");
    EXPECT_EQ(Decoded(819, "\x80\xE9"), u"\u0080é");
    EXPECT_EQ(Decoded(20866, "\xF0\xD2"), u"Пр");
}

TEST(CodePage, MacPagesHaveTheirLetters)
{
    EXPECT_EQ(Decoded(10000, "\x8E\xA5\xD2\xDB"), u"é•“€");
    EXPECT_EQ(Decoded(10006, "\xE1\xF6"), u"αω");
    EXPECT_EQ(Decoded(10007, "\x8A\xEE"), u"Ко");
    EXPECT_EQ(Decoded(10029, "\x8B\xEC"), u"čž");
    EXPECT_EQ(Decoded(10081, "\xDD\xDC"), u"ıİ");
    EXPECT_EQ(Decoded(10001, "\x82\xA8\x93\xC7\x82\xDD\x80\xFD"), u"お読み\\©");
}

TEST(CodePage, DoubleBytePagesTakeTwoBytes)
{
    EXPECT_EQ(Decoded(932, "\x92\x86\x9A\xA0"), u"中國");
    EXPECT_EQ(Decoded(932, "\x83V\x83\x8F\xC5"), u"シワﾅ");  // a trail byte may be a letter, a katakana may be one byte
    EXPECT_EQ(Decoded(936, "\xD6\xD0\x80"), u"中€");
    EXPECT_EQ(Decoded(949, "\xB8\xBC\xC0\xBA \xB0\xED\xB5\xF1"), u"맑은 고딕");
    EXPECT_EQ(Decoded(950, "\xA4\xA4\xA3\xE1"), u"中€");
}

TEST(CodePage, JapaneseIsTheWindowsVariant)
{
    EXPECT_EQ(Decoded(932, "\x87\x40\x87\x6F\x87\x8A"), u"①㎜㈱");
    EXPECT_EQ(Decoded(932, "\xFA\x40\xED\x40"), u"ⅰ纊");
    EXPECT_EQ(Decoded(932, "\x81\x60\x81\x61\x81\x7C"), u"～∥－");
    EXPECT_EQ(Decoded(932, "\\~"), u"\\~");
}

TEST(CodePage, JohabSpellsEverySyllable)
{
    EXPECT_EQ(Decoded(1361, "\xD0\x65\x8B\x69"), u"한글");
    EXPECT_EQ(Decoded(1361, "\x88\x41\x84\x61\x84\x42"), u"ㄱㅏㄱ");
    EXPECT_EQ(Decoded(1361, "\xE0\x31\xF9\xFE\xD9\x31"), u"伽詰\u3000");
    std::u16string syllables;
    for (unsigned lead = 0x88; lead <= 0xD3; ++lead)
    {
        for (unsigned trail = 0x41; trail <= 0xFE; ++trail)
        {
            const char16_t unit =
                DecoderFor(1361).UnitOf(static_cast<unsigned char>(lead), static_cast<unsigned char>(trail));
            if (unit >= 0xAC00 && unit <= 0xD7A3)
                syllables += unit;
        }
    }
    ASSERT_EQ(syllables.size(), 11172U);
    for (std::size_t i = 0; i < syllables.size(); ++i)
        ASSERT_EQ(unsigned{syllables[i]}, 0xAC00 + i);
}

TEST(CodePage, AsciiIsAsciiInEveryPage)
{
    std::string ascii;
    for (char byte = 0; byte < 0x7F; ++byte)
        ascii += byte;
    ascii += '\x7F';
    for (const KnownPage& known : kKnownPages)
    {
        if (known.page == kSymbolPage)
            continue;
        EXPECT_EQ(Decoded(known.page, ascii), std::u16string(ascii.begin(), ascii.end())) << known.page;
    }
}

TEST(CodePage, IcuHasEveryTableWeAskFor)
{
    const PageTable ansi = TableOfPage(kAnsiPage);
    for (const KnownPage& known : kKnownPages)
    {
        if (known.page == kAnsiPage)
            continue;
        EXPECT_NE(TableOfPage(known.page).units, ansi.units) << known.page;  // what it falls back to
    }
}

TEST(CodePage, UndefinedBytesSurviveAsControls)
{
    EXPECT_EQ(Decoded(1252, "\x81\x8D\x8F\x90\x9D"), u"\u0081\u008D\u008F\u0090\u009D");
    EXPECT_EQ(Decoded(874, "\x81"), u"\u0081");
    EXPECT_EQ(Decoded(932, "\x80"), u"\u0080");
    EXPECT_EQ(Decoded(28597, "\xFF"), u"\uFFFD");
}

TEST(CodePage, ABrokenPairIsOneReplacementAndSwallowsNoAscii)
{
    EXPECT_EQ(Decoded(932, "\x82"), u"\uFFFD");
    EXPECT_EQ(Decoded(932, "\x82 }"), u"\uFFFD }");
    EXPECT_EQ(Decoded(932, "\x82\xFF"
                           "a"),
              u"\uFFFDa");
    EXPECT_EQ(Decoded(949, "\xA4\x31"), u"\uFFFD1");
    EXPECT_EQ(Decoded(1361, std::string_view("\xD0\x00", 2)), std::u16string_view(u"\uFFFD\0", 2));
}

TEST(CodePage, LeadBytesAreThoseOfThePage)
{
    const Decoder& japanese = DecoderFor(932);
    EXPECT_TRUE(japanese.IsDoubleByte());
    EXPECT_TRUE(japanese.IsLeadByte(0x81));
    EXPECT_TRUE(japanese.IsLeadByte(0xFC));
    EXPECT_FALSE(japanese.IsLeadByte(0xA1));
    EXPECT_FALSE(japanese.IsLeadByte(0x5C));
    EXPECT_FALSE(DecoderFor(1252).IsDoubleByte());
    EXPECT_FALSE(DecoderFor(65001).IsLeadByte(0xE4));
    EXPECT_TRUE(DecoderFor(65001).IsUtf8());
    EXPECT_FALSE(DecoderFor(1252).IsUtf8());
}

TEST(CodePage, SymbolBytesArePrivateCharacters) { EXPECT_EQ(Decoded(42, "\t \xB7\xFF"), u"\t\uF020\uF0B7\uF0FF"); }

TEST(CodePage, Utf8IsACodePageToo)
{
    EXPECT_EQ(Decoded(65001, "\xE4\xB8\xAD\xF0\x9F\x93\x84\xFF"), u"中\U0001F4C4\uFFFD");
}

TEST(CodePage, UnknownPagesAreAnsi)
{
    EXPECT_EQ(&DecoderFor(0), &DecoderFor(1252));
    EXPECT_EQ(&DecoderFor(65535), &DecoderFor(1252));
    EXPECT_EQ(Decoded(12345, "\x80"), u"€");
}

TEST(CodePage, OneDecoderServesAllThreads)
{
    std::array<const Decoder*, 8> seen{};
    std::vector<std::thread> threads;
    threads.reserve(seen.size());
    for (const Decoder*& decoder : seen)
        threads.emplace_back([&decoder] { decoder = &DecoderFor(28594); });
    for (std::thread& thread : threads)
        thread.join();
    for (const Decoder* decoder : seen)
        EXPECT_EQ(decoder, &DecoderFor(28594));
}

TEST(AnsiPage, EveryByteComesBack)
{
    for (unsigned byte = 0; byte < 0x100; ++byte)
    {
        const char16_t unit = DecodeAnsi(static_cast<unsigned char>(byte));
        EXPECT_EQ(EncodeAnsi(unit), static_cast<unsigned char>(byte));
        EXPECT_EQ(DecoderFor(1252).UnitOf(static_cast<unsigned char>(byte)), unit);
    }
}

TEST(AnsiPage, OnlyItsOwnCharactersHaveAByte)
{
    int encodable = 0;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        encodable += EncodeAnsi(static_cast<char16_t>(unit)).has_value() ? 1 : 0;
    EXPECT_EQ(encodable, 256);
    EXPECT_EQ(EncodeAnsi(u'\u0080'), std::nullopt);
    EXPECT_EQ(EncodeAnsi(u'Ω'), std::nullopt);
    static_assert(EncodeAnsi(u'€') == 0x80);
}

}  // namespace
}  // namespace quillmarker
