// Renaming systems and adding them from a sample: one group a system, its
// look and layers kept, the key replaced only in the system part of a layer
// key, each kind a register of its own.

#include "LayerTestKit.h"
#include "config/ConfigTestSupport.h"

#include <functional>
#include <string>

using namespace HVAC;
using Reg = QoHvacDuctLayerManager;
using SystemEditTest = LayerTest;

namespace {

// What a layer key resolves to: layer, colour, line type, weight, code.
std::string Resolve(const std::wstring& key) {
    QoDtLayerDef def(key.c_str());
    if (!Reg::GetInstance()->GetLayerDef(def, nullptr)) return "undefined";
    return U(def.layerName) + "|" + std::to_string(def.colorIndex) + "|" + U(def.lineType) + "|" +
           std::to_string(def.GetLineWeight()) + "|" + U(def.comment);
}

std::wstring Key(const std::wstring& kind, const std::wstring& system) {
    return L"HVAC-NT_PROJ_" + kind + L"-NT_CLASS_PLANE-" + system + L"-NT_MODEL_PIPE";
}

int GroupsHolding(EQoDbHvacSystemType kind, const std::wstring& key) {
    int count = 0;
    const QoDtDictItemList& groups = Reg::GetInstance()->GetAssDict(kind)->children;
    for (QoDtDictItem* const* p = groups.GetFirst(); p; p = groups.GetNext(p))
        count += (*p)->IsDict() && static_cast<QoDtDictionary*>(*p)->children.Find(key) ? 1 : 0;
    return count;
}

}  // namespace

TEST_F(SystemEditTest, AGroupLeftUnderAFormerNameNeverWins) {
    // The system's AddSystem on an existing key leaves the old group, first
    // in the list, holding the same keys.
    auto* stale = static_cast<QoDtDictStringItem*>(Group(L"空调水路", L"冷冻供水").FindItem(Key(L"KT", L"LG").c_str()));
    stale->value = L"旧图层";
    stale->SetAttributeValue(L"color", L"1");
    ASSERT_TRUE(Register().AddSystem(L"LG", L"冷冻供水新", L"", L"LG", ESysKT));
    ASSERT_EQ(GroupsHolding(ESysKT, Key(L"KT", L"LG")), 2);
    EXPECT_EQ(Resolve(Key(L"KT", L"LG")), "暖通-空调水-水管-冷冻供水新|4|Continuous|0.350000|");
}

TEST_F(SystemEditTest, RenamingKeepsLookLayersAndFlag) {
    const struct {
        EQoDbHvacSystemType kind;
        const wchar_t *groups, *prefix, *key, *oldName, *newName;
    } cases[] = {
        {ESysKT, L"空调水路", L"KT", L"LH", L"冷冻回水", L"一次冷冻回水"},
        {ESysDuct, L"通风", L"TFGC", L"PY", L"排烟", L"消防排烟"},
        {ESysVRV, L"多联机", L"VRV", L"N", L"冷凝水", L"冷凝排水"},
    };
    for (const auto& c : cases) {
        const std::wstring key = c.kind == ESysDuct ? L"HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-PY-NT_MODEL_DUCT"
                                                    : Key(c.prefix, c.key);
        static_cast<QoDtDictStringItem*>(Group(c.groups, c.oldName).FindItem(key.c_str()))->value = L"我的图层";
        const std::string before = Resolve(key);
        const CString flag = Register().GetFlagWithSysname(c.oldName, c.kind);

        ASSERT_EQ(Register().RenameSystem(c.key, L"", c.newName, {}, c.kind), Reg::eSystemEdited) << U(c.key);
        EXPECT_EQ(Resolve(key), before);
        EXPECT_EQ(before.rfind("我的图层|", 0), 0u) << before;
        EXPECT_EQ(GroupsHolding(c.kind, key), 1) << U(c.key);
        EXPECT_EQ(Register().GetAssDict(c.kind)->FindItem(c.oldName), nullptr) << U(c.key);
        EXPECT_EQ(U(Register().GetFlagWithSysname(c.newName, c.kind)), U(flag)) << U(c.key);
    }
}

