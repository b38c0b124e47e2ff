#include "Cli.h"

#include "zefra/ZefraVersion.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/module/ZefraModule.h"

#include <iostream>
#include <string>

namespace {

// "zefra: " before every line of a message.
int Refuse(const std::string& message) {
    size_t start = 0;
    do {
        const size_t end = message.find('\n', start);
        std::cerr << "zefra: " << message.substr(start, end == std::string::npos ? end : end - start) << "\n";
        start = end == std::string::npos ? end : end + 1;
    } while (start != std::string::npos);
    return 2;
}

int g_exitCode = 0;

}  // namespace

namespace zefra::cli {
void SetExitCode(int code) { g_exitCode = code; }
int GetExitCode() { return g_exitCode; }
}  // namespace zefra::cli

int main(int argc, char** argv) {
    // Loads the module as the host would; at the end of main it unloads it
    // and destroys the settings managers that the command built.
    ZefraModule module;
    // An interrupted save leaves no temporary; a save over the file size
    // limit is an error, not a silent death.
    QoDtDiskFile::InstallSignalCleanup();
    CLI::App app{"zefra: moist-air states and air-handling processes on the enthalpy-humidity chart"};
    app.set_version_flag("--version", "zefra " ZEFRA_VERSION_STRING);
    app.require_subcommand(1);
    zefra::cli::RegisterAirCommands(app);
    zefra::cli::RegisterSchemeCommands(app);
    zefra::cli::RegisterConfigCommands(app);
    zefra::cli::RegisterSettingsCommands(app);
    zefra::cli::RegisterLayerCommands(app);
    zefra::cli::RegisterLabelCommands(app);
    zefra::cli::RegisterChartCommands(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForAllHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForVersion& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        std::cerr << "zefra: " << e.what() << "\n";
        std::cerr << "Run with --help for the usage.\n";
        return 2;
    } catch (const zefra::cli::UsageError& e) {
        return Refuse(e.what());
    } catch (const zefra::cli::CalculationError& e) {
        return Refuse(e.what());
    } catch (const std::exception& e) {
        std::cerr << "zefra: internal error: " << e.what() << "\n";
        return 1;
    }
    return g_exitCode;
}
