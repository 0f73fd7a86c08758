#include "content/strip_markers.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillmarker
{
namespace
{

std::u16string Stripped(std::u16string text)
{
    StripMarkers(text);
    return text;
}

bool IsMarkerAt(const std::u16string& text, std::size_t at)
{
    return text[at] == u'/' && (text[at + 1] == u'h' || text[at + 1] == u'H') && text[at + 2] == u'/';
}

std::size_t NextMarker(const std::u16string& text, std::size_t from)
{
    for (std::size_t at = from; at + 3 <= text.size(); ++at)
    {
        if (IsMarkerAt(text, at))
            return at;
    }
    return std::u16string::npos;
}

// The rule word for word, with a new string for every marker.
std::u16string StrippedStepByStep(std::u16string text)
{
    std::size_t scan = 0;
    for (;;)
    {
        const std::size_t start = NextMarker(text, scan);
        if (start == std::u16string::npos)
            return text;
        const std::size_t closing = text.find(u'/', start + 3);
        if (closing != std::u16string::npos && closing - start < 21)
            text = text.substr(0, start) + text.substr(closing + 1);
        else
            scan = start + 3;
    }
}

TEST(StripMarkers, TakesTheMarkerItsKeyAndBothSlashes)
{
    EXPECT_EQ(Stripped(u"abc/h/12/def"), u"abcdef");
    EXPECT_EQ(Stripped(u"/h/1//h/2/"), u"");
    EXPECT_EQ(Stripped(u"a/H/x/b"), u"ab");
    EXPECT_EQ(Stripped(u"a/h//b"), u"ab");
    EXPECT_EQ(Stripped(u""), u"");
}

TEST(StripMarkers, TheClosingSlashIsAtMostTwentyCharactersOn)
{
    EXPECT_EQ(Stripped(u"a/h/12345678901234567/b"), u"ab");
    EXPECT_EQ(Stripped(u"a/h/123456789012345678/b"), u"a/h/123456789012345678/b");
    EXPECT_EQ(Stripped(u"a/h/12"), u"a/h/12");
}

TEST(StripMarkers, GoesOnBehindWhatIsNoMarker)
{
    EXPECT_EQ(Stripped(u"/h/123456789012345678901/h/1/z"), u"/h/123456789012345678901z");
    EXPECT_EQ(Stripped(u"/h/12345678901234567890 /h/1/z"), u"/h/12345678901234567890 z");
}

TEST(StripMarkers, AMarkerMadeByARemovalGoesToo)
{
    EXPECT_EQ(Stripped(u"x/h/h/1/y"), u"x1/y");  // the second "/h/" begins inside the first
    EXPECT_EQ(Stripped(u"x//h/1/h/2/y"), u"xy");
    EXPECT_EQ(Stripped(u"x/h/h/1//2/y"), StrippedStepByStep(u"x/h/h/1//2/y"));
}

TEST(StripMarkers, IsTheRuleWordForWord)
{
    std::mt19937 random(1848);
    const std::u16string_view alphabet = u"/hHx1";
    int changed = 0;
    for (int round = 0; round < 40000; ++round)
    {
        std::u16string text(random() % 60, u' ');
        for (char16_t& unit : text)
            unit = random() % 3 == 0 ? u'/' : alphabet[random() % alphabet.size()];
        ASSERT_EQ(Stripped(text), StrippedStepByStep(text));
        changed += Stripped(text) != text ? 1 : 0;
    }
    EXPECT_GT(changed, 1000);
}

TEST(StripMarkers, IsTheRuleWhereSlashesAreRare)
{
    std::mt19937 random(1849);
    for (int round = 0; round < 20000; ++round)
    {
        std::u16string text;
        for (unsigned part = random() % 8; part > 0; --part)
            text += (random() % 2 == 0 ? u"/h/" : u"/") + std::u16string(random() % 25, u'x');
        ASSERT_EQ(Stripped(text), StrippedStepByStep(text));
    }
}

}  // namespace
}  // namespace quillmarker
