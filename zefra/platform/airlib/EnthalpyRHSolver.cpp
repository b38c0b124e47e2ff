#include "zefra/platform/airlib/EnthalpyRHSolver.h"

#include "zefra/platform/airlib/HylandWexler.h"
#include "zefra/platform/airlib/IncreasingRootFinder.h"
#include "zefra/platform/airlib/MoistAirConstants.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

using AIR::kHighestTemperature;
using AIR::kKelvinOffset;
using AIR::kLowestTemperature;
using AIR::kMoistureFactor;

using Curve = HylandWexler::Curve;

constexpr double kErrorTolerance = 1e-11;  // K
constexpr IncreasingRootFinder kIceFinder(kLowestTemperature, HylandWexler::kCurvesMeet, kErrorTolerance);
constexpr IncreasingRootFinder kWaterFinder(HylandWexler::kCurvesMeet, kHighestTemperature, kErrorTolerance);

// x / (1 − x) and its derivatives, with x held below its bound.
struct ShareTerms {
    double g, g1, g2, g3;

    explicit ShareTerms(double& x) {
        const double limit = 1.0 - AIR::kMinDryAirShare;
        if (x > limit) x = limit;
        const double r = 1.0 / (1.0 - x);
        g = x * r;
        g1 = r * r;
        g2 = 2.0 * g1 * r;
        g3 = 3.0 * g2 * r;
    }
};

// F(t) = H(t) − target for the vapour share factor q, on one curve, with its
// first three derivatives. The enthalpy relation is
// 1000·H = 1010·t + D·(2500 + 1.84·t), D = 622·x / (1 − x), x = q·Ps(t).
struct EnthalpyResidual {
    bool ice;
    double target;
    double q;

    RootTerms operator()(double t) const {
        const LnPsTerms l = HylandWexler::Terms(ice ? HylandWexler::kIce : HylandWexler::kWater, t + kKelvinOffset);
        const double ps = std::exp(l.value);
        double x = q * ps;
        const double x1 = x * l.d1;
        const double x2 = x * (l.d1 * l.d1 + l.d2);
        const double x3 = x * (l.d1 * (l.d1 * l.d1 + 3.0 * l.d2) + l.d3);
        const bool bounded = x > 1.0 - AIR::kMinDryAirShare;
        const ShareTerms s(x);
        const double d = kMoistureFactor * s.g;
        // Past the bound D stays constant.
        const double d1 = bounded ? 0.0 : kMoistureFactor * s.g1 * x1;
        const double d2 = bounded ? 0.0 : kMoistureFactor * (s.g2 * x1 * x1 + s.g1 * x2);
        const double d3 = bounded ? 0.0 : kMoistureFactor * (s.g3 * x1 * x1 * x1 + 3.0 * s.g2 * x1 * x2 + s.g1 * x3);
        const double latent = 2500.0 + 1.84 * t;
        return {1.01 * t + 0.001 * d * latent - target, 1.01 + 0.001 * (d1 * latent + 1.84 * d),
                0.001 * (d2 * latent + 2.0 * 1.84 * d1), 0.001 * (d3 * latent + 3.0 * 1.84 * d2)};
    }
};

// The state where the ice and water curves meet: the table is split at its
// enthalpy H0(q).
constexpr double kMeetT = HylandWexler::kCurvesMeet;
constexpr double kMeetLatent = 0.001 * (2500.0 + 1.84 * kMeetT);  // kJ/kg per g/kg

double PsAtMeeting() { return std::exp(HylandWexler::LnPs(HylandWexler::kWater, HylandWexler::kCurvesMeetK)); }

// H0 from RH and B, with one division.
double EnthalpyAtMeeting(double RH, double B, double psMeet) {
    const double pv = RH * psMeet;
    const double dry = B - pv;
    const double least = AIR::kMinDryAirShare * B;
    return 1.01 * kMeetT + kMeetLatent * kMoistureFactor * pv / (dry > least ? dry : least);
}

// dH0/dq.
double EnthalpyAtMeetingSlope(double q, double psMeet) {
    double x = q * psMeet;
    return kMeetLatent * kMoistureFactor * ShareTerms(x).g1 * psMeet;
}

// A monotone, continuous stand-in for log2 of a positive double: the
// exponent plus the mantissa's fraction, read straight from the bits. Within
// one octave it is linear in q.
double ScaleOf(double q) {
    int64_t bits;
    std::memcpy(&bits, &q, sizeof bits);
    return static_cast<double>(bits) * (1.0 / 4503599627370496.0) - 1023.0;
}

double Hermite(double a, double slopeA, double b, double slopeB, double s) {
    const double s2 = s * s;
    const double s3 = s2 * s;
    return (2.0 * s3 - 3.0 * s2 + 1.0) * a + (s3 - 2.0 * s2 + s) * slopeA + (3.0 * s2 - 2.0 * s3) * b +
           (s3 - s2) * slopeB;
}

// Rows of equal q on the scale; the grid points of every whole octave are
// nodes, so q is linear in the scale within each cell.
constexpr double kFirstScale = -27.0;  // q = 2^-27: RH 0.00075 at 100 kPa
constexpr double kScaleStep = 0.25;
constexpr int kRows = 49;              // up to q = 2^-15: RH 1.5 at 50 kPa
constexpr double kSmallestQ = 1.0 / 134217728.0;  // 2^-27

