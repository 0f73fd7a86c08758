#pragma once

namespace quillmarker
{

/// Johab (code page 1361), which ICU does not have, spells a Korean syllable as three letters of five bits each.
inline constexpr unsigned kJohabFirstLead = 0x84;
inline constexpr unsigned kJohabLastLead = 0xF9;

/// Whether `byte` begins a pair.
bool IsJohabLead(unsigned byte);

/// The character of a syllable or a single letter; 0 when the pair is neither.
char16_t JohabSyllable(unsigned lead, unsigned trail);

/// The pair of code page 949 that is the same sign or Chinese character: its lead byte in the high half; 0 when there
/// is none.
unsigned JohabInKoreanPage(unsigned lead, unsigned trail);

}  // namespace quillmarker
