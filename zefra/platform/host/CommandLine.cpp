#include "zefra/platform/host/CommandLine.h"

#include <cstdarg>
#include <cstdio>

namespace {
zefra::CommandLineSink& Sink() {
    static zefra::CommandLineSink sink;
    return sink;
}
}  // namespace

void acutPrintf(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    CString text(zefra::FormatMfc(format, args));
    va_end(args);
    if (Sink()) {
        Sink()(text);
        return;
    }
    const std::string utf8 = text.ToUtf8();
    std::fwrite(utf8.data(), 1, utf8.size(), stdout);
    std::fflush(stdout);
}

namespace zefra {
CommandLineSink SetCommandLineSink(CommandLineSink sink) {
    CommandLineSink old = std::move(Sink());
    Sink() = std::move(sink);
    return old;
}
}  // namespace zefra
