// Composition of layer keys: prefixes, drawing classes, systems and models.

#include "LayerTestKit.h"

#include "zefra/layers/HvacLayerKeys.h"
#include "zefra/layers/HvacLayerResolution.h"

using namespace HVAC;
namespace LK = HVAC::LayerKey;

using LayerKeyTest = LayerTest;

TEST_F(LayerKeyTest, MakeLayerKeyComposesPrefixClassSystemAndModel) {
    EXPECT_EQ(U(MakeLayerKey(L"NT_MODEL_PIPE", L"冷冻供水", true, ESysKT)),
              "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LG-NT_MODEL_PIPE");
    EXPECT_EQ(U(MakeLayerKey(L"", L"冷冻供水", false, ESysKT)), "HVAC-NT_PROJ_KT-NT_CLASS_SYS-LG");
    EXPECT_EQ(U(MakeLayerKey(L"NT_MODEL_RISER", L"", true, ESysKT)), "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-NT_MODEL_RISER");
    EXPECT_EQ(U(MakeLayerKey(L"", L"", true, ESysCZCN)), "HVAC-NT_PROJ_CZCN-NT_CLASS_PLANE");
    // The duct prefix is not made from "DUCT".
    EXPECT_EQ(U(MakeLayerKey(L"NT_MODEL_DUCT", L"送风", true, ESysDuct)),
              "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-SF-NT_MODEL_DUCT");
    // A system is looked up within its kind: 送风 is no water system.
    EXPECT_EQ(MakeLayerKey(L"NT_MODEL_PIPE", L"送风", true, ESysKT), MakeLayerKey(L"NT_MODEL_PIPE", L"", true, ESysKT));
    EXPECT_EQ(MakeLayerKey(L"NT_MODEL_PIPE", L"不存在", true, ESysVRV),
              MakeLayerKey(L"NT_MODEL_PIPE", L"", true, ESysVRV));
    // A kind outside the six: the duct prefix and no system part.
    const auto unknownKind = static_cast<EQoDbHvacSystemType>(12345);
    EXPECT_EQ(U(MakeLayerKey(L"NT_MODEL_X", L"送风", true, unknownKind)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-NT_MODEL_X");
    EXPECT_EQ(U(GetSysLayerKey(ESysDBCN)), "DBCN");
    EXPECT_EQ(U(GetSysLayerKey(unknownKind)), "");
}

TEST_F(LayerKeyTest, DuctsAndWaterPipesTakeTheirOwnModels) {
    EXPECT_EQ(U(LK::Pipe(L"送风", true, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-SF-NT_MODEL_DUCT");
    EXPECT_EQ(U(LK::Pipe(L"供水", false, ESysFHCN)), "HVAC-NT_PROJ_FHCN-NT_CLASS_SYS-RG-NT_MODEL_PIPE");
    EXPECT_EQ(U(LK::PipeLabel(L"回风", true, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-HF-NT_MODEL_DUCT-NT_LABEL");
    EXPECT_EQ(U(LK::PipeLabel(L"液管", true, ESysVRV)), "HVAC-NT_PROJ_VRV-NT_CLASS_PLANE-YG-NT_MODEL_PIPELABEL");
    EXPECT_EQ(U(LK::Duct(L"排烟", true, true)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-PY-NT_MODEL_FLEXDUCT");
    EXPECT_EQ(LK::Duct(L"排烟", true, false), LK::Pipe(L"排烟", true, ESysDuct));
    EXPECT_EQ(LK::DuctLabel(L"新风", false), LK::PipeLabel(L"新风", false, ESysDuct));
    EXPECT_EQ(LK::KTPipe(L"冷却回水", true), LK::Pipe(L"冷却回水", true, ESysKT));
    EXPECT_EQ(LK::VRVPipe(L"气管", false), LK::Pipe(L"气管", false, ESysVRV));
}

TEST_F(LayerKeyTest, SystemModelsOfEveryKindCarryTheSystemKey) {
    struct Case {
        EQoDbHvacSystemType kind;
        const wchar_t* system;
        const char* head;
    };
    const Case cases[] = {
        {ESysDuct, L"排风", "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-PF-"}, {ESysKT, L"冷凝水", "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-N-"},
        {ESysVRV, L"气管", "HVAC-NT_PROJ_VRV-NT_CLASS_PLANE-QG-"},   {ESysDBCN, L"回水", "HVAC-NT_PROJ_DBCN-NT_CLASS_PLANE-RH-"},
        {ESysFHCN, L"供水", "HVAC-NT_PROJ_FHCN-NT_CLASS_PLANE-RG-"}, {ESysCZCN, L"回水", "HVAC-NT_PROJ_CZCN-NT_CLASS_PLANE-RH-"},
    };
    for (const Case& c : cases) {
        const std::string head = c.head;
        EXPECT_EQ(U(LK::Riser(c.system, true, c.kind)), head + "NT_MODEL_RISER");
        EXPECT_EQ(U(LK::RiserLabel(c.system, true, c.kind)), head + "NT_MODEL_RISERLABEL");
        EXPECT_EQ(U(LK::Bucklebend(c.system, true, c.kind)), head + "NT_MODEL_BUCKLEBEND");
        EXPECT_EQ(U(LK::Endline(c.system, true, c.kind)), head + "NT_MODEL_ENDLINE");
        EXPECT_EQ(U(LK::Axisline(c.system, true, c.kind)), head + "NT_MODEL_AXISLINE");
        EXPECT_EQ(U(LK::Terminal(c.system, true, c.kind)), head + "NT_MODEL_TERMINAL");
        EXPECT_EQ(U(LK::TerminalLabel(c.system, true, c.kind)), head + "NT_MODEL_TERMINAL-NT_LABEL");
    }
}

TEST_F(LayerKeyTest, WaterKindsLeaveTheSystemOutOfFlangesAndEquipmentLabels) {
    EXPECT_EQ(U(LK::Flange(L"送风", true, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-SF-NT_MODEL_FLANGE");
    EXPECT_EQ(U(LK::Flange(L"冷冻供水", true, ESysKT)), "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-NT_MODEL_EQUIPMENT");
    EXPECT_EQ(U(LK::EquipLabel(L"送风", false, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_SYS-SF-NT_MODEL_EQUIP-NT_LABEL");
    EXPECT_EQ(U(LK::EquipLabel(L"供水", false, ESysDBCN)), "HVAC-NT_PROJ_DBCN-NT_CLASS_SYS-NT_MODEL_EQUIPMENTLABEL");
    EXPECT_EQ(U(LK::ValveLabel(L"回风", true, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-HF-NT_MODEL_VALVE-NT_LABEL");
    EXPECT_EQ(LK::ValveLabel(L"液管", true, ESysVRV), LK::EquipLabel(L"", true, ESysVRV));
    EXPECT_EQ(U(LK::Equip(L"新风", true)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-XF-NT_MODEL_EQUIP");
    EXPECT_EQ(U(LK::Radiator(true, ESysCZCN)), "HVAC-NT_PROJ_CZCN-NT_CLASS_PLANE-NT_MODEL_RADIATOR");
    EXPECT_EQ(U(LK::VRVFQG(false)), "HVAC-NT_PROJ_VRV-NT_CLASS_SYS-NT_MODEL_BIFURCATEDPIPE");
    EXPECT_EQ(U(LK::KTPipeEquip(L"冷冻回水", true)), "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LH-NT_MODEL_PIPEEQUIPMENT");
    EXPECT_EQ(U(LK::KTRiserEquip(L"冷冻回水", true)), "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LH-NT_MODEL_RISEREQUIPMENT");
    EXPECT_EQ(U(LK::VRVPipeEquip(L"液管", true)), "HVAC-NT_PROJ_VRV-NT_CLASS_PLANE-YG-NT_MODEL_PIPEEQUIPMENT");
    EXPECT_EQ(U(LK::VRVRiserEquip(L"液管", true)), "HVAC-NT_PROJ_VRV-NT_CLASS_PLANE-YG-NT_MODEL_RISEREQUIPMENT");
    EXPECT_EQ(U(LK::HDGHst()), "HVAC-NT_PROJ_HST");
}

TEST_F(LayerKeyTest, EquipmentAndValvesFollowTheirLocation) {
    // Ducts ignore the location.
    for (int location : {0, 1, 2})
        EXPECT_EQ(U(LK::Equipment(L"送风", location, true, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-SF-NT_MODEL_EQUIP");
    const std::string kt = "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-";
    EXPECT_EQ(U(LK::Equipment(L"冷冻供水", 1, true, ESysKT)), kt + "LG-NT_MODEL_PIPEEQUIPMENT");
    EXPECT_EQ(U(LK::Equipment(L"冷冻供水", 2, true, ESysKT)), kt + "LG-NT_MODEL_RISEREQUIPMENT");
    EXPECT_EQ(U(LK::Equipment(L"冷冻供水", 7, true, ESysKT)), kt + "LG-NT_MODEL_EQUIPMENT");

    EXPECT_EQ(U(LK::Valve(L"送风", 1, true, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_PLANE-SF-NT_MODEL_VALVE");
    EXPECT_EQ(U(LK::Valve(L"冷冻供水", 1, true, ESysKT)), kt + "LG-NT_MODEL_PIPEEQUIPMENT");
    EXPECT_EQ(U(LK::Valve(L"冷冻供水", 2, true, ESysKT)), kt + "LG-NT_MODEL_RISEREQUIPMENT");
    // A free-standing valve drops its system, where equipment keeps it.
    EXPECT_EQ(U(LK::Valve(L"冷冻供水", 0, true, ESysKT)), kt + "NT_MODEL_EQUIPMENT");

    // "支管" is matched whole, for any kind and location.
    EXPECT_EQ(U(LK::Valve(L"支管", 1, true, ESysKT)), kt + "NT_MODEL_BRANCHPIPEEQUIPMENT");
    EXPECT_EQ(U(LK::Valve(L"支管", 0, false, ESysDuct)), "HVAC-NT_PROJ_TFGC-NT_CLASS_SYS-NT_MODEL_BRANCHPIPEEQUIPMENT");
    EXPECT_EQ(U(LK::Valve(L"支管1", 1, true, ESysKT)), kt + "NT_MODEL_PIPEEQUIPMENT");
}

TEST_F(LayerKeyTest, GetPropFunctionsLandOnTheLayerOfTheirKey) {
    EXPECT_EQ(LayerNameOf(GetPropPipeLayer(L"冷冻供水", true, ESysKT)), U(Register().GetLayerName(LK::Pipe(L"冷冻供水", true, ESysKT))));
    EXPECT_EQ(LayerNameOf(GetPropPipeLayer(L"冷冻供水", true, ESysKT)), "暖通-空调水-水管-冷冻供水");
    EXPECT_EQ(LayerNameOf(GetPropHDG_Hst_Layer()), "暖通-焓湿图");
    EXPECT_EQ(U(GetModelLayerComment(L"NT_MODEL_PIPE", L"冷凝水", true, ESysKT)), "n");
}
