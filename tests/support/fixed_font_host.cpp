#include "support/fixed_font_host.h"

#include "engine/layout/simple_characters.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace quillmarker
{
namespace
{

constexpr int kBoldWeight = 600;

class FixedFace final : public FontFace
{
public:
    explicit FixedFace(FaceIdentity identity) : m_identity(std::move(identity))
    {
        SetMetrics({.unitsPerEm = 1000,
                    .ascent = 800,
                    .descent = 200,
                    .lineGap = 0,
                    .underlinePosition = 100,
                    .underlineThickness = 50,
                    .strikeoutPosition = 250});
    }

    ShapedText Shape(std::u16string_view text, TextDirection direction, Kerning kerning) const override
    {
        ShapedText shaped;
        shaped.advances.assign(text.size(), 0);
        std::vector<std::pair<std::size_t, UChar32>> clusters;
        for (std::size_t at = 0; at < text.size();)
        {
            const std::size_t start = at;
            UChar32 character = 0;
            U16_NEXT(text.data(), at, text.size(), character);
            clusters.emplace_back(start, character);
            shaped.advances[start] = AdvanceOf(character);
            if (kerning == Kerning::On && text.substr(start, 2) == u"AV")
                shaped.advances[start] -= 100 * kAdvancesPerUnit;
        }
        shaped.width = std::accumulate(shaped.advances.begin(), shaped.advances.end(), std::int64_t{0});
        const bool isForward = direction == TextDirection::LeftToRight;
        std::int32_t x = isForward ? 0 : static_cast<std::int32_t>(shaped.width);
        for (const auto& [start, character] : clusters)
        {
            if (!isForward)
                x -= shaped.advances[start];
            if (character > 0xFFFF || !IsSilentCharacter(static_cast<char16_t>(character)))
                shaped.glyphs.push_back({this, static_cast<std::uint32_t>(character), x, 0});
            if (isForward)
                x += shaped.advances[start];
        }
        if (!isForward)
            std::ranges::reverse(shaped.glyphs);
        return shaped;
    }

    FaceIdentity Identity() const override { return m_identity; }
    QRawFont RawFont(qreal) const override { return {}; }

private:
    void FillPage(char16_t first, GlyphPage& page) const override
    {
        for (unsigned i = 0; i < page.size(); ++i)
        {
            const auto unit = static_cast<char16_t>(first + i);
            page[i] = {unit, AdvanceOf(unit), IsSimpleCharacter(unit)};
        }
    }

    std::int32_t AdvanceOf(UChar32 character) const
    {
        const bool isSilent = character <= 0xFFFF && IsSilentCharacter(static_cast<char16_t>(character));
        if (isSilent || (U_MASK(u_charType(character)) & (U_GC_M_MASK | U_GC_CF_MASK)))
            return 0;
        if (character > 0xFFFF || u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH) == U_EA_WIDE)
            return 1000 * kAdvancesPerUnit;
        return (m_identity.weight >= kBoldWeight ? 600 : 500) * kAdvancesPerUnit;
    }

    FaceIdentity m_identity;
};

}  // namespace

FixedFontHost::FixedFontHost() = default;
FixedFontHost::~FixedFontHost() = default;

const FontFace& FixedFontHost::Face(const FontRequest& request)
{
    std::unique_ptr<FontFace>& face = m_faces[{request.name, request.bold, request.italic}];
    if (!face)
    {
        const QString family = QString::fromUtf16(request.name.data(), static_cast<qsizetype>(request.name.size()));
        face = std::make_unique<FixedFace>(FaceIdentity{family, request.bold ? 700 : 400, request.italic});
    }
    return *face;
}

const FontFace& FixedFontHost::Face(const FaceIdentity& identity)
{
    return Face(FontRequest{
        .name = identity.family.toStdU16String(), .bold = identity.weight >= kBoldWeight, .italic = identity.italic});
}

}  // namespace quillmarker
