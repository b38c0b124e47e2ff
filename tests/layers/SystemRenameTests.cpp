// Renaming systems and adding them from a sample: a system keeps one group,
// its look and its layers; a sample key is replaced only where it stands as
// the system part of a layer key; each kind is a register of its own.

#include "LayerTestKit.h"
#include "config/ConfigTestSupport.h"

#include <functional>
#include <string>
#include <vector>

using namespace HVAC;
using Reg = QoHvacDuctLayerManager;
using Edit = QoHvacDuctLayerManager::ESystemEdit;
using SystemEditTest = LayerTest;

namespace {

struct Resolved {
    bool defined = false;
    std::string layerName;
    int color = -1;
    std::string lineType;
    double weight = -1.0;
    std::string comment;
};

Resolved Resolve(const CString& layerKey) {
    QoDtLayerDef def(layerKey);
    Resolved r;
    r.defined = QoHvacDuctLayerManager::GetInstance()->GetLayerDef(def, nullptr);
    r.layerName = U(def.layerName);
    r.color = def.colorIndex;
    r.lineType = U(def.lineType);
    r.weight = def.GetLineWeight();
    r.comment = U(def.comment);
    return r;
}

void ExpectSame(const Resolved& a, const Resolved& b, const std::string& where) {
    EXPECT_EQ(a.defined, b.defined) << where;
    EXPECT_EQ(a.layerName, b.layerName) << where;
    EXPECT_EQ(a.color, b.color) << where;
    EXPECT_EQ(a.lineType, b.lineType) << where;
    EXPECT_EQ(a.weight, b.weight) << where;
    EXPECT_EQ(a.comment, b.comment) << where;
}

// The groups of a kind that hold the layer key.
int GroupsHolding(QoDtDictionary* groups, const CString& layerKey) {
    int count = 0;
    for (QoDtDictItem* const* p = groups->children.GetFirst(); p; p = groups->children.GetNext(p))
        if ((*p)->IsDict() && static_cast<QoDtDictionary*>(*p)->children.Find(layerKey.Str())) ++count;
    return count;
}

std::vector<std::string> EntryKeys(const QoDtDictionary& group) {
    std::vector<std::string> keys;
    for (QoDtDictItem* const* p = group.children.GetFirst(); p; p = group.children.GetNext(p))
        keys.push_back(U((*p)->name));
    return keys;
}

CString Key(const wchar_t* prefix, const wchar_t* system, const wchar_t* model) {
    return CString(prefix) + L"NT_CLASS_PLANE-" + system + L"-" + model;
}

}  // namespace

TEST_F(SystemEditTest, AGroupLeftUnderAFormerNameNeverWins) {
    // The system's own AddSystem on an existing key under a new name leaves
    // the old group behind, first in the list, with the same layer keys.
    const CString pipe = Key(L"HVAC-NT_PROJ_KT-", L"LG", L"NT_MODEL_PIPE");
    auto* stale = static_cast<QoDtDictStringItem*>(Group(L"空调水路", L"冷冻供水").FindItem(pipe));
    stale->value = L"旧图层";
    stale->SetAttributeValue(L"color", L"1");
    ASSERT_TRUE(Register().AddSystem(L"LG", L"冷冻供水新", L"", L"LG", ESysKT));
    ASSERT_EQ(GroupsHolding(Register().GetAssDict(ESysKT), pipe), 2);

    const Resolved r = Resolve(pipe);
    ASSERT_TRUE(r.defined);
    EXPECT_EQ(r.layerName, "暖通-空调水-水管-冷冻供水新");
    EXPECT_EQ(r.color, 4);
    EXPECT_EQ(r.lineType, "Continuous");
    EXPECT_GT(r.weight, 0.0);
}

