#include "zefra/module/ZefraModule.h"

#include "zefra/module/ZefraDataBaseEntry.h"
#include "zefra/module/ZefraModuleExitList.h"

namespace {
// The handle a loader gives the library; only its identity matters.
char s_libraryImage = 0;
}  // namespace

ZefraModule::ZefraModule() {
    ZefraDataBaseLibraryMain(&s_libraryImage, EZefraProcessAttach);
    acrxEntryPoint(AcRx::kInitAppMsg, GetAppHandle());
}

ZefraModule::~ZefraModule() {
    acrxEntryPoint(AcRx::kUnloadAppMsg, GetAppHandle());
    ZefraDataBaseLibraryMain(&s_libraryImage, EZefraProcessDetach);
    ZefraModuleExitList::RunAll();
}
