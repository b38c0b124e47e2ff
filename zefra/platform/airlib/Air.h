#pragma once
// Moist-air property functions of the air library.
//
// Units: temperatures in °C, relative humidity as a fraction (0.6 is 60 %),
// enthalpy H in kJ per kg of dry air, moisture content D in g per kg of dry
// air, pressures in Pa, density in kg/m³, specific volume in m³ per kg of dry
// air. Arguments stand in the order of each declaration; the orders differ
// from function to function on purpose (GetD takes Tdb first, GetTdp D first).
//
// Saturation pressure follows Hyland and Wexler (over ice below 0 °C, over
// water from 0 °C); the wet bulb is the chart's: the temperature on the
// saturation curve whose enthalpy equals the state's. See docs/air.md.

#include "zefra/platform/airlib/MoistAirConstants.h"

namespace AIR {

// Saturated vapour pressure at Tdb.
double GetPs(double Tdb);

// Ps[k] = GetPs(Tdb[k]) for k < n, the same bits, read several at a time.
void GetPsMany(const double* Tdb, double* Ps, int n);

// Vapour pressure of air with moisture content D at pressure B.
inline double GetPv(double D, double B) {
    // Negative contents have no meaning; the line through 0 keeps them finite.
    return D > 0.0 ? B * D / (kMoistureFactor + D) : B * D / kMoistureFactor;
}

// Moisture content at vapour pressure Pv (with Ps: the saturated content).
inline double GetDByPv(double Pv, double B) { return MoistureAtVapourShare(Pv / B); }

// Moisture content of air whose dew point is Tdp.
double GetDByTdp(double Tdp, double B);

// Moisture content at which a state at Tdb has enthalpy H (inverse of GetH).
inline double GetD(double Tdb, double H) { return (1000.0 * H - 1010.0 * Tdb) / (2500.0 + 1.84 * Tdb); }

// Moisture content at Tdb and relative humidity RH.
double GetD(double Tdb, double RH, double B);

// 1000·H = 1010·Tdb + D·(2500 + 1.84·Tdb).
inline double GetH(double Tdb, double D) { return (1010.0 * Tdb + D * (2500.0 + 1.84 * Tdb)) / 1000.0; }

// Enthalpy of saturated air at Twb: the chart's wet-bulb line.
double GetHByTwb(double Twb, double B);

// Dry-bulb temperature of a state of enthalpy H and moisture content D.
inline double GetTdb(double H, double D) { return (1000.0 * H - 2500.0 * D) / (1010.0 + 1.84 * D); }

// Temperature at which air of moisture content D has relative humidity RH.
double GetTdbByDAndRH(double D, double RH, double B);

// Tdb[k] = GetTdbByDAndRH(D[k], RH, B) for k < n, the same bits.
void GetTdbByDAndRHMany(const double* D, double RH, double B, double* Tdb, int n);

// Temperature at which a state of enthalpy H has relative humidity RH.
double GetTdbByHAndRH(double H, double RH, double B);

// Dew point of air of moisture content D.
double GetTdp(double D, double B);

// Wet bulb of the state (H, RH): the saturated temperature of enthalpy H.
// RH plays no part in the chart's convention.
double GetTwb(double H, double RH, double B);

// Pv / Ps as a fraction.
inline double GetRHByPvAndPs(double Pv, double Ps) { return Pv / Ps; }

// Density of moist air at Tdb with vapour pressure Pv: the ideal-gas shares
// of dry air and vapour.
inline double GetDenByPv(double Tdb, double Pv, double B) {
    return ((B - Pv) / kRDryAir + Pv / kRVapour) / (Tdb + kKelvinOffset);
}

// Density of moist air: GetDenByPv at Pv = RH·Ps(Tdb).
double GetDen(double Tdb, double RH, double B);

// Specific volume per kg of dry air: (1 + D/1000) / Den.
inline double GetSVByDAndDen(double D, double Den) { return (1.0 + D / 1000.0) / Den; }

// Vapour pressure at which air at Tdb has density Den (inverse of GetDen).
double GetPvByTdbAndDen(double Tdb, double Den, double B);

// Kinematic viscosity in m²/s of dry air at Tdb and 101325 Pa.
double GetKV(double Tdb);

// Friction loss of a duct: specific loss R in Pa/m times length L in m.
double GetPm(double R, double L);

}  // namespace AIR
