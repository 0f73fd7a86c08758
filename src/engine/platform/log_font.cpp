#include <quillmarker/widgets/log_font.h>

#include "engine/rtf/ansi_page.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr bool PlacesFollowEachOther()
{
    std::size_t end = 0;
    for (std::size_t i = 0; i < kLogFontPlaces.size(); ++i)
    {
        if (static_cast<std::size_t>(kLogFontPlaces[i].field) != i || kLogFontPlaces[i].offset != end)
            return false;
        end += kLogFontPlaces[i].size;
    }
    return end == kFaceNameOffset;
}

static_assert(PlacesFollowEachOther(), "a field is found by its number, and the name stands behind the last");
static_assert(kFaceNameOffset + kFaceNameLength + 1 == kLogFontSize);

constexpr LogFontPlace PlaceOf(LogFontField field) { return kLogFontPlaces[static_cast<std::size_t>(field)]; }

}  // namespace

std::int32_t LogFontNumber(const LogFontImage& image, LogFontField field)
{
    const LogFontPlace place = PlaceOf(field);
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < place.size; ++i)
        number |= std::to_integer<std::uint32_t>(image[place.offset + i]) << (8 * i);
    return static_cast<std::int32_t>(number);
}

void SetLogFontNumber(LogFontImage& image, LogFontField field, std::int32_t number)
{
    const LogFontPlace place = PlaceOf(field);
    for (std::size_t i = 0; i < place.size; ++i)
        image[place.offset + i] = static_cast<std::byte>(static_cast<std::uint32_t>(number) >> (8 * i));
}

QString LogFontFaceName(const LogFontImage& image) { return BytesToString(std::span(image).subspan(kFaceNameOffset)); }

void SetLogFontFaceName(LogFontImage& image, const QString& name)
{
    const std::span<std::byte> bytes = std::span(image).subspan(kFaceNameOffset);
    std::ranges::fill(bytes, std::byte{0});
    StringToBytes(name, bytes);
}

void StringToBytes(const QString& text, std::span<std::byte> bytes)
{
    if (bytes.empty())
        return;
    const std::size_t count = std::min(static_cast<std::size_t>(text.size()), bytes.size() - 1);
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = std::byte{EncodeAnsi(text[static_cast<qsizetype>(i)].unicode()).value_or('?')};
}

QString BytesToString(std::span<const std::byte> bytes)
{
    QString text;
    for (const std::byte code : bytes.first(std::ranges::find(bytes, std::byte{0}) - bytes.begin()))
        text.append(QChar(DecodeAnsi(std::to_integer<unsigned char>(code))));
    return text;
}

}  // namespace quillmarker
