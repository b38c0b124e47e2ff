#pragma once
// Saturated vapour pressure after Hyland and Wexler (1983), as ASHRAE
// Handbook—Fundamentals gives it: the ice curve below freezing, the water
// curve above. ln Ps is a polynomial in T plus C1/T and C7·ln T, so ln Ps and
// all its derivatives cost one log and no exp. The functions are inline so
// that the solvers, which call them in their inner step, can fold them in.
//
// The two curves don't meet at 0 °C (611.154 Pa over ice, 611.213 Pa over
// water): they cross at the triple point, 0.0100006 °C, and the curve changes
// there, so that Ps has no jump. A jump would leave a band of vapour
// pressures and saturated enthalpies that no temperature has, where dew
// point and wet bulb couldn't be inverted.

#include "zefra/platform/airlib/MoistAirConstants.h"

#include <cmath>

// ln Ps and its first three derivatives in T (K).
struct LnPsTerms {
    double value;
    double d1;
    double d2;
    double d3;
};

class HylandWexler {
public:
    // C1/T + C2 + C3·T + C4·T² + C5·T³ + C6·T⁴ + C7·ln T, Ps in Pa.
    struct Curve {
        double c1, c2, c3, c4, c5, c6, c7;
    };
    static constexpr Curve kIce = {-5.6745359e3, 6.3925247,     -9.6778430e-3, 6.2215701e-7,
                                   2.0747825e-9, -9.4840240e-13, 4.1635019};
    static constexpr Curve kWater = {-5.8002206e3, 1.3914993, -4.8640239e-2, 4.1764768e-5,
                                     -1.4452093e-8, 0.0,      6.5459673};

    // Where the curves cross (found by bisection on the two curves), in K
    // and in °C; Ps is 611.65705 Pa there.
    static constexpr double kCurvesMeetK = 273.16000059721193;
    static constexpr double kCurvesMeet = kCurvesMeetK - AIR::kKelvinOffset;

    // The curve that holds at T: ice below the crossing, water from there on.
    static const Curve& CurveAt(double T) { return T < kCurvesMeetK ? kIce : kWater; }

    static double LnPs(const Curve& c, double T) {
        return c.c1 / T + c.c2 + T * (c.c3 + T * (c.c4 + T * (c.c5 + T * c.c6))) + c.c7 * std::log(T);
    }

    static LnPsTerms Terms(const Curve& c, double T) {
        const double inv = 1.0 / T;
        const double inv2 = inv * inv;
        LnPsTerms terms;
        terms.value = c.c1 * inv + c.c2 + T * (c.c3 + T * (c.c4 + T * (c.c5 + T * c.c6))) + c.c7 * std::log(T);
        terms.d1 = -c.c1 * inv2 + c.c3 + T * (2.0 * c.c4 + T * (3.0 * c.c5 + T * 4.0 * c.c6)) + c.c7 * inv;
        terms.d2 = 2.0 * c.c1 * inv2 * inv + 2.0 * c.c4 + T * (6.0 * c.c5 + T * 12.0 * c.c6) - c.c7 * inv2;
        terms.d3 = -6.0 * c.c1 * inv2 * inv2 + 6.0 * c.c5 + 24.0 * c.c6 * T + 2.0 * c.c7 * inv2 * inv;
        return terms;
    }

    // Ps in Pa at t in °C, by the formula.
    static double FormulaPs(double t) {
        const double T = t + AIR::kKelvinOffset;
        return std::exp(LnPs(CurveAt(T), T));
    }

    // Ps in Pa at t in °C, from the tables where they reach.
    static double Ps(double t);

    // ps[k] = Ps(t[k]) for k < n, bit for bit; runs of temperatures on one
    // table are read several at a time.
    static void PsMany(const double* t, double* ps, int n);

    // Ps and its first three derivatives in t from the table of one curve;
    // false outside the tables' reach.
    static bool TableTerms(bool ice, double t, double terms[4]);

    // Where the tables of Ps reach, in °C.
    static constexpr double kTableLowest = -100.0;
    static constexpr double kTableHighest = 200.0;
};
