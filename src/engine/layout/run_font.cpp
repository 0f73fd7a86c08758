#include "run_font.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

// Of the size. Chosen so that neither script makes a line of the same font taller.
constexpr std::int32_t kScriptPercent = 66;
constexpr std::int32_t kSuperRaisePercent = 30;
constexpr std::int32_t kSubDropPercent = 7;

Fine RaiseOf(const CharFormat& format)
{
    const Fine size = ToFine(format.size);
    const Fine raise = ToFine(format.offset);
    switch (format.script)
    {
    case Script::Super:
        return raise + size * kSuperRaisePercent / 100;
    case Script::Sub:
        return raise - size * kSubDropPercent / 100;
    case Script::None:
        break;
    }
    return raise;
}

}  // namespace

Twips ShownFontSize(const CharFormat& format)
{
    const Twips size = std::max(format.size, Twips{1});
    return format.script == Script::None ? size : std::max(size * kScriptPercent / 100, Twips{1});
}

FontRequest RequestOf(const CharFormat& format)
{
    return {format.font.Text(), format.family, format.charset, format.bold, format.italic};
}

RunFont WithSize(RunFont font, Twips size)
{
    const FaceMetrics& metrics = font.face->Metrics();
    font.size = size;
    font.ascent = ScaledUnits(metrics.ascent, size, metrics.unitsPerEm);
    font.descent = ScaledUnits(metrics.descent, size, metrics.unitsPerEm);
    font.lineGap = ScaledUnits(metrics.lineGap, size, metrics.unitsPerEm);
    return font;
}

RunFont RunFontOf(const CharFormat& format, FontHost& fonts)
{
    RunFont font;
    font.face = &fonts.Face(RequestOf(format));
    font.raise = RaiseOf(format);
    return WithSize(font, ShownFontSize(format));
}

}  // namespace quillmarker
