#include "zefra/components/QoHvacDuctFitManager.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/module/ZefraDataBaseEntry.h"
#include "zefra/module/ZefraModule.h"
#include "zefra/module/ZefraModuleExitList.h"
#include "zefra/platform/host/AcEdCommandStack.h"
#include "zefra/platform/host/AcRxDynamicLinker.h"

#include <gtest/gtest.h>

namespace {

bool SampleIsDefined() {
    return acedRegCmds()->groupOf(kZefraSampleCommand) == CString(kZefraCommandGroup);
}

}  // namespace

TEST(ModuleEntry, StartDefinesTheCommandGroupAndUnloadRemovesIt) {
    const QoDtConfigStore::ELoadState configBefore = QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig);
    const int registeredBefore = ZefraModuleExitList::GetCount();
    void* app = nullptr;
    {
        ZefraModule module;
        app = module.GetAppHandle();
        EXPECT_TRUE(SampleIsDefined());
        EXPECT_TRUE(acedRegCmds()->runCommand(L"SAMPLE"));  // does nothing, names are case blind
        EXPECT_FALSE(acrxDynamicLinker()->isApplicationLocked(app));
        EXPECT_TRUE(acrxDynamicLinker()->isAppMDIAware(app));
        EXPECT_TRUE(ZefraDataBaseExtensionModule().bInitialized);
        EXPECT_EQ(CDynLinkLibrary::CountLinked(ZefraDataBaseExtensionModule()), 1);
        EXPECT_NE(ZefraDataBaseModuleHandle(), nullptr);

        // Drawing and subroutine messages change nothing.
        const int commands = acedRegCmds()->count();
        for (AcRx::AppMsgCode msg : {AcRx::kLoadDwgMsg, AcRx::kUnloadDwgMsg, AcRx::kInvkSubrMsg,
                                     static_cast<AcRx::AppMsgCode>(42)})
            EXPECT_EQ(acrxEntryPoint(msg, app), AcRx::kRetOK);
        EXPECT_EQ(acedRegCmds()->count(), commands);
        EXPECT_EQ(CDynLinkLibrary::CountLinked(ZefraDataBaseExtensionModule()), 1);
    }
    EXPECT_FALSE(acedRegCmds()->hasGroup(kZefraCommandGroup));
    EXPECT_FALSE(acedRegCmds()->runCommand(kZefraSampleCommand));
    EXPECT_FALSE(ZefraDataBaseExtensionModule().bInitialized);
    EXPECT_EQ(CDynLinkLibrary::CountLinked(ZefraDataBaseExtensionModule()), 0);
    // Neither message built a singleton or loaded a tree.
    EXPECT_EQ(ZefraModuleExitList::GetCount(), registeredBefore);
    EXPECT_EQ(QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig), configBefore);
    EXPECT_EQ(acrxGetApiVersion(), 0x120000);
}

TEST(ModuleEntry, AFailedMfcRegistrationStillDefinesTheCommands) {
    zefra::SetExtensionModuleInitFailure(true);
    {
        ZefraModule module;
        EXPECT_FALSE(ZefraDataBaseExtensionModule().bInitialized);
        EXPECT_EQ(CDynLinkLibrary::CountLinked(ZefraDataBaseExtensionModule()), 0);
        EXPECT_TRUE(SampleIsDefined());
        EXPECT_TRUE(acrxDynamicLinker()->isAppMDIAware(module.GetAppHandle()));
    }
    zefra::SetExtensionModuleInitFailure(false);
    EXPECT_FALSE(acedRegCmds()->hasGroup(kZefraCommandGroup));
}

TEST(ModuleEntry, UnloadingTheModuleDestroysTheSingletonsBuiltMeanwhile) {
    {
        ZefraModule module;
        QoDtDictionary empty;
        g_dictCfg.Swap(empty);
        QoHvacDuctFitManager::GetInstance();
        EXPECT_TRUE(QoModuleSingleton<QoHvacDuctFitManager>::IsBuilt());
    }
    EXPECT_FALSE(QoModuleSingleton<QoHvacDuctFitManager>::IsBuilt());
    EXPECT_EQ(ZefraModuleExitList::GetCount(), 0);
}
