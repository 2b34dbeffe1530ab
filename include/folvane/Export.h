#pragma once

// Marks the classes and functions that a host may link against; everything else stays hidden in the library.
#if defined(_WIN32)
#if defined(FOLVANE_BUILDING)
#define FOLVANE_EXPORT __declspec(dllexport)
#else
#define FOLVANE_EXPORT __declspec(dllimport)
#endif
#else
#define FOLVANE_EXPORT __attribute__((visibility("default")))
#endif
