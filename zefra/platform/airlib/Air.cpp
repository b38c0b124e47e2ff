#include "zefra/platform/airlib/Air.h"

#include "zefra/platform/airlib/DewPointSolver.h"
#include "zefra/platform/airlib/EnthalpyRHSolver.h"
#include "zefra/platform/airlib/HylandWexler.h"
#include "zefra/platform/airlib/MoistAirConstants.h"

#include <cmath>

namespace AIR {

namespace {

// Sutherland's law for the dynamic viscosity of air.
constexpr double kSutherlandMu0 = 1.716e-5;  // Pa·s at T0
constexpr double kSutherlandT0 = 273.15;     // K
constexpr double kSutherlandS = 110.4;       // K

double Kelvin(double t) { return t + kKelvinOffset; }

}  // namespace

double GetPs(double Tdb) { return HylandWexler::Ps(Tdb); }

double GetPv(double D, double B) {
    // Negative contents have no meaning; the line through 0 keeps them finite.
    return D > 0.0 ? B * D / (kMoistureFactor + D) : B * D / kMoistureFactor;
}

double GetDByPv(double Pv, double B) { return MoistureAtVapourShare(Pv / B); }

double GetDByTdp(double Tdp, double B) { return GetDByPv(GetPs(Tdp), B); }

double GetD(double Tdb, double H) { return (1000.0 * H - 1010.0 * Tdb) / (2500.0 + 1.84 * Tdb); }

double GetD(double Tdb, double RH, double B) { return GetDByPv(RH * GetPs(Tdb), B); }

double GetH(double Tdb, double D) { return (1010.0 * Tdb + D * (2500.0 + 1.84 * Tdb)) / 1000.0; }

double GetHByTwb(double Twb, double B) { return GetH(Twb, GetD(Twb, 1.0, B)); }

double GetTdb(double H, double D) { return (1000.0 * H - 2500.0 * D) / (1010.0 + 1.84 * D); }

double GetTdbByDAndRH(double D, double RH, double B) {
    if (!(RH > 0.0)) return D > 0.0 ? kHighestTemperature : kLowestTemperature;
    return DewPointSolver::TemperatureAt(GetPv(D, B) / RH);
}

double GetTdbByHAndRH(double H, double RH, double B) { return EnthalpyRHSolver::TemperatureOnCurve(H, RH, B); }

double GetTdp(double D, double B) { return DewPointSolver::TemperatureAt(GetPv(D, B)); }

double GetTwb(double H, double /*RH*/, double B) { return EnthalpyRHSolver::WetBulbAt(H, B); }

double GetRHByPvAndPs(double Pv, double Ps) { return Pv / Ps; }

double GetDen(double Tdb, double RH, double B) {
    const double Pv = RH * GetPs(Tdb);
    return ((B - Pv) / kRDryAir + Pv / kRVapour) / Kelvin(Tdb);
}

double GetSVByDAndDen(double D, double Den) { return (1.0 + D / 1000.0) / Den; }

double GetPvByTdbAndDen(double Tdb, double Den, double B) {
    // Den·T = B/Ra − Pv·(1/Ra − 1/Rv), solved for Pv.
    return (B / kRDryAir - Den * Kelvin(Tdb)) / (1.0 / kRDryAir - 1.0 / kRVapour);
}

double GetKV(double Tdb) {
    const double T = Kelvin(Tdb);
    const double ratio = T / kSutherlandT0;
    const double mu = kSutherlandMu0 * ratio * std::sqrt(ratio) * (kSutherlandT0 + kSutherlandS) / (T + kSutherlandS);
    const double dryDensity = kStandardPressure / (kRDryAir * T);
    return mu / dryDensity;
}

double GetPm(double R, double L) { return R * L; }

}  // namespace AIR
