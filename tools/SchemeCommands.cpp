// zefra primary | secondary: run an air-handling scheme on the built-in design
// of its season (or a saved record), changed by a JSON file of given fields,
// and print the scheme's report texts and every point, flow and load.

#include "BatchCommands.h"
#include "Cli.h"
#include "InputFiles.h"
#include "PointIO.h"
#include "ReportOptions.h"
#include "SchemeRun.h"

#include "zefra/air/HDGChecks.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/air/HDGSchemeChartOverlay.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/platform/geometry/Zero.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <type_traits>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

namespace zefra::cli {
namespace {

using nlohmann::json;
using nlohmann::ordered_json;

struct SchemeOptions {
    long long typeValue = 0;
    std::string input;
    PressureArgument pressure;
    bool json = false;
    std::string units;  // units of the report texts, "Q=kW,G=m^3/h"
    std::string save;   // file for the process record
    std::string load;   // file with a process record to start from
    std::string chart;  // file for the chart with the process drawn over it
    bool strict = false;
    bool templateOnly = false;
    SchemeRunSettings settings;
    std::function<bool(const SchemeRunSettings&, const std::string&, bool)> batch;  // --batch, --weather
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

json ParseInput(const std::string& text, const std::string& file) {
    try {
        return json::parse(text);
    } catch (const json::exception& e) {
        throw UsageError(file + ": not valid JSON: " + e.what());
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

// ---- The two schemes ----------------------------------------------------------

struct Quantity {
    std::string symbol;
    std::string meaning;
    double value;
    std::string unit;
};

// The built-in winter design: a room at 20 °C, 45 % losing 20 kW, outdoor
// air at −10 °C, 70 %, 1.35 kg/s of supply air with 30 % fresh air.
template <typename Info>
void SetWinterDesign(Info& info) {
    info.PointN = ZefraHDGPoint(20.0, 0.45, L"N");
    info.PointW = ZefraHDGPoint(-10.0, 0.7, L"W");
    info.Qn = 20.0;
    info.Mw = 0.0004;
    info.Go = 1.35;
    info.FreshAirType = 0;
    info.FreshAirRatio = 0.3;
    info.Gw = info.FreshAirRatio * info.Go;
}

struct Primary {
    using Scheme = ZefraHDGPrimaryReturnAir;
    using Info = SHDGPrimaryReturnAirInfo;
    using Type = EHDGPriRetAirType;
    static constexpr const char* kName = "primary";
    static constexpr int kHighestType = HDGPRI_DJ_HEAT_ISOTH;
    static constexpr int kFirstWinterType = HDGPRI_DJ_ISENTH_HEAT;
    static constexpr const wchar_t* kRecord = L"一次回风处理过程";
    static constexpr const char* kWhat = "primary return-air";

    static const char* TypeMeaning(int type) {
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
    static void AddFields(GivenFields<Info>& fields) { AddCommonFields<Info, Type>(fields, kHighestType, kName); }
    static Info BuiltIn(bool winter) {
        Info info;
        if (winter) {
            SetWinterDesign(info);
            info.CalPriRetAirType = HDGPRI_DJ_ISENTH_HEAT;
        }
        return info;
    }
    static std::vector<std::pair<std::string, ZefraHDGPoint>> Points(const Scheme& s) {
        return {{"N", s.GetPointN()},  {"W", s.GetPointW()}, {"N'", s.GetPointN1()}, {"W'", s.GetPointW1()},
                {"C", s.GetPointC()},  {"L", s.GetPointL()}, {"K", s.GetPointK()},   {"O", s.GetPointO()}};
    }
    static std::vector<Quantity> Flows(const Scheme& s, const Info& after) {
        return {{"Go", "supply air", after.Go, "kg/s"},
                {"Gw", "fresh air", after.Gw, "kg/s"},
                {"Gn", "return air", s.GetGn(), "kg/s"},
                {"FreshAirRatio", "fresh-air ratio", after.FreshAirRatio, ""},
                {"HeatHumidityRatio", "heat-humidity ratio", s.GetHeatHumidityRatio(), "kJ/kg"}};
    }
    static void EchoExtra(const Info&, ordered_json&) {}
};

struct Secondary {
    using Scheme = ZefraHDGSecondaryReturnAir;
    using Info = SHDGSecondaryReturnAirInfo;
    using Type = EHDGSecRetAirType;
    static constexpr const char* kName = "secondary";
    static constexpr int kHighestType = HDGSEC_DJ_HEAT_ISOTH;
    static constexpr int kFirstWinterType = HDGSEC_DJ_ISENTH_HEAT;
    static constexpr const wchar_t* kRecord = L"二次回风处理过程";
    static constexpr const char* kWhat = "secondary return-air";

    static const char* TypeMeaning(int type) {
        static const char* const kMeanings[] = {
            "summer",
            "winter: humidifying at constant enthalpy, then reheat",
            "winter: heating, then humidifying at constant enthalpy",
            "winter: humidifying at constant temperature, then reheat",
            "winter: heating, then humidifying at constant temperature",
        };
        return kMeanings[type];
    }
    static void AddFields(GivenFields<Info>& fields) {
        AddCommonFields<Info, Type>(fields, kHighestType, kName);
        fields.Number("Gr1", &Info::Gr1);
    }
    static Info BuiltIn(bool winter) {
        Info info;
        if (winter) {
            SetWinterDesign(info);
            info.Gr1 = 0.5;
            info.CalPriRetAirType = HDGSEC_DJ_ISENTH_HEAT;
        }
        return info;
    }
    static std::vector<std::pair<std::string, ZefraHDGPoint>> Points(const Scheme& s) {
        return {{"N", s.GetPointN()}, {"W", s.GetPointW()}, {"N'", s.GetPointN1()},
                {"W'", s.GetPointW1()}, {"C", s.GetPointC()}, {"M", s.GetPointM()},
                {"L", s.GetPointL()}, {"K", s.GetPointK()}, {"O", s.GetPointO()}};
    }
    static std::vector<Quantity> Flows(const Scheme& s, const Info& after) {
        return {{"Go", "supply air", after.Go, "kg/s"},
                {"Gw", "fresh air", after.Gw, "kg/s"},
                {"Gn", "return air", s.GetGn(), "kg/s"},
                {"Gr1", "first return air", s.GetGr1(), "kg/s"},
                {"Gr2", "second return air", s.GetGr2(), "kg/s"},
                {"Go1", "air through the unit", s.GetGo1(), "kg/s"},
                {"FreshAirRatio", "fresh-air ratio", after.FreshAirRatio, ""},
                {"HeatHumidityRatio", "heat-humidity ratio", s.GetHeatHumidityRatio(), "kJ/kg"}};
    }
    static void EchoExtra(const Info& info, ordered_json& echo) { echo["Gr1"] = info.Gr1; }
};

// ---- Given data in and out ------------------------------------------------------

ordered_json PointEcho(const ZefraHDGPoint& point) {
    ordered_json pair;
    pair[CalItemName(point.GetCalPara1Type())] = point.GetCalPara1Value();
    pair[CalItemName(point.GetCalPara2Type())] = point.GetCalPara2Value();
    return pair;
}

// The given data as an input file takes them: every field, by name.
template <typename T>
ordered_json GivenEcho(const typename T::Info& info) {
    ordered_json echo;
    echo["CalPriRetAirType"] = static_cast<int>(info.CalPriRetAirType);
    echo["PointN"] = PointEcho(info.PointN);
    echo["PointW"] = PointEcho(info.PointW);
    echo["Qn"] = info.Qn;
    echo["Mw"] = info.Mw;
    echo["SfGdWs"] = info.SfGdWs;
    echo["HfGdWs"] = info.HfGdWs;
    echo["ptL_RH"] = info.ptL_RH;
    echo["FreshAirType"] = info.FreshAirType;
    echo["FreshAirRatio"] = info.FreshAirRatio;
    echo["Gw"] = info.Gw;
    echo["Go"] = info.Go;
    echo["SfWc"] = info.SfWc;
    T::EchoExtra(info, echo);
    return echo;
}

// What the run calculates: each season's given data, in order. An input file
// holds the fields of one run, or {"summer": {...}, "winter": {...}}, or is
// the JSON output of an earlier run (its "input" is read back).
struct SeasonInput {
    json fields = json::object();
    std::string source;
    // Set when the input names the season ("summer" or "winter").
    std::optional<bool> winter;
};

std::vector<SeasonInput> SeasonsOf(const json& document, const std::string& file) {
    if (!document.is_object()) throw UsageError(file + ": expected a JSON object of given fields");
    if (document.contains("command")) {
        std::vector<SeasonInput> seasons;
        for (const char* season : {"summer", "winter"})
            if (document.contains(season) && document[season].contains("input"))
                seasons.push_back({document[season]["input"], file + " (" + season + ")",
                                   std::string(season) == "winter"});
        if (document.contains("input")) seasons.push_back({document["input"], file, std::nullopt});
        if (seasons.empty()) throw UsageError(file + ": this output holds no \"input\" to run again");
        return seasons;
    }
    if (document.contains("summer") || document.contains("winter")) {
        std::vector<SeasonInput> seasons;
        for (auto it = document.begin(); it != document.end(); ++it) {
            if (it.key() != "summer" && it.key() != "winter")
                throw UsageError(file + ": a file of both seasons holds only \"summer\" and \"winter\", not \"" +
                                 it.key() + "\"");
        }
        for (const char* season : {"summer", "winter"})
            if (document.contains(season))
                seasons.push_back({document[season], file + " (" + season + ")", std::string(season) == "winter"});
        return seasons;
    }
    return {{document, file, std::nullopt}};
}

// ---- Running ------------------------------------------------------------------

struct SchemeResult {
    std::string scheme;
    int type = 0;
    std::string typeMeaning;
    bool engineering = true;
    ordered_json input;
    // Each point under the letter of its place in the scheme: after a summer
    // calculation the secondary scheme's W' and K carry the names "W" and "O".
    std::vector<std::pair<std::string, ZefraHDGPoint>> points;
    std::vector<Quantity> flows;
    std::vector<Quantity> loads;
    std::vector<Quantity> moisture;
    std::vector<std::string> messages;
    HDGWarningList warnings;
    CStringArray resultInfo;  // as the scheme wrote it, for the report window
    std::shared_ptr<ZefraHDGProcess> process;
    SHDGChartOverlay overlay;
    HDGFaults faults;  // results that are not possible states or flows
};

template <typename Scheme>
void AddLoads(const Scheme& scheme, double roomLoad, double roomMoisture, SchemeResult& result) {
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

// A result that the class gives but that means nothing: a failed search, or
// a point, flow or load that is not a possible one.
void RefuseMeaningless(const SchemeResult& result) {
    for (const SHDGWarning& warning : result.warnings)
        if (warning.Code == "search-failed")
            throw CalculationError("calculation failed: " + warning.Message +
                                   (warning.Text.IsEmpty() ? "" : " (" + warning.Text.ToUtf8() + ")"));
    if (!result.faults.empty())
        throw CalculationError("the design has no possible result:\n" + HDGChecks::Describe(result.faults));
}

template <typename T>
class SchemeRun {
public:
    SchemeRun(const SchemeRunSettings& settings) : m_settings(settings), m_scheme(std::make_shared<typename T::Scheme>()) {
        m_scheme->SetCalculationMode(settings.literal ? EHDGCalculationMode::Literal
                                                      : EHDGCalculationMode::Engineering);
        if (settings.fullWalk) m_scheme->SetSearchMode(EHDGSearchMode::FullWalk);
        T::AddFields(m_fields);
    }

    void Load(const std::string& file) {
        if (file == "-") {
            LoadProcessRecordText(*m_scheme, ReadInputText("--load", file), T::kRecord, T::kWhat);
        } else {
            LoadProcessRecord(*m_scheme, file, T::kRecord, T::kWhat);
        }
        m_loaded = true;
    }

    // One season: its given data from the built-in design of its season (or
    // the loaded record, or the season before), changed by `fields`.
    SchemeResult Run(const SeasonInput& season) {
        const json& fields = season.fields;
        const std::string& source = season.source;
        const int type = TypeOf(season);
        typename T::Info given = m_loaded || m_runs > 0 ? m_scheme->GetGivenData() : T::BuiltIn(IsWinter(type));
        if (m_runs > 0 && IsWinter(type) && !IsWinter(m_lastType)) {
            // Winter after summer on one object: the room and outdoor states of winter.
            const typename T::Info winter = T::BuiltIn(true);
            given.PointN = winter.PointN;
            given.PointW = winter.PointW;
            given.Qn = winter.Qn;
            given.Mw = winter.Mw;
        }
        // The points are echoed as they were given, so that the echo runs to the same bits.
        if (m_runs == 0 && !m_loaded) {
            m_givenPoints["PointN"] = IsWinter(type) ? json{{"Tdb", 20.0}, {"RH", 0.45}} : json{{"Tdb", 22.0}, {"RH", 0.6}};
            m_givenPoints["PointW"] = IsWinter(type) ? json{{"Tdb", -10.0}, {"RH", 0.7}} : json{{"Tdb", 33.2}, {"Twb", 26.4}};
        } else if (m_runs == 0) {
            m_givenPoints["PointN"] = PointEcho(given.PointN);
            m_givenPoints["PointW"] = PointEcho(given.PointW);
        } else if (IsWinter(type) && !IsWinter(m_lastType)) {
            m_givenPoints["PointN"] = json{{"Tdb", 20.0}, {"RH", 0.45}};
            m_givenPoints["PointW"] = json{{"Tdb", -10.0}, {"RH", 0.7}};
        }
        m_fields.Apply(fields, source, given);
        for (const char* point : {"PointN", "PointW"})
            if (fields.is_object() && fields.contains(point)) m_givenPoints[point] = fields[point];
        given.CalPriRetAirType = static_cast<typename T::Type>(type);
        RefuseGivenData(given);
        ++m_runs;
        m_lastType = type;

        typename T::Scheme& scheme = *m_scheme;
        SchemeResult result;
        result.input = GivenEcho<T>(given);
        result.input["PointN"] = m_givenPoints["PointN"];
        result.input["PointW"] = m_givenPoints["PointW"];
        scheme.SetGivenData(given);
        scheme.Calculate();
        const typename T::Info after = scheme.GetGivenData();
        result.scheme = T::kName;
        result.type = type;
        result.typeMeaning = T::TypeMeaning(type);
        result.engineering = !m_settings.literal;
        result.points = T::Points(scheme);
        result.flows = T::Flows(scheme, after);
        AddLoads(scheme, after.Qn, after.Mw, result);
        for (int i = 0; i < scheme.GetResultInfo().GetSize(); ++i)
            result.messages.push_back(scheme.GetResultInfo().GetAt(i).ToUtf8());
        result.resultInfo = scheme.GetResultInfo();
        result.warnings = scheme.GetWarnings();
        result.process = m_scheme;
        result.overlay = HDGChartOverlayOf(scheme);
        result.faults = HDGChecks::Results(scheme);
        return result;
    }

private:
    static bool IsWinter(int type) { return type >= T::kFirstWinterType; }

    // --type where it suits the season of the fields, else their own type,
    // else the loaded record's, else the first of the season.
    int TypeOf(const SeasonInput& season) const {
        const json& fields = season.fields;
        std::optional<int> own;
        if (fields.is_object() && fields.contains("CalPriRetAirType")) {
            typename T::Info probe;
            GivenFields<typename T::Info> typeOnly;
            AddCommonFields<typename T::Info, typename T::Type>(typeOnly, T::kHighestType, T::kName);
            const json typeField = {{"CalPriRetAirType", fields["CalPriRetAirType"]}};
            typeOnly.Apply(typeField, season.source, probe);
            own = probe.CalPriRetAirType;
        }
        if (m_settings.type) {
            const int type = CheckedType(*m_settings.type, T::kHighestType, "--type", T::kName);
            if (!season.winter || IsWinter(type) == *season.winter) return type;
        }
        if (own) return *own;
        if (season.winter) return *season.winter ? T::kFirstWinterType : 0;
        return m_loaded ? static_cast<int>(m_scheme->GetGivenData().CalPriRetAirType) : 0;
    }

    template <typename Info>
    static void RefuseGivenData(const Info& info) {
        const HDGFaults faults = HDGChecks::GivenData(info);
        if (!faults.empty()) throw UsageError(HDGChecks::Describe(faults));
    }

    const SchemeRunSettings& m_settings;
    std::shared_ptr<typename T::Scheme> m_scheme;
    GivenFields<typename T::Info> m_fields;
    bool m_loaded = false;
    int m_runs = 0;
    int m_lastType = 0;
    std::map<std::string, ordered_json> m_givenPoints;
};

template <typename T>
std::vector<SchemeResult> RunSeasons(const SchemeRunSettings& settings, const std::vector<SeasonInput>& seasons) {
    SchemeRun<T> run(settings);
    if (!settings.load.empty()) run.Load(settings.load);
    std::vector<SchemeResult> results;
    for (const SeasonInput& season : seasons) {
        results.push_back(run.Run(season));
        RefuseMeaningless(results.back());
    }
    return results;
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
    for (const Quantity& q : quantities) {
        const bool fraction = q.unit.empty();
        out << "  " << Padded(q.symbol, 19) << Padded(q.meaning, 36)
            << Fixed(fraction ? q.value * 100.0 : q.value, decimals) << " " << (fraction ? "%" : q.unit) << "\n";
    }
}

void PrintText(std::ostream& out, const SchemeResult& result) {
    out << (result.scheme == "primary" ? "Primary" : "Secondary") << " return air, type " << result.type << " ("
        << result.typeMeaning << "), " << (result.engineering ? "engineering" : "literal")
        << " mode, B = " << Fixed(GetHDGCurB(), 0) << " Pa\n\n";
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

ordered_json QuantitiesJson(const std::vector<Quantity>& quantities) {
    ordered_json object = ordered_json::object();
    for (const Quantity& q : quantities) object[q.symbol] = q.value;
    return object;
}

ordered_json WarningsJson(const HDGWarningList& warnings) {
    ordered_json list = ordered_json::array();
    for (const SHDGWarning& w : warnings) {
        ordered_json item;
        item["code"] = w.Code;
        item["message"] = w.Message;
        item["text"] = w.Text.ToUtf8();
        list.push_back(item);
    }
    return list;
}

ordered_json ResultJson(const SchemeResult& result, bool brief = false) {
    ordered_json points = ordered_json::array();
    for (const auto& [label, p] : result.points) {
        if (brief && label != "O" && label != "L" && label != "C") continue;
        ordered_json point = PointToJson(p);
        point["name"] = label;
        points.push_back(point);
    }
    ordered_json json;
    json["mode"] = result.engineering ? "engineering" : "literal";
    json["type"] = result.type;
    json["season"] = result.typeMeaning.rfind("winter", 0) == 0 ? "winter" : "summer";
    if (!brief) {
        json["typeMeaning"] = result.typeMeaning;
        json["pressure"] = GetHDGCurB();
        json["units"] = UnitsJson();
        json["input"] = result.input;
    }
    json["points"] = points;
    json["flows"] = QuantitiesJson(result.flows);
    json["loads"] = QuantitiesJson(result.loads);
    json["moistureLoads"] = QuantitiesJson(result.moisture);
    if (!brief) json["reportTexts"] = result.messages;
    json["warnings"] = WarningsJson(result.warnings);
    return json;
}

ordered_json DocumentJson(const std::string& scheme, const std::vector<SchemeResult>& results, bool bothSeasons,
                          bool brief = false) {
    ordered_json document;
    document["command"] = scheme;
    if (!bothSeasons) {
        const ordered_json result = ResultJson(results.front(), brief);
        for (auto it = result.begin(); it != result.end(); ++it) document[it.key()] = *it;
        return document;
    }
    for (const SchemeResult& result : results) {
        const ordered_json season = ResultJson(result, brief);
        document[season["season"].get<std::string>()] = season;
    }
    return document;
}

void PrintWarnings(const std::vector<SchemeResult>& results) {
    for (const SchemeResult& result : results)
        for (const SHDGWarning& w : result.warnings)
            std::cerr << "zefra: warning: " << w.Message << " [" << w.Code << "]"
                      << (w.Text.IsEmpty() ? "" : " (" + w.Text.ToUtf8() + ")") << "\n";
}

template <typename T>
std::vector<SeasonInput> InputSeasons(const SchemeOptions& options) {
    if (options.input.empty()) return {{json::object(), "the built-in data", std::nullopt}};
    return SeasonsOf(ParseInput(ReadInputText("--input", options.input), options.input), options.input);
}

template <typename T>
void PrintTemplate(const SchemeOptions& options) {
    const int type = options.settings.type ? CheckedType(*options.settings.type, T::kHighestType, "--type", T::kName)
                                           : 0;
    typename T::Info info = T::BuiltIn(type >= T::kFirstWinterType);
    info.CalPriRetAirType = static_cast<typename T::Type>(type);
    std::cout << GivenEcho<T>(info).dump(2) << "\n";
}

template <typename T>
void Run(const SchemeOptions& options) {
    if (options.templateOnly) {
        PrintTemplate<T>(options);
        return;
    }
    // Set before any point of the given data is computed.
    options.pressure.Apply();
    if (!options.chart.empty()) CheckChartFile(options.chart);
    // The report texts are written during the calculation, in these units.
    ApplyReportUnits(options.units);
    if (options.batch(options.settings, options.input, options.json)) return;
    const std::vector<SeasonInput> seasons = InputSeasons<T>(options);
    const std::vector<SchemeResult> results = RunSeasons<T>(options.settings, seasons);
    const SchemeResult& last = results.back();
    if (!options.save.empty()) SaveProcessRecord(*last.process, options.save);
    if (!options.chart.empty()) WriteChart(options.chart, &last.overlay);
    PrintWarnings(results);
    if (options.json) {
        std::cout << DocumentJson(T::kName, results, seasons.size() > 1).dump(2) << "\n";
    } else {
        for (const SchemeResult& result : results) {
            if (&result != &results.front()) std::cout << "\n";
            PrintResultTexts(std::cout, result.resultInfo, isatty(STDOUT_FILENO) != 0);
            std::cout << "\n";
            PrintText(std::cout, result);
        }
    }
    if (options.strict)
        for (const SchemeResult& result : results)
            if (!result.warnings.empty()) SetExitCode(kExitWarnings);
}

template <typename T>
std::string FieldHelp() {
    const typename T::Info summer = T::BuiltIn(false);
    const typename T::Info winter = T::BuiltIn(true);
    std::ostringstream text;
    text << "\nInput fields (--input FILE.json; --template prints them with the built-in values;\n"
            "a file may hold {\"summer\": {...}, \"winter\": {...}} to run both on one object):\n"
            "  CalPriRetAirType  treatment type 0.." << T::kHighestType << "\n"
            "  PointN, PointW    room and outdoor state: two of Tdb (°C), RH (fraction), H (kJ/kg),\n"
            "                    D (g/kg), Twb (°C), Tdp (°C), Pv (Pa), e.g. {\"Tdb\": 22, \"RH\": 0.6}\n"
            "                    built in: summer N 22 °C 60 %, W 33.2 °C Twb 26.4 °C;\n"
            "                              winter N 20 °C 45 %, W -10 °C 70 %\n"
            "  Qn                room load, kW (cooling in summer, heat loss in winter); "
         << summer.Qn << " / " << winter.Qn << "\n"
         << "  Mw                room moisture load, kg/s; " << summer.Mw << " / " << winter.Mw << "\n"
         << "  SfGdWs, HfGdWs    temperature change along the supply and return ducts, K; 0\n"
            "  ptL_RH            relative humidity of the dew point L, fraction; " << summer.ptL_RH << "\n"
         << "  FreshAirType      0: FreshAirRatio is given, 1: Gw is given; 0\n"
            "  FreshAirRatio     fresh air over supply air, fraction; " << summer.FreshAirRatio << " / "
         << winter.FreshAirRatio << "\n"
         << "  Gw                fresh-air flow, kg/s (with FreshAirType 1)\n"
            "  Go                supply air flow, kg/s (given in winter, calculated in summer); "
         << winter.Go << "\n"
         << "  SfWc              supply temperature difference, K; " << summer.SfWc << "\n";
    if constexpr (std::is_same_v<T, Secondary>)
        text << "  Gr1               first return-air flow, kg/s (given in winter); " << winter.Gr1 << "\n";
    text << "Exit codes: 0 calculated, 2 refused input or no possible result, 3 calculated with warnings "
            "(with --strict).";
    return text.str();
}

template <typename T>
void AddSchemeCommand(CLI::App& app, const char* description) {
    auto options = std::make_shared<SchemeOptions>();
    CLI::App* command = app.add_subcommand(T::kName, description);
    CLI::Option* type = command->add_option(
        "--type", options->typeValue,
        "treatment type, 0.." + std::to_string(T::kHighestType) + " (default: the input's, else 0)");
    command->add_option("--input", options->input,
                        "JSON file of given fields by name ('-' for standard input); see the fields below");
    options->pressure.Register(*command);
    command->add_flag("--json", options->json, "print the results as JSON (docs/cli-json.md)");
    command->add_option("--units", options->units,
                        "units of the report texts, e.g. Q=kW,G=m^3/h,Mw=kg/h (keys H, Q, G, Mw, Den)");
    command->add_option("--save", options->save, "write the process record into this XML file");
    command->add_option("--load", options->load,
                        "start from the process record in this XML file ('-' for standard input; --input and "
                        "--type apply on top)");
    command->add_option("--chart", options->chart,
                        "draw the process on the enthalpy-humidity chart into this file (.svg, .png or .pdf)");
    command->add_flag("--full-walk", options->settings.fullWalk,
                      "run the summer search as the full walk over every step (the same result, slower)");
    command->add_flag("--literal", options->settings.literal,
                      "the system's own treatments and texts, step for step (default: engineering mode, "
                      "docs/processes.md)");
    command->add_flag("--strict", options->strict, "exit with code 3 when the calculation gives warnings");
    command->add_flag("--template", options->templateOnly,
                      "print the built-in given data (of the season of --type) as an input file, and stop");
    options->batch = RegisterSchemeBatch(*command, T::kName);
    command->footer(FieldHelp<T>());
    command->callback([options, type]() {
        if (options->load == "-" && options->input == "-")
            throw UsageError("--load - and --input -: only one of them can read standard input");
        if (type->count() > 0) options->settings.type = options->typeValue;
        options->settings.load = options->load;
        Run<T>(*options);
    });
}

}  // namespace

ordered_json RunSchemeJson(const std::string& scheme, const json& document, const SchemeRunSettings& settings) {
    const std::vector<SeasonInput> seasons = SeasonsOf(document, "input");
    if (scheme == Primary::kName)
        return DocumentJson(scheme, RunSeasons<Primary>(settings, seasons), seasons.size() > 1, settings.brief);
    if (scheme == Secondary::kName)
        return DocumentJson(scheme, RunSeasons<Secondary>(settings, seasons), seasons.size() > 1, settings.brief);
    throw UsageError("unknown scheme \"" + scheme + "\"");
}

void RegisterSchemeCommands(CLI::App& app) {
    AddSchemeCommand<Primary>(app,
                              "air handling with primary return air (types 0-1 summer, 2-5 winter) on the "
                              "built-in design of the type's season, or on --input");
    AddSchemeCommand<Secondary>(app,
                                "air handling with secondary return air (type 0 summer, 1-4 winter) on the "
                                "built-in design of the type's season, or on --input");
}

}  // namespace zefra::cli
