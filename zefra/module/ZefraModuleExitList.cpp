#include "zefra/module/ZefraModuleExitList.h"

#include <cstdlib>

namespace {

ZefraModuleExitEntry* s_newest = nullptr;
bool s_hookedOnProcessExit = false;
ZefraModuleExitList::Observer s_observer = nullptr;

void RunAtProcessExit() { ZefraModuleExitList::RunAll(); }

}  // namespace

void ZefraModuleExitList::Register(ZefraModuleExitEntry& entry) {
    // Hooked at the first registration, after the trees that a singleton's
    // constructor reads were built, so the list runs before they go.
    if (!s_hookedOnProcessExit) {
        s_hookedOnProcessExit = true;
        std::atexit(&RunAtProcessExit);
    }
    entry.next = s_newest;
    s_newest = &entry;
}

void ZefraModuleExitList::RunAll() {
    while (s_newest != nullptr) {
        ZefraModuleExitEntry* entry = s_newest;
        s_newest = entry->next;
        entry->next = nullptr;
        if (s_observer != nullptr) s_observer(entry->name);
        if (entry->run != nullptr) entry->run();
    }
}

int ZefraModuleExitList::GetCount() {
    int count = 0;
    for (const ZefraModuleExitEntry* entry = s_newest; entry != nullptr; entry = entry->next) ++count;
    return count;
}

ZefraModuleExitList::Observer ZefraModuleExitList::SetObserver(Observer observer) {
    const Observer previous = s_observer;
    s_observer = observer;
    return previous;
}
