#pragma once
// How the host reaches the module: the library entry, which keeps the
// module's handle, and the application entry point with its messages.
//
// At the start message the module registers itself with MFC, lets the host
// unload it on request, declares that it copes with several open drawings
// and defines its command group "ZefraDataBase" with the empty command
// "Sample". At the unload message the group goes and the MFC registration
// ends. Neither message builds a singleton or reads a configuration tree.

#include "zefra/platform/host/AcRx.h"
#include "zefra/platform/host/CDynLinkLibrary.h"

// API generation 18, in the form of the host's version handshake.
inline constexpr int kZefraAcrxApiVersion = 0x120000;
inline constexpr const wchar_t* kZefraCommandGroup = L"ZefraDataBase";
inline constexpr const wchar_t* kZefraSampleCommand = L"Sample";

// Reasons of the library entry.
enum EZefraLibraryReason : unsigned long {
    EZefraProcessDetach = 0,
    EZefraProcessAttach = 1,
    EZefraThreadAttach = 2,
    EZefraThreadDetach = 3,
};

// Keeps the handle for every reason and gives true.
bool ZefraDataBaseLibraryMain(void* moduleHandle, unsigned long reason);
void* ZefraDataBaseModuleHandle();
// The module's registration record with MFC.
const AFX_EXTENSION_MODULE& ZefraDataBaseExtensionModule();

// Gives kRetOK for every message; only start and unload do something.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);
extern "C" int acrxGetApiVersion();