// t over (u, q) on one side of the curves' crossing. Each node holds t,
// dt/du times the step of u, and dt/dq at constant u.
class BranchGuessTable {
public:
    BranchGuessTable(bool ice, double uFirst, double uLast, double tLo, double tHi)
        : m_uFirst(uFirst), m_columns(static_cast<int>(std::lround((uLast - uFirst) / kStepU)) + 1),
          m_t(Size()), m_slopeU(Size()), m_slopeQ(Size()), m_qStep(kRows) {
        const Curve& curve = ice ? HylandWexler::kIce : HylandWexler::kWater;
        const double psMeet = PsAtMeeting();
        const IncreasingRootFinder finder(tLo, tHi, kErrorTolerance);
        for (int j = 0; j < kRows; ++j) {
            const double scale = kFirstScale + j * kScaleStep;
            const double octave = std::floor(scale);
            const double q = std::ldexp(1.0 + (scale - octave), static_cast<int>(octave));
            m_qStep[static_cast<size_t>(j)] = std::ldexp(kScaleStep, static_cast<int>(octave));
            const double h0 = EnthalpyAtMeeting(q, 1.0, psMeet);  // RH = q at B = 1: the same share
            const double h0Slope = EnthalpyAtMeetingSlope(q, psMeet);
            double t = kMeetT;
            for (int i = 0; i < m_columns; ++i) {
                const double H = m_uFirst + i * kStepU + h0;
                const EnthalpyResidual residual{ice, H, q};
                t = finder.Solve(residual, t);
                const RootTerms r = residual(t);
                // dF/dq at constant t: the moisture term's share of q.
                const double ps = std::exp(HylandWexler::LnPs(curve, t + kKelvinOffset));
                double x = q * ps;
                const double fq = 0.001 * (2500.0 + 1.84 * t) * kMoistureFactor * ShareTerms(x).g1 * ps;
                const size_t k = Index(i, j);
                m_t[k] = static_cast<float>(t);
                m_slopeU[k] = static_cast<float>(kStepU / r.d1);
                m_slopeQ[k] = static_cast<float>((h0Slope - fq) / r.d1);
            }
        }
    }

    double Guess(double u, double q) const {
        double a = (u - m_uFirst) * (1.0 / kStepU);
        if (!(a > 0.0)) a = 0.0;
        const int i = a < m_columns - 2 ? static_cast<int>(a) : m_columns - 2;
        double s = a - i;
        if (s > 1.0) s = 1.0;
        const double v = (ScaleOf(q) - kFirstScale) * (1.0 / kScaleStep);
        const int j = v < kRows - 2 ? static_cast<int>(v) : kRows - 2;
        double r = v - j;
        if (r > 1.0) r = 1.0;
        const double qStep = m_qStep[static_cast<size_t>(j)];
        const size_t k0 = Index(i, j);
        const size_t k1 = Index(i, j + 1);
        const double t0 = Hermite(m_t[k0], m_slopeU[k0], m_t[k0 + 1], m_slopeU[k0 + 1], s);
        const double t1 = Hermite(m_t[k1], m_slopeU[k1], m_t[k1 + 1], m_slopeU[k1 + 1], s);
        const double w0 = ((1.0 - s) * m_slopeQ[k0] + s * m_slopeQ[k0 + 1]) * qStep;
        const double w1 = ((1.0 - s) * m_slopeQ[k1] + s * m_slopeQ[k1 + 1]) * qStep;
        return Hermite(t0, w0, t1, w1, r);
    }

private:
    static constexpr double kStepU = 5.0;

    size_t Size() const { return static_cast<size_t>(m_columns) * kRows; }
    size_t Index(int i, int j) const { return static_cast<size_t>(j) * static_cast<size_t>(m_columns) + i; }

    double m_uFirst;
    int m_columns;
    std::vector<float> m_t;
    std::vector<float> m_slopeU;
    std::vector<float> m_slopeQ;
    std::vector<double> m_qStep;  // dq over one step of the scale, in the cell above each row
};

struct GuessTables {
    double psMeet = PsAtMeeting();
    BranchGuessTable ice{true, -110.0, 0.0, kLowestTemperature, kMeetT};
    BranchGuessTable water{false, 0.0, 310.0, kMeetT, kHighestTemperature};
};

const GuessTables& Tables() {
    static const GuessTables tables;
    return tables;
}

}  // namespace

double EnthalpyRHSolver::TemperatureAt(double H, double RH, double B) {
    const GuessTables& tables = Tables();
    const double q = RH / B;
    const double u = H - EnthalpyAtMeeting(RH, B, tables.psMeet);
    const bool ice = u < 0.0;
    const BranchGuessTable& table = ice ? tables.ice : tables.water;
    double guess;
    if (q > kSmallestQ) {
        guess = table.Guess(u, q);
    } else {
        // Below the table the dry-air line t = H / 1.01 takes over.
        const double share = q > 0.0 ? q / kSmallestQ : 0.0;
        guess = (1.0 - share) * H / 1.01 + share * table.Guess(u, kSmallestQ);
    }
    return (ice ? kIceFinder : kWaterFinder).Solve(EnthalpyResidual{ice, H, q}, guess);
}
