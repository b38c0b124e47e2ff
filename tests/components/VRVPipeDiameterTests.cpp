#include "ComponentTestKit.h"

#include "zefra/components/ZefraVRVPipeDiameterManager.h"

#include <vector>

namespace {

std::vector<double> Vector(const QoDynArrayBase<double>& list) {
    std::vector<double> values;
    for (const double* v = list.GetFirst(); v != nullptr; v = list.GetNext(v)) values.push_back(*v);
    return values;
}

QoList<double> ListOf(std::initializer_list<double> values) {
    QoList<double> list;
    for (double v : values) list.Append(v);
    return list;
}

std::vector<double> StoredDiameters(const wchar_t* which) {
    QoList<double> stored;
    const QoDtDictionary* dict = g_dictCfg.FindDict(CString(L"ZEFRA\\WATER\\VRVPIPE\\") + which);
    if (dict == nullptr || !dict->GetValue(L"DN", stored)) return {-1.0};
    return Vector(stored);
}

using VRVPipeDiameters = componenttest::FreshModule;

}  // namespace

TEST_F(VRVPipeDiameters, WithoutStoreBothListsStayEmptyUntilTheBuiltInSeriesIsAskedFor) {
    ZefraVRVPipeDiameterManager* manager = ZefraVRVPipeDiameterManager::GetInstance();
    EXPECT_EQ(manager->GetListData(true).GetLength(), 0);
    EXPECT_EQ(manager->GetListData(false).GetLength(), 0);
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA\\WATER\\VRVPIPE"), nullptr);

    manager->RestoreBuiltInSeries();
    const std::vector<double> first = Vector(manager->GetListData(true));
    ASSERT_EQ(first.size(), 16u);
    EXPECT_EQ(first.front(), 3.175);
    EXPECT_EQ(first[8], 28.58);
    EXPECT_EQ(first.back(), 50.8);
    EXPECT_EQ(Vector(manager->GetListData(false)), first);
}

TEST_F(VRVPipeDiameters, SavesReplaceTheStoredListsAndReadBack) {
    ZefraVRVPipeDiameterManager* manager = ZefraVRVPipeDiameterManager::GetInstance();
    manager->SetListData(ListOf({9.53, 12.7}), true);
    manager->SetListData(ListOf({15.88}), false);
    manager->SaveToDict();
    manager->SaveToDict();
    EXPECT_EQ(g_dictCfg.FindDict(L"ZEFRA\\WATER\\VRVPIPE\\WT")->children.GetLength(), 1);
    EXPECT_EQ(StoredDiameters(L"WT"), (std::vector<double>{9.53, 12.7}));
    EXPECT_EQ(StoredDiameters(L"AIR"), (std::vector<double>{15.88}));

    manager->SetListData(QoList<double>(), false);
    manager->SaveToDict();
    EXPECT_EQ(StoredDiameters(L"AIR"), std::vector<double>());

    ZefraVRVPipeDiameterManager copy = *manager;
    copy.SetListData(ListOf({1.0}), true);
    copy.ReadFromDict();
    EXPECT_EQ(Vector(copy.GetListData(true)), (std::vector<double>{9.53, 12.7}));
    EXPECT_EQ(copy.GetListData(false).GetLength(), 0);
}

TEST_F(VRVPipeDiameters, PartialStoresEmptyTheListsTheyName) {
    QoDtDictionary* branch = g_dictCfg.FindOrAddDict(L"ZEFRA\\WATER\\VRVPIPE");
    branch->FindOrAddDict(L"WT");  // no "DN"
    ZefraVRVPipeDiameterManager* manager = ZefraVRVPipeDiameterManager::GetInstance();
    manager->RestoreBuiltInSeries();
    manager->ReadFromDict();
    EXPECT_EQ(manager->GetListData(true).GetLength(), 0);
    EXPECT_EQ(manager->GetListData(false).GetLength(), 0);
    EXPECT_NE(branch->FindDict(L"AIR"), nullptr);  // made by the read

    // Without the root, a read keeps the lists.
    componenttest::ResetModule();
    manager = ZefraVRVPipeDiameterManager::GetInstance();
    manager->RestoreBuiltInSeries();
    manager->ReadFromDict();
    EXPECT_EQ(manager->GetListData(false).GetLength(), 16);
}
