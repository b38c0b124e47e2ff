#pragma once
// The temperature at which the saturated vapour pressure takes a given value:
// the dew point (frost point below 0 °C) of a vapour pressure.
//
// Between the saturation pressures of −100 and 200 °C, t is read from quintic
// pieces over Pv, built at first use from the exact curve and within 1e-11 K
// of it. Elsewhere a first guess from cubic Hermite tables of t over ln Pv,
// one for the ice curve and one for the water curve, is settled by Halley
// steps on ln Ps.

class DewPointSolver {
public:
    // t in °C with Ps(t) = Pv; Pv <= 0 gives the lowest temperature.
    static double TemperatureAt(double Pv);
    static double TemperatureAtLn(double lnPv);
    // t[k] = TemperatureAt(Pv[k]) for k < n, the same bits.
    static void TemperaturesAt(const double* Pv, double* t, int n);
};
