#include "zefra/air/HDGChecks.h"

#include "zefra/air/HDGCurB.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/geometry/Zero.h"

#include <cmath>
#include <cstdio>
#include <utility>

HDGInputError::HDGInputError(SHDGInputFault fault)
    : std::invalid_argument(fault.Message), m_fault(std::move(fault)) {}

namespace HDGChecks {
namespace {

constexpr double kHighestLoad = 10000.0;          // kW: beyond any one air-handling unit
constexpr double kHighestFlow = 1000.0;           // kg/s: about 3 million m³/h
constexpr double kHighestMoistureLoad = 1.0;      // kg/s
constexpr double kLowestHeatHumidityRatio = 1000.0;  // kJ/kg, summer
constexpr double kHighestDuctRise = 10.0;         // K
constexpr double kHighestSupplyDifference = 25.0; // K
constexpr double kFlowSlack = 1e-9;               // relative, for flows that cancel
constexpr double kKelvin = 273.15;

std::string Num(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

SHDGInputFault Fault(const std::string& field, double value, const std::string& message) {
    return {field, value, message};
}

std::string Is(const std::string& field, double value, const char* unit = "") {
    return field + " = " + Num(value) + (*unit ? std::string(" ") + unit : std::string());
}

// One number within [low, high] (or above low when lowOpen); nullopt when it is.
std::optional<SHDGInputFault> Range(const std::string& field, double value, double low, double high,
                                    const char* unit, const char* meaning, bool lowOpen = false) {
    if (!std::isfinite(value)) return Fault(field, value, field + " = " + Num(value) + " is not a finite number");
    const bool inside = (lowOpen ? value > low : value >= low) && value <= high;
    if (inside) return std::nullopt;
    const std::string space = *unit ? " " : "";
    const std::string range = lowOpen ? "above " + Num(low) + " and up to " + Num(high) + space + unit
                                      : Num(low) + " … " + Num(high) + space + unit;
    return Fault(field, value, Is(field, value, unit) + " is outside the allowed range, " + range + ": " + meaning);
}

const char* ShortName(EHvacHDGPointCalItemType kind) {
    static const char* const kNames[] = {"Tdb", "RH", "H", "D", "Twb", "Tdp", "Pv", "Den", "SV", "Ds", "Ps"};
    return kind >= HDGPT_TDB && kind <= HDGPT_PS ? kNames[kind] : "?";
}

void Add(HDGFaults& faults, std::optional<SHDGInputFault> fault) {
    if (fault) faults.push_back(std::move(*fault));
}

void Add(HDGFaults& faults, HDGFaults more) {
    for (SHDGInputFault& fault : more) faults.push_back(std::move(fault));
}

std::optional<SHDGInputFault> Temperature(const std::string& field, double value, const char* meaning) {
    auto fault = Range(field, value, kLowestTemperature, kHighestTemperature, "°C", meaning);
    if (fault && std::isfinite(value) && value - kKelvin >= kLowestTemperature &&
        value - kKelvin <= kHighestTemperature)
        fault->Message += "; " + Num(value) + " looks like kelvin: temperatures are in °C, " + Num(value - kKelvin);
    return fault;
}

std::optional<SHDGInputFault> Fraction(const std::string& field, double value, const char* meaning,
                                       bool zeroAllowed = true) {
    auto fault = Range(field, value, 0.0, 1.0, "", meaning, !zeroAllowed);
    if (fault && std::isfinite(value) && value >= 2.0 && value <= 100.0)
        fault->Message = Is(field, value) + " looks like a percentage; " + meaning + " is a fraction from 0 to 1: " +
                         Num(value / 100.0);
    return fault;
}

// A given point of the scheme's data, recalculated from its pair.
HDGFaults GivenPoint(const ZefraHDGPoint& given, const std::string& field) {
    ZefraHDGPoint point = given;
    return Point(point, field, field + "." + ShortName(point.GetCalPara1Type()),
                 field + "." + ShortName(point.GetCalPara2Type()));
}

template <typename Info>
void CommonLoads(const Info& info, bool summer, HDGFaults& faults) {
    auto load = Range("Qn", info.Qn, 0.0, kHighestLoad, "kW",
                      summer ? "the room's cooling load, in kW" : "the room's heat loss, in kW", true);
    if (load && std::isfinite(info.Qn) && info.Qn > kHighestLoad && info.Qn / 1000.0 <= kHighestLoad)
        load->Message += "; Qn is in kW: " + Num(info.Qn) + " W is " + Num(info.Qn / 1000.0) + " kW";
    Add(faults, load);

    auto moisture = Range("Mw", info.Mw, 0.0, kHighestMoistureLoad, "kg/s", "the room's moisture load, in kg/s",
                          summer);
    if (!moisture && summer && !load && info.Qn / info.Mw < kLowestHeatHumidityRatio)
        moisture = Fault("Mw", info.Mw,
                         "Mw = " + Num(info.Mw) + " kg/s with Qn = " + Num(info.Qn) +
                             " kW gives a heat-humidity ratio of " + Num(info.Qn / info.Mw) +
                             " kJ/kg, below any room's (at least " + Num(kLowestHeatHumidityRatio) + " kJ/kg)");
    if (moisture && std::isfinite(info.Mw) && info.Mw > 0.0 && info.Mw / 1000.0 <= kHighestMoistureLoad &&
        (!summer || info.Qn / (info.Mw / 1000.0) >= kLowestHeatHumidityRatio))
        moisture->Message += "; Mw is in kg/s: " + Num(info.Mw) + " g/s is " + Num(info.Mw / 1000.0) + " kg/s";
    Add(faults, moisture);
}

template <typename Info>
void CommonFields(const Info& info, bool summer, bool readsSupplyDifference, HDGFaults& faults) {
    Add(faults, GivenPoint(info.PointN, "PointN"));
    Add(faults, GivenPoint(info.PointW, "PointW"));
    CommonLoads(info, summer, faults);
    Add(faults, Range("SfGdWs", info.SfGdWs, 0.0, kHighestDuctRise, "K",
                      "the temperature change along the supply duct"));
    Add(faults, Range("HfGdWs", info.HfGdWs, 0.0, kHighestDuctRise, "K",
                      "the temperature change along the return duct"));
    Add(faults, Fraction("ptL_RH", info.ptL_RH, "the relative humidity of the dew point L", false));
    if (info.FreshAirType == 0) {
        Add(faults, Fraction("FreshAirRatio", info.FreshAirRatio, "the fresh-air ratio"));
    } else {
        Add(faults, Range("Gw", info.Gw, 0.0, kHighestFlow, "kg/s", "the fresh-air flow, in kg/s"));
    }
    if (!summer) {
        auto supply = Range("Go", info.Go, 0.0, kHighestFlow, "kg/s", "the supply air flow, in kg/s", true);
        if (supply && std::isfinite(info.Go) && info.Go > kHighestFlow)
            supply->Message += "; Go is in kg/s: " + Num(info.Go) + " m³/h is about " + Num(info.Go / 3000.0) +
                               " kg/s";
        Add(faults, supply);
        if (!supply && info.FreshAirType != 0 && std::isfinite(info.Gw) && info.Gw > info.Go)
            faults.push_back(Fault("Gw", info.Gw,
                                   "Gw = " + Num(info.Gw) + " kg/s is more than the supply flow Go = " +
                                       Num(info.Go) + " kg/s"));
    }
    if (readsSupplyDifference) {
        const auto difference = Range("SfWc", info.SfWc, 0.0, kHighestSupplyDifference, "K",
                                      "the supply temperature difference, room minus supply", true);
        Add(faults, difference);
        if (!difference && faults.empty()) {
            // The ε line through N meets the supply isotherm nowhere when it runs along it.
            ZefraHDGPoint room = info.PointN;
            room.Calculate();
            const double t = room.GetTdb() - info.SfWc;
            if (IsInZeroBand((info.Qn / info.Mw - 2500.0) - 1.84 * t))
                faults.push_back(Fault("SfWc", info.SfWc,
                                       "the heat-humidity ratio line Qn / Mw runs along the supply isotherm " +
                                           Num(t) + " °C and never meets it"));
        }
    }
}

std::optional<SHDGInputFault> Type(const std::string& field, int type, int highest, const char* scheme) {
    if (type >= 0 && type <= highest) return std::nullopt;
    return Fault(field, type,
                 field + " = " + std::to_string(type) + " is outside the " + scheme + " scheme's types 0 … " +
                     std::to_string(highest));
}

// The points of a result, each under its letter.
HDGFaults Points(const std::vector<std::pair<const char*, ZefraHDGPoint>>& points) {
    HDGFaults faults;
    for (const auto& [letter, point] : points) Add(faults, State(point, std::string("point ") + letter));
    return faults;
}

void Finite(HDGFaults& faults, const char* symbol, double value, const char* meaning) {
    if (!std::isfinite(value))
        faults.push_back(Fault(symbol, value, std::string(symbol) + " (" + meaning + ") has no finite value"));
}

void NotNegative(HDGFaults& faults, const char* symbol, double value, double scale, const std::string& why) {
    if (std::isfinite(value) && value < -kFlowSlack * std::fabs(scale))
        faults.push_back(Fault(symbol, value, std::string(symbol) + " = " + Num(value) + " kg/s is negative: " + why));
}

template <typename Scheme>
void CommonResults(const Scheme& scheme, HDGFaults& faults) {
    const auto given = scheme.GetGivenData();
    Finite(faults, "Go", given.Go, "supply air flow");
    Finite(faults, "Gw", given.Gw, "fresh-air flow");
    Finite(faults, "Gn", scheme.GetGn(), "return-air flow");
    Finite(faults, "FreshAirRatio", given.FreshAirRatio, "fresh-air ratio");
    Finite(faults, "Qw", scheme.GetQw(), "fresh-air load");
    Finite(faults, "Qr", scheme.GetQr(), "return-duct load");
    Finite(faults, "Qo", scheme.GetQo(), "supply-duct load");
    Finite(faults, "Qk", scheme.GetQk(), "reheat load");
    Finite(faults, "Qw1", scheme.GetQw1(), "preheat load");
    Finite(faults, "Ql", scheme.GetQl(), "humidifying load");
    Finite(faults, "Qp", scheme.GetQp(), "load carried by the unit");
    Finite(faults, "Mww", scheme.GetMww(), "fresh-air moisture load");
    Finite(faults, "Mwp", scheme.GetMwp(), "moisture load carried by the unit");
    if (std::isfinite(given.Go) && !(given.Go > 0.0))
        faults.push_back(Fault("Go", given.Go, "Go = " + Num(given.Go) + " kg/s: the supply air flow is not positive"));
    NotNegative(faults, "Gw", given.Gw, given.Go, "the fresh-air flow can't be negative");
    NotNegative(faults, "Gn", scheme.GetGn(), given.Go,
                "the fresh air Gw = " + Num(given.Gw) + " kg/s exceeds the supply air Go = " + Num(given.Go) +
                    " kg/s");
    if (std::isfinite(given.FreshAirRatio) &&
        !(given.FreshAirRatio >= -kFlowSlack && given.FreshAirRatio <= 1.0 + kFlowSlack))
        faults.push_back(Fault("FreshAirRatio", given.FreshAirRatio,
                               "FreshAirRatio = " + Num(given.FreshAirRatio) +
                                   ": the fresh-air share of the supply air is outside 0 … 1"));
}

}  // namespace

std::optional<SHDGInputFault> Pressure(double B, const std::string& field) {
    if (!std::isfinite(B)) return Fault(field, B, field + " = " + Num(B) + " is not a finite number");
    if (B >= kLowestPressure && B <= kHighestPressure) return std::nullopt;
    static const struct {
        double PascalPerUnit;
        const char* Unit;
    } kSlips[] = {{1000.0, "kPa"}, {100.0, "hPa"}, {100000.0, "bar"}};
    for (const auto& slip : kSlips) {
        const double pascal = B * slip.PascalPerUnit;
        if (pascal >= kLowestPressure && pascal <= kHighestPressure)
            return Fault(field, B,
                         Num(B) + " looks like " + slip.Unit + "; the pressure is in Pa: " + Num(pascal));
    }
    return Fault(field, B,
                 field + " = " + Num(B) + " Pa is outside the supported " + Num(kLowestPressure) + " … " +
                     Num(kHighestPressure) + " Pa (sea level to about 5 500 m)");
}

std::optional<SHDGInputFault> Property(EHvacHDGPointCalItemType kind, double value, const std::string& field,
                                       double B) {
    switch (kind) {
        case HDGPT_TDB: return Temperature(field, value, "the dry-bulb temperature");
        case HDGPT_TWB: return Temperature(field, value, "the wet-bulb temperature");
        case HDGPT_TDP: return Temperature(field, value, "the dew-point temperature");
        case HDGPT_RH: return Fraction(field, value, "relative humidity");
        case HDGPT_H: {
            auto fault = Range(field, value, kLowestH, kHighestH, "kJ/kg", "the enthalpy, in kJ/kg of dry air");
            if (fault && std::isfinite(value) && value > kHighestH && value / 1000.0 <= kHighestH)
                fault->Message += "; " + Num(value) + " J/kg is " + Num(value / 1000.0) + " kJ/kg";
            return fault;
        }
        case HDGPT_D:
            return Range(field, value, 0.0, kHighestD, "g/kg", "the moisture content, in g/kg of dry air");
        case HDGPT_PV: {
            auto fault = Range(field, value, 0.0, B, "Pa", "the vapour pressure stays below the atmospheric pressure");
            if (!fault && value >= B)
                fault = Fault(field, value, Is(field, value, "Pa") + " is not below the atmospheric pressure " +
                                                Num(B) + " Pa");
            return fault;
        }
        default:
            return Fault(field, value, field + ": a state point is given by Tdb, RH, H, D, Twb, Tdp or Pv");
    }
}

std::optional<SHDGInputFault> State(const ZefraHDGPoint& point, const std::string& name) {
    return State(point, name, GetHDGCurB());
}

std::optional<SHDGInputFault> State(const ZefraHDGPoint& point, const std::string& name, double B) {
    for (int kind = HDGPT_TDB; kind <= HDGPT_PS; ++kind) {
        const double value = point.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind));
        if (!std::isfinite(value))
            return Fault(name, value,
                         name + ": " + ShortName(static_cast<EHvacHDGPointCalItemType>(kind)) +
                             " has no finite value; the state can't be calculated");
    }
    if (point.GetTdb() < kLowestTemperature || point.GetTdb() > kHighestTemperature)
        return Fault(name, point.GetTdb(),
                     name + ": Tdb = " + Num(point.GetTdb()) + " °C is outside the supported " +
                         Num(kLowestTemperature) + " … " + Num(kHighestTemperature) + " °C");
    if (point.GetD() < 0.0)
        return Fault(name, point.GetD(),
                     name + ": D = " + Num(point.GetD()) + " g/kg is negative; air can't be drier than dry air");
    if (!(point.GetPs() < B))
        return Fault(name, point.GetTdb(),
                     name + ": Tdb = " + Num(point.GetTdb()) + " °C is at or above the boiling point at " + Num(B) +
                         " Pa, where saturation has no meaning");
    if (point.GetRH() > 1.0 + kSaturationSlack || point.GetD() > point.GetDs() * (1.0 + kSaturationSlack))
        return Fault(name, point.GetRH(),
                     name + ": the state lies above saturation: RH = " + Num(point.GetRH()) + " (" +
                         Num(point.GetRH() * 100.0) + " %); at Tdb = " + Num(point.GetTdb()) +
                         " °C saturated air holds D = " + Num(point.GetDs()) + " g/kg, and D is " +
                         Num(point.GetD()) + " g/kg");
    if (point.GetTdp() < kLowestDewPoint || point.GetTwb() < kLowestDewPoint)
        return Fault(name, point.GetD(),
                     name + ": the air is drier than the supported range: D = " + Num(point.GetD()) +
                         " g/kg has a dew point below " + Num(kLowestDewPoint) + " °C");
    if (!(point.GetDen() > 0.0) || !(point.GetSV() > 0.0))
        return Fault(name, point.GetDen(), name + ": the density is not positive");
    return std::nullopt;
}

