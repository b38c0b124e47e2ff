// zefra primary | secondary: run an air-handling scheme on its built-in given
// data (or a saved record), changed by a JSON file of given fields, and print
// the scheme's report texts and every point, flow and load.

#include "Cli.h"
#include "InputFiles.h"
#include "PointIO.h"
#include "ReportOptions.h"

#include "zefra/air/HDGChecks.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/air/HDGSchemeChartOverlay.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/platform/geometry/Zero.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

namespace zefra::cli {
namespace {

using nlohmann::json;

struct SchemeOptions {
    bool typeGiven = false;  // otherwise the type of the given data
    long long type = 0;
    std::string input;
    PressureArgument pressure;
    bool json = false;
    std::string units;  // units of the report texts, "Q=kW,G=m^3/h"
    std::string save;   // file for the process record
    std::string load;   // file with a process record to start from
    std::string chart;  // file for the chart with the process drawn over it
    bool fullWalk = false;  // the summer search as the full walk
};

// ---- Reading the given data -------------------------------------------------

std::string TypeName(const json& value) { return value.type_name(); }

double ReadNumber(const json& value, const std::string& field) {
    if (!value.is_number())
        throw UsageError("field \"" + field + "\": expected a number, got " + TypeName(value));
    const double number = value.get<double>();
    if (!std::isfinite(number)) throw UsageError("field \"" + field + "\": the number is not finite");
    return number;
}

int ReadInteger(const json& value, const std::string& field) {
    if (!value.is_number_integer())
        throw UsageError("field \"" + field + "\": expected an integer, got " + TypeName(value));
    const auto number = value.get<long long>();
    if (number < -1000000 || number > 1000000) throw UsageError("field \"" + field + "\": integer out of range");
    return static_cast<int>(number);
}

// A state point from two of its properties, e.g. {"Tdb": 26, "RH": 0.55}.
ZefraHDGPoint ReadPoint(const json& value, const std::string& field, const wchar_t* name) {
    static const std::map<std::string, EHvacHDGPointCalItemType> kProperties = {
        {"Tdb", HDGPT_TDB}, {"RH", HDGPT_RH},   {"H", HDGPT_H},  {"D", HDGPT_D},
        {"Twb", HDGPT_TWB}, {"Tdp", HDGPT_TDP}, {"Pv", HDGPT_PV},
    };
    if (!value.is_object() || value.size() != 2)
        throw UsageError("field \"" + field +
                         "\": expected an object with two properties out of Tdb, RH, H, D, Twb, Tdp, Pv");
    ZefraHDGPoint point;
    point.SetName(name);
    std::vector<EHvacHDGPointCalItemType> kinds;
    for (auto it = value.begin(); it != value.end(); ++it) {
        const auto known = kProperties.find(it.key());
        if (known == kProperties.end())
            throw UsageError("field \"" + field + "\": unknown property \"" + it.key() +
                             "\" (use two of Tdb, RH, H, D, Twb, Tdp, Pv)");
        const double number = ReadNumber(it.value(), field + "." + it.key());
        switch (known->second) {
            case HDGPT_TDB: point.SetTdb(number); break;
            case HDGPT_RH: point.SetRH(number); break;
            case HDGPT_H: point.SetH(number); break;
            case HDGPT_D: point.SetD(number); break;
            case HDGPT_TWB: point.SetTwb(number); break;
            case HDGPT_TDP: point.SetTdp(number); break;
            default: point.SetPv(number); break;
        }
        kinds.push_back(known->second);
    }
    point.SetCalPara1Type(kinds[0]);
    point.SetCalPara2Type(kinds[1]);
    if (!point.Calculate())
        throw UsageError("field \"" + field + "\": the pair " + value.begin().key() + " and " +
                         std::next(value.begin()).key() + " doesn't define a state");
    return point;
}

// The given fields of a scheme by name, each with the way to read it in.
template <typename Info>
class GivenFields {
public:
    void Number(const std::string& name, double Info::*member) {
        m_readers[name] = [member, name](Info& info, const json& value) { info.*member = ReadNumber(value, name); };
    }
    void Integer(const std::string& name, int Info::*member) {
        m_readers[name] = [member, name](Info& info, const json& value) { info.*member = ReadInteger(value, name); };
    }
    void Point(const std::string& name, ZefraHDGPoint Info::*member, const wchar_t* pointName) {
        m_readers[name] = [member, name, pointName](Info& info, const json& value) {
            info.*member = ReadPoint(value, name, pointName);
        };
    }
    void Custom(const std::string& name, std::function<void(Info&, const json&)> reader) {
        m_readers[name] = std::move(reader);
    }

