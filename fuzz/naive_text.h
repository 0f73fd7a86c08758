#pragma once

#include <quillmarker/document.h>
#include <quillmarker/text_box.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmarker
{

// Some fields of a character format, as bits.
constexpr std::uint8_t kNaiveBold = 1;
constexpr std::uint8_t kNaiveItalic = 2;
constexpr std::uint8_t kNaiveUnderline = 4;
constexpr std::uint8_t kNaiveStrike = 8;
constexpr std::uint8_t kNaiveProtected = 16;
constexpr std::uint8_t kNaiveHidden = 32;
constexpr std::uint8_t kNaiveMark = 64;  // the unit belongs to what ends a paragraph, a cell or a row

constexpr std::array<std::uint8_t, 6> kNaiveBits = {kNaiveBold,   kNaiveItalic,    kNaiveUnderline,
                                                    kNaiveStrike, kNaiveProtected, kNaiveHidden};

/// A document as someone in a hurry would hold it: the text, and beside it the format of each unit.
struct NaiveText
{
    std::u16string text;
    std::vector<std::uint8_t> formats;  // one a unit
    std::uint8_t lastMark = 0;          // the format of the last mark, which takes no room

    bool operator==(const NaiveText&) const = default;

    std::int32_t Size() const { return static_cast<std::int32_t>(text.size()); }
    std::uint8_t FormatAt(std::int32_t position) const;
    bool IsParagraphStart(std::int32_t position) const;

    /// Replaces units, marks being units like others; the last mark of `piece` has no part in it.
    void Replace(const Selection& selection, const NaiveText& piece);

    /// Puts bits on or off, on the last mark too where it follows.
    void Put(const Selection& selection, std::uint8_t bits, bool on);

    /// Whether the units have the bit; empty when some have and some have not.
    /// Whether the last mark counts to a selection: it reaches the empty last paragraph from before.
    bool TakesLastMark(const Selection& selection) const;
    std::optional<bool> Has(const Selection& selection, std::uint8_t bit) const;
};

/// Text as it is once it is put in: CR LF for each line end, no NULs.
NaiveText Plain(std::u16string_view text, std::uint8_t format);

NaiveText Flattened(const Document& document);

std::uint8_t BitsOf(const CharFormat& format);

/// A selection of the text as it becomes: inside the text, not inside a CR LF. Start and length are not negative.
Selection Snapped(const NaiveText& text, const Selection& selection);

}  // namespace quillmarker
