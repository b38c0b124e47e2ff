#pragma once
// Command-line input and output of state points, shared by the commands that
// take points: a point from any supported pair of properties, the pressure,
// and the point as an aligned table or as JSON.

#include "Cli.h"

#include "zefra/air/ZefraHDGPoint.h"

#include <nlohmann/json.hpp>

#include <iosfwd>
#include <optional>
#include <string>

namespace zefra::cli {

// A number given on the command line; throws UsageError naming the option
// when the text isn't a finite number.
double ParseNumber(const std::string& option, const std::string& text);

// The seven properties from which a point can be given, as options
// "--<prefix>tdb", "--<prefix>rh", ... on one command.
class PointArguments {
public:
    // prefix "a-" gives --a-tdb and so on; label names the point in help
    // texts and errors ("point A").
    PointArguments(std::string prefix, std::string label);

    void Register(CLI::App& command);

    bool IsGiven() const;

    // The point of the two properties given, computed at the current
    // pressure, named `name`. Throws UsageError for any other number of
    // properties, a pair without a calculation, a value that isn't a
    // number, and for any value or state that the input checks refuse.
    ZefraHDGPoint Build(const CString& name) const;

    // Build when any property was given, otherwise the fallback.
    ZefraHDGPoint BuildOr(const CString& name, const ZefraHDGPoint& fallback) const;

private:
    std::string m_prefix;
    std::string m_label;
    std::optional<std::string> m_values[7];
};

// The --pressure option (Pa, default 101325); Apply makes it the current
// pressure of the chart, or throws UsageError for a value outside the
// supported range (with a hint when it looks like kPa, hPa or bar).
class PressureArgument {
public:
    void Register(CLI::App& command);
    void Apply() const;

private:
    std::string m_text = "101325";
};

// The eleven properties with names and units, one per line, aligned.
void PrintPointTable(std::ostream& out, const ZefraHDGPoint& point);

// A point in JSON: its name, the eleven properties as numbers in the units of
// UnitsJson (RH a fraction), and the pair that defines it.
nlohmann::ordered_json PointToJson(const ZefraHDGPoint& point);

// The unit of every quantity the JSON output holds, stated once per document.
nlohmann::ordered_json UnitsJson();

// Short names of the calculation kinds: "Tdb", "RH", ... "Ps".
std::string CalItemName(int kind);

}  // namespace zefra::cli

namespace zefra::cli {

// Prints a JSON document of `command` as every command does: "command" first,
// every key in camelCase ("style text" and "width_mm" become "styleText" and
// "widthMm"), two-space indents.
void PrintJson(std::ostream& out, const std::string& command, const nlohmann::ordered_json& document);

}  // namespace zefra::cli
