#pragma once

#include "font_face.h"

#include <QFont>

#include <functional>
#include <map>
#include <optional>
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

    /// The family that shows `character` beside `face`, in its weight and slant; none: no font has it.
    const std::optional<QString>& FamilyFor(const FaceIdentity& face, char32_t character);

private:
    std::optional<QString> Find(const FaceIdentity& face, char32_t character) const;

    HasCharacter m_hasCharacter;
    std::map<std::pair<QString, char32_t>, std::optional<QString>> m_found;
};

}  // namespace quillmarker
