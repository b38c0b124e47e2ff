#include "zefra/platform/airlib/Air.h"

#include "zefra/platform/airlib/DewPointSolver.h"
#include "zefra/platform/airlib/EnthalpyRHSolver.h"
#include "zefra/platform/airlib/HylandWexler.h"
#include "zefra/platform/airlib/MoistAirConstants.h"
#include "zefra/platform/airlib/VectorClones.h"

#include <cmath>

namespace AIR {

namespace {

// Sutherland's law for the dynamic viscosity of air.
constexpr double kSutherlandMu0 = 1.716e-5;  // Pa·s at T0
constexpr double kSutherlandT0 = 273.15;     // K
constexpr double kSutherlandS = 110.4;       // K

double Kelvin(double t) { return t + kKelvinOffset; }

// The vapour pressure of saturated air at each moisture content's dew point
// for relative humidity RH: Pv / RH.
ZEFRA_VECTOR_CLONES
void VapourPressuresAtRH(const double* __restrict D, double RH, double B, double* __restrict out, int n) {
    for (int k = 0; k < n; ++k) out[k] = GetPv(D[k], B) / RH;
}

}  // namespace

double GetPs(double Tdb) { return HylandWexler::Ps(Tdb); }

void GetPsMany(const double* Tdb, double* Ps, int n) { HylandWexler::PsMany(Tdb, Ps, n); }

double GetDByTdp(double Tdp, double B) { return GetDByPv(GetPs(Tdp), B); }

double GetD(double Tdb, double RH, double B) { return GetDByPv(RH * GetPs(Tdb), B); }

double GetHByTwb(double Twb, double B) { return GetH(Twb, GetD(Twb, 1.0, B)); }

double GetTdbByDAndRH(double D, double RH, double B) {
    if (!(RH > 0.0)) return D > 0.0 ? kHighestTemperature : kLowestTemperature;
    return DewPointSolver::TemperatureAt(GetPv(D, B) / RH);
}

void GetTdbByDAndRHMany(const double* D, double RH, double B, double* Tdb, int n) {
    if (!(RH > 0.0)) {
        for (int k = 0; k < n; ++k) Tdb[k] = GetTdbByDAndRH(D[k], RH, B);
        return;
    }
    constexpr int kChunk = 256;
    double Pv[kChunk];
    for (int start = 0; start < n; start += kChunk) {
        const int count = n - start < kChunk ? n - start : kChunk;
        VapourPressuresAtRH(D + start, RH, B, Pv, count);
        DewPointSolver::TemperaturesAt(Pv, Tdb + start, count);
    }
}

double GetTdbByHAndRH(double H, double RH, double B) { return EnthalpyRHSolver::TemperatureOnCurve(H, RH, B); }

double GetTdp(double D, double B) { return DewPointSolver::TemperatureAt(GetPv(D, B)); }

double GetTwb(double H, double /*RH*/, double B) { return EnthalpyRHSolver::WetBulbAt(H, B); }

double GetDen(double Tdb, double RH, double B) { return GetDenByPv(Tdb, RH * GetPs(Tdb), B); }

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
