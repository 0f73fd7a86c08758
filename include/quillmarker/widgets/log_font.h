#pragma once

#include <quillmarker/widgets/export.h>

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quillmarker
{

/// A font as font choosers have exchanged it for decades: the packed record of Windows, little-endian, with a face name
/// in the ANSI code page 1252. It is one byte longer than there, so that a name of 32 characters still ends in a zero.
inline constexpr std::size_t kLogFontSize = 61;
inline constexpr int kFaceNameLength = 32;  // characters, without the zero
inline constexpr std::size_t kFaceNameOffset = 28;

using LogFontImage = std::array<std::byte, kLogFontSize>;

/// The numbers of the record, in its order.
enum class LogFontField : std::uint8_t {
    Height,  // in pixels; negative: of the letters, positive: of the line, 0: none is meant
    Width,
    Escapement,
    Orientation,
    Weight,  // 400 regular, 700 bold
    Italic,
    Underline,
    StrikeOut,
    CharSet,
    OutPrecision,
    ClipPrecision,
    Quality,
    PitchAndFamily,
};

struct LogFontPlace
{
    LogFontField field;
    std::size_t offset;
    std::size_t size;
};

inline constexpr std::array<LogFontPlace, 13> kLogFontPlaces = {{
    {LogFontField::Height, 0, 4},
    {LogFontField::Width, 4, 4},
    {LogFontField::Escapement, 8, 4},
    {LogFontField::Orientation, 12, 4},
    {LogFontField::Weight, 16, 4},
    {LogFontField::Italic, 20, 1},
    {LogFontField::Underline, 21, 1},
    {LogFontField::StrikeOut, 22, 1},
    {LogFontField::CharSet, 23, 1},
    {LogFontField::OutPrecision, 24, 1},
    {LogFontField::ClipPrecision, 25, 1},
    {LogFontField::Quality, 26, 1},
    {LogFontField::PitchAndFamily, 27, 1},
}};

/// A number of the record: four bytes are signed, a single one is not.
QUILLMARKER_WIDGETS_EXPORT std::int32_t LogFontNumber(const LogFontImage& image, LogFontField field);
/// Keeps the low byte where the field is one byte.
QUILLMARKER_WIDGETS_EXPORT void SetLogFontNumber(LogFontImage& image, LogFontField field, std::int32_t number);

QUILLMARKER_WIDGETS_EXPORT QString LogFontFaceName(const LogFontImage& image);
/// The first 32 characters of `name`; the rest of the field is zeros.
QUILLMARKER_WIDGETS_EXPORT void SetLogFontFaceName(LogFontImage& image, const QString& name);

/// Copies the character codes of `text`, at most one less than there are bytes, so that a last byte of 0 stays 0; the
/// bytes behind the text stay as they are. A code is the byte of code page 1252, and a question mark for a UTF-16 unit
/// that the page does not have.
QUILLMARKER_WIDGETS_EXPORT void StringToBytes(const QString& text, std::span<std::byte> bytes);

/// The characters of code page 1252 up to the first zero byte, or to the end when there is none.
QUILLMARKER_WIDGETS_EXPORT QString BytesToString(std::span<const std::byte> bytes);

}  // namespace quillmarker
