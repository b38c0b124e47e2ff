#include "zefra/platform/airlib/EnthalpyRHSolver.h"

#include "zefra/platform/airlib/DewPointSolver.h"
#include "zefra/platform/airlib/HylandWexler.h"
#include "zefra/platform/airlib/IncreasingRootFinder.h"
#include "zefra/platform/airlib/MoistAirConstants.h"
#include "zefra/platform/airlib/QuinticPieces.h"
#include "zefra/platform/airlib/VectorClones.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
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
        // Ps and its derivatives from the curve's table where it reaches, as
        // AIR::GetPs reads them; from ln Ps elsewhere.
        double ps[4];
        if (!HylandWexler::TableTerms(ice, t, ps)) {
            const LnPsTerms l =
                HylandWexler::Terms(ice ? HylandWexler::kIce : HylandWexler::kWater, t + kKelvinOffset);
            ps[0] = std::exp(l.value);
            ps[1] = ps[0] * l.d1;
            ps[2] = ps[0] * (l.d1 * l.d1 + l.d2);
            ps[3] = ps[0] * (l.d1 * (l.d1 * l.d1 + 3.0 * l.d2) + l.d3);
        }
        double x = q * ps[0];
        const double x1 = q * ps[1];
        const double x2 = q * ps[2];
        const double x3 = q * ps[3];
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
        const double t0 = CubicHermite(m_t[k0], m_slopeU[k0], m_t[k0 + 1], m_slopeU[k0 + 1], s);
        const double t1 = CubicHermite(m_t[k1], m_slopeU[k1], m_t[k1 + 1], m_slopeU[k1 + 1], s);
        const double w0 = ((1.0 - s) * m_slopeQ[k0] + s * m_slopeQ[k0 + 1]) * qStep;
        const double w1 = ((1.0 - s) * m_slopeQ[k1] + s * m_slopeQ[k1 + 1]) * qStep;
        return CubicHermite(t0, w0, t1, w1, r);
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

// The states of one relative humidity and pressure: t over H along the
// curve of that RH, in quintic pieces of equal width in H, split where the
// ice and water curves meet. Built from the exact relation.
class EnthalpyCurvePieces {
public:
    EnthalpyCurvePieces(double RH, double B) {
        const double q = RH / B;
        const double meetH = EnthalpyAtMeeting(RH, B, PsAtMeeting());
        const double lowestH = CurveEnthalpy(HylandWexler::kIce, kTableLowestT, q);
        // Up to 60 °C, or to where vapour is a quarter of the air, if lower.
        const double quarter = DewPointSolver::TemperatureAt(0.25 * B / RH);
        const double topT = quarter < kTableHighestT ? quarter : kTableHighestT;
        m_ice = Branch(true, lowestH, meetH, q);
        if (topT > kMeetT + 1.0) m_water = Branch(false, meetH, CurveEnthalpy(HylandWexler::kWater, topT, q), q);
    }

    // NaN and enthalpies beyond the pieces give false.
    bool TemperatureAt(double H, double& t) const {
        if (m_ice.Contains(H)) {
            t = H < m_ice.Last() ? m_ice.At(H) : kMeetT;
            return true;
        }
        if (m_water.Contains(H)) {
            t = m_water.At(H);
            return true;
        }
        return false;
    }

