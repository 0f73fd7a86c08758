#pragma once

#include "font_face.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillmarker
{

/// Words that were shaped, so that a word that comes again is not shaped again. Holds two generations of bounded size:
/// when the young one is full it becomes the old one, and what is asked for again comes back from there.
class ShapedWords
{
public:
    static constexpr std::size_t kGeneration = 4096;
    static constexpr std::size_t kLongestWord = 64;

    /// A word's key holds how it is shaped in its first unit.
    static std::u16string KeyOf(std::u16string_view word, TextDirection direction, Kerning kerning)
    {
        std::u16string key(1, static_cast<char16_t>((direction == TextDirection::RightToLeft ? 2 : 0) +
                                                    (kerning == Kerning::On ? 1 : 0)));
        return key.append(word);
    }

    /// Null when the word is not there. Valid until the next Keep.
    const ShapedText* Find(const std::u16string& key)
    {
        if (const auto young = m_young.find(key); young != m_young.end())
            return &young->second;
        const auto old = m_old.find(key);
        return old == m_old.end() ? nullptr : &Keep(key, ShapedText(old->second));
    }

    const ShapedText& Keep(const std::u16string& key, ShapedText shaped)
    {
        if (m_young.size() >= kGeneration)
        {
            m_old = std::move(m_young);
            m_young.clear();
        }
        return m_young.insert_or_assign(key, std::move(shaped)).first->second;
    }

    std::size_t Size() const { return m_young.size() + m_old.size(); }

private:
    std::unordered_map<std::u16string, ShapedText> m_young;
    std::unordered_map<std::u16string, ShapedText> m_old;
};

}  // namespace quillmarker
