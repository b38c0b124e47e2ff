#include "ComponentTestKit.h"

#include "zefra/components/QoHvacDrawSetManager.h"
#include "zefra/components/QoHvacDuctDisplayManager.h"
#include "zefra/components/QoHvacDuctFitManager.h"
#include "zefra/components/QoHvacDuctFlangeManager.h"
#include "zefra/components/QoHvacWTFlangeManager.h"
#include "zefra/components/ZefraVRVPipeDiameterManager.h"

#include <string>
#include <vector>

using HVAC::ESysCZCN;
using HVAC::ESysDBCN;
using HVAC::ESysDuct;
using HVAC::ESysKT;

namespace {

const wchar_t* const kBranches[] = {L"ZEFRA\\FLANGESET",      L"ZEFRA\\WATER\\FLANGESET", L"ZEFRA\\HEATING\\FLANGESET",
                                    L"ZEFRA\\WATER\\VRVPIPE", L"ZEFRA\\DEFAULTFITTING",   L"ZEFRA\\DISPLAYSET",
                                    L"ZEFRA\\WATER\\DISPLAYSET", L"ZEFRA\\WATER\\DRAWSET", L"ZEFRA\\HEATING\\DRAWSET",
                                    L"ZEFRA\\DBCN\\DRAWSET"};

void LoadShippedConfiguration() {
    CString message;
    ASSERT_TRUE(g_dictCfg.LoadFromXML(CString(ZEFRA_SOURCE_DATA_DIR "/Config.xml"), &message)) << message.ToUtf8();
}

// Builds the managers from what g_dictCfg holds now.
void BuildAllManagers() {
    QoHvacDuctFlangeManager::GetInstance();
    QoHvacWTFlangeManager::GetInstance();
    ZefraVRVPipeDiameterManager::GetInstance();
    QoHvacDuctFitManager::GetInstance();
    QoHvacDuctDisplayManager::GetInstance();
    QoHvacDrawSetManager::GetInstance();
}

// Every manager saves everything it would read into a tree that has only
// the places where savers write without creating.
void SaveAllInto(QoDtDictionary& target) {
    for (const wchar_t* branch : kBranches) target.FindOrAddDict(branch);
    target.FindOrAddDict(L"ZEFRA\\FLANGESET\\SIZESET");
    componenttest::AddOption(*target.FindDict(L"ZEFRA\\FLANGESET"), L"STYLE", {}, 0);
    for (const wchar_t* display : {L"ZEFRA\\DISPLAYSET", L"ZEFRA\\WATER\\DISPLAYSET"}) {
        target.FindOrAddDict(CString(display) + L"\\DISPLAYAXIS");
        componenttest::AddOption(*target.FindDict(display), L"LINETYPE", {}, 0);
    }
    g_dictCfg.Swap(target);
    QoHvacDuctFlangeManager::GetInstance()->SaveToDict();
    QoHvacWTFlangeManager::GetInstance()->SaveToDict(ESysKT);
    QoHvacWTFlangeManager::GetInstance()->SaveToDict(ESysCZCN);
    ZefraVRVPipeDiameterManager::GetInstance()->SaveToDict();
    QoHvacDuctFitManager::GetInstance()->SaveData();
    QoHvacDuctDisplayManager::GetInstance()->SaveToDict(ESysDuct);
    QoHvacDuctDisplayManager::GetInstance()->SaveToDict(ESysKT);
    for (HVAC::EQoDbHvacSystemType kind : {ESysKT, ESysCZCN, ESysDBCN}) QoHvacDrawSetManager::GetInstance()->SaveToDict(kind);
    g_dictCfg.Swap(target);
}

// Paths of `written` that `shipped` lacks or holds with another kind.
void CollectMissing(const QoDtDictionary& written, const QoDtDictionary& shipped, const std::string& path,
                    std::vector<std::string>& missing) {
    for (QoDtDictItem* const* child = written.children.GetFirst(); child != nullptr;
         child = written.children.GetNext(child)) {
        const std::string childPath = path + "\\" + (*child)->name.ToUtf8();
        const QoDtDictItem* counterpart = shipped.FindItem((*child)->name);
        if (counterpart == nullptr || counterpart->GetType() != (*child)->GetType()) {
            missing.push_back(childPath);
        } else if ((*child)->IsDict()) {
            CollectMissing(static_cast<const QoDtDictionary&>(**child), static_cast<const QoDtDictionary&>(*counterpart),
                           childPath, missing);
        }
    }
}

using ShippedConfiguration = componenttest::FreshModule;

}  // namespace

TEST_F(ShippedConfiguration, HoldsEveryKeyThatTheComponentSettingsRead) {
    LoadShippedConfiguration();
    QoDtDictionary shipped;
    shipped.CopyData(g_dictCfg);
    for (const wchar_t* branch : kBranches) ASSERT_NE(shipped.FindDict(branch), nullptr) << CString(branch).ToUtf8();

    BuildAllManagers();
    QoDtDictionary written;
    SaveAllInto(written);
    std::vector<std::string> missing;
    for (const wchar_t* branch : kBranches)
        if (const QoDtDictionary* stored = shipped.FindDict(branch))
            CollectMissing(*written.FindDict(branch), *stored, CString(branch).ToUtf8(), missing);
    EXPECT_EQ(missing, std::vector<std::string>());

    // Rows are stored one item each: the shipped tables have as many.
    EXPECT_EQ(written.FindDict(L"ZEFRA\\FLANGESET\\SIZESET")->children.GetLength(),
              shipped.FindDict(L"ZEFRA\\FLANGESET\\SIZESET")->children.GetLength());
    EXPECT_EQ(written.FindDict(L"ZEFRA\\WATER\\FLANGESET")->children.GetLength(),
              shipped.FindDict(L"ZEFRA\\WATER\\FLANGESET")->children.GetLength());
}

TEST_F(ShippedConfiguration, GivesTheManagersItsTables) {
    LoadShippedConfiguration();
    EXPECT_GT(QoHvacDuctFlangeManager::GetInstance()->GetSizeSetNum(), 2);
    EXPECT_NE(QoHvacDuctFlangeManager::GetInstance()->GetFlangeEntityType(), QoDbHvacDuctFlange::EFlangeNone);
    EXPECT_GT(QoHvacWTFlangeManager::GetInstance()->GetKTThickness(100), 1.0);
    EXPECT_GT(QoHvacWTFlangeManager::GetInstance()->GetThickness(100, ESysCZCN), 1.0);
    EXPECT_GT(ZefraVRVPipeDiameterManager::GetInstance()->GetListData(false).GetLength(), 0);
    EXPECT_EQ(QoHvacDuctDisplayManager::GetInstance()->GetLineType(ESysKT), 0);
    EXPECT_EQ(QoHvacDuctDisplayManager::GetInstance()->GetLineType(ESysDuct), 1);
}
