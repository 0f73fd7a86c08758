#pragma once

#include "player.h"

#include <QPointF>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmarker::metafile
{

/// The formats' options of a text record.
enum TextOptions : std::uint32_t {
    TextIsOnGround = 0x0002,  // the rectangle is filled with the background
    TextIsClipped = 0x0004,   // to the rectangle
    TextIsGlyphs = 0x0010,    // numbers of glyphs, of a font nobody else has
    TextHasNoRectangle = 0x0100,
    TextIsBytes = 0x0200,  // of a "small" text record
    TextHasDownSteps = 0x2000
};

struct TextRecord
{
    QString text;
    QPointF place;             // logical units
    std::vector<qreal> steps;  // from each UTF-16 unit to the next, logical units; empty: the font's own
    std::uint32_t options = 0;
    std::optional<QRectF> rectangle;
};

void Draw(Player& player, const TextRecord& given);

/// Bytes in the character set of the state's font become UTF-16. `byteSteps` holds one step for each byte, or none; what
/// comes back holds one for each unit.
struct DecodedText
{
    QString text;
    std::vector<qreal> steps;
};
DecodedText Decoded(const Player& player, std::string_view bytes, const std::vector<qreal>& byteSteps);

}  // namespace quillmarker::metafile
