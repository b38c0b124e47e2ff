#include "ComponentTestKit.h"

#include "zefra/components/QoHvacDrawSetManager.h"
#include "zefra/platform/host/AcDbHostApplicationServices.h"
#include "zefra/platform/host/AcDbTextStyleTable.h"

using HVAC::ESysCZCN;
using HVAC::ESysDBCN;
using HVAC::ESysDuct;
using HVAC::ESysFHCN;
using HVAC::ESysKT;
using HVAC::ESysVRV;

namespace {

using DrawSetSettings = componenttest::FreshModule;

// The keys of a dictionary, in order, joined by spaces.
CString KeysOf(const QoDtDictionary& dict) {
    CString keys;
    for (QoDtDictItem* const* child = dict.children.GetFirst(); child != nullptr; child = dict.children.GetNext(child))
        keys += (keys.IsEmpty() ? CString() : CString(L" ")) + (*child)->name;
    return keys;
}

}  // namespace

TEST_F(DrawSetSettings, EmptyConfigurationGivesTheRecordDefaults) {
    QoHvacDrawSetManager* manager = QoHvacDrawSetManager::GetInstance();
    EXPECT_EQ(manager->GetKTDrawSetData().m_buckleType, 100);
    EXPECT_EQ(manager->GetCnDrawSetData().m_radiatorLabelSuffix, CString(L"层"));
    EXPECT_EQ(manager->GetRadDrawSetData().m_distToTop, 200.0);
    EXPECT_EQ(manager->GetRadDrawSetData().m_distToBottom, 200.0);
    EXPECT_TRUE(manager->GetRadDrawSetData().m_jointType);
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA"), nullptr);
}

TEST_F(DrawSetSettings, KindsMapOntoThreeRecords) {
    QoHvacDrawSetManager* manager = QoHvacDrawSetManager::GetInstance();
    EXPECT_EQ(&manager->GetDrawSetData(ESysVRV), &manager->GetKTDrawSetData());
    EXPECT_EQ(&manager->GetDrawSetData(ESysDuct), &manager->GetKTDrawSetData());
    EXPECT_EQ(&manager->GetDrawSetData(ESysFHCN), &manager->GetCnDrawSetData());
    EXPECT_NE(&manager->GetDrawSetData(ESysDBCN), &manager->GetCnDrawSetData());
    manager->GetDrawSetData(ESysVRV).m_riserDia = 2.5;
    EXPECT_EQ(manager->GetKTDrawSetData().m_riserDia, 2.5);

    SHvacDrawSetData changed;
    changed.m_drawScale = 50.0;
    manager->SetDrawSetData(changed, ESysDuct);
    EXPECT_EQ(manager->GetKTDrawSetData().m_drawScale, 1.0);
    manager->SetDrawSetData(changed, ESysDBCN);
    EXPECT_EQ(manager->GetDrawSetData(ESysDBCN).m_drawScale, 50.0);
    EXPECT_EQ(manager->GetCnDrawSetData().m_drawScale, 1.0);
}

TEST_F(DrawSetSettings, SavesWriteTheirKeysInOrderAndTheRadiusOnlyUnderWater) {
    QoHvacDrawSetManager* manager = QoHvacDrawSetManager::GetInstance();
    manager->GetKTDrawSetData().m_radiusOfCur = 4.0;
    manager->SaveToDict(ESysKT);  // the water dictionary is made after the radius had nowhere to go
    const QoDtDictionary* water = g_dictCfg.FindDict(L"ZEFRA\\WATER\\DRAWSET");
    ASSERT_NE(water, nullptr);
    EXPECT_EQ(water->FindItem(L"RADIUSOFCUR"), nullptr);
    EXPECT_EQ(KeysOf(*water),
              CString(L"RISERDIA AUTOFILLUP GSRISERTYPE HSRISERTYPE RLTYPE RLCIRCLEDIA RLTEXTHEIGHT "
                      L"RLDRAWLEADLINE BUCKLETYPE BUCKLEDIA DRAWSCALE CHTEXTHEIGHT ENTEXTHEIGHT USECADTEXT "
                      L"USERSCALEPAN ADDBENDBRIDGE BRIDGEDIA FQGFILLUP FQGLENGTH FQGZGLENGTH FQGSTYLE "
                      L"FQGMINDIST LMRISERTYPE LNSRISERTYPE TEXTSTYLE RadiatorLabelSuffix PIPEZJELE"));
    manager->SaveToDict(ESysVRV);
    double radius = 0.0;
    EXPECT_TRUE(water->GetValue(L"RADIUSOFCUR", radius));
    EXPECT_EQ(radius, 4.0);
    EXPECT_EQ(g_HvacPipeDrawSetData.m_radius, 4.0);

    manager->GetRadDrawSetData().m_distToTop = 150.0;
    manager->GetRadDrawSetData().m_distToBottom = 250.0;
    manager->SaveToDict(ESysFHCN);
    const QoDtDictionary* heating = g_dictCfg.FindDict(L"ZEFRA\\HEATING\\DRAWSET");
    ASSERT_NE(heating, nullptr);
    EXPECT_EQ(heating->FindItem(L"RADIUSOFCUR"), nullptr);
    EXPECT_EQ(heating->children.GetLength(), 27 + 7);
    const CString fhcnKeys = KeysOf(*heating);
    manager->SaveToDict(ESysCZCN);
    EXPECT_EQ(KeysOf(*heating), fhcnKeys);
    EXPECT_EQ(heating->children.GetAt(27)->name, CString(L"DistToTop"));
    EXPECT_EQ(water->FindItem(L"DistToTop"), nullptr);

    SHvacRadDrawSetData reread;
    QoHvacDrawSetManager copy = *manager;
    copy.SetRadDrawSetData(reread);
    copy.ReadFromDict(ESysCZCN);
    EXPECT_EQ(copy.GetRadDrawSetData().m_distToTop, 150.0);
    EXPECT_EQ(copy.GetRadDrawSetData().m_distToBottom, 250.0);
}

