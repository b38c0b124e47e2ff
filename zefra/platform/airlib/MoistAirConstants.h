#pragma once
// Constants of the moist-air relations shared by the air library's functions
// and solvers.

namespace AIR {

constexpr double kKelvinOffset = 273.15;    // °C to K
constexpr double kRDryAir = 287.042;        // J/(kg·K)
constexpr double kRVapour = 461.524;        // J/(kg·K)
constexpr double kMoistureFactor = 622.0;   // D = 622·Pv/(B − Pv), g/kg
constexpr double kStandardPressure = 101325.0;

// Vapour pressure is held below B by this share of B, so that air at its
// boiling point still has a finite moisture content.
constexpr double kMinDryAirShare = 1e-6;

// Every temperature that an inversion gives lies in this interval.
constexpr double kLowestTemperature = -150.0;
constexpr double kHighestTemperature = 400.0;

// Moisture content in g/kg at the vapour share x = Pv / B.
inline double MoistureAtVapourShare(double x) {
    const double dryShare = 1.0 - x;
    return kMoistureFactor * x / (dryShare > kMinDryAirShare ? dryShare : kMinDryAirShare);
}

}  // namespace AIR
