// The system register: names and keys, flags, adding and deleting systems,
// the way back from layer names to layer keys, and refreshing.

#include "LayerTestKit.h"

#include <vector>

using namespace HVAC;
using SystemRegisterTest = LayerTest;

namespace {

std::vector<std::string> Texts(const CStringArray& array) {
    std::vector<std::string> texts;
    for (int i = 0; i < array.GetSize(); ++i) texts.push_back(U(array[i]));
    return texts;
}

const wchar_t* const kKtPipePlan = L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LG-NT_MODEL_PIPE";

}  // namespace

TEST_F(SystemRegisterTest, DisplayNamesAndKeysAreNotInterchangeable) {
    QoHvacDuctLayerManager& reg = Register();
    CString key = L"untouched";
    EXPECT_TRUE(reg.GetSysKey(L"冷却回水", key, ESysKT));
    EXPECT_EQ(U(key), "LQH");
    EXPECT_FALSE(reg.GetSysKey(L"LQH", key, ESysKT));
    EXPECT_EQ(U(key), "LQH");
    CString name;
    EXPECT_TRUE(reg.GetSysLocalName(L"QG", name, ESysVRV));
    EXPECT_EQ(U(name), "气管");
    EXPECT_FALSE(reg.GetSysLocalName(L"气管", name, ESysVRV));

    EXPECT_TRUE(reg.FindName(L"排烟", ESysDuct));
    EXPECT_FALSE(reg.FindName(L"PY", ESysDuct));
    EXPECT_TRUE(reg.FindDuctSys(L"PY"));
    EXPECT_FALSE(reg.FindDuctSys(L"排烟"));
    // The same display name lives apart in each kind.
    EXPECT_TRUE(reg.GetSysKey(L"供水", key, ESysCZCN));
    EXPECT_EQ(U(key), "RG");

    const auto unknownKind = static_cast<EQoDbHvacSystemType>(42);
    EXPECT_EQ(reg.GetSysDefDict(unknownKind), nullptr);
    EXPECT_FALSE(reg.FindSystem(L"RG", unknownKind));
    CStringArray names;
    EXPECT_TRUE(reg.GetAllSystemName(names, unknownKind));
    EXPECT_EQ(names.GetSize(), 0);
}

TEST_F(SystemRegisterTest, NameListsAppendAndFlagListsReplace) {
    CStringArray names;
    EXPECT_TRUE(GetAllSystemName(names, ESysVRV));
    EXPECT_TRUE(GetAllSystemName(names, ESysVRV));
    EXPECT_EQ(Texts(names), (std::vector<std::string>{"液管", "气管", "冷凝水", "液管", "气管", "冷凝水"}));
    QoArray<CString> inHouse;
    EXPECT_TRUE(GetAllSystemName(inHouse, ESysDBCN));
    ASSERT_EQ(inHouse.GetLength(), 2);
    EXPECT_EQ(U(inHouse[1]), "回水");

    CStringArray flags;
    flags.Add(L"stale");
    EXPECT_TRUE(Register().GetAllFlag(flags, ESysKT));
    // The condensate flag is stored in lower case and read in upper case.
    EXPECT_EQ(Texts(flags), (std::vector<std::string>{"LG", "LH", "LQG", "LQH", "N"}));
    EXPECT_TRUE(Register().FindFlag(L"N", ESysKT));
    EXPECT_FALSE(Register().FindFlag(L"n", ESysKT));
    EXPECT_FALSE(Register().FindFlag(L"", ESysKT));
    EXPECT_EQ(U(Register().GetFlagWithSysname(L"LG", ESysKT)), "");  // a key is no display name
}