    // TemperatureAt of each H[k], k < n (at most 256): true in has[k] where
    // the pieces reach. The enthalpies of each branch are gathered and read
    // several at a time.
    void TemperaturesAt(const double* H, double* t, bool* has, int n) const {
        // Air warmer than freezing, the common case, is all on the water branch.
        if (m_water.First() < m_water.Last() &&
            CountWithin(H, n, std::nextafter(m_ice.Last(), HUGE_VAL), m_water.Last()) == n) {
            m_water.AtMany(H, t, n);
            for (int k = 0; k < n; ++k) has[k] = true;
            return;
        }
        // Each enthalpy read from its branch; those beyond both are marked.
        const QuinticPiece* pieces[256];
        double position[256];
        unsigned char found[256];
        const bool waterBuilt = m_water.First() < m_water.Last();
        LocateInTwoTables(m_ice.GetLayout(), m_ice.First(), m_ice.Last(), true, m_water.GetLayout(),
                          waterBuilt ? m_water.First() : 1.0, waterBuilt ? m_water.Last() : 0.0, H, pieces, position,
                          found, n);
        ReadEachPiece(pieces, position, t, n);
        const double iceLast = m_ice.Last();
        for (int k = 0; k < n; ++k) {
            has[k] = found[k] != 0;
            if (m_ice.Contains(H[k]) && !(H[k] < iceLast)) t[k] = kMeetT;
        }
    }

    // Where pieces are worth building: RH and B of air-handling practice.
    static bool Covers(double RH, double B) { return RH >= 1e-3 && RH <= 1.5 && B >= 10000.0 && B <= 200000.0; }

private:
    static constexpr double kTableLowestT = -100.0;
    static constexpr double kTableHighestT = 60.0;
    static constexpr double kPieceWidth = 0.5;  // kJ/kg

    static double CurveEnthalpy(const Curve& curve, double t, double q) {
        double x = q * std::exp(HylandWexler::LnPs(curve, t + kKelvinOffset));
        return 1.01 * t + 0.001 * kMoistureFactor * ShareTerms(x).g * (2500.0 + 1.84 * t);
    }

    static UniformQuinticTable Branch(bool ice, double firstH, double lastH, double q) {
        const int pieces = static_cast<int>(std::ceil((lastH - firstH) / kPieceWidth));
        const IncreasingRootFinder& finder = ice ? kIceFinder : kWaterFinder;
        double t = ice ? kTableLowestT : kMeetT;
        return UniformQuinticTable(firstH, lastH, pieces, [&](double H) {
            const EnthalpyResidual residual{ice, H, q};
            // From the last node, a tenth of a kelvin away, the error estimate
            // that ends the search can undershoot; a second search from the
            // first one's result settles the node to rounding.
            t = finder.Solve(residual, finder.Solve(residual, t));
            const RootTerms r = residual(t);
            // dt/dH = 1 / H′(t), d²t/dH² = −H″ / H′³.
            return QuinticNode{t, 1.0 / r.d1, -r.d2 / (r.d1 * r.d1 * r.d1)};
        });
    }

    UniformQuinticTable m_ice;
    UniformQuinticTable m_water;
};

// The pieces of the (RH, B) pairs in steady use on one thread. Building a
// curve costs about as much as a thousand solves, so a pair earns its pieces
// only after that many calls: no pattern of use then costs more than about
// twice the plain solves, and a pair in steady use costs a tenth of them.
// The wet bulbs of a pressure are built at once: pressures rarely change.
class CurvePiecesCache {
public:
    const EnthalpyCurvePieces* Find(double RH, double B, bool buildAtOnce) {
        Slot* slot = SlotOf(RH, B);
        if (!slot) {
            if (!EnthalpyCurvePieces::Covers(RH, B)) return nullptr;
            slot = Evict();
            Retire(*slot);
            *slot = Slot{RH, B, 0, nullptr};
        }
        if (!slot->pieces && (buildAtOnce || ++slot->uses >= kUsesBeforeBuilding)) {
            slot->pieces = Reuse(RH, B);
            if (!slot->pieces) slot->pieces = std::make_unique<EnthalpyCurvePieces>(RH, B);
            slot->uses = kUsesBeforeBuilding;
        }
        return slot->pieces.get();
    }

    // The pieces of (RH, B) when built, without counting a use.
    const EnthalpyCurvePieces* Built(double RH, double B) {
        const Slot* slot = SlotOf(RH, B);
        return slot ? slot->pieces.get() : nullptr;
    }

private:
    static constexpr int kSlots = 8;
    static constexpr long kUsesBeforeBuilding = 1024;

