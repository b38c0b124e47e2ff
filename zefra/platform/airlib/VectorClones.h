#pragma once
// Loops over many arguments are compiled once per vector unit (AVX-512,
// AVX2, and the SSE2 every x86-64 has), and the loader picks the widest the
// processor offers. Each clone does the same IEEE operations in the same
// order (the build forbids contracting a·b + c into one fused operation), so
// every clone gives the same bits as the one-at-a-time functions.

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define ZEFRA_VECTOR_CLONES __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define ZEFRA_VECTOR_CLONES
#endif

// How many of x[0..n) lie in [lo, hi]: NaN nowhere. Built with the clones,
// for the walks to count their steps and the many-at-once functions to
// sort their arguments by table.
int CountWithin(const double* x, int n, double lo, double hi);
