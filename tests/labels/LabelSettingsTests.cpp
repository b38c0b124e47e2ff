// Label options, lines and contents in the store, the label settings read
// from and saved into "ZEFRA\LABELSET", and the duct calculation conditions.

#include "LabelTestKit.h"

#include "zefra/components/QoHvacDuctCalculateManager.h"
#include "zefra/config/QoDtDictBoolItem.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/labels/QoHvacCStringOption.h"
#include "zefra/labels/QoHvacDuctLabelContent.h"
#include "zefra/labels/QoHvacDuctLabelManager.h"
#include "zefra/platform/airlib/Air.h"

using LabelSettingsTest = LabelTest;

namespace {

QoDtDictOptionItem* AddOptionItem(QoDtDictionary& dict, const wchar_t* key, std::initializer_list<const wchar_t*> choices,
                                  int selection) {
    auto* item = static_cast<QoDtDictOptionItem*>(dict.FindOrAddItem(key, QoDtDictItem::eDtOption));
    for (const wchar_t* choice : choices) item->options.Append(choice);
    item->selection = selection;
    return item;
}

void RemoveChild(QoDtDictionary& dict, const wchar_t* key) {
    QoDtDictItemList& children = dict.children;
    for (children.MoveToFirst(); !children.IsOut(); children.MoveToNext())
        if (children.GetCurData()->name == key) children.DelCur();
}

}  // namespace

TEST(LabelOption, SelectsExactlyAndTakesItsChoicesFromTheStore) {
    QoHvacCStringOption option;
    option.AddOption(L"毫米");
    option.AddOption(L"米");
    EXPECT_EQ(option.GetCurSelIndex(), 1);
    EXPECT_FALSE(option.SetCurSel(L"毫米 ", false));
    EXPECT_EQ(option.GetCurSelIndex(), 1);
    EXPECT_TRUE(option.SetCurSel(L"厘米", true));
    EXPECT_EQ(U(option.GetCurSelString()), "厘米");

    QoDtDictionary dict;
    QoDtDictOptionItem* item = AddOptionItem(dict, L"UNIT", {L"毫米", L"米"}, 1);
    ASSERT_TRUE(option.SaveToDict(item));  // the selection only
    EXPECT_EQ(item->selection, 2);
    EXPECT_EQ(item->options.GetLength(), 2);
    ASSERT_TRUE(option.ReadFromDict(item));
    EXPECT_EQ(option.GetLength(), 2);
    EXPECT_EQ(U(option.GetCurSelString()), "");  // outside the list: empty, no fault
    item->options.Reset();
    ASSERT_TRUE(option.ReadFromDict(item));
    EXPECT_TRUE(option.IsEmpty());
    EXPECT_FALSE(option.ReadFromDict(nullptr));
}

TEST(LabelItem, AttributesRoundTripAndAMissingItemChangesNothing) {
    QoDtDictItem row;
    ASSERT_TRUE(MakeItem(L"风速", L"V=", L"m/s", 1, L"5.0").SaveToItem(&row));
    QoHvacDuctLabelItem read;
    ASSERT_TRUE(read.ReadFromItem(&row));
    EXPECT_EQ(U(read.labelname + read.GetLabelText() + read.GetLabelText(L"4")), "风速V=5.0m/sV=4m/s");
    EXPECT_EQ(read.percition, 1);
    EXPECT_TRUE(read.selected);
    EXPECT_FALSE(read.ReadFromItem(nullptr));
    EXPECT_EQ(U(read.prefix), "V=");
}

TEST(LabelContent, RewritesItsDictionaryAndReadsOnlyBooleansAndStrings) {
    QoDtDictionary dict;
    dict.SetValue(L"OLD", 5);
    QoHvacDuctLabelContent content;
    content.check = 1;
    content.strings.Append(L"送风");
    content.strings.Append(L"回风");
    ASSERT_TRUE(content.SaveToDict(&dict));
    ASSERT_EQ(dict.children.GetLength(), 3);
    EXPECT_EQ(U(dict.children.GetAt(0)->name + dict.children.GetAt(0)->localname), "CHECK是否显示");

    dict.SetValue(L"NUMBER", 2.5);    // skipped
    dict.SetValue(L"CHECK2", false);  // a later Boolean wins
    QoHvacDuctLabelContent read;
    read.strings.Append(L"旧的");
    ASSERT_TRUE(read.ReadFromDict(&dict));
    EXPECT_EQ(read.check, 0);
    ASSERT_EQ(read.strings.GetLength(), 2);
    EXPECT_EQ(U(read.strings[0] + read.strings[1]), "送风回风");
}

TEST_F(LabelSettingsTest, WithoutTheBranchTheBuiltInSettingsHoldAndNothingIsSaved) {
    QoHvacDuctLabelManager* labels = QoHvacDuctLabelManager::GetInstance();
    EXPECT_EQ(U(labels->m_linkFlag + labels->GetTopHPrefix() + labels->GetMidHPrefix() + labels->GetBotHPrefix()),
              "XTCB");
    EXPECT_EQ(U(labels->GetLengthUnitString()), "mm");
    for (const auto& list : labels->m_labelItems) EXPECT_TRUE(list.IsEmpty());
    labels->SaveToDict();
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA\\LABELSET"), nullptr);
}

