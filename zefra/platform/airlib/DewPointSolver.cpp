#include "zefra/platform/airlib/DewPointSolver.h"

#include "zefra/platform/airlib/HylandWexler.h"
#include "zefra/platform/airlib/IncreasingRootFinder.h"
#include "zefra/platform/airlib/MoistAirConstants.h"

#include <cmath>
#include <vector>

namespace {

using AIR::kHighestTemperature;
using AIR::kKelvinOffset;
using AIR::kLowestTemperature;

constexpr double kErrorTolerance = 1e-11;  // K
constexpr double kCurvesMeet = HylandWexler::kCurvesMeet;
constexpr IncreasingRootFinder kIceFinder(kLowestTemperature, kCurvesMeet, kErrorTolerance);
constexpr IncreasingRootFinder kWaterFinder(kCurvesMeet, kHighestTemperature, kErrorTolerance);

using Curve = HylandWexler::Curve;

// ln Ps(t) − y on one curve.
struct LnPsResidual {
    bool ice;
    double lnPv;

    RootTerms operator()(double t) const {
        const LnPsTerms terms = HylandWexler::Terms(ice ? HylandWexler::kIce : HylandWexler::kWater, t + kKelvinOffset);
        return {terms.value - lnPv, terms.d1, terms.d2, terms.d3};
    }
};

// t over ln Ps on one branch of the curve, as cubic Hermite segments on
// equal steps of ln Ps; node slopes are exact (dt/dy = 1 / (d ln Ps / dT)).
class BranchTable {
public:
    BranchTable(bool ice, double tFirst, double tLast, double approxStep) {
        const Curve& curve = ice ? HylandWexler::kIce : HylandWexler::kWater;
        m_first = HylandWexler::LnPs(curve, tFirst + kKelvinOffset);
        m_last = HylandWexler::LnPs(curve, tLast + kKelvinOffset);
        const int segments = static_cast<int>(std::ceil((m_last - m_first) / approxStep));
        m_step = (m_last - m_first) / segments;
        m_invStep = 1.0 / m_step;
        m_t.resize(static_cast<size_t>(segments) + 1);
        m_slope.resize(m_t.size());
        const IncreasingRootFinder finder(tFirst, tLast, kErrorTolerance);
        double t = tFirst;
        for (int i = 0; i <= segments; ++i) {
            if (i == segments)
                t = tLast;
            else if (i > 0)
                t = finder.Solve(LnPsResidual{ice, m_first + i * m_step}, t);
            m_t[static_cast<size_t>(i)] = t;
            m_slope[static_cast<size_t>(i)] = m_step / HylandWexler::Terms(curve, t + kKelvinOffset).d1;
        }
    }

    double LnFirst() const { return m_first; }
    double LnLast() const { return m_last; }

    double Guess(double y) const {
        const int last = static_cast<int>(m_t.size()) - 2;
        double u = (y - m_first) * m_invStep;
        if (!(u > 0.0)) u = 0.0;
        const int i = u < last ? static_cast<int>(u) : last;
        double s = u - i;
        if (s > 1.0) s = 1.0;
        const size_t k = static_cast<size_t>(i);
        const double s2 = s * s;
        const double s3 = s2 * s;
        return (2.0 * s3 - 3.0 * s2 + 1.0) * m_t[k] + (s3 - 2.0 * s2 + s) * m_slope[k] +
               (3.0 * s2 - 2.0 * s3) * m_t[k + 1] + (s3 - s2) * m_slope[k + 1];
    }

private:
    double m_first = 0.0;
    double m_last = 0.0;
    double m_step = 1.0;
    double m_invStep = 1.0;
    std::vector<double> m_t;
    std::vector<double> m_slope;  // dt/dy times the step
};

struct DewPointTables {
    BranchTable ice{true, kLowestTemperature, kCurvesMeet, 0.1};
    BranchTable water{false, kCurvesMeet, kHighestTemperature, 0.1};
};

const DewPointTables& Tables() {
    static const DewPointTables tables;
    return tables;
}

}  // namespace

double DewPointSolver::TemperatureAt(double Pv) {
    if (!(Pv > 0.0)) return kLowestTemperature;
    return TemperatureAtLn(std::log(Pv));
}

double DewPointSolver::TemperatureAtLn(double lnPv) {
    const DewPointTables& tables = Tables();
    // Each branch is solved on its own curve and interval.
    const bool ice = lnPv <= tables.ice.LnLast();
    const double guess = ice ? tables.ice.Guess(lnPv) : tables.water.Guess(lnPv);
    return (ice ? kIceFinder : kWaterFinder).Solve(LnPsResidual{ice, lnPv}, guess);
}
