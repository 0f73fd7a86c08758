#pragma once

#include "engine/layout/font_host.h"

#include <map>
#include <memory>
#include <tuple>

namespace quillmarker
{

/// Fonts that measure the same on every machine. A face has 1000 units to the em, ascent 800, descent 200, no line gap.
/// A character is 500 wide, 600 in bold; ideographs and supplementary characters 1000; combining marks, joiners and
/// what leaves nothing to be seen 0. With kerning, "AV" is 100 narrower. The glyph's number is the character's. From
/// right to left, characters stand in mirrored order. The identity's family is the name that was asked for. Nothing
/// can be painted with them.
class FixedFontHost final : public FontHost
{
public:
    FixedFontHost();
    ~FixedFontHost() override;

    const FontFace& Face(const FontRequest& request) override;
    const FontFace& Face(const FaceIdentity& identity) override;

private:
    std::map<std::tuple<std::u16string, bool, bool>, std::unique_ptr<FontFace>> m_faces;
};

}  // namespace quillmarker