TEST_F(LabelSettingsTest, ReadTakesStoredKeysReplacesListsAndResetsTheStandard) {
    QoDtDictionary& branch = Branch();
    branch.SetValue(L"LINKFLAG", CString(L"×"));
    branch.SetValue(L"MIDHPREFIX", CString(L"中"));
    branch.SetValue(L"ELELABELSTANDARD", 2);
    branch.SetValue(L"ISAUTOLABEL", true);
    AddOptionItem(branch, L"LENGTHUNIT", {L"毫米", L"米"}, 1);
    StoreRow(0, 8, MakeItem(L"风速", L"V=", L"m/s", 1, L"5"));
    Branch().FindOrAddDict(L"LABELITEM\\LABEL1");  // a list without rows

    QoHvacDuctLabelManager* labels = QoHvacDuctLabelManager::GetInstance();
    EXPECT_EQ(U(labels->m_linkFlag + labels->GetTopHPrefix() + labels->GetMidHPrefix()), "×T中");
    EXPECT_EQ(labels->GetEleLabelStarnard(), QoHvacDuctLabelManager::EEleCentre);
    EXPECT_EQ(labels->m_isAutoLabel, 1);
    EXPECT_EQ(U(labels->GetLengthUnitString()), "m");
    // Nine lines where the list exists, blank where a row is missing.
    ASSERT_EQ(labels->m_labelItems[0].GetLength(), 9);
    EXPECT_EQ(U(labels->m_labelItems[0][8].prefix), "V=");
    EXPECT_FALSE(labels->m_labelItems[0][4].selected);
    EXPECT_EQ(labels->m_labelItems[1].GetLength(), 9);
    EXPECT_EQ(labels->m_labelItems[2].GetLength(), 0);

    // Read again: without its key the standard goes back to 0, and the
    // lists are read afresh.
    RemoveChild(branch, L"ELELABELSTANDARD");
    branch.FindDict(L"LABELITEM")->children.Reset();
    StoreRow(3, 0, MakeItem(L"标高", L"", L"", 3, L"0"));
    labels->ReadFromDict();
    EXPECT_EQ(labels->GetEleLabelStarnard(), QoHvacDuctLabelManager::EEleByAlignment);
    EXPECT_TRUE(labels->m_labelItems[0].IsEmpty());
    EXPECT_EQ(labels->m_labelItems[3].GetLength(), 9);
}

TEST_F(LabelSettingsTest, SaveWritesSelectionsAndExistingRowsOnly) {
    QoDtDictionary& branch = Branch();
    QoDtDictOptionItem* unit = AddOptionItem(branch, L"LENGTHUNIT", {L"毫米", L"米"}, 0);
    for (int row = 0; row < 9; ++row) StoreRow(0, row, MakeItem(L"风量", L"L=", L"", 0, L"1"));
    StoreRow(1, 0, MakeItem(L"风速", L"V=", L"", 0, L"2"));  // list 1 has one row
    QoHvacDuctLabelManager* labels = QoHvacDuctLabelManager::GetInstance();

    labels->GetLengthUnitOption().AddOption(L"千米");
    labels->m_isAutoLabel = 1;
    labels->SetEleLabelStandard(QoHvacDuctLabelManager::EEleBottom);
    labels->m_labelItems[0][3].prefix = L"Q=";
    labels->m_labelItems[1][5].prefix = L"不存";
    labels->m_labelItems[0].DelTail();  // a short list writes the lines it has
    labels->SaveToDict();

    EXPECT_EQ(unit->selection, 2);
    EXPECT_EQ(unit->options.GetLength(), 2);
    EXPECT_EQ(branch.FindItem(L"ISAUTOLABEL"), nullptr);  // saved only into an existing item
    EXPECT_EQ(U(Row(0, 3).GetAttributeValue(L"prefix")), "Q=");
    EXPECT_EQ(U(Row(0, 8).GetAttributeValue(L"prefix")), "L=");
    EXPECT_EQ(branch.FindDict(L"LABELITEM\\LABEL1")->children.GetLength(), 1);  // no rows made
    EXPECT_EQ(branch.FindDict(L"LABELITEM\\LABEL4")->children.GetLength(), 0);

    labels->SetEleLabelStandard(QoHvacDuctLabelManager::EEleTop);
    labels->Init();
    EXPECT_EQ(labels->GetEleLabelStarnard(), QoHvacDuctLabelManager::EEleBottom);
    EXPECT_EQ(labels->GetLengthUnit(), 2);
}

TEST_F(LabelSettingsTest, CalculationConditionsDeriveDensityOnceFromTheBuiltInState) {
    QoHvacDuctCalculateManager* builtIn = QoHvacDuctCalculateManager::GetInstance();
    EXPECT_EQ(U(builtIn->m_mobileMedia), "空气");
    EXPECT_EQ(builtIn->m_bmzMax, 1.4);
    ASSERT_NE(builtIn->m_dict, nullptr);  // made by the read, empty
    EXPECT_EQ(builtIn->m_dict, g_dictCfg.FindDict(L"ZEFRA\\CALCONDITION"));
    EXPECT_EQ(builtIn->m_dict->children.GetLength(), 0);

    g_dictCfg.SetValue(L"ZEFRA\\CALCONDITION\\Temperature", 30.0);
    builtIn->ReadFromDict();
    EXPECT_EQ(builtIn->m_temperature, 30.0);
    // Density and viscosity stay those of 20 °C, 60 %, 101325 Pa.
    EXPECT_EQ(builtIn->m_density, AIR::GetDen(20.0, 0.6, 101325.0));
    EXPECT_EQ(builtIn->m_kinematicViscosity, AIR::GetKV(20.0) * 1000000.0);

    builtIn->m_gjXz = 3;
    builtIn->SaveToDict();
    EXPECT_EQ(builtIn->m_dict->children.GetLength(), 11);
    builtIn->m_gjXz = 0;
    builtIn->ReadFromDict();
    EXPECT_EQ(builtIn->m_gjXz, 3);
}
