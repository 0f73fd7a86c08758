#pragma once

#include "player.h"
#include "records.h"

#include <QPointF>
#include <QRectF>

namespace quillmarker::metafile
{

using WmfRow = RecordRow<Player>;

/// The rows of the records of one kind; null when the number is none of them. The reader of a row begins behind the
/// record's size and number.
const WmfRow* WmfStateRow(std::uint32_t number);
const WmfRow* WmfObjectRow(std::uint32_t number);
const WmfRow* WmfShapeRow(std::uint32_t number);
const WmfRow* WmfBitmapRow(std::uint32_t number);
const WmfRow* WmfTextRow(std::uint32_t number);

// WMF stores the arguments of a call from the last to the first.

/// y, x.
inline QPointF ReadBackwardPoint(ByteReader& record)
{
    const qreal y = record.I16();
    return {static_cast<qreal>(record.I16()), y};
}

/// Height, width.
inline QSizeF ReadBackwardSize(ByteReader& record)
{
    const QPointF size = ReadBackwardPoint(record);
    return {size.x(), size.y()};
}

/// Bottom, right, top, left.
inline QRectF ReadBackwardBox(ByteReader& record)
{
    const QPointF end = ReadBackwardPoint(record);
    return {ReadBackwardPoint(record), end};
}

/// Height, width, top, left.
inline QRectF ReadBackwardExtent(ByteReader& record)
{
    const QSizeF size = ReadBackwardSize(record);
    return {ReadBackwardPoint(record), size};
}

}  // namespace quillmarker::metafile
