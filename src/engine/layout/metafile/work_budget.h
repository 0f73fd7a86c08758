#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quillmarker::metafile
{

/// What playing may cost, in steps of about a nanosecond: a pixel filled is one. Few bytes can ask for much painting;
/// what no picture needs is refused.
class WorkBudget
{
public:
    /// For a target of so many pixels: it may be filled a thousand times over, and always a good deal may be done.
    explicit WorkBudget(qreal pixels) : m_left(std::clamp(pixels * 1000, 2e8, 2e9)) {}

    /// True while there is something left. The last step may overdraw.
    bool Spend(qreal steps)
    {
        m_left -= std::isfinite(steps) ? std::max<qreal>(steps, 0) : m_left + 1;
        return m_left > 0;
    }

    bool IsSpent() const { return m_left <= 0; }

    static constexpr qreal kRecord = 100;
    static constexpr qreal kPoint = 100;
    static constexpr qreal kCharacter = 3000;
    static constexpr qreal kNewFont = 1e6;
    static constexpr qreal kPixelOfEdge = 10;
    static constexpr qreal kPixelOfImage = 4;

private:
    qreal m_left;
};

}  // namespace quillmarker::metafile
