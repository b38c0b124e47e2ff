#pragma once
// zefra point --batch: state points from every row of a CSV table.

#include <CLI/CLI.hpp>

#include <functional>

namespace zefra::cli {

// Adds --batch FILE, --out FILE and --skip-bad to the point command. The
// function it gives runs the batch when --batch was given, at the current
// pressure for rows that give none, and then returns true; otherwise it
// refuses --out and --skip-bad and returns false.
std::function<bool(bool json)> RegisterPointBatch(CLI::App& point);

}  // namespace zefra::cli
