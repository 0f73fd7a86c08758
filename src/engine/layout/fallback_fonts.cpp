#include "fallback_fonts.h"

#include "qt_shaper.h"

#include <QFontDatabase>
#include <QGlyphRun>
#include <QTextLayout>

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

struct ScriptFonts
{
    QChar::Script script;
    QFontDatabase::WritingSystem writingSystem;
};

/// Scripts that only a font made for them can show: asking any other is in vain.
constexpr std::array kScriptFonts = {
    ScriptFonts{QChar::Script_Syriac, QFontDatabase::Syriac},
    ScriptFonts{QChar::Script_Thaana, QFontDatabase::Thaana},
    ScriptFonts{QChar::Script_Devanagari, QFontDatabase::Devanagari},
    ScriptFonts{QChar::Script_Bengali, QFontDatabase::Bengali},
    ScriptFonts{QChar::Script_Gurmukhi, QFontDatabase::Gurmukhi},
    ScriptFonts{QChar::Script_Gujarati, QFontDatabase::Gujarati},
    ScriptFonts{QChar::Script_Oriya, QFontDatabase::Oriya},
    ScriptFonts{QChar::Script_Tamil, QFontDatabase::Tamil},
    ScriptFonts{QChar::Script_Telugu, QFontDatabase::Telugu},
    ScriptFonts{QChar::Script_Kannada, QFontDatabase::Kannada},
    ScriptFonts{QChar::Script_Malayalam, QFontDatabase::Malayalam},
    ScriptFonts{QChar::Script_Sinhala, QFontDatabase::Sinhala},
    ScriptFonts{QChar::Script_Tibetan, QFontDatabase::Tibetan},
    ScriptFonts{QChar::Script_Myanmar, QFontDatabase::Myanmar},
    ScriptFonts{QChar::Script_Khmer, QFontDatabase::Khmer},
    ScriptFonts{QChar::Script_Nko, QFontDatabase::Nko},
};

constexpr int kNormalWeight = 400;

/// What Qt itself would take.
QString MergedFamily(const FaceIdentity& face, char32_t character)
{
    QFont font = MeasuringFont(face, 64);
    font.setStyleStrategy(QFont::PreferOutline);
    QTextLayout layout(QString::fromUcs4(&character, 1), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    if (runs.isEmpty())
        return {};
    // Qt's last resort, a font of empty boxes, claims to have every character; a noncharacter shows it. It has no name.
    const QRawFont font0 = runs.first().rawFont();
    return font0.isValid() && !font0.supportsCharacter(QChar(0xFFFF)) ? font0.familyName() : QString();
}

}  // namespace

const std::optional<FaceIdentity>& FallbackFonts::FaceFor(const FaceIdentity& face, char32_t character)
{
    const Key key{face.family, face.weight, face.italic, character};
    auto found = m_found.find(key);
    if (found == m_found.end())
        found = m_found.emplace(key, Find(face, character)).first;
    return found->second;
}

/// A family's slanted or heavy font often has fewer scripts than its plain one.
std::optional<FaceIdentity> FallbackFonts::Find(const FaceIdentity& face, char32_t character) const
{
    auto found = FindInStyle(face, character);
    if (!found && face.italic)
        found = FindInStyle({face.family, face.weight, false}, character);
    if (!found && face.weight != kNormalWeight)
        found = FindInStyle({face.family, kNormalWeight, false}, character);
    return found;
}

std::optional<FaceIdentity> FallbackFonts::FindInStyle(const FaceIdentity& face, char32_t character) const
{
    const auto faceIn = [&](const QString& family) -> std::optional<FaceIdentity> {
        const FaceIdentity identity{family, face.weight, face.italic};
        return !family.isEmpty() && m_hasCharacter(identity, character) ? std::optional(identity) : std::nullopt;
    };
    const auto* script = std::ranges::find(kScriptFonts, QChar::script(character), &ScriptFonts::script);
    if (script == kScriptFonts.end())
        return faceIn(MergedFamily(face, character));
    for (const QString& family : QFontDatabase::families(script->writingSystem))
    {
        if (auto found = faceIn(family))
            return found;
    }
    return std::nullopt;
}

}  // namespace quillmarker
