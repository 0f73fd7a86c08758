#pragma once

#include <QString>

namespace quillmarker
{

/// HTML whose tags say with an attribute how their text is aligned where their style says it: Qt reads only the attribute.
QString WithAlignAttributes(const QString& html);

}  // namespace quillmarker
