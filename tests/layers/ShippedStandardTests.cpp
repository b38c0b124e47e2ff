// The shipped configuration: every layer that the GetProp... family and the
// layer assignment can ask for is defined, each system's own layers stand in
// its group, and every layer name leads back to its key.

#include "LayerTestKit.h"

#include "zefra/layers/HvacLayerKeys.h"
#include "zefra/layers/HvacLayerModels.h"
#include "zefra/layers/HvacLayerResolution.h"

#include <functional>
#include <set>
#include <tuple>
#include <vector>

using namespace HVAC;
namespace LK = HVAC::LayerKey;

namespace {

const EQoDbHvacSystemType kKinds[] = {ESysDuct, ESysKT, ESysVRV, ESysDBCN, ESysFHCN, ESysCZCN};

class ShippedStandardTest : public LayerTest {
protected:
    // Checks one call: its key is defined, the property lands on the
    // definition's layer, and a key with a system part has its own entry.
    void Check(const std::string& what, const CString& key, const CString& keyWithoutSystem,
               const QoHvacEntProperty& property) {
        ++m_calls;
        QoDtLayerDef def(key);
        if (!Register().GetLayerDef(def, nullptr)) {
            ADD_FAILURE() << what << ": no definition for " << U(key);
            return;
        }
        EXPECT_EQ(LayerNameOf(property), U(def.layerName)) << what;
        EXPECT_DOUBLE_EQ(property.lineWeight, def.GetLineWeight()) << what;
        if (key != keyWithoutSystem) {
            EXPECT_EQ(U(Register().TransUserLayerToSys(def.layerName)), U(key)) << what << ": no entry of its own";
            m_systemLayers.insert(U(def.layerName));
        }
    }

    std::vector<CString> SystemsOf(EQoDbHvacSystemType kind) {
        CStringArray names;
        EXPECT_TRUE(GetAllSystemName(names, kind));
        std::vector<CString> systems{CString(), CString(L"没有的系统")};
        for (int i = 0; i < names.GetSize(); ++i) systems.push_back(names[i]);
        return systems;
    }

    int m_calls = 0;
    std::set<std::string> m_systemLayers;
};

using KindFunction = std::function<CString(const CString&, bool, EQoDbHvacSystemType)>;
using KindProperty = std::function<QoHvacEntProperty(const CString&, bool, EQoDbHvacSystemType)>;

}  // namespace

