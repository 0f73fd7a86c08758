#pragma once

#include "fine.h"

#include <quillmarker/inline_object.h>

namespace quillmarker
{

/// The room that an inline object takes in a line. What is not shown (a note's place) takes none.
struct ObjectSize
{
    Fine width = 0;
    Fine height = 0;
};

ObjectSize SizeOf(const Shared<InlineObject>& object);

/// What is shown for an object: the picture that an embedded object's result holds, else the object itself.
Shared<InlineObject> ShownObject(const Shared<InlineObject>& object);

}  // namespace quillmarker