TEST_F(DrawSetSettings, ReadTakesStoredKeysAndTheFloorHeatingRadiatorsWinAtStart) {
    QoDtDictionary* water = g_dictCfg.FindOrAddDict(L"ZEFRA\\WATER\\DRAWSET");
    water->SetValue(L"GSRISERTYPE", 2);
    water->SetValue(L"RADIUSOFCUR", 6.0);
    water->SetValue(L"TEXTSTYLE", CString(L"HZ"));
    g_dictCfg.FindOrAddDict(L"ZEFRA\\HEATING\\DRAWSET")->SetValue(L"DistToTop", 120.0);
    QoDtDictionary* dbcn = g_dictCfg.FindOrAddDict(L"ZEFRA\\DBCN\\DRAWSET");
    dbcn->SetValue(L"DistToTop", 90.0);
    dbcn->SetValue(L"GSRISERTYPE", CString(L"two"));

    QoHvacDrawSetManager* manager = QoHvacDrawSetManager::GetInstance();
    EXPECT_EQ(manager->GetKTDrawSetData().m_gsRiserType, 2);
    EXPECT_EQ(manager->GetKTDrawSetData().m_textStyle, CString(L"HZ"));
    EXPECT_EQ(manager->GetDrawSetData(ESysDBCN).m_gsRiserType, 1);  // not a number: kept
    EXPECT_EQ(manager->GetRadDrawSetData().m_distToTop, 90.0);
    // The radius reaches every record read with the water dictionary there.
    EXPECT_EQ(manager->GetCnDrawSetData().m_radiusOfCur, 6.0);
    EXPECT_EQ(g_HvacPipeDrawSetData.m_radius, 6.0);

    manager->ReadFromDict(ESysFHCN);
    EXPECT_EQ(manager->GetRadDrawSetData().m_distToTop, 120.0);
}

TEST_F(DrawSetSettings, RadiatorDistancesCompareWithinTheZeroBand) {
    SHvacRadDrawSetData a;
    SHvacRadDrawSetData b;
    b.m_distToTop += 1e-10;
    EXPECT_FALSE(a != b);
    b.m_distToBottom -= 1e-6;
    EXPECT_TRUE(a != b);
    b = a;
    b.m_jointType = false;
    EXPECT_TRUE(a != b);
}

TEST_F(DrawSetSettings, LabelStyleIsTheCurrentOneOrTheNamedOne) {
    QoHvacDrawSetManager* manager = QoHvacDrawSetManager::GetInstance();
    AcDbTextStyleTable& styles = acdbTextStyleTable(nullptr);
    AcDbObjectId hz;
    ASSERT_TRUE(styles.add(L"HZ", hz));
    manager->GetKTDrawSetData().m_textStyle = L"hz";
    EXPECT_EQ(manager->GetLabelTextStyle(ESysKT), hz);
    manager->GetKTDrawSetData().m_textStyle = L"no such style";
    EXPECT_TRUE(manager->GetLabelTextStyle(ESysKT).isNull());
    manager->GetKTDrawSetData().m_useCadText = true;
    EXPECT_EQ(manager->GetLabelTextStyle(ESysKT), styles.currentStyle());
    EXPECT_FALSE(styles.currentStyle().isNull());
}
