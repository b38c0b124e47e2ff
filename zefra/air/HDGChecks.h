#pragma once
// Checks of what callers hand the air engine, and of what it hands back.
//
// The state point and the process classes compute whatever they are given:
// a pressure in kPa, a relative humidity typed as a percentage or a moisture
// load in g/s all run, and give states that can't exist. Every front end (the
// command line, the batch, Python and web front ends) runs these checks
// before a calculation and after it, so that what it shows is a possible
// state of air or a refusal that says what was wrong.
//
// Each check returns the faults it found. A fault names the field as the
// caller knows it, the value, the allowed range with its unit and, where the
// value looks like a slip of units, the likely meant value. The supported
// ranges are those of the property correlations (docs/air.md):
//
//   pressure                       50 000 … 110 000 Pa (sea level to 5 500 m,
//                                  with the weather's swings)
//   Tdb, Twb, Tdp given            −60 … 100 °C
//   RH                             0 … 1 (a fraction)
//   D                              0 … 10 000 g/kg, H −100 … 25 000 kJ/kg
//   Pv                             0 up to the pressure, Pa
//
// and every computed state is finite, at or below saturation, below the
// boiling point at the pressure, and no drier than a dew point of −100 °C.

#include "zefra/ZefraExport.h"
#include "zefra/air/SHDGPrimaryReturnAirInfo.h"
#include "zefra/air/SHDGSecondaryReturnAirInfo.h"
#include "zefra/air/ZefraHDGPoint.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

class ZefraHDGPrimaryReturnAir;
class ZefraHDGSecondaryReturnAir;

struct ZEFRA_API SHDGInputFault {
    std::string Field;    // "pressure", "PointN.RH", "FreshAirRatio", "point C", "Gn"
    double Value = 0.0;   // the offending value
    std::string Message;  // one sentence: field, value, allowed range and unit, a hint
};

using HDGFaults = std::vector<SHDGInputFault>;

// A refusal for callers that prefer exceptions; what() is the fault's message.
class ZEFRA_API HDGInputError : public std::invalid_argument {
public:
    explicit HDGInputError(SHDGInputFault fault);
    const SHDGInputFault& GetFault() const { return m_fault; }

private:
    SHDGInputFault m_fault;
};

ZEFRA_API_BEGIN
namespace HDGChecks {

constexpr double kLowestPressure = 50000.0;    // Pa
constexpr double kHighestPressure = 110000.0;  // Pa
constexpr double kLowestTemperature = -60.0;   // °C, given temperatures
constexpr double kHighestTemperature = 100.0;  // °C
constexpr double kLowestDewPoint = -100.0;     // °C, the driest computed state
constexpr double kHighestD = 10000.0;          // g/kg
constexpr double kLowestH = -100.0;            // kJ/kg
constexpr double kHighestH = 25000.0;          // kJ/kg
// Slack on saturation for rounding: RH up to 1 + this counts as saturated.
constexpr double kSaturationSlack = 1e-9;

// The pressure B in Pa. Recognises kPa, hPa and bar.
std::optional<SHDGInputFault> Pressure(double B, const std::string& field = "pressure");

// One given property of a state point, in the engine's units (kinds 0 to 6),
// at pressure B.
std::optional<SHDGInputFault> Property(EHvacHDGPointCalItemType kind, double value, const std::string& field,
                                       double B);

// A computed state: all eleven properties finite, a possible state of air.
// `name` names the point in the message ("point C", "the point").
std::optional<SHDGInputFault> State(const ZefraHDGPoint& point, const std::string& name);

// A point from the pair its two kinds name, with the values set on it: checks
// each value, the pair's order (Twb and Tdp at most Tdb, Tdp at most Twb),
// calculates the point at the current pressure and checks the state. `name`
// names the point, field1 and field2 its two values as the caller knows them.
HDGFaults Point(ZefraHDGPoint& point, const std::string& name, const std::string& field1,
                const std::string& field2);

// The given data of a scheme before Calculate, at the current pressure. Field
// names are those of the given data ("PointN.RH", "FreshAirRatio").
HDGFaults GivenData(const SHDGPrimaryReturnAirInfo& info);
HDGFaults GivenData(const SHDGSecondaryReturnAirInfo& info);

// The results of a scheme after Calculate: every point a possible state,
// flows and loads finite, no flow negative, the fresh-air ratio a fraction.
HDGFaults Results(const ZefraHDGPrimaryReturnAir& scheme);
HDGFaults Results(const ZefraHDGSecondaryReturnAir& scheme);

// Every fault's message, one per line.
std::string Describe(const HDGFaults& faults);

}  // namespace HDGChecks
ZEFRA_API_END
