#include "zefra/module/ZefraDataBaseEntry.h"

#include "zefra/platform/host/AcEdCommandStack.h"
#include "zefra/platform/host/AcRxDictionary.h"
#include "zefra/platform/host/AcRxDynamicLinker.h"
#include "zefra/platform/host/QoCmdTable.h"

namespace {

void* s_moduleHandle = nullptr;
AFX_EXTENSION_MODULE s_extensionModule;

// The group needs one command to exist on the host; it does nothing.
void SampleCommand() {}

const QoCmdTable s_commandTable[] = {{kZefraSampleCommand, &SampleCommand, 0}};

void StartApplication(void* pkt) {
    // A failed MFC registration leaves the module without its MFC link;
    // the rest of the start goes on all the same.
    if (AfxInitExtensionModule(s_extensionModule, s_moduleHandle)) new CDynLinkLibrary(s_extensionModule, false);
    acrxUnlockApplication(pkt);
    static_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))->registerAppMDIAware(pkt);
    QoDefineCommand(kZefraCommandGroup, s_commandTable, 1, 0);
}

void UnloadApplication() {
    static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))->removeGroup(kZefraCommandGroup);
    AfxTermExtensionModule(s_extensionModule, false);
}

}  // namespace

bool ZefraDataBaseLibraryMain(void* moduleHandle, unsigned long /*reason*/) {
    s_moduleHandle = moduleHandle;
    return true;
}

void* ZefraDataBaseModuleHandle() { return s_moduleHandle; }

const AFX_EXTENSION_MODULE& ZefraDataBaseExtensionModule() { return s_extensionModule; }

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    switch (msg) {
        case AcRx::kInitAppMsg: StartApplication(pkt); break;
        case AcRx::kUnloadAppMsg: UnloadApplication(); break;
        default: break;
    }
    return AcRx::kRetOK;
}

extern "C" int acrxGetApiVersion() { return kZefraAcrxApiVersion; }
