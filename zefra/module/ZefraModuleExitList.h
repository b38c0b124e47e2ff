#pragma once
#include "zefra/ZefraExport.h"
// The module's exit list: what runs when the module leaves the process.
// Singletons put their destructor on it after their first construction; the
// list runs them newest first, so they go in the reverse order of their
// first use. All of it is plain data, set up without code at load time.
//
// The list runs once at process exit on its own. A program that loads and
// unloads the module itself (see ZefraModule) runs it earlier, at the point
// where the host would detach the module; later entries run at the next
// RunAll or at process exit.

struct ZEFRA_API ZefraModuleExitEntry {
    void (*run)() = nullptr;
    // Names the owner of the entry for an observer, e.g. a class name.
    const char* name = nullptr;
    ZefraModuleExitEntry* next = nullptr;
};

class ZEFRA_API ZefraModuleExitList {
public:
    using Observer = void (*)(const char* name);

    // Puts the entry on the list; the entry must stay alive and must not be
    // on the list already.
    static void Register(ZefraModuleExitEntry& entry);
    // Takes the entries off the list one by one, newest first, and runs
    // each. An entry registered while the list runs is run too.
    static void RunAll();
    static int GetCount();
    // Called with the entry's name just before each entry runs; returns
    // the previous observer. Null stops observing.
    static Observer SetObserver(Observer observer);
};
