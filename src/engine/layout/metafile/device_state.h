#pragma once

#include "clip.h"
#include "graphics_objects.h"
#include "mapping.h"

#include <QColor>
#include <QPointF>

#include <cstdint>

namespace quillmarker::metafile
{

/// How what is drawn and what is there are combined: the formats' numbers of the operations that are told apart.
enum class MixMode : std::uint32_t {
    Black = 1,
    NotCopy = 4,
    Not = 6,
    Xor = 7,
    And = 9,
    Nothing = 11,
    Copy = 13,
    Or = 15,
    White = 16
};

enum TextAlignment : std::uint32_t {
    AlignUpdatesPosition = 1,
    AlignHorizontally = 6,  // of these bits: 0 left, 2 right, 6 centre
    AlignRight = 2,
    AlignCentre = 6,
    AlignVertically = 24,  // 0 top, 8 bottom, 24 baseline
    AlignBottom = 8,
    AlignBaseline = 24
};

/// All that SaveDC saves.
struct DeviceState
{
    Mapping mapping;
    Pen pen;
    Brush brush;
    Font font;
    QColor textColour = Qt::black;
    QColor background = Qt::white;
    bool isOpaque = true;  // gaps of hatches and the ground of text are filled with the background
    Qt::FillRule fillRule = Qt::OddEvenFill;
    MixMode mix = MixMode::Copy;
    std::uint32_t textAlignment = 0;
    qreal characterExtra = 0;  // logical units behind each character
    QPointF position;          // logical units
    bool arcsAreClockwise = false;
    qreal miterLimit = 10;
    Clip clip;
};

}  // namespace quillmarker::metafile
