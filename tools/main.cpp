#include "Cli.h"

#include "zefra/ZefraVersion.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/module/ZefraModule.h"
#include "zefra/platform/host/CommandLine.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

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

// What the library writes on the host's command line (a configuration file
// that can't be read, a failed save) is a message, not output: it goes to
// standard error, so that standard output stays what the command prints.
void RouteLibraryMessagesToStderr() {
    zefra::SetCommandLineSink([](const CString& text) {
        std::string lines = text.ToUtf8();
        const size_t first = lines.find_first_not_of("\r\n");
        if (first == std::string::npos) return;
        lines = lines.substr(first, lines.find_last_not_of("\r\n") + 1 - first);
        Refuse(lines);
    });
}

size_t EditDistance(const std::string& a, const std::string& b) {
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

// Follows the words of the command line down the tree of subcommands and
// refuses the first word that names none where a subcommand must stand,
// with the nearest name when one is close. Options and what follows them are
// left to the parser.
void CheckSubcommandNames(CLI::App& app, int argc, char** argv) {
    CLI::App* current = &app;
    std::string path = "zefra";
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word.empty() || word[0] == '-') return;
        const std::vector<CLI::App*> subcommands = current->get_subcommands([](CLI::App*) { return true; });
        const bool takesPositionals =
            !current->get_options([](const CLI::Option* option) { return option->get_positional(); }).empty();
        if (subcommands.empty() || takesPositionals) return;
        CLI::App* next = nullptr;
        std::string nearest;
        size_t nearestDistance = std::string::npos;
        for (CLI::App* sub : subcommands) {
            if (sub->get_name() == word) next = sub;
            const size_t distance = EditDistance(word, sub->get_name());
            if (distance < nearestDistance) nearestDistance = distance, nearest = sub->get_name();
        }
        if (next == nullptr) {
            std::string message = "unknown command '" + word + "'";
            if (path != "zefra") message = "unknown command '" + path.substr(6) + " " + word + "'";
            if (nearestDistance <= std::max<size_t>(2, word.size() / 3)) message += "; did you mean '" + nearest + "'?";
            throw zefra::cli::UsageError(message + "\nRun '" + path + " --help' for the commands.");
        }
        current = next;
        path += " " + word;
    }
}

// Output that didn't reach its file (a full disk, a closed device) is a
// failure of the command, not a success with nothing shown.
int CheckStandardOutput(int code) {
    errno = 0;
    std::cout.flush();
    if (std::cout.good()) return code;
    const int cause = errno;
    std::cerr << "zefra: cannot write to standard output" << (cause != 0 ? std::string(": ") + std::strerror(cause) : "")
              << "\n";
    return code == 0 ? 1 : code;
}

int Run(CLI::App& app, int argc, char** argv) {
    if (argc <= 1) {
        std::cerr << app.help();
        return 2;
    }
    try {
        CheckSubcommandNames(app, argc, argv);
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
    return zefra::cli::GetExitCode();
}

}  // namespace

int main(int argc, char** argv) {
    // Loads the module as the host would; at the end of main it unloads it
    // and destroys the settings managers that the command built.
    ZefraModule module;
    RouteLibraryMessagesToStderr();
    // An interrupted save leaves no temporary; a save over the file size
    // limit is an error, not a silent death.
    QoDtDiskFile::InstallSignalCleanup();
    CLI::App app{"zefra: moist-air states and air-handling processes on the enthalpy-humidity chart", "zefra"};
    app.set_version_flag("--version", "zefra " ZEFRA_VERSION_STRING);
    app.require_subcommand(1);
    zefra::cli::RegisterAirCommands(app);
    zefra::cli::RegisterSchemeCommands(app);
    zefra::cli::RegisterConfigCommands(app);
    zefra::cli::RegisterSettingsCommands(app);
    zefra::cli::RegisterLayerCommands(app);
    zefra::cli::RegisterLabelCommands(app);
    zefra::cli::RegisterChartCommands(app);
    return CheckStandardOutput(Run(app, argc, argv));
}