    struct Slot {
        double rh = std::numeric_limits<double>::quiet_NaN();
        double b = std::numeric_limits<double>::quiet_NaN();
        long uses = 0;
        std::unique_ptr<EnthalpyCurvePieces> pieces;
    };

    Slot* SlotOf(double RH, double B) {
        for (Slot& slot : m_slots)
            if (slot.rh == RH && slot.b == B) return &slot;
        return nullptr;
    }

    // The least used slot gives way; every count then halves, so that pairs
    // no longer in use give way in time.
    Slot* Evict() {
        Slot* least = &m_slots[0];
        for (Slot& slot : m_slots) {
            if (slot.uses < least->uses) least = &slot;
            slot.uses /= 2;
        }
        return least;
    }

    // Pieces of curves that lost their slot, kept for a while: a curve is
    // the same whenever it is built, so a pair that comes back (the wet
    // bulbs of a pressure among many relative humidities) takes its pieces
    // from here instead of building them again. The slots decide, as before,
    // when a pair has pieces at all.
    static constexpr int kRetired = 32;  // up to about 50 kB each

    void Retire(Slot& slot) {
        if (!slot.pieces) return;
        Retired& oldest = m_retired[m_nextRetired];
        m_nextRetired = (m_nextRetired + 1) % kRetired;
        oldest = Retired{slot.rh, slot.b, std::move(slot.pieces)};
    }

    std::unique_ptr<EnthalpyCurvePieces> Reuse(double RH, double B) {
        for (Retired& retired : m_retired)
            if (retired.pieces && retired.rh == RH && retired.b == B) return std::move(retired.pieces);
        return nullptr;
    }

    struct Retired {
        double rh = std::numeric_limits<double>::quiet_NaN();
        double b = std::numeric_limits<double>::quiet_NaN();
        std::unique_ptr<EnthalpyCurvePieces> pieces;
    };

    Slot m_slots[kSlots];
    Retired m_retired[kRetired];
    int m_nextRetired = 0;
};

CurvePiecesCache& PiecesCache() {
    thread_local CurvePiecesCache cache;
    return cache;
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

double EnthalpyRHSolver::TemperatureOnCurve(double H, double RH, double B) {
    const EnthalpyCurvePieces* pieces = PiecesCache().Find(RH, B, false);
    double t;
    if (pieces && pieces->TemperatureAt(H, t)) return t;
    return TemperatureAt(H, RH, B);
}

double EnthalpyRHSolver::WetBulbAt(double H, double B) {
    const EnthalpyCurvePieces* pieces = PiecesCache().Find(1.0, B, true);
    double t;
    if (pieces && pieces->TemperatureAt(H, t)) return t;
    return TemperatureAt(H, 1.0, B);
}

void EnthalpyRHSolver::WetBulbsAt(const double* H, double B, double* t, int n) {
    const EnthalpyCurvePieces* pieces = PiecesCache().Find(1.0, B, true);
    if (!pieces) {
        for (int k = 0; k < n; ++k) t[k] = TemperatureAt(H[k], 1.0, B);
        return;
    }
    constexpr int kChunk = 256;
    bool has[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = n - start < kChunk ? n - start : kChunk;
        pieces->TemperaturesAt(H + start, t + start, has, count);
        for (int k = 0; k < count; ++k)
            if (!has[k]) t[start + k] = TemperatureAt(H[start + k], 1.0, B);
    }
}

bool EnthalpyRHSolver::TemperaturesOnBuiltCurve(const double* H, double RH, double B, double* t, int n) {
    const EnthalpyCurvePieces* pieces = PiecesCache().Built(RH, B);
    if (!pieces) return false;
    constexpr int kChunk = 256;
    bool has[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = n - start < kChunk ? n - start : kChunk;
        pieces->TemperaturesAt(H + start, t + start, has, count);
        for (int k = 0; k < count; ++k)
            if (!has[k]) t[start + k] = TemperatureAt(H[start + k], RH, B);
    }
    return true;
}