HDGFaults Given(EHvacHDGPointCalItemType kind1, double value1, const std::string& field1,
                EHvacHDGPointCalItemType kind2, double value2, const std::string& field2, double B) {
    HDGFaults faults;
    Add(faults, Property(kind1, value1, field1, B));
    Add(faults, Property(kind2, value2, field2, B));
    if (!faults.empty()) return faults;

    // Dew point ≤ wet bulb ≤ dry bulb, whichever two are given.
    const auto order = [&](EHvacHDGPointCalItemType low, EHvacHDGPointCalItemType high, const char* why) {
        const bool forward = kind1 == low && kind2 == high;
        if (!forward && !(kind1 == high && kind2 == low)) return;
        const double lowValue = forward ? value1 : value2;
        const double highValue = forward ? value2 : value1;
        const std::string& lowField = forward ? field1 : field2;
        const std::string& highField = forward ? field2 : field1;
        if (lowValue > highValue)
            faults.push_back(Fault(lowField, lowValue,
                                   Is(lowField, lowValue, "°C") + " is above " + Is(highField, highValue, "°C") +
                                       ": " + why));
    };
    order(HDGPT_TWB, HDGPT_TDB, "the wet bulb can't exceed the dry bulb");
    order(HDGPT_TDP, HDGPT_TDB, "the dew point can't exceed the dry bulb");
    order(HDGPT_TDP, HDGPT_TWB, "the dew point can't exceed the wet bulb");
    return faults;
}

