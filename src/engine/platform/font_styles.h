#pragma once

#include <QString>

#include <vector>

namespace quillmarker
{

struct FontStyle
{
    QString name;
    int weight = 400;
    bool isItalic = false;

    bool operator==(const FontStyle&) const = default;
};

/// The styles of an installed family from light to heavy, upright before italic; regular, italic, bold and bold italic
/// where no family says which it has. Never empty.
std::vector<FontStyle> StylesOf(const QString& family);

/// The style that comes nearest to what is wanted; being italic counts more than weight. `styles` is not empty.
std::size_t NearestStyle(const std::vector<FontStyle>& styles, int weight, bool isItalic);

}  // namespace quillmarker
