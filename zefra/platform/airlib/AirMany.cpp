#include "zefra/platform/airlib/AirMany.h"

#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/DewPointSolver.h"
#include "zefra/platform/airlib/EnthalpyRHSolver.h"
#include "zefra/platform/airlib/VectorClones.h"

#include <algorithm>
#include <vector>

namespace AIR {

namespace {

// Scratch arrays live on the stack; longer calls go a chunk at a time.
constexpr int kChunk = 256;

int ChunkAt(int start, int n) { return n - start < kChunk ? n - start : kChunk; }

// Pv[k] / RH[k]: the saturated vapour pressure at each state's dry bulb.
ZEFRA_VECTOR_CLONES
void VapourPressuresAtRH(const double* __restrict D, const double* __restrict RH, const double* __restrict B,
                         double* __restrict out, int n) {
    for (int k = 0; k < n; ++k) out[k] = GetPv(D[k], B[k]) / RH[k];
}

// GetDByPv(Ps[k], B[k]) with RH 1: the saturated content at each temperature.
ZEFRA_VECTOR_CLONES
void SaturatedHAt(const double* __restrict Twb, const double* __restrict Ps, const double* __restrict B,
                  double* __restrict H, int n) {
    // GetHByTwb(t, B) is GetH(t, GetD(t, 1, B)), and GetD(t, 1, B) reads 1·Ps(t).
    for (int k = 0; k < n; ++k) H[k] = GetH(Twb[k], GetDByPv(1.0 * Ps[k], B[k]));
}

}  // namespace

ZEFRA_VECTOR_CLONES
void GetPvMany(const double* __restrict D, const double* __restrict B, double* __restrict Pv, int n) {
    for (int k = 0; k < n; ++k) Pv[k] = GetPv(D[k], B[k]);
}

ZEFRA_VECTOR_CLONES
void GetDByPvMany(const double* __restrict Pv, const double* __restrict B, double* __restrict D, int n) {
    for (int k = 0; k < n; ++k) D[k] = GetDByPv(Pv[k], B[k]);
}

ZEFRA_VECTOR_CLONES
void GetDByTdbAndHMany(const double* __restrict Tdb, const double* __restrict H, double* __restrict D, int n) {
    for (int k = 0; k < n; ++k) D[k] = GetD(Tdb[k], H[k]);
}

ZEFRA_VECTOR_CLONES
void GetHMany(const double* __restrict Tdb, const double* __restrict D, double* __restrict H, int n) {
    for (int k = 0; k < n; ++k) H[k] = GetH(Tdb[k], D[k]);
}

ZEFRA_VECTOR_CLONES
void GetTdbMany(const double* __restrict H, const double* __restrict D, double* __restrict Tdb, int n) {
    for (int k = 0; k < n; ++k) Tdb[k] = GetTdb(H[k], D[k]);
}

ZEFRA_VECTOR_CLONES
void GetRHByPvAndPsMany(const double* __restrict Pv, const double* __restrict Ps, double* __restrict RH, int n) {
    for (int k = 0; k < n; ++k) RH[k] = GetRHByPvAndPs(Pv[k], Ps[k]);
}

ZEFRA_VECTOR_CLONES
void GetDenMany(const double* __restrict Tdb, const double* __restrict RH, const double* __restrict Ps,
                const double* __restrict B, double* __restrict Den, int n) {
    for (int k = 0; k < n; ++k) Den[k] = GetDenByPv(Tdb[k], RH[k] * Ps[k], B[k]);
}

ZEFRA_VECTOR_CLONES
void GetSVByDAndDenMany(const double* __restrict D, const double* __restrict Den, double* __restrict SV, int n) {
    for (int k = 0; k < n; ++k) SV[k] = GetSVByDAndDen(D[k], Den[k]);
}

void GetDByTdpMany(const double* Tdp, const double* B, double* D, int n) {
    double Ps[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = ChunkAt(start, n);
        GetPsMany(Tdp + start, Ps, count);
        GetDByPvMany(Ps, B + start, D + start, count);
    }
}

void GetHByTwbMany(const double* Twb, const double* B, double* H, int n) {
    double Ps[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = ChunkAt(start, n);
        GetPsMany(Twb + start, Ps, count);
        SaturatedHAt(Twb + start, Ps, B + start, H + start, count);
    }
}

void GetTdbByDAndRHMany(const double* D, const double* RH, const double* B, double* Tdb, int n) {
    double Ps[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = ChunkAt(start, n);
        VapourPressuresAtRH(D + start, RH + start, B + start, Ps, count);
        DewPointSolver::TemperaturesAt(Ps, Tdb + start, count);
        // No relative humidity: the one-at-a-time function's bounds.
        for (int k = start; k < start + count; ++k)
            if (!(RH[k] > 0.0)) Tdb[k] = GetTdbByDAndRH(D[k], RH[k], B[k]);
    }
}

void GetTdbByHAndRHMany(const double* H, const double* RH, const double* B, double* Tdb, int n) {
    for (int k = 0; k < n; ++k) Tdb[k] = GetTdbByHAndRH(H[k], RH[k], B[k]);
}

bool GetTdbAndTwbOnBuiltCurves(const double* H, double RH, double B, double* Tdb, double* Twb, int n) {
    // The wet-bulb curve first: only when both are built may either be read.
    std::vector<double> wetBulbs(static_cast<size_t>(n));
    if (!EnthalpyRHSolver::TemperaturesOnBuiltCurve(H, 1.0, B, wetBulbs.data(), n)) return false;
    if (!EnthalpyRHSolver::TemperaturesOnBuiltCurve(H, RH, B, Tdb, n)) return false;
    std::copy(wetBulbs.begin(), wetBulbs.end(), Twb);
    return true;
}

void GetTdpMany(const double* D, const double* B, double* Tdp, int n) {
    double Pv[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = ChunkAt(start, n);
        GetPvMany(D + start, B + start, Pv, count);
        DewPointSolver::TemperaturesAt(Pv, Tdp + start, count);
    }
}

void GetTwbMany(const double* H, const double* B, double* Twb, int n) {
    // The wet bulbs of one pressure come from that pressure's curve, which
    // the library builds when the pressure is first met and keeps for a few
    // pressures at a time; so the elements are taken a pressure at a time:
    // runs of one pressure as they stand, scattered pressures gathered.
    if (n > 0 && CountWithin(B, n, B[0], B[0]) == n) {  // one pressure, the common case
        EnthalpyRHSolver::WetBulbsAt(H, B[0], Twb, n);
        return;
    }
    int runs = 1;
    for (int k = 1; k < n; ++k) runs += static_cast<int>(!(B[k] == B[k - 1]));
    if (n == 0 || 16 * runs <= n) {
        int k = 0;
        while (k < n) {
            int end = k + 1;
            while (end < n && B[end] == B[k]) ++end;
            EnthalpyRHSolver::WetBulbsAt(H + k, B[k], Twb + k, end - k);
            k = end;
        }
        return;
    }
    std::vector<int> order;
    order.reserve(static_cast<size_t>(n));
    for (int k = 0; k < n; ++k) {
        if (B[k] == B[k])
            order.push_back(k);
        else
            Twb[k] = GetTwb(H[k], 1.0, B[k]);  // NaN
    }
    std::stable_sort(order.begin(), order.end(), [B](int a, int b) { return B[a] < B[b]; });
    std::vector<double> h(order.size());
    std::vector<double> t(order.size());
    for (size_t i = 0; i < order.size(); ++i) h[i] = H[order[i]];
    size_t i = 0;
    while (i < order.size()) {
        size_t end = i + 1;
        while (end < order.size() && B[order[end]] == B[order[i]]) ++end;
        EnthalpyRHSolver::WetBulbsAt(h.data() + i, B[order[i]], t.data() + i, static_cast<int>(end - i));
        i = end;
    }
    for (size_t j = 0; j < order.size(); ++j) Twb[order[j]] = t[j];
}

}  // namespace AIR
