#include "zefra/platform/airlib/QuinticPieces.h"

#include "zefra/platform/airlib/VectorClones.h"

namespace {

constexpr int kChunk = 256;

}  // namespace

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
            for (int k = 0; k < count; ++k) {
                const double* a = pieces[index[k]].a;
                const double s = position[k];
                outs[k] = a[0] + s * (a[1] + s * (a[2] + s * (a[3] + s * (a[4] + s * a[5]))));
            }
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
