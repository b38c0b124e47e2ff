#pragma once
#include "zefra/ZefraExport.h"
// The module's life in a program without the host. The object plays the
// host's part: made, it loads the library (keeping a handle) and sends the
// start message; destroyed, it sends the unload message, detaches the
// library and runs the module's exit list, so the singletons built in
// between are destroyed there, newest first. Make one at the top of main.

class ZEFRA_API ZefraModule {
public:
    ZefraModule();
    ZefraModule(const ZefraModule&) = delete;
    ZefraModule& operator=(const ZefraModule&) = delete;
    ~ZefraModule();

    // The application handle that the entry point receives.
    void* GetAppHandle() { return this; }
};
