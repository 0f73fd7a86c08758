#pragma once

#include <array>
#include <span>
#include <string_view>

namespace quillmarker
{

// Fonts made to measure like a well-known one, to the advance of each character: text shown in a twin breaks into the same
// lines. The first of a row is the one that is installed most often where the others are not.
inline constexpr std::array<std::u16string_view, 5> kSansTwins = {u"Liberation Sans", u"Arial", u"Arimo", u"Helvetica",
                                                                  u"Nimbus Sans"};
inline constexpr std::array<std::u16string_view, 5> kSerifTwins = {u"Liberation Serif", u"Times New Roman", u"Tinos",
                                                                   u"Times", u"Nimbus Roman"};
inline constexpr std::array<std::u16string_view, 5> kMonoTwins = {u"Liberation Mono", u"Courier New", u"Cousine",
                                                                  u"Courier", u"Nimbus Mono PS"};
inline constexpr std::array<std::u16string_view, 3> kNarrowTwins = {u"Liberation Sans Narrow", u"Arial Narrow",
                                                                    u"Nimbus Sans Narrow"};
inline constexpr std::array<std::u16string_view, 2> kCalibriTwins = {u"Carlito", u"Calibri"};
inline constexpr std::array<std::u16string_view, 2> kCambriaTwins = {u"Caladea", u"Cambria"};
inline constexpr std::array<std::u16string_view, 2> kGeorgiaTwins = {u"Gelasio", u"Georgia"};

struct TwinFont
{
    std::u16string_view name;
    std::span<const std::u16string_view> twins;
};

/// The names that documents ask for, in alphabetical order: each can be offered wherever one of its twins is installed.
inline constexpr std::array<TwinFont, 10> kTwinFonts = {{
    {u"Arial", kSansTwins},
    {u"Arial Narrow", kNarrowTwins},
    {u"Calibri", kCalibriTwins},
    {u"Cambria", kCambriaTwins},
    {u"Courier", kMonoTwins},
    {u"Courier New", kMonoTwins},
    {u"Georgia", kGeorgiaTwins},
    {u"Helvetica", kSansTwins},
    {u"Times", kSerifTwins},
    {u"Times New Roman", kSerifTwins},
}};

}  // namespace quillmarker