TEST_F(ShippedStandardTest, EveryLayerOfEveryFunctionIsDefined) {
    const std::pair<CString (*)(), QoHvacEntProperty (*)()> fixed[] = {
        {LK::Insulation, GetPropInsulation},         {LK::CommonLabel, GetPropCommonLabel},
        {LK::BrokenSign, GetPropBrokenSign},         {LK::FloorLine, GetPropFloorLine},
        {LK::MaterialTable, GetPropMaterialLayer},   {LK::HDGPointLabel, GetPropHDG_Point_Label_Layer},
        {LK::HDGLineLabel, GetPropHDG_Line_Label_Layer}, {LK::HDGPoint, GetPropHDG_Point_Layer},
        {LK::HDGLine, GetPropHDG_Line_Layer},        {LK::HDGHhr, GetPropHDG_Hhr_Layer},
        {LK::HDGRh, GetPropHDG_rh_Layer},            {LK::HDGH, GetPropHDG_h_Layer},
        {LK::HDGD, GetPropHDG_d_Layer},              {LK::HDGT, GetPropHDG_t_Layer},
        {LK::HDGHst, GetPropHDG_Hst_Layer},
    };
    for (const auto& f : fixed) Check(U(f.first()), f.first(), f.first(), f.second());

    const std::vector<std::tuple<const char*, KindFunction, KindProperty>> withKind = {
        {"pipe", LK::Pipe, GetPropPipeLayer},
        {"pipe label", LK::PipeLabel, GetPropPipeLabelLayer},
        {"riser", LK::Riser, GetPropRiserLayer},
        {"riser label", LK::RiserLabel, GetPropRiserLabelLayer},
        {"buckle bend", LK::Bucklebend, GetPropBucklebendLayer},
        {"end line", LK::Endline, GetPropEndlineLayer},
        {"axis", LK::Axisline, GetPropAxislineLayer},
        {"flange", LK::Flange, GetPropFlangeLayer},
        {"terminal", LK::Terminal, GetPropTerminalLayer},
        {"terminal label", LK::TerminalLabel, GetPropTerminalLabelLayer},
        {"equipment label", LK::EquipLabel, GetPropEquipLabelLayer},
        {"valve label", LK::ValveLabel, GetPropValveLabelLayer},
    };
    for (EQoDbHvacSystemType kind : kKinds) {
        for (const CString& system : SystemsOf(kind)) {
            for (bool plan : {true, false}) {
                const std::string where = U(GetSysLayerKey(kind)) + " " + U(system) + (plan ? " plan" : " diagram");
                for (const auto& [name, key, property] : withKind)
                    Check(where + " " + name, key(system, plan, kind), key(CString(), plan, kind),
                          property(system, plan, kind));
                for (int location : {0, 1, 2}) {
                    Check(where + " equipment", LK::Equipment(system, location, plan, kind),
                          LK::Equipment(CString(), location, plan, kind),
                          GetPropEquipmentLayer(system, location, plan, kind));
                    Check(where + " valve", LK::Valve(system, location, plan, kind),
                          LK::Valve(CString(), location, plan, kind), GetPropValveLayer(system, location, plan, kind));
                }
                Check(where + " branch valve", LK::Valve(kBranchSystemName, 1, plan, kind),
                      LK::Valve(kBranchSystemName, 1, plan, kind), GetPropValveLayer(kBranchSystemName, 1, plan, kind));
                const CString branch = LK::Make(LayerModel::kBranchPipe, CString(), plan, kind);
                Check(where + " branch pipe", branch, branch, GetPropOfLayerKey(branch));
                Check(where + " radiator", LK::Radiator(plan, kind), LK::Radiator(plan, kind),
                      GetPropRadiatorLayer(plan, kind));
            }
        }
    }

    using FixedKind = std::tuple<const char*, EQoDbHvacSystemType, CString (*)(const CString&, bool),
                                 QoHvacEntProperty (*)(const CString&, bool)>;
    const FixedKind fixedKind[] = {
        {"duct label", ESysDuct, LK::DuctLabel, GetPropDuctLabelLayer},
        {"equip", ESysDuct, LK::Equip, GetPropEquipLayer},
        {"kt pipe", ESysKT, LK::KTPipe, GetPropKTPipeLayer},
        {"vrv pipe", ESysVRV, LK::VRVPipe, GetPropVRVPipeLayer},
        {"kt pipe equipment", ESysKT, LK::KTPipeEquip, GetPropKTPipeEquipLayer},
        {"kt riser equipment", ESysKT, LK::KTRiserEquip, GetPropKTRiserEquipLayer},
        {"vrv pipe equipment", ESysVRV, LK::VRVPipeEquip, GetPropVRVPipeEquipLayer},
        {"vrv riser equipment", ESysVRV, LK::VRVRiserEquip, GetPropVRVRiserEquipLayer},
    };
    for (const auto& [name, kind, key, property] : fixedKind) {
        for (const CString& system : SystemsOf(kind)) {
            for (bool plan : {true, false}) {
                Check(std::string(name) + " " + U(system), key(system, plan), key(CString(), plan), property(system, plan));
                for (bool flexible : {true, false}) {
                    if (kind != ESysDuct) continue;
                    Check("duct " + U(system), LK::Duct(system, plan, flexible), LK::Duct(CString(), plan, flexible),
                          GetPropDuctLayer(system, plan, flexible));
                }
            }
        }
    }
    for (bool plan : {true, false}) {
        Check("vrv branch joint", LK::VRVFQG(plan), LK::VRVFQG(plan), GetPropVRVFQGLayer(plan));
        const CString telescope = LK::Make(LayerModel::kTelescope, CString(), plan, ESysDBCN);
        Check("telescope case", telescope, telescope, GetPropOfLayerKey(telescope));
    }

    EXPECT_GT(m_calls, 1400);
    // 5 duct systems with 30 layers each, 14 water systems with 24 each.
    EXPECT_EQ(m_systemLayers.size(), 5u * 30u + 14u * 24u);
}

TEST_F(ShippedStandardTest, EachKindShipsItsTypicalSystemsWithFlags) {
    const std::pair<EQoDbHvacSystemType, std::vector<std::string>> expected[] = {
        {ESysDuct, {"送风", "回风", "新风", "排风", "排烟"}},
        {ESysKT, {"冷冻供水", "冷冻回水", "冷却供水", "冷却回水", "冷凝水"}},
        {ESysVRV, {"液管", "气管", "冷凝水"}},
        {ESysDBCN, {"供水", "回水"}},
        {ESysFHCN, {"供水", "回水"}},
        {ESysCZCN, {"供水", "回水"}},
    };
    for (const auto& [kind, systems] : expected) {
        CStringArray names;
        ASSERT_TRUE(GetAllSystemName(names, kind));
        CStringArray flags;
        ASSERT_TRUE(Register().GetAllFlag(flags, kind));
        ASSERT_EQ(names.GetSize(), static_cast<int>(systems.size()));
        for (int i = 0; i < names.GetSize(); ++i) {
            EXPECT_EQ(U(names[i]), systems[static_cast<size_t>(i)]);
            EXPECT_FALSE(flags[i].IsEmpty()) << U(names[i]);
        }
    }
}
