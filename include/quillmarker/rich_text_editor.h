#pragma once

// The control that a host places on its window.

#include <quillmarker/widgets/rich_text_editor.h>
