#include "engine/rtf/writer_sample.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillmarker
{
namespace
{

/// A value that no format has by default, in units that RTF can say.
template <class T>
T Unusual()
{
    if constexpr (std::is_same_v<T, bool>)
        return true;
    else if constexpr (std::is_same_v<T, std::uint16_t>)
        return 150;
    else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>)
        return T{2};
    else if constexpr (std::is_same_v<T, Twips>)
        return Twips{330};  // NOLINT(bugprone-branch-clone): each branch is of another type
    else if constexpr (std::is_same_v<T, Colour>)
        return Colour::Of(1, 20, 255);
    else if constexpr (std::is_same_v<T, Name>)
        return u"N\u00E4me; \\{}";
    else if constexpr (std::is_same_v<T, LineSpacing>)
        return {LineRule::Multiple, 360};
    else
        return T(Unusual<std::remove_cvref_t<decltype(*std::declval<T>())>>());
}

template <>
Field Unusual()
{
    return {.instruction = u"HYPERLINK \"http://example.org/\\\\{}\u00E4\"", .switches = "\\fldlock", .outer = {}};
}

template <>
std::vector<TabStop> Unusual()
{
    return {{{-100}, TabKind::Bar, TabLeader::None}, {{700}, TabKind::Decimal, TabLeader::Thick}};
}

template <>
Numbering Unusual()
{
    return {.kind = NumberKind::UpperRoman,
            .start = 4,
            .level = 2,
            .indent = {360},
            .text = std::u16string(u"(\x02).", 4),
            .font = u"Courier",
            .fontCharset = 238,
            .hanging = true,
            .align = 2};
}

template <>
Borders Unusual()
{
    Borders borders;
    for (std::size_t side = 0; side < borders.sides.size(); ++side)
        borders.sides[side] = {
            static_cast<BorderStyle>(side + 1), {10}, {20}, Colour::Of(9, 8, static_cast<int>(side))};
    return borders;
}

template <>
Shading Unusual()
{
    return {Colour::Of(1, 2, 3), Colour::Of(4, 5, 6), 2500};
}

template <>
std::string Unusual()
{
    return "\\absw2000\\posx-100";
}

TEST(WriteFormats, EveryFieldOfACharacterFormatSurvives)
{
    const auto check = [](const auto& field) {
        CharFormat format = DefaultCharFormat();
        using Value = std::remove_cvref_t<decltype(format.*field.full)>;
        format.*field.full = Unusual<Value>();
        ASSERT_FALSE(format == DefaultCharFormat() && std::string(field.name) != "family") << field.name;
        ExpectSurvives(OneParagraph(format), field.name);
    };
    std::apply([&](const auto&... field) { (check(field), ...); }, kCharFields);
}

TEST(WriteFormats, AllFieldsOfACharacterFormatSurviveTogether)
{
    CharFormat format;
    const auto set = [&](const auto& field) {
        format.*field.full = Unusual<std::remove_cvref_t<decltype(format.*field.full)>>();
    };
    std::apply([&](const auto&... field) { (set(field), ...); }, kCharFields);
    ExpectSurvives(OneParagraph(format), "all");
}

TEST(WriteFormats, EveryFieldOfAParagraphFormatSurvives)
{
    const auto check = [](const auto& field) {
        ParagraphFormat format;
        format.*field.full = Unusual<std::remove_cvref_t<decltype(format.*field.full)>>();
        ASSERT_FALSE(format == ParagraphFormat()) << field.name;
        ExpectSurvives(OneParagraph(DefaultCharFormat(), format), field.name);
    };
    std::apply([&](const auto&... field) { (check(field), ...); }, kParagraphFields);
}

TEST(WriteFormats, AllFieldsOfAParagraphFormatSurviveTogether)
{
    ParagraphFormat format;
    const auto set = [&](const auto& field) {
        format.*field.full = Unusual<std::remove_cvref_t<decltype(format.*field.full)>>();
    };
    std::apply([&](const auto&... field) { (set(field), ...); }, kParagraphFields);
    ExpectSurvives(OneParagraph(DefaultCharFormat(), format), "all");
}

template <class Enum>
void ForEach(Enum last, const auto& check)
{
    for (int value = 0; value <= static_cast<int>(last); ++value)
        check(static_cast<Enum>(value));
}

TEST(WriteFormats, EveryValueOfAnEnumerationSurvives)
{
    const auto withChars = [](auto member) {
        return [=](auto value) {
            CharFormat format = DefaultCharFormat();
            format.*member = value;
            ExpectSurvives(OneParagraph(format), std::to_string(static_cast<int>(value)));
        };
    };
    ForEach(Underline::Hairline, withChars(&CharFormat::underline));
    ForEach(FontFamily::Bidi, withChars(&CharFormat::family));
    ForEach(Script::Sub, withChars(&CharFormat::script));
    ForEach(Alignment::Distribute, [](Alignment value) {
        ExpectSurvives(OneParagraph(DefaultCharFormat(), {.alignment = value}), "alignment");
    });
    for (const LineSpacing spacing : {LineSpacing{LineRule::AtLeast, 300}, {LineRule::Exactly, 300}, {}})
        ExpectSurvives(OneParagraph(DefaultCharFormat(), {.lineSpacing = spacing}), "line spacing");
}

TEST(WriteFormats, EveryKindOfTabAndLeaderSurvives)
{
    std::vector<TabStop> tabs;
    ForEach(TabKind::Bar, [&](TabKind kind) {
        ForEach(TabLeader::Equals, [&](TabLeader leader) {
            if (kind != TabKind::Bar || leader == TabLeader::None)
                tabs.push_back({{static_cast<int>(tabs.size()) * 100}, kind, leader});
        });
    });
    ASSERT_LE(tabs.size(), kMaxTabStops);
    ExpectSurvives(OneParagraph(DefaultCharFormat(), {.tabs = Shared(tabs)}), "tabs");
}

TEST(WriteFormats, EveryKindOfNumberSurvives)
{
    ForEach(NumberKind::OrdinalText, [](NumberKind kind) {
        const bool isNumber = kind > NumberKind::Bullet;
        const std::u16string text = isNumber                     ? std::u16string(u"(\0)", 3)
                                    : kind == NumberKind::Bullet ? u"\uF0B7"
                                                                 : u"";
        const Numbering old{.kind = kind, .start = 3, .text = text};
        ExpectSurvives(OneParagraph(DefaultCharFormat(), {.numbering = Shared(old)}),
                       "old " + std::to_string(int(kind)));
        Numbering listed = old;
        listed.list = 7;
        listed.follow = 1;
        ExpectSurvives(OneParagraph(DefaultCharFormat(), {.numbering = Shared(listed)}),
                       "list " + std::to_string(int(kind)));
        listed.level = 3;
        ExpectSurvives(OneParagraph(DefaultCharFormat(), {.numbering = Shared(listed)}),
                       "level " + std::to_string(int(kind)));
    });
}

TEST(WriteFormats, EveryBorderSurvives)
{
    ForEach(BorderStyle::Outset, [](BorderStyle style) {
        Borders borders;
        borders[BorderSide::Left] = {style, {15}, {3}, Colour::Of(0, 0, 0)};
        ExpectSurvives(OneParagraph(DefaultCharFormat(), {.borders = Shared(borders)}), std::to_string(int(style)));
    });
}

}  // namespace
}  // namespace quillmarker
