#include "Cli.h"

namespace zefra::cli {
namespace {
int g_exitCode = 0;
}  // namespace

void SetExitCode(int code) { g_exitCode = code; }
int GetExitCode() { return g_exitCode; }

}  // namespace zefra::cli
