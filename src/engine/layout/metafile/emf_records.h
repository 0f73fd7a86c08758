#pragma once

#include "player.h"
#include "records.h"

#include <QPointF>
#include <QRectF>

namespace quillmarker::metafile
{

using EmfRow = RecordRow<Player>;

/// The rows of the records of one kind; null when the number is none of them. The reader of a row holds the whole record
/// and stands behind its number and size: places in a record count from its start.
const EmfRow* EmfStateRow(std::uint32_t number);
const EmfRow* EmfObjectRow(std::uint32_t number);
const EmfRow* EmfPathRow(std::uint32_t number);
const EmfRow* EmfShapeRow(std::uint32_t number);
const EmfRow* EmfPolyRow(std::uint32_t number);
const EmfRow* EmfBitmapRow(std::uint32_t number);
const EmfRow* EmfRegionRow(std::uint32_t number);
const EmfRow* EmfTextRow(std::uint32_t number);

/// Most drawing records begin with a rectangle that says what they cover; nobody needs it.
constexpr std::size_t kBounds = 16;

inline QPointF ReadPoint(ByteReader& record)
{
    const qreal x = record.I32();
    return {x, static_cast<qreal>(record.I32())};
}

inline QSizeF ReadSize(ByteReader& record)
{
    const QPointF size = ReadPoint(record);
    return {size.x(), size.y()};
}

/// Left, top, right, bottom.
inline QRectF ReadBox(ByteReader& record)
{
    const QPointF start = ReadPoint(record);
    return {start, ReadPoint(record)};
}

/// Left, top, width, height.
inline QRectF ReadExtent(ByteReader& record)
{
    const QPointF start = ReadPoint(record);
    return {start, ReadSize(record)};
}

}  // namespace quillmarker::metafile
