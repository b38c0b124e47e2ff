// Layer assignment: what each entity class takes from the layer standard.

#include "LayerTestKit.h"

#include "zefra/layers/HvacEntLayer.h"
#include "zefra/layers/HvacLayerResolution.h"
#include "zefra/platform/entities/QoDbHvacCoilPipe.h"
#include "zefra/platform/entities/QoDbHvacDuct.h"
#include "zefra/platform/entities/QoDbHvacDuctFitting.h"
#include "zefra/platform/entities/QoDbHvacDuctValve.h"
#include "zefra/platform/entities/QoDbHvacEquipment.h"
#include "zefra/platform/entities/QoDbHvacFitting.h"
#include "zefra/platform/entities/QoDbHvacLabel.h"
#include "zefra/platform/entities/QoDbHvacPipe.h"
#include "zefra/platform/entities/QoDbHvacPipeEquipment.h"
#include "zefra/platform/entities/QoDbHvacPipeLabel.h"
#include "zefra/platform/entities/QoDbHvacTelescopeCase.h"
#include "zefra/platform/entities/QoDbHvacTerminal.h"
#include "zefra/platform/entities/QoDbHvacValve.h"

using namespace HVAC;

class EntLayerTest : public LayerTest {
protected:
    std::string LayerNameOf(const AcDbEntity& entity) const {
        QoHvacEntProperty property;
        property.layerId = entity.layerId();
        return LayerTest::LayerNameOf(property);
    }
    using LayerTest::LayerNameOf;
};

TEST_F(EntLayerTest, DuctPartsTakeSeparateLayersAndFlexibleOnlyChangesTheOutline) {
    QoDbHvacDuct duct(QoDbHvacDuct::EDuctFlexible);
    SetHvacEntLayer(&duct, L"送风", true);
    EXPECT_EQ(std::wstring(duct.GetSystemName()), L"送风");
    EXPECT_EQ(LayerNameOf(duct.GetPropDuctline()), "暖通-通风-软风管-送风");
    EXPECT_EQ(LayerNameOf(duct.GetPropFlange()), "暖通-通风-法兰-送风");
    EXPECT_EQ(LayerNameOf(duct.GetPropEndline()), "暖通-通风-端线-送风");
    EXPECT_EQ(LayerNameOf(duct.GetPropAxisline()), "暖通-通风-中心线-送风");
    EXPECT_DOUBLE_EQ(duct.GetPropAxisline().lineScale, 0.5);
    EXPECT_TRUE(duct.layerId().isNull());  // the duct as a whole keeps its layer

    QoDbHvacDuct plain(QoDbHvacDuct::EDuctVertical);
    SetHvacEntLayer(&plain, L"回风", false);
    EXPECT_EQ(LayerNameOf(plain.GetPropDuctline()), "暖通-通风-系统图-风管-回风");

    QoDbHvacDuctFitting fitting;
    SetHvacEntLayer(&fitting, L"排烟", true);
    EXPECT_EQ(std::wstring(fitting.GetSystemName()), L"排烟");
    EXPECT_EQ(LayerNameOf(fitting.GetPropDuctline()), "暖通-通风-风管-排烟");
    EXPECT_EQ(LayerNameOf(fitting.GetPropAxisline()), "暖通-通风-中心线-排烟");
}

TEST_F(EntLayerTest, PipeTypesCodesAndBranchPipes) {
    QoDbHvacPipe pipe;
    SetHvacEntLayer(&pipe, L"冷冻回水", true, ESysKT);
    EXPECT_EQ(LayerNameOf(pipe), "暖通-空调水-水管-冷冻回水");
    EXPECT_EQ(std::wstring(pipe.GetPreCode()), L"LH");
    EXPECT_DOUBLE_EQ(pipe.GetSideLineWidth(), 0.35);
    EXPECT_DOUBLE_EQ(pipe.lineWeight(), 0.35);
    EXPECT_EQ(LayerNameOf(pipe.GetPropFlange()), "暖通-空调水-设备");
    EXPECT_EQ(LayerNameOf(pipe.GetPropEndline()), "暖通-空调水-端线-冷冻回水");

    QoDbHvacPipe riser(QoDbHvacPipe::EPipeRiser);
    SetHvacEntLayer(&riser, L"供水", false, ESysCZCN);
    EXPECT_EQ(LayerNameOf(riser), "暖通-垂直采暖-系统图-立管-供水");
    EXPECT_EQ(std::wstring(riser.GetPreCode()), L"RG");

    QoDbHvacPipe bend(QoDbHvacPipe::EPipeBuckleBend);
    SetHvacEntLayer(&bend, L"液管", true, ESysVRV);
    EXPECT_EQ(LayerNameOf(bend), "暖通-多联机-煨弯-液管");

    // "支管" anywhere in the name: the branch layer whatever the type, while
    // the parts keep the system.
    QoDbHvacPipe branch(QoDbHvacPipe::EPipeRiser);
    SetHvacEntLayer(&branch, L"回水支管", true, ESysFHCN);
    EXPECT_EQ(LayerNameOf(branch), "暖通-分户采暖-支管");
    EXPECT_EQ(std::wstring(branch.GetPreCode()), L"ZG");
    EXPECT_DOUBLE_EQ(branch.GetSideLineWidth(), 0.25);
    const QoHvacEntProperty axis = branch.GetPropAxisline();
    EXPECT_EQ(axis.layerId, GetPropAxislineLayer(L"回水支管", true, ESysFHCN).layerId);
}

