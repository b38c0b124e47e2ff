#pragma once
// The host's dynamic linker, as far as an application deals with it: an
// application is locked (can't be unloaded on request) until it unlocks
// itself, and declares whether it copes with several open drawings.

#include "zefra/platform/host/AcRxObject.h"

#include <set>

class AcRxDynamicLinker : public AcRxObject {
public:
    bool unlockApplication(void* appId);
    bool isApplicationLocked(void* appId) const { return m_unlocked.count(appId) == 0; }
    bool registerAppMDIAware(void* appId);
    bool isAppMDIAware(void* appId) const { return m_mdiAware.count(appId) != 0; }

private:
    std::set<void*> m_unlocked;
    std::set<void*> m_mdiAware;
};

// The linker of the registry; the one the host's free functions use.
AcRxDynamicLinker* acrxDynamicLinker();
// Lets the host unload the application on request.
bool acrxUnlockApplication(void* appId);
