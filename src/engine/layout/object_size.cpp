#include "object_size.h"

#include "picture_image.h"

#include <quillmarker/document.h>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

// What an embedded object without a picture and without a size of its own is shown as.
constexpr Twips kObjectSide = Inches(1);

Fine Bounded(Twips length, Twips otherwise)
{
    const Twips shown = length.value > 0 ? length : otherwise;
    return ToFine(std::min(shown, Twips{static_cast<std::int32_t>(kMaxPictureTwips)}));
}

ObjectSize SizeOfPicture(const InlinePicture& picture)
{
    const QSizeF size = ShownSize(picture);
    return {static_cast<Fine>(std::llround(size.width() * kFinePerTwip)),
            static_cast<Fine>(std::llround(size.height() * kFinePerTwip))};
}

/// The first picture of a result's first paragraphs; results are one picture as a rule.
Shared<InlineObject> PictureOfResult(const EmbeddedObject& object)
{
    constexpr std::int32_t kParagraphs = 4;
    Shared<InlineObject> found;
    if (object.result.IsAbsent())
        return found;
    std::int32_t seen = 0;
    Document().Nested(object.result).Visit(0, [&](const Paragraph& paragraph) {
        if (paragraph.HasExtras())
            for (const PlacedObject& placed : paragraph.Extras().objects)
                if (!found && std::holds_alternative<InlinePicture>(*placed.object))
                    found = placed.object;
        return !found && ++seen < kParagraphs;
    });
    return found;
}

}  // namespace

Shared<InlineObject> ShownObject(const Shared<InlineObject>& object)
{
    if (const auto* embedded = std::get_if<EmbeddedObject>(&*object))
        if (Shared<InlineObject> picture = PictureOfResult(*embedded))
            return picture;
    return object;
}

ObjectSize SizeOf(const Shared<InlineObject>& object)
{
    const Shared<InlineObject> shown = ShownObject(object);
    if (const auto* picture = std::get_if<InlinePicture>(&*shown))
        return SizeOfPicture(*picture);
    if (const auto* embedded = std::get_if<EmbeddedObject>(&*shown))
        return {Bounded(embedded->width, kObjectSide), Bounded(embedded->height, kObjectSide)};
    return {};
}

}  // namespace quillmarker
