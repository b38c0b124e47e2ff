// Layer definitions: how the standard's trees combine into one record, the
// current standard, and the layers that keys make in a drawing.

#include "LayerTestKit.h"

#include "zefra/layers/QoDtInitLayer.h"
#include "zefra/layers/QoHvacLayerManager.h"

using LayerDefTest = LayerTest;

namespace {

QoDtLayerDef Def(const wchar_t* key, bool expectFound = true) {
    QoDtLayerDef def(key);
    EXPECT_EQ(QoHvacLayerManager().GetLayerDef(def, nullptr), expectFound) << U(def.key);
    return def;
}

}  // namespace

TEST_F(LayerDefTest, SystemLayerTakesEntryNameSystemLineAndModelWeight) {
    const QoDtLayerDef def = Def(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LH-NT_MODEL_PIPE");
    EXPECT_EQ(U(def.layerName), "暖通-空调水-水管-冷冻回水");
    EXPECT_EQ(def.colorIndex, 4);
    EXPECT_EQ(U(def.lineType), "DASHED");
    EXPECT_EQ(U(def.comment), "LH");
    EXPECT_DOUBLE_EQ(def.GetLineWeight(), 0.35);
    EXPECT_EQ(U(def.localName), "空调水平面水管-冷冻回水");

    // A label's definition fixes colour and line type; the system can't.
    const QoDtLayerDef label = Def(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LH-NT_MODEL_PIPELABEL");
    EXPECT_EQ(label.colorIndex, 7);
    EXPECT_EQ(U(label.lineType), "Continuous");

    // An axis has its own line type scale.
    EXPECT_DOUBLE_EQ(Def(L"HVAC-NT_PROJ_TFGC-NT_CLASS_SYS-SF-NT_MODEL_AXISLINE").GetLineScale(), 0.5);
}

TEST_F(LayerDefTest, EntryAttributesOverrideAndEmptyEntriesDeriveTheirName) {
    QoDtDictItem* entry = Group(L"空调水路", L"冷冻供水").FindItem(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LG-NT_MODEL_PIPE");
    entry->SetAttributeValue(L"color", L"150");
    entry->SetAttributeValue(L"lineweight", L"0.5");
    static_cast<QoDtDictStringItem*>(entry)->value = L"";
    const QoDtLayerDef def = Def(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LG-NT_MODEL_PIPE");
    EXPECT_EQ(def.colorIndex, 150);
    EXPECT_DOUBLE_EQ(def.GetLineWeight(), 0.5);
    EXPECT_EQ(U(def.layerName), "暖通-空调水-水管-冷冻供水");  // model layer + "-" + display name

    // A known system without an entry still resolves through its model.
    Group(L"空调水路", L"冷冻供水").children.Reset();
    const QoDtLayerDef fallback = Def(L"HVAC-NT_PROJ_KT-NT_CLASS_SYS-LG-NT_MODEL_RISER");
    EXPECT_EQ(U(fallback.layerName), "暖通-空调水-系统图-立管-冷冻供水");
    EXPECT_EQ(fallback.colorIndex, 4);
}

TEST_F(LayerDefTest, ModelFixedAndSystemKeysAndMisses) {
    const QoDtLayerDef model = Def(L"HVAC-NT_PROJ_VRV-NT_CLASS_PLANE-NT_MODEL_BIFURCATEDPIPE");
    EXPECT_EQ(U(model.layerName), "暖通-多联机-分歧管");
    EXPECT_EQ(model.colorIndex, 2);
    EXPECT_EQ(U(Def(L"HVAC-NT_PROJ_OTHER-NT_MODEL_FLOORLINE").layerName), "暖通-楼板线");

    // A system key gives the system: AddSystem reads its sample this way.
    const QoDtLayerDef system = Def(L"LQG");
    EXPECT_EQ(U(system.localName), "冷却供水");
    EXPECT_EQ(system.colorIndex, 30);
    EXPECT_EQ(U(system.lineType), "Continuous");

    // A system part that names no system of the kind is no system.
    QoDtLayerDef miss = Def(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-XX-NT_MODEL_PIPE", false);
    EXPECT_EQ(U(miss.layerName), "");
    EXPECT_EQ(miss.colorIndex, 7);
    EXPECT_EQ(U(QoHvacLayerManager().GetLayerName(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-XX-NT_MODEL_PIPE")), "0");
}

TEST_F(LayerDefTest, CurrentStandardIsNamedOrTheFirst) {
    QoDtDictionary& layerRoot = *g_dictCfg.FindDict(L"LAYER");
    QoDtDictionary* shipped = layerRoot.FindDict(L"DEFAULT");
    QoDtDictionary* other = layerRoot.FindOrAddDict(L"OTHER");
    EXPECT_EQ(QoDtLayerCfg().GetCurLayerStd(), shipped);
    layerRoot.SetValue(L"CURRENT_STD", CString(L"OTHER"));
    EXPECT_EQ(QoDtLayerCfg().GetCurLayerStd(), other);
    // The named standard is switched off: the first in the list stands in.
    layerRoot.SetValue(L"CURRENT_STD", CString(L"GONE"));
    EXPECT_EQ(QoDtLayerCfg().GetCurLayerStd(), shipped);

    // An explicit standard is read instead of the current one.
    layerRoot.SetValue(L"CURRENT_STD", CString(L"OTHER"));
    QoDtLayerDef def(L"HVAC-NT_PROJ_HST");
    EXPECT_FALSE(QoDtLayerCfg().GetLayerDef(def, nullptr));
    EXPECT_TRUE(QoDtLayerCfg().GetLayerDef(def, shipped));
}

TEST_F(LayerDefTest, InitLayerMakesTheDefinedLayerOnceAndNamesUndefinedKeysAfterThemselves) {
    const AcDbObjectId id = QoDtInitLayer(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LH-NT_MODEL_PIPE", nullptr);
    AcDbLayerTableRecord layer;
    ASSERT_TRUE(m_drawing.layerTable().getAt(id, layer));
    EXPECT_EQ(U(layer.name()), "暖通-空调水-水管-冷冻回水");
    EXPECT_EQ(layer.colorIndex(), 4);
    EXPECT_EQ(U(layer.linetypeName()), "DASHED");
    EXPECT_DOUBLE_EQ(layer.lineWeight(), 0.35);

    // A layer that exists is used as the drawing has it.
    AcDbObjectId mine;
    ASSERT_TRUE(m_drawing.layerTable().add(AcDbLayerTableRecord(L"暖通-焓湿图", 3, L"HIDDEN", 0.0), mine));
    EXPECT_EQ(QoDtInitLayer(L"HVAC-NT_PROJ_HST", &m_drawing), mine);
    const int count = m_drawing.layerTable().count();
    EXPECT_EQ(QoDtInitLayer(L"HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LH-NT_MODEL_PIPE", nullptr), id);
    EXPECT_EQ(m_drawing.layerTable().count(), count);

    const AcDbObjectId undefined = QoDtInitLayer(L"HVAC-NT_PROJ_X-NT_MODEL_Y", nullptr);
    ASSERT_TRUE(m_drawing.layerTable().getAt(undefined, layer));
    EXPECT_EQ(U(layer.name()), "HVAC-NT_PROJ_X-NT_MODEL_Y");
    EXPECT_EQ(layer.colorIndex(), 7);
    EXPECT_EQ(U(layer.linetypeName()), "Continuous");
}
