#include "zefra/platform/airlib/QuinticPieces.h"

#include "zefra/platform/airlib/VectorClones.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define ZEFRA_READ_AVX2 1
#endif

namespace {

constexpr int kChunk = 256;

void ReadEachPiecePlain(const QuinticPiece* const* pieces, const double* s, double* out, int n) {
    for (int k = 0; k < n; ++k) out[k] = pieces[k]->At(s[k]);
}

#ifdef ZEFRA_READ_AVX2
// Four at a time: the four pieces' coefficients loaded whole and turned
// into one vector per coefficient, then the same multiplications and
// additions in the same order as At (none fused), so every lane has the bits
// of the plain loop. The processor's gather instructions were slower.
__attribute__((target("avx2"))) void ReadEachPieceAvx2(const QuinticPiece* const* pieces, const double* s,
                                                       double* out, int n) {
    int k = 0;
    for (; k + 4 <= n; k += 4) {
        const double* p0 = pieces[k]->a;
        const double* p1 = pieces[k + 1]->a;
        const double* p2 = pieces[k + 2]->a;
        const double* p3 = pieces[k + 3]->a;
        // a0..a3 of each piece, transposed.
        const __m256d r0 = _mm256_loadu_pd(p0);
        const __m256d r1 = _mm256_loadu_pd(p1);
        const __m256d r2 = _mm256_loadu_pd(p2);
        const __m256d r3 = _mm256_loadu_pd(p3);
        const __m256d lo01 = _mm256_unpacklo_pd(r0, r1);  // a0 a0 | a2 a2
        const __m256d hi01 = _mm256_unpackhi_pd(r0, r1);  // a1 a1 | a3 a3
        const __m256d lo23 = _mm256_unpacklo_pd(r2, r3);
        const __m256d hi23 = _mm256_unpackhi_pd(r2, r3);
        const __m256d a0 = _mm256_permute2f128_pd(lo01, lo23, 0x20);
        const __m256d a1 = _mm256_permute2f128_pd(hi01, hi23, 0x20);
        const __m256d a2 = _mm256_permute2f128_pd(lo01, lo23, 0x31);
        const __m256d a3 = _mm256_permute2f128_pd(hi01, hi23, 0x31);
        // a4, a5 of each piece.
        const __m256d t01 = _mm256_set_m128d(_mm_loadu_pd(p1 + 4), _mm_loadu_pd(p0 + 4));  // a4 a5 | a4 a5
        const __m256d t23 = _mm256_set_m128d(_mm_loadu_pd(p3 + 4), _mm_loadu_pd(p2 + 4));
        const __m256d b4 = _mm256_unpacklo_pd(t01, t23);  // p0 p2 | p1 p3
        const __m256d b5 = _mm256_unpackhi_pd(t01, t23);
        const __m256d a4 = _mm256_permute4x64_pd(b4, 0xD8);  // p0 p1 p2 p3
        const __m256d a5 = _mm256_permute4x64_pd(b5, 0xD8);
        const __m256d x = _mm256_loadu_pd(s + k);
        __m256d r = _mm256_add_pd(a4, _mm256_mul_pd(x, a5));
        r = _mm256_add_pd(a3, _mm256_mul_pd(x, r));
        r = _mm256_add_pd(a2, _mm256_mul_pd(x, r));
        r = _mm256_add_pd(a1, _mm256_mul_pd(x, r));
        r = _mm256_add_pd(a0, _mm256_mul_pd(x, r));
        _mm256_storeu_pd(out + k, r);
    }
    ReadEachPiecePlain(pieces + k, s + k, out + k, n - k);
}
#endif

}  // namespace

void ReadEachPiece(const QuinticPiece* const* pieces, const double* s, double* out, int n) {
#ifdef ZEFRA_READ_AVX2
    static const bool avx2 = __builtin_cpu_supports("avx2");
    if (avx2) {
        ReadEachPieceAvx2(pieces, s, out, n);
        return;
    }
#endif
    ReadEachPiecePlain(pieces, s, out, n);
}

