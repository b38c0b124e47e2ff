#include "ComponentTestKit.h"

#include "zefra/components/QoHvacDuctDisplayManager.h"

using HVAC::ESysCZCN;
using HVAC::ESysDuct;
using HVAC::ESysKT;
using HVAC::ESysVRV;

namespace {

const HVAC::EQoDbHvacSystemType kUnknownKind = static_cast<HVAC::EQoDbHvacSystemType>(12345);

QoDtDictionary& DuctBranch() { return *g_dictCfg.FindOrAddDict(L"ZEFRA\\DISPLAYSET"); }
QoDtDictionary& WaterBranch() { return *g_dictCfg.FindOrAddDict(L"ZEFRA\\WATER\\DISPLAYSET"); }

using DisplaySettings = componenttest::FreshModule;

}  // namespace

TEST_F(DisplaySettings, EmptyConfigurationShowsEveryAxisInBothSharedObjects) {
    g_HvacFitAndDisplayData.m_axis.circTydf = false;
    g_HvacPipeDrawSetData.m_axis.gooseneck = false;
    g_HvacPipeDrawSetData.m_breakOffset = 9.0;
    const QoHvacDuctDisplayManager* manager = QoHvacDuctDisplayManager::GetInstance();
    EXPECT_TRUE(manager->m_circTydf && manager->m_rectOffset && manager->m_bendBridge && manager->m_pipe);
    EXPECT_EQ(manager->m_ductBreakOffset, 0.0);
    EXPECT_EQ(manager->m_waterBreakOffset, 0.0);
    EXPECT_EQ(manager->m_2dReducerType, 0);
    EXPECT_TRUE(g_HvacFitAndDisplayData.m_axis.circTydf);
    EXPECT_TRUE(g_HvacPipeDrawSetData.m_axis.gooseneck);
    EXPECT_EQ(g_HvacPipeDrawSetData.m_breakOffset, 0.0);
    EXPECT_EQ(manager->GetLineType(ESysDuct), 1);  // no choices: no "单线"
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA"), nullptr);  // reading makes nothing
}

TEST_F(DisplaySettings, ReadTakesEachHalfFromItsBranchAndTheDashColourFromTheLast) {
    QoDtDictionary& duct = DuctBranch();
    duct.SetValue(L"BREAKOFFSET", 2.5);
    duct.SetValue(L"ALLOWCLIP", false);
    duct.SetValue(L"DASHLINECOLOR", 1);
    QoDtDictionary* ductAxis = duct.FindOrAddDict(L"DISPLAYAXIS");
    ductAxis->SetValue(L"CIRCOFFSET", false);
    ductAxis->SetValue(L"RECTTEE", false);
    componenttest::AddOption(duct, L"LINETYPE", {L"双线", L"单线"}, 1);
    QoDtDictionary& water = WaterBranch();
    water.SetValue(L"SHOWMASKGRAPH", false);
    water.SetValue(L"2DREDUCERTYPE", 2);
    water.SetValue(L"2DREDUCERLENGTH", 150.0);
    water.SetValue(L"DASHLINECOLOR", 8);
    water.FindOrAddDict(L"DISPLAYAXIS")->SetValue(L"RISER", false);

    const QoHvacDuctDisplayManager* manager = QoHvacDuctDisplayManager::GetInstance();
    EXPECT_EQ(manager->m_ductBreakOffset, 2.5);
    EXPECT_FALSE(manager->m_ductAllowClip);
    EXPECT_FALSE(manager->m_circOffset);
    EXPECT_TRUE(manager->m_circTydf);
    EXPECT_FALSE(manager->m_rectTee);
    EXPECT_EQ(manager->GetLineType(ESysDuct), 0);
    EXPECT_EQ(manager->GetLineType(ESysKT), 1);
    EXPECT_EQ(manager->GetLineType(kUnknownKind), 1);
    EXPECT_FALSE(manager->m_waterShowMask);
    EXPECT_FALSE(manager->m_riser);
    EXPECT_EQ(manager->m_2dReducerType, 2);

    const QoDbHvacDefaultFitData& fit = g_HvacFitAndDisplayData;
    EXPECT_EQ(fit.m_breakOffset, 2.5);
    EXPECT_FALSE(fit.m_allowClip);
    EXPECT_FALSE(fit.m_axis.circOffset);  // the two round flags stay apart
    EXPECT_TRUE(fit.m_axis.circTydf);
    EXPECT_FALSE(fit.m_axis.rectTee);
    EXPECT_EQ(fit.m_dashLineColor, 8);  // the water branch is read last
    const QoDbHvacPipeDrawSetData& pipe = g_HvacPipeDrawSetData;
    EXPECT_FALSE(pipe.m_showMask);
    EXPECT_FALSE(pipe.m_axis.riser);
    EXPECT_TRUE(pipe.m_axis.pipe);
    EXPECT_EQ(pipe.m_2dReducerType, 2);
    EXPECT_EQ(pipe.m_2dReducerLength, 150.0);
}

