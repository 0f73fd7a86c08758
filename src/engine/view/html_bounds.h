#pragma once

#include <QStringView>

namespace quillmarker
{

// Qt reads flat HTML in linear time; what is nested costs the square of its depth, styles cost rules times tags, and a table
// takes memory for all its rows times all its columns. Beyond these bounds HTML is not read.
constexpr int kMaxHtmlDepth = 500;
constexpr int kMaxHtmlTags = 200'000;
constexpr qint64 kMaxStyleMatches = 5'000'000;
constexpr qint64 kMaxTableGrid = 1'000'000;

/// Whether reading takes a reasonable time and memory. Where it is doubtful what is a tag, the answer is rather no.
bool IsWithinBounds(QStringView html);

}  // namespace quillmarker
