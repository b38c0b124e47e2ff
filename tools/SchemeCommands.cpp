#include "Cli.h"

namespace zefra::cli {

void RegisterSchemeCommands(CLI::App& app) { (void)app; }

}  // namespace zefra::cli
