#pragma once
// The host's command line. acutPrintf formats as MFC does and writes UTF-8 to
// standard output; a test can redirect the lines to a sink of its own.

#include "zefra/platform/mfc/CString.h"

#include <functional>

void acutPrintf(const wchar_t* format, ...);

namespace zefra {
using CommandLineSink = std::function<void(const CString&)>;
// Installs a sink for everything acutPrintf writes and returns the old one;
// an empty sink restores standard output.
CommandLineSink SetCommandLineSink(CommandLineSink sink);
}  // namespace zefra