TEST_F(EntLayerTest, PipeFittingsAndTheVrvBranchJoint) {
    QoDbHvacFitting fitting;
    SetHvacEntLayer(&fitting, L"冷却供水", true, ESysKT);
    EXPECT_EQ(std::wstring(fitting.GetSystemName()), L"冷却供水");
    EXPECT_EQ(LayerNameOf(fitting), "暖通-空调水-水管-冷却供水");
    EXPECT_DOUBLE_EQ(fitting.GetSideLineWidth(), 0.35);
    EXPECT_EQ(LayerNameOf(fitting.GetPropAxisline()), "暖通-空调水-中心线-冷却供水");

    QoDbHvacFitting joint(QoDbHvacFitting::EFittingVRVBranch);
    SetHvacEntLayer(&joint, L"冷却供水", false, ESysKT);
    EXPECT_EQ(LayerNameOf(joint), "暖通-多联机-系统图-分歧管");
    EXPECT_TRUE(joint.GetSystemName().IsEmpty());
    EXPECT_DOUBLE_EQ(joint.GetSideLineWidth(), 0.25);
    EXPECT_TRUE(joint.GetPropFlange().layerId.isNull());
}

TEST_F(EntLayerTest, PipeEquipmentByTypeAndValvesByLocation) {
    QoDbHvacPipeEquipment radiator(QoDbHvacPipeEquipment::EEquipRadiatorGroup);
    SetHvacEntLayer(&radiator, L"供水", 1, true, ESysFHCN);
    EXPECT_EQ(std::wstring(radiator.GetSystemName()), L"供水");
    EXPECT_EQ(LayerNameOf(radiator), "暖通-分户采暖-散热器");
    EXPECT_DOUBLE_EQ(radiator.GetRadLineWidth(), 0.25);

    QoDbHvacPipeEquipment onRiser(QoDbHvacPipeEquipment::EEquipOnRiser);
    SetHvacEntLayer(&onRiser, L"冷冻供水", 0, true, ESysKT);
    EXPECT_EQ(LayerNameOf(onRiser), "暖通-空调水-立管-冷冻供水");
    EXPECT_DOUBLE_EQ(onRiser.GetRadLineWidth(), 0.35);

    QoDbHvacPipeEquipment pump;
    SetHvacEntLayer(&pump, L"冷冻供水", 0, true, ESysKT);
    EXPECT_EQ(LayerNameOf(pump), "暖通-空调水-设备-冷冻供水");
    EXPECT_DOUBLE_EQ(pump.GetRadLineWidth(), 0.0);

    QoDbHvacValve valve;
    SetHvacEntLayer(&valve, L"冷冻供水", 1, true, ESysKT);
    EXPECT_EQ(std::wstring(valve.GetSystemName()), L"冷冻供水");
    EXPECT_EQ(LayerNameOf(valve), "暖通-空调水-管道附件-冷冻供水");
    SetHvacEntLayer(&valve, L"冷冻供水", 0, true, ESysKT);
    EXPECT_EQ(LayerNameOf(valve), "暖通-空调水-设备");
    SetHvacEntLayer(&valve, L"支管", 1, true, ESysKT);
    EXPECT_EQ(LayerNameOf(valve), "暖通-空调水-支管附件");
    // Only the whole word means a branch valve.
    SetHvacEntLayer(&valve, L"回水支管", 2, true, ESysKT);
    EXPECT_EQ(LayerNameOf(valve), "暖通-空调水-立管附件");
}

