#pragma once
// Shared pieces of the zefra command-line tool.

#include <CLI/CLI.hpp>

#include <memory>
#include <stdexcept>
#include <string>

struct SHDGChartOverlay;
class QoDtFileLock;

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

// Held by a command that loads, changes and saves the configuration, from
// before the load to after the save: the write lock of the file of --config
// (`chosen`), else of the file the search's Config.xml is saved to. Throws
// UsageError when the lock isn't free within the bound.
class ConfigEditLock {
public:
    explicit ConfigEditLock(const std::string& chosen);
    ~ConfigEditLock();
    ConfigEditLock(const ConfigEditLock&) = delete;
    ConfigEditLock& operator=(const ConfigEditLock&) = delete;

private:
    std::unique_ptr<QoDtFileLock> m_lock;
};

// Exit codes: 0 done, 1 an internal error or a failed write, 2 refused input,
// 3 calculated with warnings (under --strict).
constexpr int kExitWarnings = 3;
// The code main returns when the command ends without an exception.
void SetExitCode(int code);
int GetExitCode();

// Each group of subcommands registers itself on the application.
void RegisterAirCommands(CLI::App& app);     // point, mix, line, ratio
void RegisterSchemeCommands(CLI::App& app);  // primary, secondary
void RegisterConfigCommands(CLI::App& app);  // config dump|get|set
void RegisterSettingsCommands(CLI::App& app);  // settings, flange
void RegisterLayerCommands(CLI::App& app);   // systems list|add|del, layer
void RegisterLabelCommands(CLI::App& app);   // label
void RegisterChartCommands(CLI::App& app);   // chart

// The chart's file: its ending (.svg, .png, .pdf) gives the format. Checked
// before anything is calculated; throws UsageError for any other ending.
void CheckChartFile(const std::string& file);
// Draws the chart of the current settings at the current pressure, with the
// process over it when not null, into `file`. Notes on what was left out go
// to standard error; throws UsageError when the chart can't be made or
// written.
void WriteChart(const std::string& file, const SHDGChartOverlay* overlay);

}  // namespace zefra::cli