TEST_F(SystemRegisterTest, AddSystemClonesTheSampleGroupWithTheNewKey) {
    QoHvacDuctLayerManager& reg = Register();
    ASSERT_TRUE(reg.AddSystem(L"LG2", L"二次冷冻供水", L"二次泵系统", L"LG", ESysKT));

    const QoDtDictItem* system = reg.GetSysDefDict(ESysKT)->FindItem(L"LG2");
    ASSERT_NE(system, nullptr);
    EXPECT_EQ(U(system->localname), "二次冷冻供水");
    EXPECT_EQ(U(system->GetAttributeValue(L"color")), "4");
    EXPECT_EQ(U(system->GetAttributeValue(L"linetype")), "Continuous");
    EXPECT_EQ(U(system->GetAttributeValue(L"comment")), "");
    EXPECT_EQ(U(static_cast<const QoDtDictStringItem*>(system)->value), "二次泵系统");

    const QoDtDictionary& sample = Group(L"空调水路", L"冷冻供水");
    const QoDtDictionary& added = Group(L"空调水路", L"二次冷冻供水");
    ASSERT_EQ(added.children.GetLength(), sample.children.GetLength());
    const QoDtDictItem* entry = added.children.GetAt(0);
    EXPECT_EQ(U(entry->name), "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LG2-NT_MODEL_PIPE");
    EXPECT_EQ(U(static_cast<const QoDtDictStringItem*>(entry)->value), "");
    EXPECT_EQ(entry->GetAttributes().GetCount(), 0);

    // The new system resolves: derived layer name, the sample's colour; no flag yet.
    QoDtLayerDef def(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LG2-NT_MODEL_PIPE");
    ASSERT_TRUE(reg.GetLayerDef(def, nullptr));
    EXPECT_EQ(U(def.layerName), "暖通-空调水-水管-二次冷冻供水");
    EXPECT_EQ(U(reg.GetFlagWithSysname(L"二次冷冻供水", ESysKT)), "");
    EXPECT_TRUE(reg.FindFlag(L"", ESysKT));

    // Adding the key again overwrites in place.
    const int count = reg.GetSysDefDict(ESysKT)->children.GetLength();
    ASSERT_TRUE(reg.AddSystem(L"LG2", L"二次冷冻供水", L"改", L"LH", ESysKT));
    EXPECT_EQ(reg.GetSysDefDict(ESysKT)->children.GetLength(), count);
    EXPECT_EQ(U(reg.GetSysDefDict(ESysKT)->FindItem(L"LG2")->GetAttributeValue(L"linetype")), "DASHED");
}

TEST_F(SystemRegisterTest, AddSystemSampleRules) {
    QoHvacDuctLayerManager& reg = Register();
    // No sample: the kind's first system.
    ASSERT_TRUE(reg.AddDuctSys(L"BF", L"补风", L"", L""));
    EXPECT_EQ(U(reg.GetSysDefDict(ESysDuct)->FindItem(L"BF")->GetAttributeValue(L"color")), "4");
    EXPECT_NE(Group(L"通风", L"补风").FindItem(L"HVAC-NT_PROJ_TFGC-NT_CLASS_SYS-BF-NT_MODEL_FLEXDUCT"), nullptr);

    // An unknown sample adds the system with an empty definition and no group.
    ASSERT_TRUE(reg.AddSystem(L"X", L"无样本", L"", L"NOPE", ESysKT));
    EXPECT_EQ(U(reg.GetSysDefDict(ESysKT)->FindItem(L"X")->GetAttributeValue(L"color")), "7");
    EXPECT_EQ(reg.GetAssDict(ESysKT)->FindItem(L"无样本"), nullptr);

    // A new key whose text holds the sample key, under the sample's own name:
    // the group gains the new keys once.
    const int before = Group(L"多联机", L"液管").children.GetLength();
    ASSERT_TRUE(reg.AddSystem(L"YG2", L"液管", L"", L"YG", ESysVRV));
    EXPECT_EQ(Group(L"多联机", L"液管").children.GetLength(), 2 * before);

    // A kind without systems adds nothing; one without a list can't add.
    reg.GetSysDefDict(ESysFHCN)->children.Reset();
    EXPECT_TRUE(reg.AddSystem(L"RG", L"供水", L"", L"", ESysFHCN));
    EXPECT_EQ(reg.GetSysDefDict(ESysFHCN)->children.GetLength(), 0);
    Standard().FindDict(L"LAYER_FIELD_DEF\\暖通\\系统")->children.Reset();
    EXPECT_FALSE(reg.AddSystem(L"RG", L"供水", L"", L"RG", ESysCZCN));
}

TEST_F(SystemRegisterTest, DelSystemRemovesSystemAndGroup) {
    QoHvacDuctLayerManager& reg = Register();
    EXPECT_FALSE(reg.DelSystem(L"冷冻供水", ESysKT));
    ASSERT_TRUE(reg.DelSystem(L"LG", ESysKT));
    EXPECT_FALSE(reg.FindSystem(L"LG", ESysKT));
    EXPECT_EQ(reg.GetAssDict(ESysKT)->FindItem(L"冷冻供水"), nullptr);
    EXPECT_NE(reg.GetAssDict(ESysKT)->FindItem(L"冷冻回水"), nullptr);

    // Without its group the system still goes.
    reg.GetAssDict(ESysDuct)->children.Reset();
    EXPECT_TRUE(reg.DelDuctSys(L"SF"));
    EXPECT_FALSE(reg.FindDuctName(L"送风"));
    // Without an assembly tree at all, the kinds have no groups.
    Standard().FindDict(L"ASSEMBLY_LAYER_DEF")->children.Reset();
    reg.ReRead();
    EXPECT_EQ(reg.GetAssDict(ESysKT), nullptr);
    EXPECT_TRUE(reg.DelSystem(L"LH", ESysKT));
}

TEST_F(SystemRegisterTest, LayerNamesLeadBackToKeysTreeFirstThenTable) {
    QoHvacDuctLayerManager& reg = Register();
    EXPECT_EQ(U(reg.TransUserLayerToSys(L"暖通-空调水-水管-冷冻供水")), U(kKtPipePlan));
    EXPECT_EQ(U(reg.TransUserLayerToSys(L"没有这个图层")), "");

    // The user renames the layer: the table still knows the old name ...
    auto* entry = static_cast<QoDtDictStringItem*>(Group(L"空调水路", L"冷冻供水").FindItem(kKtPipePlan));
    entry->value = L"LG-水管";
    EXPECT_EQ(U(reg.TransUserLayerToSys(L"暖通-空调水-水管-冷冻供水")), U(kKtPipePlan));
    EXPECT_EQ(U(reg.TransUserLayerToSys(L"LG-水管")), U(kKtPipePlan));
    // ... until it is rebuilt.
    reg.ReReadSysUserComparison();
    EXPECT_EQ(U(reg.TransUserLayerToSys(L"暖通-空调水-水管-冷冻供水")), "");

    // A name both in the tree and, for another key, in the table: the tree wins.
    auto* other = static_cast<QoDtDictStringItem*>(
        Group(L"空调水路", L"冷冻回水").FindItem(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LH-NT_MODEL_PIPE"));
    const CString oldName = other->value;
    entry->value = oldName;
    other->value = L"改名";
    EXPECT_EQ(U(reg.TransUserLayerToSys(oldName)), U(kKtPipePlan));
}

TEST_F(SystemRegisterTest, PointersFollowTheCurrentStandardAtTheNextCall) {
    QoHvacDuctLayerManager& reg = Register();
    QoDtDictionary& layerRoot = *g_dictCfg.FindDict(L"LAYER");
    QoDtDictionary* copy = layerRoot.FindOrAddDict(L"COPY");
    copy->CopyData(*layerRoot.FindDict(L"DEFAULT"));
    copy->name = L"COPY";
    copy->FindDict(L"LAYER_FIELD_DEF\\暖通\\系统\\风管系统")->children.Reset();
    layerRoot.SetValue(L"CURRENT_STD", CString(L"COPY"));

    EXPECT_FALSE(reg.FindDuctName(L"送风"));
    EXPECT_EQ(reg.GetSysDefDict(ESysDuct), copy->FindDict(L"LAYER_FIELD_DEF\\暖通\\系统\\风管系统"));
    // The copy of the manager shares the borrowed pointers.
    const QoHvacDuctLayerManager shared(reg);
    EXPECT_EQ(shared.GetAssDict(ESysKT), reg.GetAssDict(ESysKT));
    EXPECT_EQ(QoHvacDuctLayerManager::GetInstance(), &reg);
}
