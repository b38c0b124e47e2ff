#include "zefra/platform/airlib/HylandWexler.h"

#include "zefra/platform/airlib/QuinticPieces.h"

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

bool HylandWexler::TableTerms(bool ice, double t, double terms[4]) {
    const UniformQuinticTable& table = ice ? Tables().ice : Tables().water;
    if (!table.Contains(t)) return false;
    table.TermsAt(t, terms);
    return true;
}