TEST_F(EntLayerTest, DuctSideEntitiesTakeOneLayerAndNoSystem) {
    QoDbHvacDuctValve damper;
    SetHvacEntLayer(&damper, L"排烟", true);
    EXPECT_EQ(LayerNameOf(damper), "暖通-通风-风阀-排烟");
    QoDbHvacEquipment fan;
    SetHvacEntLayer(&fan, L"排风", false);
    EXPECT_EQ(LayerNameOf(fan), "暖通-通风-系统图-设备-排风");
    EXPECT_DOUBLE_EQ(fan.lineWeight(), 0.30);
    QoDbHvacTerminal diffuser;
    SetHvacEntLayer(&diffuser, L"送风", true);
    EXPECT_EQ(LayerNameOf(diffuser), "暖通-通风-风口-送风");
}

TEST_F(EntLayerTest, LabelsByTypeAndUnknownTypesStayPut) {
    QoDbHvacLabel ductLabel(QoDbHvacLabel::ELabelDuct);
    SetHvacEntLayer(&ductLabel, L"新风", true);
    EXPECT_EQ(LayerNameOf(ductLabel), "暖通-通风-风管标注-新风");
    QoDbHvacLabel terminalLabel(QoDbHvacLabel::ELabelEquip, QoDbHvacLabel::EEquipLabelTerminal);
    SetHvacEntLayer(&terminalLabel, L"新风", true);
    EXPECT_EQ(LayerNameOf(terminalLabel), "暖通-通风-风口标注-新风");
    QoDbHvacLabel valveLabel(QoDbHvacLabel::ELabelEquip, QoDbHvacLabel::EEquipLabelValve);
    SetHvacEntLayer(&valveLabel, L"新风", true);
    EXPECT_EQ(LayerNameOf(valveLabel), "暖通-通风-风阀标注-新风");
    QoDbHvacLabel odd(QoDbHvacLabel::ELabelEquip, static_cast<QoDbHvacLabel::EEquipLabelType>(5));
    QoDbHvacLabel odder(static_cast<QoDbHvacLabel::ELabelType>(3));
    SetHvacEntLayer(&odd, L"新风", true);
    SetHvacEntLayer(&odder, L"新风", true);
    EXPECT_TRUE(odd.layerId().isNull());
    EXPECT_TRUE(odder.layerId().isNull());

    QoDbHvacPipeLabel pipeLabel(QoDbHvacPipeLabel::ELabelPipe);
    SetHvacEntLayer(&pipeLabel, L"冷凝水", true, ESysVRV);
    EXPECT_EQ(LayerNameOf(pipeLabel), "暖通-多联机-管线标注-冷凝水");
    QoDbHvacPipeLabel equipmentLabel(QoDbHvacPipeLabel::ELabelEquipment);
    SetHvacEntLayer(&equipmentLabel, L"冷凝水", true, ESysVRV);
    EXPECT_EQ(LayerNameOf(equipmentLabel), "暖通-多联机-设备标注");
    QoDbHvacPipeLabel riserLabel(QoDbHvacPipeLabel::ELabelRiser);
    SetHvacEntLayer(&riserLabel, L"冷凝水", false, ESysVRV);
    EXPECT_EQ(LayerNameOf(riserLabel), "暖通-多联机-系统图-立管标注-冷凝水");
    QoDbHvacPipeLabel oddPipeLabel(static_cast<QoDbHvacPipeLabel::ELabelType>(9));
    SetHvacEntLayer(&oddPipeLabel, L"冷凝水", true, ESysVRV);
    EXPECT_TRUE(oddPipeLabel.layerId().isNull());
}

TEST_F(EntLayerTest, FloorHeatingCoilAndTelescopeCase) {
    QoDbHvacCoilPipe coil;
    SetHvacEntLayer(&coil);
    EXPECT_EQ(LayerNameOf(coil), "暖通-地暖-盘管-供水");
    EXPECT_DOUBLE_EQ(coil.GetSideLineWidth(), 0.30);
    const AcDbLayerTableRecord back = LayerOf(coil.GetPropBackPipe());
    EXPECT_EQ(U(back.name()), "暖通-地暖-盘管-回水");
    EXPECT_EQ(U(back.linetypeName()), "DASHED");

    QoDbHvacTelescopeCase sleeve;
    SetHvacEntLayer(&sleeve);
    EXPECT_EQ(LayerNameOf(sleeve), "暖通-地暖-伸缩套管");
}