// The same steps as UniformQuinticTable::PieceAt and QuinticPiece::At, in the
// same order, so that each reading equals the one-at-a-time reading bit for
// bit. The positions are found first; then each run of arguments on one
// piece is read with that piece's coefficients, which vectorises where a
// reading per argument would need a gather.
ZEFRA_VECTOR_CLONES
void ReadQuinticPieces(const QuinticPiece* __restrict pieces, int lastPiece, double first, double invWidth,
                       const double* __restrict x, double* __restrict out, int n) {
    int index[kChunk];
    double position[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = n - start < kChunk ? n - start : kChunk;
        const double* xs = x + start;
        for (int k = 0; k < count; ++k) {
            const double u = (xs[k] - first) * invWidth;
            int i = static_cast<int>(u);
            if (i > lastPiece) i = lastPiece;
            index[k] = i;
            position[k] = u - i;
        }
        double* outs = out + start;
        // Scattered arguments, a piece each, are read with their own piece's
        // coefficients; runs on one piece with that piece's, broadcast.
        int changes = 0;
        for (int k = 1; k < count; ++k) changes += static_cast<int>(index[k] != index[k - 1]);
        if (4 * changes > count) {
            const QuinticPiece* each[kChunk];
            for (int k = 0; k < count; ++k) each[k] = pieces + index[k];
            ReadEachPiece(each, position, outs, count);
            continue;
        }
        int k = 0;
        while (k < count) {
            const int i = index[k];
            int end = k + 1;
            while (end < count && index[end] == i) ++end;
            const double* a = pieces[i].a;
            const double a0 = a[0], a1 = a[1], a2 = a[2], a3 = a[3], a4 = a[4], a5 = a[5];
            for (int j = k; j < end; ++j) {
                const double s = position[j];
                outs[j] = a0 + s * (a1 + s * (a2 + s * (a3 + s * (a4 + s * a5))));
            }
            k = end;
        }
    }
}

namespace {

// The index and position of each x in the table that holds it, in vector
// loops: the same steps as QuinticTableLayout::Locate, with the table's
// numbers chosen per argument.
ZEFRA_VECTOR_CLONES
void LocateIndices(double aFirst, double aInv, int aLast, double aLo, double aHi, bool aClosed, double bFirst,
                   double bInv, int bLast, double bLo, double bHi, const double* __restrict x,
                   int* __restrict index, unsigned char* __restrict table, double* __restrict s, int n) {
    for (int k = 0; k < n; ++k) {
        const double v = x[k];
        const bool inA = v >= aLo && (aClosed ? v <= aHi : v < aHi);
        const bool inB = !inA && v >= bLo && v <= bHi;
        const double at = inA || inB ? v : aFirst;
        const double first = inB ? bFirst : aFirst;
        const double inv = inB ? bInv : aInv;
        const int last = inB ? bLast : aLast;
        const double u = (at - first) * inv;
        int i = static_cast<int>(u);
        if (i > last) i = last;
        s[k] = u - i;
        index[k] = i;
        table[k] = static_cast<unsigned char>(inA ? 1 : inB ? 2 : 0);
    }
}

}  // namespace

void LocateInTwoTables(const QuinticTableLayout& a, double aLo, double aHi, bool aClosed, const QuinticTableLayout& b,
                       double bLo, double bHi, const double* x, const QuinticPiece** pieces, double* s,
                       unsigned char* found, int n) {
    int index[kChunk];
    LocateIndices(a.first, a.invWidth, a.lastPiece, aLo, aHi, aClosed, b.first, b.invWidth, b.lastPiece, bLo, bHi, x,
                  index, found, s, n);
    const QuinticPiece* const bases[3] = {a.pieces, a.pieces, b.pieces};
    for (int k = 0; k < n; ++k) pieces[k] = bases[found[k]] + index[k];
}
