#pragma once
// Shared pieces of the zefra command-line tool.

#include <CLI/CLI.hpp>

#include <stdexcept>
#include <string>

namespace zefra::cli {

// Bad input from the user: printed as "zefra: <message>", exit code 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A calculation that was refused or failed: also exit code 2.
class CalculationError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Each group of subcommands registers itself on the application.
void RegisterAirCommands(CLI::App& app);     // point, mix, line, ratio
void RegisterSchemeCommands(CLI::App& app);  // primary, secondary
void RegisterConfigCommands(CLI::App& app);  // config dump|get|set
void RegisterSettingsCommands(CLI::App& app);  // settings, flange
void RegisterLayerCommands(CLI::App& app);   // systems list|add|del, layer
void RegisterLabelCommands(CLI::App& app);   // label

}  // namespace zefra::cli
