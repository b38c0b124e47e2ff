#pragma once
// ZEFRA_API marks what a shared build of the library exports: the classes,
// class templates and functions that other programs call. Everything else is
// hidden there. In a static build the mark does nothing that matters.

#if defined(__GNUC__) || defined(__clang__)
#define ZEFRA_API __attribute__((visibility("default")))
#else
#define ZEFRA_API
#endif
