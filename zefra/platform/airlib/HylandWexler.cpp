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
    const auto onIce = [](double x) { return x >= kTableLowest && x < kCurvesMeet; };
    const auto onWater = [](double x) { return x >= kCurvesMeet && x <= kTableHighest; };
    // A walk over the chart's temperatures mostly stays on one curve.
    if (CountWithin(t, n, kCurvesMeet, kTableHighest) == n) {
        tables.water.AtMany(t, ps, n);
        return;
    }
    int k = 0;
    while (k < n) {
        int end = k + 1;
        if (onIce(t[k])) {
            while (end < n && onIce(t[end])) ++end;
            tables.ice.AtMany(t + k, ps + k, end - k);
        } else if (onWater(t[k])) {
            while (end < n && onWater(t[end])) ++end;
            tables.water.AtMany(t + k, ps + k, end - k);
        } else {
            ps[k] = FormulaPs(t[k]);
        }
        k = end;
    }
}

bool HylandWexler::TableTerms(bool ice, double t, double terms[4]) {
    const UniformQuinticTable& table = ice ? Tables().ice : Tables().water;
    if (!table.Contains(t)) return false;
    table.TermsAt(t, terms);
    return true;
}
