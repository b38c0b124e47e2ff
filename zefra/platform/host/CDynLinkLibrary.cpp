#include "zefra/platform/host/CDynLinkLibrary.h"

namespace {
CDynLinkLibrary* s_chain = nullptr;
bool s_initFails = false;
}  // namespace

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, bool bSystem)
    : m_module(&state), m_system(bSystem), m_next(s_chain) {
    s_chain = this;
}

CDynLinkLibrary::~CDynLinkLibrary() {
    for (CDynLinkLibrary** link = &s_chain; *link != nullptr; link = &(*link)->m_next) {
        if (*link == this) {
            *link = m_next;
            break;
        }
    }
}

int CDynLinkLibrary::CountLinked(const AFX_EXTENSION_MODULE& state) {
    int count = 0;
    for (const CDynLinkLibrary* library = s_chain; library != nullptr; library = library->m_next)
        if (library->m_module == &state) ++count;
    return count;
}

bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, void* hModule) {
    if (s_initFails || hModule == nullptr) return false;
    state.bInitialized = true;
    state.hModule = hModule;
    return true;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, bool /*bAll*/) {
    CDynLinkLibrary* library = s_chain;
    while (library != nullptr) {
        CDynLinkLibrary* next = library->m_next;
        if (library->m_module == &state) delete library;
        library = next;
    }
    state.bInitialized = false;
}

namespace zefra {
void SetExtensionModuleInitFailure(bool fail) { s_initFails = fail; }
}  // namespace zefra
