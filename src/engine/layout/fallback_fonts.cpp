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

const std::optional<QString>& FallbackFonts::FamilyFor(const FaceIdentity& face, char32_t character)
{
    const auto key = std::pair(face.family, character);
    auto found = m_found.find(key);
    if (found == m_found.end())
        found = m_found.emplace(key, Find(face, character)).first;
    return found->second;
}

std::optional<QString> FallbackFonts::Find(const FaceIdentity& face, char32_t character) const
{
    const auto has = [&](const QString& family) {
        return !family.isEmpty() && m_hasCharacter({family, face.weight, face.italic}, character);
    };
    const auto* script = std::ranges::find(kScriptFonts, QChar::script(character), &ScriptFonts::script);
    if (script == kScriptFonts.end())
    {
        const QString family = MergedFamily(face, character);
        return has(family) ? std::optional(family) : std::nullopt;
    }
    for (const QString& family : QFontDatabase::families(script->writingSystem))
    {
        if (has(family))
            return family;
    }
    return std::nullopt;
}

}  // namespace quillmarker
