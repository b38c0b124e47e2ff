#pragma once
// The host's registry of named services. Two entries exist: the dynamic
// linker under ACRX_DYNAMIC_LINKER and the command stack under
// ACRX_COMMAND_DOCK.

#include "zefra/platform/host/AcRxObject.h"

#include <cstddef>

#define ACRX_DYNAMIC_LINKER L"DynamicLinker"
#define ACRX_COMMAND_DOCK L"ACAD_REGISTERED_COMMANDS"

class AcRxDictionary : public AcRxObject {
public:
    // The service of that name; null for an unknown one.
    AcRxObject* at(const wchar_t* key) const;

private:
    friend AcRxDictionary* acrxSysRegistry();
    struct Entry {
        const wchar_t* key;
        AcRxObject* object;
    };
    static constexpr std::size_t kEntryCount = 2;

    AcRxDictionary() = default;

    Entry m_entries[kEntryCount] = {};
};

// The registry, made with its services at the first request.
AcRxDictionary* acrxSysRegistry();
