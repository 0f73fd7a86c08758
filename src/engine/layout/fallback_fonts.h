#pragma once

#include "font_face.h"

#include <QFont>

#include <functional>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

namespace quillmarker
{

/// Finds a font for a character that a face does not have.
class FallbackFonts
{
public:
    /// Whether the font that is found under an identity has a character.
    using HasCharacter = std::function<bool(const FaceIdentity&, char32_t)>;

    explicit FallbackFonts(HasCharacter hasCharacter) : m_hasCharacter(std::move(hasCharacter)) {}

    /// The font that shows `character` beside `face`: in its weight and slant if there is one, else upright, else plain;
    /// none: no font has it.
    const std::optional<FaceIdentity>& FaceFor(const FaceIdentity& face, char32_t character);

private:
    using Key = std::tuple<QString, int, bool, char32_t>;

    std::optional<FaceIdentity> Find(const FaceIdentity& face, char32_t character) const;
    std::optional<FaceIdentity> FindInStyle(const FaceIdentity& face, char32_t character) const;

    HasCharacter m_hasCharacter;
    std::map<Key, std::optional<FaceIdentity>> m_found;
};

}  // namespace quillmarker
