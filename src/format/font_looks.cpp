#include "font_looks.h"

#include <QFontDatabase>
#include <QRawFont>

#include <algorithm>
#include <array>
#include <memory>

namespace quillmarker
{
namespace
{

/// What fonts of signs have, the likeliest first: Greek, dingbats, arrows, shapes, mathematics, music, and the private
/// characters and the letters under which older ones keep theirs.
constexpr auto kSamples = std::to_array<std::u16string_view>({
    u"\u03B1\u03B2\u03B3",
    u"\u2702\u2708\u2714",
    u"\u2190\u2191\u2192",
    u"\u25A0\u25B2\u25CF",
    u"\u222B\u2211\u221A",
    u"\u2669\u266A\u266B",
    u"\uF041\uF042\uF043",
    u"ABC",
});

bool Shows(const QRawFont& font, QStringView text)
{
    const QList<uint> characters = text.toUcs4();
    return std::ranges::all_of(characters, [&](uint character) { return font.supportsCharacter(character); });
}

/// A font of signs answers letters with signs and may say that it has Latin, so having the characters is not enough. Of a
/// name that the machine maps to another font nothing is told, and then that font is readable.
bool HasSignsForLetters(const QList<QFontDatabase::WritingSystem>& systems)
{
    const auto isForSigns = [](QFontDatabase::WritingSystem system) {
        return system == QFontDatabase::Symbol || system == QFontDatabase::Latin;
    };
    return systems.contains(QFontDatabase::Symbol) && std::ranges::all_of(systems, isForSigns);
}

QString SampleIn(const QRawFont& font, const QList<QFontDatabase::WritingSystem>& systems)
{
    for (const QFontDatabase::WritingSystem system : systems)
    {
        const bool isScript = system != QFontDatabase::Symbol && system != QFontDatabase::Latin;
        QString sample = isScript ? QFontDatabase::writingSystemSample(system) : QString();
        if (!sample.isEmpty() && Shows(font, sample))
            return sample;
    }
    for (const std::u16string_view sample : kSamples)
    {
        QString text = QString::fromUtf16(sample.data(), static_cast<qsizetype>(sample.size()));
        if (Shows(font, text))
            return text;
    }
    return {};
}

FontLook LookOf(const QString& family, const QFont& listFont)
{
    FontLook look;
    look.face = listFont;
    look.face.setFamilies({family});
    // What the family does not have is not looked for in every other one.
    look.face.setStyleStrategy(QFont::NoFontMerging);
    const QList<QFontDatabase::WritingSystem> systems = QFontDatabase::writingSystems(family);
    const QRawFont font = QRawFont::fromFont(look.face);
    look.isLegible = font.isValid() && !HasSignsForLetters(systems) && Shows(font, family);
    if (!look.isLegible && font.isValid())
        look.sample = SampleIn(font, systems);
    return look;
}

}  // namespace

FontLook FontLooks::Of(const QString& family, const QFont& listFont)
{
    if (m_listFont != listFont)
    {
        m_looks.clear();
        m_listFont = listFont;
    }
    if (const FontLook* known = m_looks.object(family))
        return *known;
    auto look = std::make_unique<FontLook>(LookOf(family, listFont));
    FontLook found = *look;
    m_looks.insert(family, look.release());
    return found;
}

}  // namespace quillmarker
