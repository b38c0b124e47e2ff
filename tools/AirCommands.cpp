#include "Cli.h"

namespace zefra::cli {

void RegisterAirCommands(CLI::App& app) {
    app.add_subcommand("point", "compute a moist-air state point from a pair of properties");
}

}  // namespace zefra::cli
