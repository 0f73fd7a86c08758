#pragma once

#include "dib.h"
#include "player.h"

#include <QRectF>

#include <cstdint>

namespace quillmarker::metafile
{

/// A raster operation over a rectangle, with a bitmap or without. Widths and heights may be negative: then the bitmap is
/// turned over.
struct Blit
{
    QRectF target;  // logical units
    QRectF source;  // pixels from the upper left corner
    std::uint32_t operation = 0;
    bool countsFromBelow = false;  // `source` is counted from the bitmap's lower left corner
};

/// True when the operation needs no bitmap: then what the brush does is all.
bool NeedsSource(std::uint32_t operation);

void FillByOperation(Player& player, const Blit& blit);
void Draw(Player& player, const Blit& blit, const Dib& dib);

/// With an opacity of 0 to 255, and the pixels' own if `hasOpacity`.
struct Blending
{
    int opacity = 255;
    bool hasOpacity = false;
};
void DrawBlended(Player& player, const Blit& blit, const Dib& dib, Blending blending);

/// All but the pixels of this colour.
void DrawWithout(Player& player, const Blit& blit, const Dib& dib, QRgb transparent);

}  // namespace quillmarker::metafile
