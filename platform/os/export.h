#pragma once

// Export marks of the shared libraries. A library's own CMake target defines <NAME>_BUILDING, one
// that links its code statically <NAME>_STATIC.

#if defined(_WIN32)
#define ORV_EXPORT __declspec(dllexport)
#define ORV_IMPORT __declspec(dllimport)
#define ORV_STDCALL __stdcall
#else
#define ORV_EXPORT __attribute__((visibility("default")))
#define ORV_IMPORT __attribute__((visibility("default")))
#define ORV_STDCALL
#endif

#if defined(UTIL_BUILDING)
#define UTIL_API ORV_EXPORT
#elif defined(UTIL_STATIC)
#define UTIL_API
#else
#define UTIL_API ORV_IMPORT
#endif

#if defined(DUILIB_BUILDING)
#define DUILIB_API ORV_EXPORT
#else
#define DUILIB_API ORV_IMPORT
#endif