TEST_F(SystemEditTest, RenamingKeepsLookLayersAndFlag) {
    struct Case {
        EQoDbHvacSystemType kind;
        const wchar_t* groupDict;
        const wchar_t* prefix;
        const wchar_t* key;
        const wchar_t* oldName;
        const wchar_t* newName;
        const wchar_t* model;
    };
    const Case cases[] = {
        {ESysKT, L"空调水路", L"HVAC-NT_PROJ_KT-", L"LH", L"冷冻回水", L"一次冷冻回水", L"NT_MODEL_PIPE"},
        {ESysDuct, L"通风", L"HVAC-NT_PROJ_TFGC-", L"PY", L"排烟", L"消防排烟", L"NT_MODEL_DUCT"},
        {ESysVRV, L"多联机", L"HVAC-NT_PROJ_VRV-", L"N", L"冷凝水", L"冷凝排水", L"NT_MODEL_RISER"},
    };
    for (const Case& c : cases) {
        const std::string where = U(c.key);
        const CString layerKey = Key(c.prefix, c.key, c.model);
        // A weight and an entry of the user's own go with the system.
        Register().GetSysDefDict(c.kind)->FindItem(c.key)->SetAttributeValue(L"lineweight", L"0.7");
        auto* entry = static_cast<QoDtDictStringItem*>(Group(c.groupDict, c.oldName).FindItem(layerKey));
        entry->value = L"我的图层";
        const Resolved before = Resolve(layerKey);
        const CString flag = Register().GetFlagWithSysname(c.oldName, c.kind);
        const int groupCount = Register().GetAssDict(c.kind)->children.GetLength();

        ASSERT_EQ(Register().RenameSystem(c.key, L"", c.newName, {}, c.kind), Reg::eSystemEdited) << where;

        ExpectSame(Resolve(layerKey), before, where);
        EXPECT_EQ(before.layerName, "我的图层");
        EXPECT_EQ(GroupsHolding(Register().GetAssDict(c.kind), layerKey), 1) << where;
        EXPECT_EQ(Register().GetAssDict(c.kind)->FindItem(c.oldName), nullptr) << where;
        EXPECT_EQ(Register().GetAssDict(c.kind)->children.GetLength(), groupCount) << where;
        EXPECT_EQ(U(Register().GetFlagWithSysname(c.newName, c.kind)), U(flag)) << where;
        CString name;
        EXPECT_TRUE(Register().GetSysLocalName(c.key, name, c.kind));
        EXPECT_EQ(U(name), U(c.newName));
    }
}

TEST_F(SystemEditTest, RenamingSetsOnlyWhatIsGiven) {
    QoHvacDuctLayerManager::SSystemLook look;
    look.colorIndex = 200;
    look.comment = CString(L"LGX");
    ASSERT_EQ(Register().RenameSystem(L"LG", L"", L"", look, ESysKT), Reg::eSystemEdited);
    const QoDtDictItem* system = Register().GetSysDefDict(ESysKT)->FindItem(L"LG");
    EXPECT_EQ(U(system->localname), "冷冻供水");
    EXPECT_EQ(U(system->GetAttributeValue(L"color")), "200");
    EXPECT_EQ(U(system->GetAttributeValue(L"linetype")), "Continuous");
    EXPECT_EQ(U(static_cast<const QoDtDictStringItem*>(system)->value), "空调冷冻水供水管");
    const Resolved pipe = Resolve(Key(L"HVAC-NT_PROJ_KT-", L"LG", L"NT_MODEL_PIPE"));
    EXPECT_EQ(pipe.color, 200);
    EXPECT_EQ(pipe.comment, "LGX");  // the pipe code
}

TEST_F(SystemEditTest, ANewKeyReplacesOnlyTheSystemPart) {
    // "N" is also in "NT_PROJ", "NT_CLASS_PLANE" and "NT_MODEL_...".
    const int entries = Group(L"空调水路", L"冷凝水").children.GetLength();
    const Resolved before = Resolve(Key(L"HVAC-NT_PROJ_KT-", L"N", L"NT_MODEL_PIPE"));
    ASSERT_EQ(Register().RenameSystem(L"N", L"N2", L"", {}, ESysKT), Reg::eSystemEdited);

    const std::vector<std::string> keys = EntryKeys(Group(L"空调水路", L"冷凝水"));
    ASSERT_EQ(static_cast<int>(keys.size()), entries);
    for (const std::string& key : keys) {
        EXPECT_EQ(key.find("N2T"), std::string::npos) << key;
        EXPECT_NE(key.find("-N2"), std::string::npos) << key;
    }
    ExpectSame(Resolve(Key(L"HVAC-NT_PROJ_KT-", L"N2", L"NT_MODEL_PIPE")), before, "N2");
    EXPECT_FALSE(Resolve(Key(L"HVAC-NT_PROJ_KT-", L"N", L"NT_MODEL_PIPE")).defined);
    // The flag moves with the key; the VRV system "N" is another register's.
    EXPECT_EQ(U(Register().GetFlagWithSysname(L"冷凝水", ESysKT)), "N");
    EXPECT_NE(g_dictCfg.FindItem(L"ZEFRA\\WATER\\NT_KT_SET\\N2"), nullptr);
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA\\WATER\\NT_KT_SET\\N"), nullptr);
    EXPECT_TRUE(Register().FindSystem(L"N", ESysVRV));
    EXPECT_NE(Group(L"多联机", L"冷凝水").FindItem(Key(L"HVAC-NT_PROJ_VRV-", L"N", L"NT_MODEL_PIPE")), nullptr);
}

