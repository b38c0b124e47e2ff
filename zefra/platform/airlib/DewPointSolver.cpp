#include "zefra/platform/airlib/DewPointSolver.h"

#include "zefra/platform/airlib/HylandWexler.h"
#include "zefra/platform/airlib/IncreasingRootFinder.h"
#include "zefra/platform/airlib/MoistAirConstants.h"
#include "zefra/platform/airlib/QuinticPieces.h"
#include "zefra/platform/airlib/VectorClones.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

using AIR::kHighestTemperature;
using AIR::kKelvinOffset;
using AIR::kLowestTemperature;

constexpr double kTableLowest = HylandWexler::kTableLowest;
constexpr double kTableHighest = HylandWexler::kTableHighest;

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
        return CubicHermite(m_t[k], m_slope[k], m_t[k + 1], m_slope[k + 1], s);
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

// t over Pv itself, read without a logarithm. A positive double's bits, read
// as an integer, grow with it; the exponent and the top kMantissaBits bits of
// the mantissa cut each octave of Pv into 2^kMantissaBits pieces of equal
// width, on which t is a quintic in the position within the piece. The piece
// that holds the triple point, where the curve changes from ice to water, is
// split there.
class PressurePieces {
public:
    PressurePieces() {
        const uint64_t firstKey = KeyOf(HylandWexler::FormulaPs(kTableLowest));
        const uint64_t lastKey = KeyOf(HylandWexler::FormulaPs(kTableHighest));
        m_firstKey = firstKey;
        m_pressureFirst = PressureOfKey(firstKey + 1);  // the first whole piece
        m_pressureLast = PressureOfKey(lastKey);        // the end of the last whole piece
        m_meetPressure = std::exp(HylandWexler::LnPs(HylandWexler::kWater, HylandWexler::kCurvesMeetK));
        m_meetKey = KeyOf(m_meetPressure);
        m_pieces.resize(static_cast<size_t>(lastKey - firstKey));
        for (uint64_t key = firstKey + 1; key < lastKey; ++key) {
            const double from = PressureOfKey(key);
            const double to = PressureOfKey(key + 1);
            Piece& piece = m_pieces[static_cast<size_t>(key - firstKey)];
            if (key == m_meetKey) {
                piece = Piece::Between(from, m_meetPressure, true);
                m_meetUpper = Piece::Between(m_meetPressure, to, false);
            } else {
                piece = Piece::Between(from, to, from < m_meetPressure);
            }
        }
        // The upper part of the split piece also stands last, so that a
        // reading of many can find every piece by index.
        m_upperIndex = static_cast<uint64_t>(m_pieces.size());
        m_pieces.push_back(m_meetUpper);
    }

    // TemperatureAt of each Pv[k] in the pieces, k < n; inside[k] says which
    // were. Those outside are read as the first whole piece's start.
    void TemperaturesAt(const double* Pv, double* t, unsigned char* inside, int n) const {
        ReadPieces(m_pieces.data(), m_firstKey, m_meetKey, m_meetPressure, m_upperIndex, m_pressureFirst,
                   m_pressureLast, Pv, t, inside, n);
    }

    bool Contains(double Pv) const { return Pv >= m_pressureFirst && Pv < m_pressureLast; }

    double TemperatureAt(double Pv) const {
        const uint64_t key = KeyOf(Pv);
        const Piece& piece = key == m_meetKey && Pv >= m_meetPressure
                                 ? m_meetUpper
                                 : m_pieces[static_cast<size_t>(key - m_firstKey)];
        return piece.shape.At((Pv - piece.from) * piece.invWidth);
    }

private:
    static constexpr int kMantissaBits = 5;

public:
    struct Piece {
        double from = 0.0;
        double invWidth = 0.0;
        QuinticPiece shape{};