TEST_F(DisplaySettings, SaveWritesOnlyWhereTheBranchesAlreadyStand) {
    QoHvacDuctDisplayManager* manager = QoHvacDuctDisplayManager::GetInstance();
    manager->m_ductBreakOffset = 4.0;
    manager->SaveToDict(ESysDuct);  // no branch: nothing written, nothing pushed
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA\\DISPLAYSET"), nullptr);
    EXPECT_EQ(g_HvacFitAndDisplayData.m_breakOffset, 0.0);

    QoDtDictionary& duct = DuctBranch();
    manager->SaveToDict(ESysDuct);  // no "DISPLAYAXIS", no "LINETYPE": skipped
    EXPECT_EQ(duct.FindItem(L"DISPLAYAXIS"), nullptr);
    EXPECT_EQ(duct.FindItem(L"LINETYPE"), nullptr);
    EXPECT_EQ(duct.children.GetLength(), 4);
    EXPECT_EQ(g_HvacFitAndDisplayData.m_breakOffset, 4.0);
    int colour = 0;
    EXPECT_TRUE(duct.GetValue(L"DASHLINECOLOR", colour));
    EXPECT_EQ(colour, g_HvacFitAndDisplayData.m_dashLineColor);

    QoDtDictionary* axis = duct.FindOrAddDict(L"DISPLAYAXIS");
    QoDtDictOptionItem* lineType = componenttest::AddOption(duct, L"LINETYPE", {L"双线", L"单线"}, 0);
    manager->m_ductLineType.SetCurSelIndex(1);
    manager->m_circTydf = false;
    manager->SaveToDict(ESysDuct);
    EXPECT_EQ(axis->children.GetLength(), 13);
    EXPECT_EQ(axis->children.GetAt(11)->name, CString(L"CIRCTYDF"));
    bool tydf = true;
    EXPECT_TRUE(axis->GetValue(L"CIRCTYDF", tydf));
    EXPECT_FALSE(tydf);
    EXPECT_EQ(lineType->selection, 1);
    EXPECT_EQ(lineType->options.GetLength(), 2);
}

TEST_F(DisplaySettings, AllWaterKindsShareOneHalfAndOtherKindsDoNothing) {
    QoHvacDuctDisplayManager* manager = QoHvacDuctDisplayManager::GetInstance();
    QoDtDictionary& water = WaterBranch();
    water.FindOrAddDict(L"DISPLAYAXIS");
    manager->m_waterBreakOffset = 7.0;
    manager->SaveToDict(ESysVRV);
    double stored = 0.0;
    EXPECT_TRUE(water.GetValue(L"BREAKOFFSET", stored));
    EXPECT_EQ(stored, 7.0);
    manager->m_waterBreakOffset = 8.0;
    manager->SaveToDict(ESysCZCN);
    EXPECT_TRUE(water.GetValue(L"BREAKOFFSET", stored));
    EXPECT_EQ(stored, 8.0);
    EXPECT_EQ(water.FindDict(L"DISPLAYAXIS")->children.GetLength(), 9);

    manager->ModiftAll(false, ESysKT);
    EXPECT_FALSE(manager->m_pipe || manager->m_riser || manager->m_bendBridge || manager->m_gooseneck);
    EXPECT_TRUE(manager->m_waterShowMask);
    EXPECT_TRUE(manager->m_rectDuct);
    EXPECT_TRUE(g_HvacPipeDrawSetData.m_axis.pipe);  // no push until asked
    manager->SetDataToQoDb(ESysKT);
    EXPECT_FALSE(g_HvacPipeDrawSetData.m_axis.pipe);

    const QoHvacDuctDisplayManager before = *manager;
    manager->ModiftAll(true, kUnknownKind);
    manager->ReadFromDict(kUnknownKind);
    manager->SaveToDict(kUnknownKind);
    EXPECT_FALSE(manager->m_pipe);
    EXPECT_EQ(manager->m_waterBreakOffset, before.m_waterBreakOffset);
}