    void Apply(const json& document, const std::string& file, Info& info) const {
        if (!document.is_object()) throw UsageError(file + ": expected a JSON object of given fields");
        for (auto it = document.begin(); it != document.end(); ++it) {
            const auto reader = m_readers.find(it.key());
            if (reader == m_readers.end()) throw UsageError(file + ": unknown field \"" + it.key() + "\"");
            reader->second(info, it.value());
        }
    }

private:
    std::map<std::string, std::function<void(Info&, const json&)>> m_readers;
};

int CheckedType(long long type, int highest, const std::string& what, const char* scheme) {
    if (type < 0 || type > highest)
        throw UsageError(what + ": type " + std::to_string(type) + " is outside 0.." + std::to_string(highest) +
                         " of the " + scheme + " scheme");
    return static_cast<int>(type);
}

json ReadInputFile(const std::string& file) {
    const std::string text = ReadInputText("--input", file);
    try {
        return json::parse(text);
    } catch (const json::exception& e) {
        throw UsageError(file + ": not valid JSON: " + e.what());
    }
}

template <typename Info>
void ReadGivenData(const SchemeOptions& options, const GivenFields<Info>& fields, int highestType,
                   const char* scheme, Info& info) {
    if (!options.input.empty()) fields.Apply(ReadInputFile(options.input), options.input, info);
    if (options.typeGiven) {
        const int type = CheckedType(options.type, highestType, "--type", scheme);
        info.CalPriRetAirType = static_cast<decltype(info.CalPriRetAirType)>(type);
    }
}

template <typename Info, typename Type>
void AddCommonFields(GivenFields<Info>& fields, int highestType, const char* scheme) {
    fields.Custom("CalPriRetAirType", [highestType, scheme](Info& info, const json& value) {
        const int type = ReadInteger(value, "CalPriRetAirType");
        info.CalPriRetAirType = static_cast<Type>(CheckedType(type, highestType, "field \"CalPriRetAirType\"", scheme));
    });
    fields.Point("PointN", &Info::PointN, L"N");
    fields.Point("PointW", &Info::PointW, L"W");
    fields.Number("Qn", &Info::Qn);
    fields.Number("Mw", &Info::Mw);
    fields.Number("SfGdWs", &Info::SfGdWs);
    fields.Number("HfGdWs", &Info::HfGdWs);
    fields.Number("ptL_RH", &Info::ptL_RH);
    fields.Integer("FreshAirType", &Info::FreshAirType);
    fields.Number("FreshAirRatio", &Info::FreshAirRatio);
    fields.Number("Gw", &Info::Gw);
    fields.Number("Go", &Info::Go);
    fields.Number("SfWc", &Info::SfWc);
}

// ---- Refusing what can't be calculated --------------------------------------

template <typename Info>
void RefuseGivenData(const Info& info) {
    const HDGFaults faults = HDGChecks::GivenData(info);
    if (!faults.empty()) throw UsageError(HDGChecks::Describe(faults));
}

// ---- The results --------------------------------------------------------------

struct Quantity {
    std::string symbol;
    std::string meaning;
    double value;
    std::string unit;
};

struct SchemeResult {
    std::string scheme;
    int type = 0;
    std::string typeMeaning;
    // Each point under the letter of its place in the scheme: after a summer
    // calculation the secondary scheme's W' and K carry the names "W" and "O".
    std::vector<std::pair<std::string, ZefraHDGPoint>> points;
    std::vector<Quantity> flows;
    std::vector<Quantity> loads;
    std::vector<Quantity> moisture;
    std::vector<std::string> messages;
    // ResultInfo as the scheme wrote it, for the report window.
    CStringArray resultInfo;
    std::shared_ptr<ZefraHDGProcess> process;
    SHDGChartOverlay overlay;  // the process for the chart
    HDGFaults faults;          // results that are not possible states or flows
};

const char* PrimaryTypeMeaning(int type) {
    static const char* const kMeanings[] = {
        "summer: cooling to the dew point, supply-duct rise, no reheat",
        "summer: supply temperature difference, reheat",
        "winter: humidifying at constant enthalpy, then reheat",
        "winter: heating, then humidifying at constant enthalpy",
        "winter: humidifying at constant temperature, then reheat",
        "winter: heating, then humidifying at constant temperature",
    };
    return kMeanings[type];
}

const char* SecondaryTypeMeaning(int type) {
    static const char* const kMeanings[] = {
        "summer",
        "winter: humidifying at constant enthalpy, then reheat",
        "winter: heating, then humidifying at constant enthalpy",
        "winter: humidifying at constant temperature, then reheat",
        "winter: heating, then humidifying at constant temperature",
    };
    return kMeanings[type];
}

std::vector<std::string> Messages(const CStringArray& texts) {
    std::vector<std::string> messages;
    for (int i = 0; i < texts.GetSize(); ++i) messages.push_back(texts.GetAt(i).ToUtf8());
    return messages;
}

template <typename Scheme>
void AddCommonLoads(const Scheme& scheme, double roomLoad, double roomMoisture, SchemeResult& result) {
    result.loads = {
        {"Qn", "room load", roomLoad, "kW"},
        {"Qw", "fresh-air load", scheme.GetQw(), "kW"},
        {"Qr", "return-duct load", scheme.GetQr(), "kW"},
        {"Qo", "supply-duct load", scheme.GetQo(), "kW"},
        {"Qk", "reheat load", scheme.GetQk(), "kW"},
        {"Qw1", "preheat load", scheme.GetQw1(), "kW"},
        {"Ql", "humidifying load", scheme.GetQl(), "kW"},
        {"Qp", "load carried by the unit", scheme.GetQp(), "kW"},
    };
    result.moisture = {
        {"Mw", "room moisture load", roomMoisture, "kg/s"},
        {"Mww", "fresh-air moisture load", scheme.GetMww(), "kg/s"},
        {"Mwp", "moisture load carried by the unit", scheme.GetMwp(), "kg/s"},
    };
}

SchemeResult RunPrimary(const SchemeOptions& options) {
    GivenFields<SHDGPrimaryReturnAirInfo> fields;
    AddCommonFields<SHDGPrimaryReturnAirInfo, EHDGPriRetAirType>(fields, HDGPRI_DJ_HEAT_ISOTH, "primary");
    auto process = std::make_shared<ZefraHDGPrimaryReturnAir>();
    ZefraHDGPrimaryReturnAir& scheme = *process;
    if (!options.load.empty()) LoadProcessRecord(scheme, options.load, L"一次回风处理过程", "primary return-air");
    SHDGPrimaryReturnAirInfo given = scheme.GetGivenData();
    ReadGivenData(options, fields, HDGPRI_DJ_HEAT_ISOTH, "primary", given);
    RefuseGivenData(given);

    scheme.SetGivenData(given);
    if (options.fullWalk) scheme.SetSearchMode(EHDGSearchMode::FullWalk);
    scheme.Calculate();
    const SHDGPrimaryReturnAirInfo after = scheme.GetGivenData();

    SchemeResult result;
    result.scheme = "primary";
    result.type = after.CalPriRetAirType;
    result.typeMeaning = PrimaryTypeMeaning(result.type);
    result.points = {{"N", scheme.GetPointN()},  {"W", scheme.GetPointW()}, {"N'", scheme.GetPointN1()},
                     {"W'", scheme.GetPointW1()}, {"C", scheme.GetPointC()}, {"L", scheme.GetPointL()},
                     {"K", scheme.GetPointK()},   {"O", scheme.GetPointO()}};
    result.flows = {
        {"Go", "supply air", after.Go, "kg/s"},
        {"Gw", "fresh air", after.Gw, "kg/s"},
        {"Gn", "return air", scheme.GetGn(), "kg/s"},
        {"FreshAirRatio", "fresh-air ratio", after.FreshAirRatio * 100.0, "%"},
        {"HeatHumidityRatio", "heat-humidity ratio", scheme.GetHeatHumidityRatio(), "kJ/kg"},
    };
    AddCommonLoads(scheme, after.Qn, after.Mw, result);
    result.messages = Messages(scheme.GetResultInfo());
    result.resultInfo = scheme.GetResultInfo();
    result.process = process;
    result.overlay = HDGChartOverlayOf(scheme);
    result.faults = HDGChecks::Results(scheme);
    return result;
}

SchemeResult RunSecondary(const SchemeOptions& options) {
    GivenFields<SHDGSecondaryReturnAirInfo> fields;
    AddCommonFields<SHDGSecondaryReturnAirInfo, EHDGSecRetAirType>(fields, HDGSEC_DJ_HEAT_ISOTH, "secondary");
    fields.Number("Gr1", &SHDGSecondaryReturnAirInfo::Gr1);
    auto process = std::make_shared<ZefraHDGSecondaryReturnAir>();
    ZefraHDGSecondaryReturnAir& scheme = *process;
    if (!options.load.empty()) LoadProcessRecord(scheme, options.load, L"二次回风处理过程", "secondary return-air");
    SHDGSecondaryReturnAirInfo given = scheme.GetGivenData();
    ReadGivenData(options, fields, HDGSEC_DJ_HEAT_ISOTH, "secondary", given);
    RefuseGivenData(given);

    scheme.SetGivenData(given);
    if (options.fullWalk) scheme.SetSearchMode(EHDGSearchMode::FullWalk);
    scheme.Calculate();
    const SHDGSecondaryReturnAirInfo after = scheme.GetGivenData();

    SchemeResult result;
    result.scheme = "secondary";
    result.type = after.CalPriRetAirType;
    result.typeMeaning = SecondaryTypeMeaning(result.type);
    result.points = {{"N", scheme.GetPointN()},  {"W", scheme.GetPointW()}, {"N'", scheme.GetPointN1()},
                     {"W'", scheme.GetPointW1()}, {"C", scheme.GetPointC()}, {"M", scheme.GetPointM()},
                     {"L", scheme.GetPointL()},   {"K", scheme.GetPointK()}, {"O", scheme.GetPointO()}};
    result.flows = {
        {"Go", "supply air", after.Go, "kg/s"},
        {"Gw", "fresh air", after.Gw, "kg/s"},
        {"Gn", "return air", scheme.GetGn(), "kg/s"},
        {"Gr1", "first return air", scheme.GetGr1(), "kg/s"},
        {"Gr2", "second return air", scheme.GetGr2(), "kg/s"},
        {"Go1", "air through the unit", scheme.GetGo1(), "kg/s"},
        {"FreshAirRatio", "fresh-air ratio", after.FreshAirRatio * 100.0, "%"},
        {"HeatHumidityRatio", "heat-humidity ratio", scheme.GetHeatHumidityRatio(), "kJ/kg"},
    };
    AddCommonLoads(scheme, after.Qn, after.Mw, result);
    result.messages = Messages(scheme.GetResultInfo());
    result.resultInfo = scheme.GetResultInfo();
    result.process = process;
    result.overlay = HDGChartOverlayOf(scheme);
    result.faults = HDGChecks::Results(scheme);
    return result;
}

// A result that the class gives but that means nothing: a failed search, or
// a point, flow or load that is not a possible one.
void RefuseMeaningless(const SchemeResult& result) {
    for (const std::string& message : result.messages)
        if (message.find("计算失败") != std::string::npos) throw CalculationError("calculation failed: " + message);
    if (!result.faults.empty())
        throw CalculationError("the design has no possible result:\n" + HDGChecks::Describe(result.faults));
}

// ---- Output -------------------------------------------------------------------

std::string Fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string Padded(const std::string& text, size_t width) {
    // Width counts characters; the texts here are ASCII apart from units.
    return text.size() >= width ? text + " " : text + std::string(width - text.size(), ' ');
}

void PrintQuantities(std::ostream& out, const char* heading, const std::vector<Quantity>& quantities,
                     int decimals) {
    out << "\n" << heading << "\n";
    for (const Quantity& q : quantities)
        out << "  " << Padded(q.symbol, 19) << Padded(q.meaning, 36) << Fixed(q.value, decimals) << " " << q.unit
            << "\n";
}

void PrintText(std::ostream& out, const SchemeResult& result) {
    out << (result.scheme == "primary" ? "Primary" : "Secondary") << " return air, type " << result.type << " ("
        << result.typeMeaning << "), B = " << Fixed(GetHDGCurB(), 0) << " Pa\n\n";
    out << "Point  Tdb/°C   RH/%     H/(kJ/kg)  D/(g/kg)  Twb/°C   Tdp/°C\n";
    for (const auto& [label, p] : result.points) {
        out << Padded(label, 7) << Padded(Fixed(p.GetTdb(), 2), 9)
            << Padded(Fixed(p.GetRH() * 100.0, 2), 9) << Padded(Fixed(p.GetH(), 3), 11)
            << Padded(Fixed(p.GetD(), 3), 10) << Padded(Fixed(p.GetTwb(), 2), 9) << Fixed(p.GetTdp(), 2) << "\n";
    }
    PrintQuantities(out, "Air flows", result.flows, 4);
    PrintQuantities(out, "Heat loads", result.loads, 4);
    PrintQuantities(out, "Moisture loads", result.moisture, 7);
}

json QuantitiesJson(const std::vector<Quantity>& quantities) {
    json object = json::object();
    for (const Quantity& q : quantities) object[q.symbol] = {{"value", q.value}, {"unit", q.unit}};
    return object;
}

json ResultJson(const SchemeResult& result) {
    json points = json::array();
    for (const auto& [label, p] : result.points) {
        points.push_back({{"name", label},
                          {"Tdb", p.GetTdb()},
                          {"RH_percent", p.GetRH() * 100.0},
                          {"H", p.GetH()},
                          {"D", p.GetD()},
                          {"Twb", p.GetTwb()},
                          {"Tdp", p.GetTdp()}});
    }
    return {{"scheme", result.scheme},
            {"type", result.type},
            {"typeMeaning", result.typeMeaning},
            {"pressure", GetHDGCurB()},
            {"pointUnits",
             {{"Tdb", "°C"}, {"RH_percent", "%"}, {"H", "kJ/kg"}, {"D", "g/kg"}, {"Twb", "°C"}, {"Tdp", "°C"}}},
            {"points", points},
            {"flows", QuantitiesJson(result.flows)},
            {"loads", QuantitiesJson(result.loads)},
            {"moistureLoads", QuantitiesJson(result.moisture)},
            {"resultTexts", result.messages}};
}

void Run(const SchemeOptions& options, SchemeResult (*run)(const SchemeOptions&)) {
    // Set before any point of the given data is computed.
    options.pressure.Apply();
    if (!options.chart.empty()) CheckChartFile(options.chart);
    // The report texts are written during the calculation, in these units.
    ApplyReportUnits(options.units);
    const SchemeResult result = run(options);
    RefuseMeaningless(result);
    if (!options.save.empty()) SaveProcessRecord(*result.process, options.save);
    if (!options.chart.empty()) WriteChart(options.chart, &result.overlay);
    if (options.json) {
        std::cout << ResultJson(result).dump(2) << "\n";
    } else {
        PrintResultTexts(std::cout, result.resultInfo, isatty(STDOUT_FILENO) != 0);
        std::cout << "\n";
        PrintText(std::cout, result);
    }
}

void AddSchemeCommand(CLI::App& app, const char* name, const char* description, int highestType,
                      SchemeResult (*run)(const SchemeOptions&)) {
    auto options = std::make_shared<SchemeOptions>();
    CLI::App* command = app.add_subcommand(name, description);
    CLI::Option* type = command->add_option(
        "--type", options->type, "treatment type, 0.." + std::to_string(highestType) + " (default: the given data's)");
    command->add_option("--input", options->input,
                        "JSON file of given fields by name ('-': standard input); points as two properties, "
                        "e.g. \"PointN\": {\"Tdb\": 26, \"RH\": 0.55}");
    options->pressure.Register(*command);
    command->add_flag("--json", options->json, "print the results as JSON");
    command->add_option("--units", options->units,
                        "units of the report texts, e.g. Q=kW,G=m^3/h,Mw=kg/h (keys H, G, Q, Mw, Den)");
    command->add_option("--save", options->save, "write the process record into this XML file");
    command->add_option("--load", options->load,
                        "start from the process record in this XML file ('-': standard input; --input and --type "
                        "apply on top)");
    command->add_option("--chart", options->chart,
                        "draw the process on the enthalpy-humidity chart into this file (.svg, .png or .pdf)");
    command->add_flag("--full-walk", options->fullWalk,
                      "run the summer search as the full walk over every step (the same result, slower)");
    command->callback([options, run, type]() {
        if (options->load == "-" && options->input == "-")
            throw UsageError("--load - and --input -: only one of them can read standard input");
        options->typeGiven = type->count() > 0;
        Run(*options, run);
    });
}

}  // namespace

void RegisterSchemeCommands(CLI::App& app) {
    AddSchemeCommand(app, "primary",
                     "air handling with primary return air (types 0-1 summer, 2-5 winter); the built-in "
                     "given data are a summer design, give winter states with --input",
                     HDGPRI_DJ_HEAT_ISOTH, RunPrimary);
    AddSchemeCommand(app, "secondary",
                     "air handling with secondary return air (type 0 summer, 1-4 winter); the built-in "
                     "given data are a summer design, give winter states with --input",
                     HDGSEC_DJ_HEAT_ISOTH, RunSecondary);
}

}  // namespace zefra::cli
