#include "zefra/platform/airlib/VectorClones.h"

ZEFRA_VECTOR_CLONES
int CountWithin(const double* __restrict x, int n, double lo, double hi) {
    int count = 0;
    for (int k = 0; k < n; ++k) count += static_cast<int>(x[k] >= lo) & static_cast<int>(x[k] <= hi);
    return count;
}
