#pragma once

// QUILLMARKER_WIDGETS_EXPORT marks what the widgets library shows to a host; everything else stays hidden inside it.

#if defined(QUILLMARKER_STATIC)
#define QUILLMARKER_WIDGETS_EXPORT
#elif defined(_WIN32)
#if defined(QUILLMARKER_WIDGETS_BUILDING)
#define QUILLMARKER_WIDGETS_EXPORT __declspec(dllexport)
#else
#define QUILLMARKER_WIDGETS_EXPORT __declspec(dllimport)
#endif
#else
#define QUILLMARKER_WIDGETS_EXPORT __attribute__((visibility("default")))
#endif
