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
    // Otherwise each temperature is read from its curve's table, chosen per
    // temperature; the rest by the formula.
    const UniformQuinticTable::Layout ice = tables.ice.GetLayout();
    const UniformQuinticTable::Layout water = tables.water.GetLayout();
    constexpr int kChunk = 256;
    const QuinticPiece* pieces[kChunk];
    double position[kChunk];
    unsigned char found[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = n - start < kChunk ? n - start : kChunk;
        LocateInTwoTables(ice, kTableLowest, kCurvesMeet, false, water, kCurvesMeet, kTableHighest, t + start, pieces,
                          position, found, count);
        ReadEachPiece(pieces, position, ps + start, count);
    }
    for (int k = 0; k < n; ++k) {
        const double x = t[k];
        if (!(x >= kTableLowest && x <= kTableHighest)) ps[k] = FormulaPs(x);  // beyond the tables, and NaN
    }
}

bool HylandWexler::TableTerms(bool ice, double t, double terms[4]) {
    const UniformQuinticTable& table = ice ? Tables().ice : Tables().water;
    if (!table.Contains(t)) return false;
    table.TermsAt(t, terms);
    return true;
}
