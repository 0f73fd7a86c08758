#pragma once

#include <QColor>
#include <QImage>
#include <QPen>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <variant>
#include <vector>

namespace quillmarker::metafile
{

struct Pen
{
    QColor colour = Qt::black;
    Qt::PenStyle style = Qt::SolidLine;  // NoPen: draws nothing; CustomDashLine: `dashes`
    qreal width = 0;                     // logical units; 0 is the thinnest line
    Qt::PenCapStyle cap = Qt::RoundCap;
    Qt::PenJoinStyle join = Qt::RoundJoin;
    std::vector<qreal> dashes;  // logical units
    bool isGeometric = false;   // else its width is in pixels of the device it was drawn for
};

struct Brush
{
    Qt::BrushStyle style = Qt::SolidPattern;  // NoBrush; a hatch; TexturePattern: `pattern`
    QColor colour = Qt::white;
    QImage pattern;
    bool isTwoColoured = false;  // of a pattern: black is the text colour, white the background's
};

/// What a font that is not installed is replaced by.
enum class FamilyKind : std::uint8_t { Sans, Serif, Fixed };

struct Font
{
    qreal height = 0;      // logical units: negative of the em, positive of the cell, 0 is a usual size
    qreal width = 0;       // of the average character; 0 is the font's own
    qreal escapement = 0;  // degrees, counterclockwise
    int weight = 400;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruckOut = false;
    int charset = 0;
    FamilyKind familyKind = FamilyKind::Sans;
    QString family = QStringLiteral("Arial");
};

struct Region
{
    std::vector<QRectF> rectangles;
};

/// Keeps the place of what is not played: palettes, colour spaces, whole bitmaps.
struct Unplayed
{
};

using GraphicsObject = std::variant<Unplayed, Pen, Brush, Font, Region>;

/// What a file has made, by handle. It costs what is in it, whatever numbers the file uses.
class ObjectTable
{
public:
    const GraphicsObject* Find(std::uint32_t handle) const;
    void Put(std::uint32_t handle, GraphicsObject object);

    /// The lowest handle that is free, as WMF counts them.
    void PutInFirstFree(GraphicsObject object);
    void Remove(std::uint32_t handle);

private:
    std::map<std::uint32_t, GraphicsObject> m_objects;
    std::set<std::uint32_t> m_freed;
    std::uint32_t m_next = 0;
};

/// The objects every device has, by number; empty when there is none of this number.
std::optional<GraphicsObject> StockObject(std::uint32_t number);

/// A pen or a brush of the styles that both formats number alike.
Pen PenOfStyle(std::uint32_t style, qreal width, QColor colour);
Brush BrushOfStyle(std::uint32_t style, QColor colour, std::uint32_t hatch);

/// From the byte that states pitch and family.
FamilyKind FamilyKindOf(std::uint32_t pitchAndFamily);

/// A colour as the formats store it: red in the lowest byte.
QColor ColourOf(std::uint32_t stored);

}  // namespace quillmarker::metafile