        static Piece Between(double from, double to, bool ice) {
            Piece piece;
            piece.from = from;
            piece.invWidth = 1.0 / (to - from);
            piece.shape = QuinticPiece::Between(NodeAt(from, ice), NodeAt(to, ice), to - from);
            return piece;
        }
    };

private:
    // The steps of TemperatureAt, in the same order, for many at once (at
    // most 256).
    static void ReadPieces(const Piece* __restrict pieces, uint64_t firstKey, uint64_t meetKey, double meetPressure,
                           uint64_t upperIndex, double first, double last, const double* __restrict Pv,
                           double* __restrict t, unsigned char* __restrict inside, int n) {
        const QuinticPiece* shapes[256];
        double position[256];
        for (int k = 0; k < n; ++k) {
            const bool in = Pv[k] >= first && Pv[k] < last;
            const double p = in ? Pv[k] : first;
            const uint64_t key = KeyOf(p);
            const uint64_t index = key == meetKey && p >= meetPressure ? upperIndex : key - firstKey;
            const Piece& piece = pieces[index];
            shapes[k] = &piece.shape;
            position[k] = (p - piece.from) * piece.invWidth;
            inside[k] = static_cast<unsigned char>(in);
        }
        ReadEachPiece(shapes, position, t, n);
    }

    // t, dt/dPv and d²t/dPv² where Ps(t) = Pv on one curve.
    static QuinticNode NodeAt(double Pv, bool ice) {
        const double t = DewPointSolver::TemperatureAtLn(std::log(Pv));
        const LnPsTerms y =
            HylandWexler::Terms(ice ? HylandWexler::kIce : HylandWexler::kWater, t + kKelvinOffset);
        // dPs/dt = Pv·y′, d²Ps/dt² = Pv·(y′² + y″); the inverse's derivatives follow.
        const double p1 = Pv * y.d1;
        const double p2 = Pv * (y.d1 * y.d1 + y.d2);
        return {t, 1.0 / p1, -p2 / (p1 * p1 * p1)};
    }

    static uint64_t KeyOf(double Pv) {
        uint64_t bits;
        std::memcpy(&bits, &Pv, sizeof bits);
        return bits >> (52 - kMantissaBits);
    }

    static double PressureOfKey(uint64_t key) {
        const uint64_t bits = key << (52 - kMantissaBits);
        double Pv;
        std::memcpy(&Pv, &bits, sizeof Pv);
        return Pv;
    }

    uint64_t m_firstKey = 0;
    uint64_t m_upperIndex = 0;
    uint64_t m_meetKey = 0;
    double m_pressureFirst = 0.0;
    double m_pressureLast = 0.0;
    double m_meetPressure = 0.0;
    std::vector<Piece> m_pieces;
    Piece m_meetUpper;
};

const PressurePieces& Pieces() {
    static const PressurePieces pieces;
    return pieces;
}

}  // namespace

double DewPointSolver::TemperatureAt(double Pv) {
    const PressurePieces& pieces = Pieces();
    if (pieces.Contains(Pv)) return pieces.TemperatureAt(Pv);
    if (!(Pv > 0.0)) return kLowestTemperature;
    return TemperatureAtLn(std::log(Pv));
}

void DewPointSolver::TemperaturesAt(const double* Pv, double* t, int n) {
    const PressurePieces& pieces = Pieces();
    constexpr int kChunk = 256;
    unsigned char inside[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = n - start < kChunk ? n - start : kChunk;
        pieces.TemperaturesAt(Pv + start, t + start, inside, count);
        for (int k = 0; k < count; ++k)
            if (!inside[k]) t[start + k] = TemperatureAt(Pv[start + k]);
    }
}

double DewPointSolver::TemperatureAtLn(double lnPv) {
    const DewPointTables& tables = Tables();
    // Each branch is solved on its own curve and interval.
    const bool ice = lnPv <= tables.ice.LnLast();
    const double guess = ice ? tables.ice.Guess(lnPv) : tables.water.Guess(lnPv);
    return (ice ? kIceFinder : kWaterFinder).Solve(LnPsResidual{ice, lnPv}, guess);
}
