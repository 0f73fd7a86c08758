#include "engine/rtf/page_table.h"

#include "engine/rtf/ansi_page.h"
#include "engine/rtf/johab.h"
#include "engine/rtf/known_pages.h"

#include <unicode/ucnv.h>

#include <memory>

namespace quillmarker
{

namespace
{

// Where a page differs from ICU's table of it.
struct Patch
{
    CodePage page;
    unsigned char byte;
    char16_t unit;
};

constexpr Patch kPatches[] = {
    {437, 0xE6, 0x00B5},
    {860, 0xE6, 0x00B5},
    {861, 0xE6, 0x00B5},
    {862, 0xE6, 0x00B5},
    {863, 0xE6, 0x00B5},
    {865, 0xE6, 0x00B5},
    {852, 0xAA, 0x00AC},
    // Shift-JIS leaves these bytes free. Windows keeps them as private characters, the Macintosh used them.
    {kShiftJisPage, 0xA0, 0xF8F0},
    {kShiftJisPage, 0xFD, 0xF8F1},
    {kShiftJisPage, 0xFE, 0xF8F2},
    {kShiftJisPage, 0xFF, 0xF8F3},
    {kMacJapanesePage, 0x80, u'\\'},
    {kMacJapanesePage, 0xA0, 0x00A0},
    {kMacJapanesePage, 0xFD, 0x00A9},
    {kMacJapanesePage, 0xFE, 0x2122},
    {kMacJapanesePage, 0xFF, 0x2026},
};

struct CloseConverter
{
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter OpenConverter(const char* name)
{
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name, &status));
    if (U_FAILURE(status))
        return nullptr;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return converter;
}

// One UTF-16 unit for `length` bytes; 0 when they are undefined or more than one unit.
char16_t Converted(UConverter* converter, const char* bytes, int length)
{
    UErrorCode status = U_ZERO_ERROR;
    std::array<UChar, 8> units{};
    ucnv_resetToUnicode(converter);
    const int count = ucnv_toUChars(converter, units.data(), static_cast<int>(units.size()), bytes, length, &status);
    return U_SUCCESS(status) && count == 1 && units[0] != kReplacementUnit ? units[0] : u'\0';
}

char16_t UndefinedByte(unsigned byte) { return byte < 0xA0 ? static_cast<char16_t>(byte) : kReplacementUnit; }

void SetAscii(PageTable& table)
{
    for (unsigned byte = 0; byte < 0x100; ++byte)
        table.units[byte] = UndefinedByte(byte);
}

void SetPairs(PageTable& table, UConverter* converter)
{
    table.pairs.assign(std::size_t{128} * 256, kReplacementUnit);
    for (unsigned lead = 0x80; lead < 0x100; ++lead)
    {
        for (unsigned trail = 0x30; trail < 0x100 && table.lead[lead]; ++trail)
        {
            const std::array<char, 2> bytes = {static_cast<char>(lead), static_cast<char>(trail)};
            if (const char16_t unit = Converted(converter, bytes.data(), 2))
                table.pairs[PageTable::PairIndex(lead, trail)] = unit;
        }
    }
}

// ICU's own tables for a few pages exchange control characters, so that what is below 0x80 is never asked for.
bool SetFromIcu(PageTable& table, const char* name)
{
    const Converter converter = OpenConverter(name);
    if (!converter)
        return false;
    for (unsigned byte = 0x80; byte < 0x100; ++byte)
    {
        const char asChar = static_cast<char>(byte);
        if (const char16_t unit = Converted(converter.get(), &asChar, 1))
            table.units[byte] = unit;
    }
    if (ucnv_getMaxCharSize(converter.get()) < 2)
        return true;
    UErrorCode status = U_ZERO_ERROR;
    std::array<UBool, 256> starters{};
    ucnv_getStarters(converter.get(), starters.data(), &status);
    for (unsigned byte = 0x80; byte < 0x100 && U_SUCCESS(status); ++byte)
        table.lead[byte] = starters[byte] != 0;
    SetPairs(table, converter.get());
    return true;
}

void SetAnsi(PageTable& table)
{
    for (unsigned byte = 0; byte < 0x100; ++byte)
        table.units[byte] = DecodeAnsi(static_cast<unsigned char>(byte));
}

void SetSymbol(PageTable& table)
{
    for (unsigned byte = 0x20; byte < 0x100; ++byte)
        table.units[byte] = static_cast<char16_t>(0xF000 + byte);
}

void SetJohab(PageTable& table)
{
    const PageTable korean = TableOfPage(kKoreanPage);
    table.pairs.assign(std::size_t{128} * 256, kReplacementUnit);
    for (unsigned lead = 0x80; lead < 0x100; ++lead)
    {
        table.lead[lead] = IsJohabLead(lead);
        for (unsigned trail = 0x30; trail < 0x100 && table.lead[lead]; ++trail)
        {
            char16_t& unit = table.pairs[PageTable::PairIndex(lead, trail)];
            if (const char16_t syllable = JohabSyllable(lead, trail))
                unit = syllable;
            else if (const unsigned pair = JohabInKoreanPage(lead, trail); pair != 0 && !korean.pairs.empty())
                unit = korean.pairs[PageTable::PairIndex(pair >> 8, pair & 0xFF)];
        }
    }
}

void SetOwn(PageTable& table, CodePage page)
{
    switch (page)
    {
    case kSymbolPage:
        return SetSymbol(table);
    case kJohabPage:
        return SetJohab(table);
    case kUtf8Page:
        return;
    default:
        return SetAnsi(table);
    }
}

}  // namespace

PageTable TableOfPage(CodePage page)
{
    const KnownPage& known = kKnownPages[KnownPageIndex(page)];
    PageTable table;
    SetAscii(table);
    if (known.converter == nullptr)
        SetOwn(table, known.page);
    else if (!SetFromIcu(table, known.converter))
        SetAnsi(table);  // an ICU whose data was cut down
    for (const Patch& patch : kPatches)
    {
        if (patch.page == known.page)
            table.units[patch.byte] = patch.unit;
    }
    return table;
}

}  // namespace quillmarker
