#pragma once

// The one place that knows how a symbol leaves a shared library and enters a program.
#ifdef _WIN32
#define VETRA_EXPORT __declspec(dllexport)
#define VETRA_IMPORT __declspec(dllimport)
#else
#define VETRA_EXPORT __attribute__((visibility("default")))
#define VETRA_IMPORT __attribute__((visibility("default")))
#endif

// Lets the compiler check the arguments of a printf-like function against its format.
#if defined(__MINGW32__)
#define VETRA_PRINTF(text, first) __attribute__((format(gnu_printf, text, first)))
#elif defined(__GNUC__)
#define VETRA_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define VETRA_PRINTF(text, first)
#endif
