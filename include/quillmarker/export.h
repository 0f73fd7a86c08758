#pragma once

// QUILLMARKER_CORE_EXPORT marks what the core library shows to a host; everything else stays hidden inside it.

#if defined(QUILLMARKER_STATIC)
#define QUILLMARKER_CORE_EXPORT
#elif defined(_WIN32)
#if defined(QUILLMARKER_CORE_BUILDING)
#define QUILLMARKER_CORE_EXPORT __declspec(dllexport)
#else
#define QUILLMARKER_CORE_EXPORT __declspec(dllimport)
#endif
#else
#define QUILLMARKER_CORE_EXPORT __attribute__((visibility("default")))
#endif
