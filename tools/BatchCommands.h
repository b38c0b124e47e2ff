#pragma once
// Batch runs: zefra point --batch (state points from every row of a CSV
// table), zefra primary|secondary --batch (given data a line) and --weather
// (a design over a table of outdoor states).

#include "SchemeRun.h"

#include <CLI/CLI.hpp>

#include <functional>

namespace zefra::cli {

// Adds --batch FILE, --out FILE and --skip-bad to the point command. The
// function it gives runs the batch when --batch was given, at the current
// pressure for rows that give none, and then returns true; otherwise it
// refuses --out and --skip-bad and returns false.
std::function<bool(bool json)> RegisterPointBatch(CLI::App& point);

// Adds --batch FILE.jsonl, --weather FILE.csv, --season, --out and
// --skip-bad to the command of `scheme` ("primary" or "secondary"). The
// function it gives runs the batch when --batch or --weather was given, with
// the run's settings and --input, at the current pressure, and then returns
// true; otherwise it refuses the options that go with them and returns false.
std::function<bool(const SchemeRunSettings& settings, const std::string& input, bool json)> RegisterSchemeBatch(
    CLI::App& command, const std::string& scheme);

}  // namespace zefra::cli
