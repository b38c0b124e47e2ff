#pragma once
// The temperature at which the saturated vapour pressure takes a given value:
// the dew point (frost point below 0 °C) of a vapour pressure.
//
// A first guess comes from cubic Hermite tables of t over ln Pv, one for the
// ice curve and one for the water curve, built from the exact curve at first
// use; one or two Newton steps on ln Ps then settle it to rounding.

class DewPointSolver {
public:
    // t in °C with Ps(t) = Pv; Pv <= 0 gives the lowest temperature.
    static double TemperatureAt(double Pv);
    static double TemperatureAtLn(double lnPv);
};