TEST_F(SystemEditTest, ASampleCopyCarriesTheNewKeyInTheSystemPartOnly) {
    const QoDtDictionary& sample = Group(L"空调水路", L"冷凝水");
    ASSERT_EQ(Register().AddSystemFromSample(L"N2", L"冷凝水二", L"N", {}, ESysKT), Reg::eSystemEdited);
    const QoDtDictionary& added = Group(L"空调水路", L"冷凝水二");
    ASSERT_EQ(added.children.GetLength(), sample.children.GetLength());
    for (const std::string& key : EntryKeys(added)) {
        EXPECT_EQ(key.rfind("HVAC-NT_PROJ_KT-NT_CLASS_", 0), 0u) << key;
        EXPECT_NE(key.find("-N2"), std::string::npos) << key;
        EXPECT_EQ(key.find("N2T"), std::string::npos) << key;
    }
    // Look from the sample, a code of its own (none given), layer names
    // that follow the new display name.
    const Resolved pipe = Resolve(Key(L"HVAC-NT_PROJ_KT-", L"N2", L"NT_MODEL_PIPE"));
    EXPECT_EQ(pipe.layerName, "暖通-空调水-水管-冷凝水二");
    EXPECT_EQ(pipe.color, 3);
    EXPECT_EQ(pipe.lineType, "DASHDOT");
    EXPECT_EQ(pipe.comment, "");
    // The sample is untouched.
    EXPECT_EQ(Resolve(Key(L"HVAC-NT_PROJ_KT-", L"N", L"NT_MODEL_PIPE")).layerName, "暖通-空调水-水管-冷凝水");
}

TEST_F(SystemEditTest, TheSampleComesFromTheSameKind) {
    // VRV's condensate looks unlike KT's here; both have the key "N".
    QoDtDictItem* vrvN = Register().GetSysDefDict(ESysVRV)->FindItem(L"N");
    vrvN->SetAttributeValue(L"color", L"5");
    vrvN->SetAttributeValue(L"linetype", L"HIDDEN");
    QoHvacDuctLayerManager::SSystemLook look;
    look.comment = CString(L"N3");
    ASSERT_EQ(Register().AddSystemFromSample(L"N3", L"冷凝水三", L"N", look, ESysVRV), Reg::eSystemEdited);
    const Resolved pipe = Resolve(Key(L"HVAC-NT_PROJ_VRV-", L"N3", L"NT_MODEL_PIPE"));
    EXPECT_EQ(pipe.color, 5);
    EXPECT_EQ(pipe.lineType, "HIDDEN");
    EXPECT_EQ(pipe.comment, "N3");
    EXPECT_EQ(pipe.layerName, "暖通-多联机-冷媒管-冷凝水三");

    // A key that only another kind has is no sample.
    QoDtDictionary before;
    before.CopyData(g_dictCfg);
    EXPECT_EQ(Register().AddSystemFromSample(L"X1", L"新系统", L"LG", {}, ESysVRV), Reg::eUnknownSample);
    configtest::ExpectSameTree(g_dictCfg, before);
}

TEST_F(SystemEditTest, NamesAndKeysOfAnotherKindAreFree) {
    // KT's "LG"/"冷冻供水" and the heating kinds' "RG"/"供水" may be taken by VRV.
    const Resolved ktPipe = Resolve(Key(L"HVAC-NT_PROJ_KT-", L"LG", L"NT_MODEL_PIPE"));
    ASSERT_EQ(Register().AddSystemFromSample(L"LG", L"冷冻供水", L"YG", {}, ESysVRV), Reg::eSystemEdited);
    ASSERT_EQ(Register().RenameSystem(L"QG", L"RG", L"供水", {}, ESysVRV), Reg::eSystemEdited);
    ExpectSame(Resolve(Key(L"HVAC-NT_PROJ_KT-", L"LG", L"NT_MODEL_PIPE")), ktPipe, "KT LG");
    EXPECT_EQ(Resolve(Key(L"HVAC-NT_PROJ_VRV-", L"LG", L"NT_MODEL_PIPE")).color, 6);  // from YG
    EXPECT_EQ(Resolve(Key(L"HVAC-NT_PROJ_VRV-", L"RG", L"NT_MODEL_PIPE")).color, 2);  // QG's own
    EXPECT_EQ(Resolve(Key(L"HVAC-NT_PROJ_DBCN-", L"RG", L"NT_MODEL_PIPE")).color, 1);
    CString key;
    EXPECT_TRUE(Register().GetSysKey(L"供水", key, ESysCZCN));
    EXPECT_EQ(U(key), "RG");
}