HDGFaults Point(ZefraHDGPoint& point, const std::string& name, const std::string& field1,
                const std::string& field2) {
    const EHvacHDGPointCalItemType kind1 = point.GetCalPara1Type();
    const EHvacHDGPointCalItemType kind2 = point.GetCalPara2Type();
    HDGFaults faults = Given(kind1, point.GetCalParaValue(kind1), field1, kind2, point.GetCalParaValue(kind2),
                             field2, GetHDGCurB());
    if (!faults.empty()) return faults;

    if (!point.Calculate()) {
        faults.push_back(Fault(name, 0.0,
                               name + ": " + field1 + " with " + field2 +
                                   " doesn't define a state (its two properties aren't independent)"));
        return faults;
    }
    Add(faults, State(point, name));
    return faults;
}

HDGFaults GivenData(const SHDGPrimaryReturnAirInfo& info) {
    HDGFaults faults;
    Add(faults, Type("CalPriRetAirType", info.CalPriRetAirType, HDGPRI_DJ_HEAT_ISOTH, "primary"));
    if (!faults.empty()) return faults;
    const bool summer = info.CalPriRetAirType <= HDGPRI_XJ_SUPPLYDT;
    CommonFields(info, summer, info.CalPriRetAirType == HDGPRI_XJ_SUPPLYDT, faults);
    return faults;
}

