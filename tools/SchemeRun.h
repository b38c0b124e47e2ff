#pragma once
// Running a return-air scheme from given data in JSON, as `zefra primary` and
// `zefra secondary` do, for the commands that run many (batches, weather
// years): the same checks, modes, warnings and JSON output.

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace zefra::cli {

struct SchemeRunSettings {
    bool literal = false;         // the system's treatments; otherwise engineering mode
    bool fullWalk = false;        // the summer search as the full walk
    std::optional<long long> type;  // --type: overrides the input's type of its season
    std::string load;             // a process record to start from, or empty
};

// Runs `scheme` ("primary" or "secondary") on `document`: the given fields of
// one run, {"summer": {...}, "winter": {...}}, or an earlier run's output.
// Gives the output document of `--json` (warnings included); throws
// UsageError for refused input and CalculationError when the design has no
// possible result. Uses the current pressure and report units.
nlohmann::ordered_json RunSchemeJson(const std::string& scheme, const nlohmann::json& document,
                                     const SchemeRunSettings& settings);

}  // namespace zefra::cli
