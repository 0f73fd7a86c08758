#pragma once

#include "font_face.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillmarker
{

/// Puts shaped stretches of a text together: they come in the order of the text and stand in its direction.
class TextAssembly
{
public:
    TextAssembly(std::size_t units, TextDirection direction) : m_isForward(direction == TextDirection::LeftToRight)
    {
        m_text.advances.reserve(units);
        m_text.glyphs.reserve(units);
    }

    /// A character that is one glyph, from left to right.
    void AddSimple(const FontFace& face, SimpleGlyph simple)
    {
        m_text.glyphs.push_back({&face, simple.glyph, static_cast<std::int32_t>(m_text.width), 0});
        m_text.advances.push_back(simple.advance);
        m_text.width += simple.advance;
    }

    void Add(const ShapedText& part)
    {
        const std::int64_t left = m_isForward ? m_text.width : -m_text.width - part.width;
        for (ShapedGlyph glyph : part.glyphs)
        {
            glyph.x += static_cast<std::int32_t>(left);
            m_text.glyphs.push_back(glyph);
        }
        m_text.advances.insert(m_text.advances.end(), part.advances.begin(), part.advances.end());
        m_text.width += part.width;
        m_text.fallbackAscent = std::max(m_text.fallbackAscent, part.fallbackAscent);
        m_text.fallbackDescent = std::max(m_text.fallbackDescent, part.fallbackDescent);
    }

    ShapedText Finish() &&
    {
        if (!m_isForward)
        {
            for (ShapedGlyph& glyph : m_text.glyphs)
                glyph.x += static_cast<std::int32_t>(m_text.width);
            std::ranges::stable_sort(m_text.glyphs, {}, &ShapedGlyph::x);
        }
        return std::move(m_text);
    }

private:
    ShapedText m_text;
    bool m_isForward;
};

}  // namespace quillmarker
