#include "font_styles.h"

#include <QCoreApplication>
#include <QFontDatabase>

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace quillmarker
{
namespace
{

std::vector<FontStyle> UsualStyles()
{
    const auto named = [](const char* name) { return QCoreApplication::translate("FontStyle", name); };
    return {
        {named("Regular"), QFont::Normal, false},
        {named("Italic"), QFont::Normal, true},
        {named("Bold"), QFont::Bold, false},
        {named("Bold Italic"), QFont::Bold, true},
    };
}

int Distance(const FontStyle& style, int weight, bool isItalic)
{
    constexpr int kBeyondEveryWeight = 1000;
    return std::abs(style.weight - weight) + (style.isItalic == isItalic ? 0 : kBeyondEveryWeight);
}

}  // namespace

std::vector<FontStyle> StylesOf(const QString& family)
{
    std::vector<FontStyle> styles;
    const QStringList names = family.isEmpty() ? QStringList() : QFontDatabase::styles(family);
    for (const QString& name : names)
        styles.push_back({name, QFontDatabase::weight(family, name), QFontDatabase::italic(family, name)});
    const auto rank = [](const FontStyle& style) {
        return std::tuple(style.weight, style.isItalic, style.name.size());
    };
    std::ranges::stable_sort(styles, {}, rank);
    return styles.empty() ? UsualStyles() : styles;
}

std::size_t NearestStyle(const std::vector<FontStyle>& styles, int weight, bool isItalic)
{
    const auto distance = [&](const FontStyle& style) { return Distance(style, weight, isItalic); };
    return static_cast<std::size_t>(std::ranges::min_element(styles, {}, distance) - styles.begin());
}

}  // namespace quillmarker
