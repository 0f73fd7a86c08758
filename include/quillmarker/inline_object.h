#pragma once

#include <quillmarker/body.h>
#include <quillmarker/shared_value.h>
#include <quillmarker/twips.h>

#include <cstdint>
#include <string>
#include <variant>

namespace quillmarker
{

enum class PictureKind : std::uint8_t { Png, Jpeg, Emf, Wmf, Dib, Ddb, MacPict, Other };

/// A picture as the file holds it. Nothing of it is decoded here: the bytes are kept as they are, so that a picture
/// neither grows nor loses quality when it is saved.
struct InlinePicture
{
    PictureKind kind = PictureKind::Other;
    std::int32_t mapping = 0;  // of a WMF: its mapping mode (\wmetafile); of a bitmap: its number (\dibitmap, \wbitmap)
    std::int32_t width = 0;    // \picw: pixels of a bitmap, hundredths of a millimetre of a metafile
    std::int32_t height = 0;
    Twips goalWidth;  // \picwgoal: the size it is shown in before scaling; 0 is not stated
    Twips goalHeight;
    std::int32_t scaleX = 100;  // per cent
    std::int32_t scaleY = 100;
    Twips cropLeft, cropTop, cropRight, cropBottom;  // negative ones add a margin
    std::string kept;                                // further control words, saved again
    Shared<std::string> bytes;

    bool operator==(const InlinePicture&) const = default;
};

/// An embedded or linked object. Only its result is ever shown; its data is kept and never run.
struct EmbeddedObject
{
    std::string kind;  // the control word that says it: "objemb", "objlink", …
    std::u16string className;
    std::u16string name;
    Twips width, height;
    std::string kept;
    Shared<std::string> data;
    Body result;

    bool operator==(const EmbeddedObject&) const = default;
};

enum class NoteKind : std::uint8_t { Footnote, Endnote, Annotation };

/// A footnote, endnote or annotation, which stands in the text as one character.
struct Note
{
    NoteKind kind = NoteKind::Footnote;
    std::u16string author;  // of an annotation
    std::u16string id;
    Body body;

    bool operator==(const Note&) const = default;
};

/// What a character U+FFFC of a paragraph stands for.
using InlineObject = std::variant<InlinePicture, EmbeddedObject, Note>;

}  // namespace quillmarker