HDGFaults GivenData(const SHDGSecondaryReturnAirInfo& info) {
    HDGFaults faults;
    Add(faults, Type("CalPriRetAirType", info.CalPriRetAirType, HDGSEC_DJ_HEAT_ISOTH, "secondary"));
    if (!faults.empty()) return faults;
    const bool summer = info.CalPriRetAirType == HDGSEC_XJ;
    CommonFields(info, summer, summer, faults);
    if (summer || !faults.empty()) return faults;

    // Winter: the given flows split the supply air.
    Add(faults, Range("Gr1", info.Gr1, 0.0, kHighestFlow, "kg/s", "the first return-air flow, in kg/s"));
    if (!faults.empty()) return faults;
    const double freshAir = info.FreshAirType == 0 ? info.FreshAirRatio * info.Go : info.Gw;
    if (!(freshAir > 0.0))
        faults.push_back(Fault(info.FreshAirType == 0 ? "FreshAirRatio" : "Gw",
                               info.FreshAirType == 0 ? info.FreshAirRatio : info.Gw,
                               "the fresh-air flow is 0: the preheated outdoor state W' has no value"));
    else if (info.Gr1 + freshAir > info.Go * (1.0 + kFlowSlack))
        faults.push_back(Fault("Gr1", info.Gr1,
                               "Gr1 = " + Num(info.Gr1) + " kg/s and the fresh air " + Num(freshAir) +
                                   " kg/s together exceed the supply air Go = " + Num(info.Go) +
                                   " kg/s: the second return air would be negative"));
    return faults;
}

