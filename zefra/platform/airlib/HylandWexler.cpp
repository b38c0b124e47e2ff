#include "zefra/platform/airlib/HylandWexler.h"

#include "zefra/platform/airlib/QuinticPieces.h"
#include "zefra/platform/airlib/VectorClones.h"

namespace {

constexpr double kPieceWidth = 0.25;  // K; the error is then below 1e-14 of Ps from −100 °C up

// Ps and its first two derivatives in t on one curve: Ps·y′ and Ps·(y′² + y″).
QuinticNode PsNode(const HylandWexler::Curve& curve, double t) {
    const LnPsTerms y = HylandWexler::Terms(curve, t + AIR::kKelvinOffset);
    const double ps = std::exp(y.value);
    return {ps, ps * y.d1, ps * (y.d1 * y.d1 + y.d2)};
}

UniformQuinticTable CurveTable(const HylandWexler::Curve& curve, double first, double last) {
    const int pieces = static_cast<int>(std::ceil((last - first) / kPieceWidth));
    return UniformQuinticTable(first, last, pieces, [&](double t) { return PsNode(curve, t); });
}

struct PsTables {
    UniformQuinticTable ice = CurveTable(HylandWexler::kIce, HylandWexler::kTableLowest, HylandWexler::kCurvesMeet);
    UniformQuinticTable water =
        CurveTable(HylandWexler::kWater, HylandWexler::kCurvesMeet, HylandWexler::kTableHighest);
};

const PsTables& Tables() {
    static const PsTables tables;
    return tables;
}

}  // namespace

double HylandWexler::Ps(double t) {
    const PsTables& tables = Tables();
    if (t < kCurvesMeet) {
        if (t >= kTableLowest) return tables.ice.At(t);
    } else if (t <= kTableHighest) {
        return tables.water.At(t);
    }
    return FormulaPs(t);  // beyond the tables, and NaN
}

void HylandWexler::PsMany(const double* t, double* ps, int n) {
    const PsTables& tables = Tables();
    // A walk over the chart's temperatures mostly stays on one curve.
    if (CountWithin(t, n, kCurvesMeet, kTableHighest) == n) {
        tables.water.AtMany(t, ps, n);
        return;
    }
    // Otherwise the temperatures of each curve are gathered and read
    // together, a chunk at a time; the rest by the formula.
    constexpr int kChunk = 256;
    int ice[kChunk];
    int water[kChunk];
    double x[kChunk];
    double y[kChunk];
    const auto read = [&](const UniformQuinticTable& table, const double* from, double* to, const int* which,
                          int count) {
        for (int k = 0; k < count; ++k) x[k] = from[which[k]];
        table.AtMany(x, y, count);
        for (int k = 0; k < count; ++k) to[which[k]] = y[k];
    };
    for (int start = 0; start < n; start += kChunk) {
        const int count = n - start < kChunk ? n - start : kChunk;
        const double* ts = t + start;
        double* out = ps + start;
        int ices = 0;
        int waters = 0;
        for (int k = 0; k < count; ++k) {
            const double x0 = ts[k];
            if (x0 >= kTableLowest && x0 < kCurvesMeet)
                ice[ices++] = k;
            else if (x0 >= kCurvesMeet && x0 <= kTableHighest)
                water[waters++] = k;
            else
                out[k] = FormulaPs(x0);  // beyond the tables, and NaN
        }
        read(tables.ice, ts, out, ice, ices);
        read(tables.water, ts, out, water, waters);
    }
}

bool HylandWexler::TableTerms(bool ice, double t, double terms[4]) {
    const UniformQuinticTable& table = ice ? Tables().ice : Tables().water;
    if (!table.Contains(t)) return false;
    table.TermsAt(t, terms);
    return true;
}
