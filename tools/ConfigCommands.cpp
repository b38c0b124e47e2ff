#include "Cli.h"

namespace zefra::cli {

void RegisterConfigCommands(CLI::App& app) { (void)app; }

}  // namespace zefra::cli
