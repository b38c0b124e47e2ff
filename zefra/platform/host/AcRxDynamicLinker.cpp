#include "zefra/platform/host/AcRxDynamicLinker.h"

#include "zefra/platform/host/AcRxDictionary.h"

bool AcRxDynamicLinker::unlockApplication(void* appId) {
    if (appId == nullptr) return false;
    m_unlocked.insert(appId);
    return true;
}

bool AcRxDynamicLinker::registerAppMDIAware(void* appId) {
    if (appId == nullptr) return false;
    m_mdiAware.insert(appId);
    return true;
}

AcRxDynamicLinker* acrxDynamicLinker() {
    return static_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER));
}

bool acrxUnlockApplication(void* appId) { return acrxDynamicLinker()->unlockApplication(appId); }
