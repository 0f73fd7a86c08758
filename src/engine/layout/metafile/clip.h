#pragma once

#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>

#include <cstdint>
#include <optional>

namespace quillmarker::metafile
{

/// How a new area and the clip become the next clip; the formats' numbers.
enum class ClipMode : std::uint32_t { Intersect = 1, Unite, Exclusive, Exclude, Replace };

/// What is painted: the box, less everything outside any of the parts. In target coordinates. A cheap value.
class Clip
{
public:
    /// Unite and Exclusive are exact while the clip is no more than a box; else they take the clip away, so that rather
    /// too much is shown than too little.
    void Apply(const QPainterPath& area, ClipMode mode);
    void Reset() { *this = {}; }
    void Translate(QPointF by);

    void PutOn(QPainter& painter) const;

    bool IsEmpty() const { return m_box && m_box->isEmpty(); }
    bool operator==(const Clip&) const = default;

    /// The points of all parts, for what it costs to put them on.
    qsizetype PointCount() const;

private:
    void Intersect(const QPainterPath& area);

    std::optional<QRectF> m_box;
    QList<QPainterPath> m_parts;
};

/// The rectangle that a path is, if it is one.
std::optional<QRectF> AsRectangle(const QPainterPath& path);

}  // namespace quillmarker::metafile