TEST_F(SystemEditTest, KeysChangeOnlyInTheSystemPart) {
    // "N" also stands in "NT_PROJ", "NT_CLASS_PLANE" and "NT_MODEL_...".
    const std::string pipe = Resolve(Key(L"KT", L"N"));
    ASSERT_EQ(Register().RenameSystem(L"N", L"N2", L"", {}, ESysKT), Reg::eSystemEdited);
    ASSERT_EQ(Register().AddSystemFromSample(L"N3", L"冷凝水三", L"N2", {}, ESysKT), Reg::eSystemEdited);
    const std::string renamed = configtest::ChildKeys(Group(L"空调水路", L"冷凝水"));
    const std::string copied = configtest::ChildKeys(Group(L"空调水路", L"冷凝水三"));
    EXPECT_EQ(renamed.find("N2T"), std::string::npos) << renamed;
    EXPECT_EQ(copied.find("N3T"), std::string::npos) << copied;
    EXPECT_EQ(copied.size(), renamed.size());

    EXPECT_EQ(Resolve(Key(L"KT", L"N2")), pipe);
    EXPECT_EQ(Resolve(Key(L"KT", L"N")), "undefined");
    // The copy: the sample's look, no code of its own yet, layers named anew.
    EXPECT_EQ(Resolve(Key(L"KT", L"N3")), "暖通-空调水-水管-冷凝水三|3|DASHDOT|0.350000|");
    EXPECT_NE(g_dictCfg.FindItem(L"ZEFRA\\WATER\\NT_KT_SET\\N2"), nullptr);  // the flag moved
    EXPECT_EQ(Resolve(Key(L"VRV", L"N")).rfind("暖通-多联机-冷媒管-冷凝水|", 0), 0u);  // another kind's N
}

TEST_F(SystemEditTest, SamplesComeFromTheKindAndOtherKindsNamesAreFree) {
    Register().GetSysDefDict(ESysVRV)->FindItem(L"N")->SetAttributeValue(L"color", L"5");
    Reg::SSystemLook look;
    look.comment = CString(L"N3");
    ASSERT_EQ(Register().AddSystemFromSample(L"N3", L"冷凝水三", L"N", look, ESysVRV), Reg::eSystemEdited);
    EXPECT_EQ(Resolve(Key(L"VRV", L"N3")), "暖通-多联机-冷媒管-冷凝水三|5|DASHDOT|0.300000|N3");

    const std::string ktPipe = Resolve(Key(L"KT", L"LG"));
    EXPECT_EQ(Register().AddSystemFromSample(L"X", L"新", L"LG", {}, ESysVRV), Reg::eUnknownSample);
    ASSERT_EQ(Register().AddSystemFromSample(L"LG", L"冷冻供水", L"YG", {}, ESysVRV), Reg::eSystemEdited);
    EXPECT_EQ(Resolve(Key(L"KT", L"LG")), ktPipe);
    EXPECT_NE(Resolve(Key(L"VRV", L"LG")).find("-冷冻供水|6|Continuous|"), std::string::npos);  // YG's look
}

TEST_F(SystemEditTest, RefusalsChangeNothing) {
    Reg& reg = Register();
    Reg::SSystemLook badColor;
    badColor.colorIndex = 257;
    const struct {
        const char* what;
        std::function<Reg::ESystemEdit()> run;
        Reg::ESystemEdit expected;
    } cases[] = {
        {"a display name as key", [&] { return reg.RenameSystem(L"冷冻供水", L"", L"x", {}, ESysKT); }, Reg::eUnknownSystem},
        {"a taken key", [&] { return reg.RenameSystem(L"LG", L"LH", L"", {}, ESysKT); }, Reg::eKeyTaken},
        {"a taken name", [&] { return reg.AddSystemFromSample(L"LG9", L"冷冻回水", L"LG", {}, ESysKT); }, Reg::eNameTaken},
        {"a dash in the key", [&] { return reg.RenameSystem(L"LG", L"L-G", L"", {}, ESysKT); }, Reg::eBadKey},
        {"a backslash in the name", [&] { return reg.RenameSystem(L"LG", L"", L"a\\b", {}, ESysKT); }, Reg::eBadName},
        {"colour 257", [&] { return reg.RenameSystem(L"LG", L"", L"新", badColor, ESysKT); }, Reg::eBadLook},
        {"no such kind", [&] { return reg.AddSystemFromSample(L"Q", L"新", L"", {}, EQoDbHvacSystemType(42)); },
         Reg::eNoSystemList},
    };
    QoDtDictionary before;
    before.CopyData(g_dictCfg);
    for (const auto& c : cases) {
        EXPECT_EQ(c.run(), c.expected) << c.what;
        configtest::ExpectSameTree(g_dictCfg, before, c.what);
    }
}

TEST_F(SystemEditTest, ASharedDisplayNameKeepsTheOtherSystemsEntries) {
    ASSERT_TRUE(Register().AddSystem(L"YG2", L"液管", L"", L"YG", ESysVRV));  // the system's AddSystem allows it
    ASSERT_EQ(Register().RenameSystem(L"YG2", L"", L"液管二", {}, ESysVRV), Reg::eSystemEdited);
    EXPECT_EQ(configtest::ChildKeys(Group(L"多联机", L"液管")).find("YG2"), std::string::npos);
    EXPECT_EQ(GroupsHolding(ESysVRV, Key(L"VRV", L"YG2")), 1);
    EXPECT_EQ(GroupsHolding(ESysVRV, Key(L"VRV", L"YG")), 1);
}
