#pragma once
// The temperature at which air of relative humidity RH, at pressure B, has
// enthalpy H. With RH = 1 this is the chart's wet bulb of H.
//
// The relation depends on RH and B only through q = RH / B (the vapour share
// is q·Ps). A table over q and over u = H − H0(q), where H0(q) is the
// enthalpy of the state where the ice and water curves meet, gives first
// guesses: in u the change of curve stays at u = 0 for every q, and the
// table is split there. It is built from the exact relation at first use and read
// by cubic Hermite interpolation in both directions. One Halley step on the
// exact relation usually settles the result to rounding.

class EnthalpyRHSolver {
public:
    // t in °C, bounded to the interval of MoistAirConstants.h.
    static double TemperatureAt(double H, double RH, double B);

    // TemperatureAt, read from quintic pieces over H of the curve of RH at B
    // once that pair is in steady use (about a thousand calls on a thread),
    // for RH from 0.001 to 1.5 and B from 10 to 200 kPa; within 1e-10 K of
    // the exact relation from −100 to 60 °C.
    static double TemperatureOnCurve(double H, double RH, double B);

    // The wet bulb of H at B: TemperatureOnCurve(H, 1, B), with the pieces of
    // a pressure built when it is first met.
    static double WetBulbAt(double H, double B);

    // t[k] = WetBulbAt(H[k], B) for k < n, the same bits; the pieces are
    // read several at a time.
    static void WetBulbsAt(const double* H, double B, double* t, int n);

    // When the pieces of (RH, B) are already built on this thread: t[k] =
    // TemperatureOnCurve(H[k], RH, B) for k < n, the same bits, and true.
    // Otherwise false, and nothing done. Either way the cache of curves is
    // left as it was, as n calls of TemperatureOnCurve would leave it once
    // the curve is built.
    static bool TemperaturesOnBuiltCurve(const double* H, double RH, double B, double* t, int n);
};
