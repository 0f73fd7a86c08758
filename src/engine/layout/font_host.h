#pragma once

#include "font_face.h"

#include <quillmarker/char_format.h>
#include <quillmarker/pages/export.h>

#include <memory>
#include <string>

namespace quillmarker
{

/// What a character format says about the face it wants.
struct FontRequest
{
    std::u16string name;
    FontFamily family = FontFamily::Nil;  // of the substitute, when there is no font of that name
    std::uint8_t charset = 0;
    bool bold = false;
    bool italic = false;

    bool operator==(const FontRequest&) const = default;
};

/// Where layout gets its faces. Every answer is kept, so asking again costs a look-up, and the same request always
/// gives the same face.
class FontHost
{
public:
    virtual ~FontHost() = default;

    /// Never fails: an unknown font gives a substitute of its family.
    virtual const FontFace& Face(const FontRequest& request) = 0;

    /// The face that was recorded under this identity; a substitute if it is no longer installed.
    virtual const FontFace& Face(const FaceIdentity& identity) = 0;
};

/// The fonts of the system, through Qt. Needs a QGuiApplication. One for each thread.
QUILLMARKER_PAGES_EXPORT std::unique_ptr<FontHost> SystemFonts();

}  // namespace quillmarker