TEST_F(SystemEditTest, RefusalsChangeNothing) {
    QoHvacDuctLayerManager& reg = Register();
    QoHvacDuctLayerManager::SSystemLook badColor;
    badColor.colorIndex = 257;
    QoHvacDuctLayerManager::SSystemLook emptyLineType;
    emptyLineType.lineType = CString();
    const auto unknownKind = static_cast<EQoDbHvacSystemType>(42);
    struct Case {
        const char* what;
        std::function<Edit()> run;
        Edit expected;
    };
    const Case cases[] = {
        {"rename a display name", [&] { return reg.RenameSystem(L"冷冻供水", L"", L"x", {}, ESysKT); }, Reg::eUnknownSystem},
        {"rename to a taken key", [&] { return reg.RenameSystem(L"LG", L"LH", L"", {}, ESysKT); }, Reg::eKeyTaken},
        {"rename to a taken name", [&] { return reg.RenameSystem(L"LG", L"", L"冷冻回水", {}, ESysKT); }, Reg::eNameTaken},
        {"key with a dash", [&] { return reg.RenameSystem(L"LG", L"L-G", L"", {}, ESysKT); }, Reg::eBadKey},
        {"name with a backslash", [&] { return reg.RenameSystem(L"LG", L"", L"a\\b", {}, ESysKT); }, Reg::eBadName},
        {"colour 257", [&] { return reg.RenameSystem(L"LG", L"", L"新", badColor, ESysKT); }, Reg::eBadLook},
        {"empty line type", [&] { return reg.AddSystemFromSample(L"LG9", L"新", L"LG", emptyLineType, ESysKT); },
         Reg::eBadLook},
        {"add a taken key", [&] { return reg.AddSystemFromSample(L"LH", L"新", L"LG", {}, ESysKT); }, Reg::eKeyTaken},
        {"add a taken name", [&] { return reg.AddSystemFromSample(L"LG9", L"冷冻回水", L"LG", {}, ESysKT); },
         Reg::eNameTaken},
        {"add an empty key", [&] { return reg.AddSystemFromSample(L"", L"新", L"LG", {}, ESysKT); }, Reg::eBadKey},
        {"unknown kind", [&] { return reg.AddSystemFromSample(L"LG9", L"新", L"", {}, unknownKind); }, Reg::eNoSystemList},
    };
    QoDtDictionary before;
    before.CopyData(g_dictCfg);
    for (const Case& c : cases) {
        EXPECT_EQ(c.run(), c.expected) << c.what;
        configtest::ExpectSameTree(g_dictCfg, before, c.what);
    }
}

TEST_F(SystemEditTest, AGroupOfTheSameNameSharedWithAnotherSystemKeepsItsOtherEntries) {
    // Two systems under one display name (the system's AddSystem allows it).
    ASSERT_TRUE(Register().AddSystem(L"YG2", L"液管", L"", L"YG", ESysVRV));
    const int shared = Group(L"多联机", L"液管").children.GetLength();
    ASSERT_EQ(Register().RenameSystem(L"YG2", L"", L"液管二", {}, ESysVRV), Reg::eSystemEdited);
    EXPECT_EQ(Group(L"多联机", L"液管").children.GetLength() + Group(L"多联机", L"液管二").children.GetLength(), shared);
    for (const std::string& key : EntryKeys(Group(L"多联机", L"液管二"))) EXPECT_NE(key.find("-YG2"), std::string::npos);
    for (const std::string& key : EntryKeys(Group(L"多联机", L"液管"))) EXPECT_EQ(key.find("-YG2"), std::string::npos);
    EXPECT_EQ(Resolve(Key(L"HVAC-NT_PROJ_VRV-", L"YG", L"NT_MODEL_PIPE")).layerName, "暖通-多联机-冷媒管-液管");
}
