// Marks what the shared library exports; everything else in it is hidden.
#pragma once

#if defined(_WIN32) && defined(QZ_STATIC)
#define QZ_API
#elif defined(_WIN32) && defined(QZ_BUILDING_LIBRARY)
#define QZ_API __declspec(dllexport)
#elif defined(_WIN32)
#define QZ_API __declspec(dllimport)
#else
#define QZ_API __attribute__((visibility("default")))
#endif
