#include "zefra/platform/host/AcRxDictionary.h"

#include "zefra/platform/host/AcEdCommandStack.h"
#include "zefra/platform/host/AcRxDynamicLinker.h"

#include <cwchar>

AcRxObject* AcRxDictionary::at(const wchar_t* key) const {
    if (key == nullptr) return nullptr;
    for (const Entry& entry : m_entries)
        if (entry.key != nullptr && std::wcscmp(entry.key, key) == 0) return entry.object;
    return nullptr;
}

AcRxDictionary* acrxSysRegistry() {
    static AcRxDynamicLinker linker;
    static AcEdCommandStack commands;
    static AcRxDictionary registry;
    if (registry.m_entries[0].object == nullptr) {
        registry.m_entries[0] = {ACRX_DYNAMIC_LINKER, &linker};
        registry.m_entries[1] = {ACRX_COMMAND_DOCK, &commands};
    }
    return &registry;
}
