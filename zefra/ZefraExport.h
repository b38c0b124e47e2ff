#pragma once
// ZEFRA_API marks what a shared build of the library exports: the classes,
// class templates and functions that other programs call. Everything else is
// hidden there. In a static build the mark does nothing that matters.

#if defined(__GNUC__) || defined(__clang__)
#define ZEFRA_API __attribute__((visibility("default")))
#else
#define ZEFRA_API
#endif

// For headers of free functions: everything declared between the two is
// exported.
#if defined(__GNUC__) || defined(__clang__)
#define ZEFRA_API_BEGIN _Pragma("GCC visibility push(default)")
#define ZEFRA_API_END _Pragma("GCC visibility pop")
#else
#define ZEFRA_API_BEGIN
#define ZEFRA_API_END
#endif
