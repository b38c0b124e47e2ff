#pragma once
// MFC's registration of an extension library. AfxInitExtensionModule
// registers the module; a CDynLinkLibrary made afterwards links it into
// MFC's chain of extension libraries, which looks up resources and run-time
// classes across libraries; AfxTermExtensionModule undoes both.

struct AFX_EXTENSION_MODULE {
    bool bInitialized = false;
    void* hModule = nullptr;
};

class CDynLinkLibrary {
public:
    // Links the module into the chain; the chain owns the object from then
    // on and deletes it when the module ends its registration.
    CDynLinkLibrary(AFX_EXTENSION_MODULE& state, bool bSystem = false);
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;
    virtual ~CDynLinkLibrary();

    const AFX_EXTENSION_MODULE* GetModule() const { return m_module; }
    bool IsSystem() const { return m_system; }

    // How many libraries of that module the chain holds.
    static int CountLinked(const AFX_EXTENSION_MODULE& state);

private:
    friend void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, bool bAll);

    AFX_EXTENSION_MODULE* m_module;
    bool m_system;
    CDynLinkLibrary* m_next = nullptr;
};

// False when the module can't be registered (no handle, or a failure set
// with zefra::SetExtensionModuleInitFailure); the record is left as it was.
bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, void* hModule);
// Ends the registration and deletes the module's libraries in the chain.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, bool bAll = false);

namespace zefra {
// Makes every following AfxInitExtensionModule fail (true) or work again.
void SetExtensionModuleInitFailure(bool fail);
}  // namespace zefra
