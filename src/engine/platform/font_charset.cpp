#include "font_charset.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr int kAnsiCharset = 0;
constexpr int kSymbolSet = 2;

struct SystemCharset
{
    QFontDatabase::WritingSystem system;
    int charset;
};

constexpr std::array kSystemCharsets = {
    SystemCharset{QFontDatabase::Symbol, kSymbolSet},
    SystemCharset{QFontDatabase::Japanese, 128},
    SystemCharset{QFontDatabase::Korean, 129},
    SystemCharset{QFontDatabase::SimplifiedChinese, 134},
    SystemCharset{QFontDatabase::TraditionalChinese, 136},
    SystemCharset{QFontDatabase::Greek, 161},
    SystemCharset{QFontDatabase::Vietnamese, 163},
    SystemCharset{QFontDatabase::Hebrew, 177},
    SystemCharset{QFontDatabase::Arabic, 178},
    SystemCharset{QFontDatabase::Cyrillic, 204},
    SystemCharset{QFontDatabase::Thai, 222},
};

}  // namespace

QFontDatabase::WritingSystem SystemOfCharset(int charset)
{
    const auto* found = std::ranges::find(kSystemCharsets, charset, &SystemCharset::charset);
    return found == kSystemCharsets.end() ? QFontDatabase::Any : found->system;
}

/// Beside its signs such a font is told to have Latin, because the codes are those of Latin letters.
bool HasOnlySigns(const QString& family)
{
    const QList<QFontDatabase::WritingSystem> systems = QFontDatabase::writingSystems(family);
    const auto isNoAlphabet = [](auto system) {
        return system == QFontDatabase::Symbol || system == QFontDatabase::Latin;
    };
    return systems.contains(QFontDatabase::Symbol) && std::ranges::all_of(systems, isNoAlphabet);
}

int ChosenCharset(const CharsetChoice& choice)
{
    if (!choice.shownFamily.isEmpty() && HasOnlySigns(choice.shownFamily))
        return kSymbolSet;
    // Letters are not shown as signs, only because a family of signs was looked for and none was taken.
    const auto* found = std::ranges::find(kSystemCharsets, choice.system, &SystemCharset::system);
    if (found != kSystemCharsets.end() && found->charset != kSymbolSet)
        return found->charset;
    // Letters of one system are not those of another, nor are they signs.
    const bool isOther = choice.chosenFamily.compare(choice.askedFamily, Qt::CaseInsensitive) != 0;
    if (choice.askedCharset == kSymbolSet)
        return isOther ? kAnsiCharset : kSymbolSet;
    const bool isOfAnother = SystemOfCharset(choice.askedCharset) != QFontDatabase::Any;
    return choice.system == QFontDatabase::Latin && isOfAnother ? kAnsiCharset : choice.askedCharset;
}

}  // namespace quillmarker
