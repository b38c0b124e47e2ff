// zefra point, mix, line and ratio: a state point and the three simple
// processes of the chart.

#include "BatchCommands.h"
#include "Cli.h"
#include "PointIO.h"

#include "zefra/air/HDGChecks.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/air/ZefraHDGHeatHumRat.h"
#include "zefra/air/ZefraHDGLine.h"
#include "zefra/air/ZefraHDGMixAir.h"
#include "zefra/platform/geometry/Zero.h"

#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

namespace zefra::cli {

namespace {

using Json = nlohmann::ordered_json;

// Options shared by the commands: --json and --pressure.
struct CommonArguments {
    bool json = false;
    PressureArgument pressure;

    void Register(CLI::App& command) {
        command.add_flag("--json", json, "print JSON instead of a table");
        pressure.Register(command);
    }
};

// The two end points of a simple process, defaulting to the processes' own
// A (22 °C, 60 %) and B (20 °C, 90 %).
struct TwoPointArguments {
    PointArguments a{"a-", "point A"};
    PointArguments b{"b-", "point B"};

    void Register(CLI::App& command) {
        a.Register(command);
        b.Register(command);
    }
};

struct MixFlows {
    std::optional<std::string> ga;
    std::optional<std::string> gb;
    std::optional<std::string> ratio;
};

struct OptionalPair {
    std::optional<std::string> first;
    std::optional<std::string> second;
};

template <typename Process>
void SetPoints(Process& process, const TwoPointArguments& points) {
    // The defaults are recomputed at the pressure given.
    process.SetHDGPointA(points.a.BuildOr(L"A", ZefraHDGPoint(22.0, 0.6, L"A")));
    process.SetHDGPointB(points.b.BuildOr(L"B", ZefraHDGPoint(20.0, 0.9, L"B")));
}

std::optional<double> Number(const std::string& option, const std::optional<std::string>& text) {
    if (!text) return std::nullopt;
    return ParseNumber(option, *text);
}

// The head of every JSON document: the command, the pressure, the units.
Json Document(const char* command) {
    Json json;
    json["command"] = command;
    json["pressure"] = GetHDGCurB();
    json["units"] = UnitsJson();
    return json;
}

void PrintPoint(const ZefraHDGPoint& point) {
    std::cout << "Point " << point.GetName().ToUtf8() << " (from " << CalItemName(point.GetCalPara1Type()) << " and "
              << CalItemName(point.GetCalPara2Type()) << ")\n";
    PrintPointTable(std::cout, point);
}

void PrintPressure() {
    std::cout << "Atmospheric pressure: " << std::fixed << std::setprecision(0) << GetHDGCurB() << " Pa\n";
}

std::string Fixed(double value, int decimals) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

void RegisterPoint(CLI::App& app) {
    auto* command = app.add_subcommand("point", "compute a moist-air state point from a pair of properties");
    auto common = std::make_shared<CommonArguments>();
    auto point = std::make_shared<PointArguments>("", "the point");
    point->Register(*command);
    common->Register(*command);
    const auto batch = RegisterPointBatch(*command);
    command->callback([common, point, batch] {
        common->pressure.Apply();
        if (batch(common->json)) return;
        const ZefraHDGPoint result = point->Build(L"");
        if (common->json) {
            Json json = Document("point");
            json["point"] = PointToJson(result);
            std::cout << json.dump(2) << '\n';
            return;
        }
        PrintPressure();
        std::cout << "State point (from " << CalItemName(result.GetCalPara1Type()) << " and "
                  << CalItemName(result.GetCalPara2Type()) << ")\n";
        PrintPointTable(std::cout, result);
    });
}

void RegisterMix(CLI::App& app) {
    auto* command = app.add_subcommand("mix", "mix two air streams A and B into C");
    auto common = std::make_shared<CommonArguments>();
    auto points = std::make_shared<TwoPointArguments>();
    auto flows = std::make_shared<MixFlows>();
    points->Register(*command);
    command->add_option("--ga", flows->ga, "flow of stream A (any unit, the same for both; with --gb; default 3000)")
        ->type_name("NUMBER");
    command->add_option("--gb", flows->gb, "flow of stream B (with --ga; default 1000)")->type_name("NUMBER");
    command->add_option("--ratio", flows->ratio, "parts of A to one part of B, instead of --ga and --gb")
        ->type_name("NUMBER");
    common->Register(*command);
    command->callback([common, points, flows] {
        common->pressure.Apply();
        ZefraHDGMixAir mix;
        SetPoints(mix, *points);
        const auto ga = Number("--ga", flows->ga);
        const auto gb = Number("--gb", flows->gb);
        const auto ratio = Number("--ratio", flows->ratio);
        if (ratio && (ga || gb)) throw UsageError("--ratio can't be combined with --ga or --gb");
        if (ga.has_value() != gb.has_value())
            throw UsageError("give both --ga and --gb, or neither (then 3000 and 1000)");
        if (ratio) {
            if (!(*ratio >= 0.0)) throw UsageError("--ratio: the mixing ratio can't be negative");
            mix.SetIsHfb(true);
            mix.SetdMixRatio(*ratio);
        } else {
            if (ga) mix.SetGa(*ga);
            if (gb) mix.SetGb(*gb);
            if (!(mix.GetGa() >= 0.0 && mix.GetGb() > 0.0))
                throw UsageError("--ga and --gb: flows can't be negative, and --gb must be above 0");
        }
        mix.Calculate();
        if (const auto fault = HDGChecks::State(mix.GetHDGPointC(), "the mixed point C"))
            throw CalculationError(fault->Message);
        if (common->json) {
            Json json = Document("mix");
            json["ratio"] = mix.GetdMixRatio();
            json["points"] = {PointToJson(mix.GetHDGPointA()), PointToJson(mix.GetHDGPointB()),
                              PointToJson(mix.GetHDGPointC())};
            std::cout << json.dump(2) << '\n';
            return;
        }
        PrintPressure();
        std::cout << "Mixing ratio A:B = " << Fixed(mix.GetdMixRatio(), 4) << " : 1\n";
        PrintPoint(mix.GetHDGPointA());
        PrintPoint(mix.GetHDGPointB());
        PrintPoint(mix.GetHDGPointC());
    });
}

void RegisterLine(CLI::App& app) {
    auto* command = app.add_subcommand("line", "heat load between two states: Q from the air flow, or the flow from Q");
    auto common = std::make_shared<CommonArguments>();
    auto points = std::make_shared<TwoPointArguments>();
    auto values = std::make_shared<OptionalPair>();
    points->Register(*command);
    command->add_option("--g", values->first, "air flow in kg/s; computes the heat load Q (default 1.35)")
        ->type_name("NUMBER");
    command->add_option("--q", values->second, "heat load in kW; computes the air flow G")->type_name("NUMBER");
    common->Register(*command);
    command->callback([common, points, values] {
        common->pressure.Apply();
        ZefraHDGLine line;
        SetPoints(line, *points);
        const auto g = Number("--g", values->first);
        const auto q = Number("--q", values->second);
        if (g && q) throw UsageError("give --g (to compute Q) or --q (to compute G), not both");
        // Beyond any air-handling unit: 1000 kg/s is about 3 million m³/h.
        if (g && !(std::fabs(*g) <= 1000.0))
            throw UsageError("--g = " + *values->first + " kg/s is outside the allowed range, -1000 … 1000 kg/s");
        if (q && !(std::fabs(*q) <= 100000.0))
            throw UsageError("--q = " + *values->second + " kW is outside the allowed range, -100000 … 100000 kW");
        if (q) {
            line.SetCalType(1);
            line.SetQ(*q);
        } else if (g) {
            line.SetG(*g);
        }
        line.Calculate();
        const double enthalpyChange = line.GetHDGPointB().GetH() - line.GetHDGPointA().GetH();
        if (!std::isfinite(line.GetG()) || !std::isfinite(line.GetQ()) || (q && IsInZeroBand(enthalpyChange)))
            throw CalculationError("points A and B have the same enthalpy: no air flow carries a heat load "
                                   "between them");
        const double dh = line.GetHDGPointB().GetH() - line.GetHDGPointA().GetH();
        if (common->json) {
            Json json = Document("line");
            json["computed"] = line.GetCalType() == 0 ? "Q" : "G";
            json["G"] = line.GetG();
            json["Q"] = line.GetQ();
            json["dH"] = dh;
            json["points"] = {PointToJson(line.GetHDGPointA()), PointToJson(line.GetHDGPointB())};
            std::cout << json.dump(2) << '\n';
            return;
        }
        PrintPressure();
        PrintPoint(line.GetHDGPointA());
        PrintPoint(line.GetHDGPointB());
        std::cout << "Enthalpy difference B - A: " << Fixed(dh, 3) << " kJ/kg\n"
                  << "Air flow G: " << Fixed(line.GetG(), 4) << " kg/s" << (line.GetCalType() == 0 ? "" : " (computed)")
                  << "\nHeat load Q: " << Fixed(line.GetQ(), 4) << " kW"
                  << (line.GetCalType() == 0 ? " (computed)" : "") << '\n';
    });
}

// The ratio from the two points as the process from A to B has it, with the
// sign of Q/Mw: the library divides by A.D - B.D, which turns a finite value's
// sign. Its infinities already follow the enthalpy from A to B.
std::string AlongAToB(const std::string& text) {
    if (text.find_first_of("123456789") == std::string::npos || text.find("∞") != std::string::npos) return text;
    return text[0] == '-' ? text.substr(1) : "-" + text;
}

void RegisterRatio(CLI::App& app) {
    auto* command = app.add_subcommand(
        "ratio", "heat-humidity ratio in kJ/kg: from --q and --mw, or from the two points A and B (process A to B)");
    command->footer(
        "Sign: the ratio is the heat over the moisture that the air takes up, Q/Mw, which for the process from A "
        "to B is 1000*(hB-hA)/(dB-dA) (h in kJ/kg, d in g/kg). Both modes print it so: positive when the air gains "
        "both heat and moisture or loses both, negative when it gains one and loses the other.");
    auto common = std::make_shared<CommonArguments>();
    auto points = std::make_shared<TwoPointArguments>();
    auto values = std::make_shared<OptionalPair>();
    points->Register(*command);
    command->add_option("--q", values->first, "heat load (with --mw)")->type_name("NUMBER");
    command->add_option("--mw", values->second, "moisture load, in the unit that makes Q/Mw a ratio in kJ/kg")
        ->type_name("NUMBER");
    common->Register(*command);
    command->callback([common, points, values] {
        common->pressure.Apply();
        ZefraHDGHeatHumRat ratio;
        const auto q = Number("--q", values->first);
        const auto mw = Number("--mw", values->second);
        if (q.has_value() != mw.has_value()) throw UsageError("--q and --mw go together");
        if (q && (points->a.IsGiven() || points->b.IsGiven()))
            throw UsageError("give --q and --mw, or the points A and B, not both");
        SetPoints(ratio, *points);
        if (q) {
            ratio.SetQ(*q);
            ratio.SetMw(*mw);
        } else {
            ratio.SetCalType(1);
        }
        ratio.Calculate();
        const std::string value = q ? ratio.GetValue().ToUtf8() : AlongAToB(ratio.GetValue().ToUtf8());
        if (common->json) {
            Json json = Document("ratio");
            json["from"] = q ? "loads" : "points";
            // ±∞ (a process at constant moisture content) has no JSON number: null, and the text says which.
            const double number = std::strtod(value.c_str(), nullptr);
            if (value.find("∞") == std::string::npos && std::isfinite(number))
                json["value"] = number;
            else
                json["value"] = nullptr;
            json["text"] = value;
            if (q) {
                json["Q"] = *q;
                json["Mw"] = *mw;
            } else {
                json["points"] = {PointToJson(ratio.GetHDGPointA()), PointToJson(ratio.GetHDGPointB())};
            }
            std::cout << json.dump(2) << '\n';
            return;
        }
        PrintPressure();
        if (!q) {
            PrintPoint(ratio.GetHDGPointA());
            PrintPoint(ratio.GetHDGPointB());
        }
        std::cout << "Heat-humidity ratio: " << value << " kJ/kg\n";
    });
}

}  // namespace

void RegisterAirCommands(CLI::App& app) {
    RegisterPoint(app);
    RegisterMix(app);
    RegisterLine(app);
    RegisterRatio(app);
}

}  // namespace zefra::cli