HDGFaults Results(const ZefraHDGPrimaryReturnAir& scheme) {
    HDGFaults faults = Points({{"N", scheme.GetPointN()},
                               {"W", scheme.GetPointW()},
                               {"N'", scheme.GetPointN1()},
                               {"W'", scheme.GetPointW1()},
                               {"C", scheme.GetPointC()},
                               {"L", scheme.GetPointL()},
                               {"K", scheme.GetPointK()},
                               {"O", scheme.GetPointO()}});
    CommonResults(scheme, faults);
    return faults;
}

HDGFaults Results(const ZefraHDGSecondaryReturnAir& scheme) {
    HDGFaults faults = Points({{"N", scheme.GetPointN()},
                               {"W", scheme.GetPointW()},
                               {"N'", scheme.GetPointN1()},
                               {"W'", scheme.GetPointW1()},
                               {"C", scheme.GetPointC()},
                               {"M", scheme.GetPointM()},
                               {"L", scheme.GetPointL()},
                               {"K", scheme.GetPointK()},
                               {"O", scheme.GetPointO()}});
    CommonResults(scheme, faults);
    const double supply = scheme.GetGivenData().Go;
    Finite(faults, "Gr1", scheme.GetGr1(), "first return-air flow");
    Finite(faults, "Gr2", scheme.GetGr2(), "second return-air flow");
    NotNegative(faults, "Gr1", scheme.GetGr1(), supply,
                "the second return air Gr2 = " + Num(scheme.GetGr2()) + " kg/s exceeds the return air Gn = " +
                    Num(scheme.GetGn()) + " kg/s");
    NotNegative(faults, "Gr2", scheme.GetGr2(), supply, "the second return-air flow can't be negative");
    return faults;
}

std::string Describe(const HDGFaults& faults) {
    std::string text;
    for (const SHDGInputFault& fault : faults) {
        if (!text.empty()) text += '\n';
        text += fault.Message;
    }
    return text;
}

}  // namespace HDGChecks
