#include "ComponentTestKit.h"

#include "zefra/components/QoHvacWTFlangeManager.h"
#include "zefra/platform/airlib/NT.h"

#include <limits>
#include <vector>

using HVAC::ESysCZCN;
using HVAC::ESysDBCN;
using HVAC::ESysDuct;
using HVAC::ESysFHCN;
using HVAC::ESysKT;
using HVAC::ESysVRV;

namespace {

SFlangeExtrudeData Row(double start, double thickness, double extrude) {
    SFlangeExtrudeData row;
    row.start = start;
    row.thickness = thickness;
    row.extrude = extrude;
    return row;
}

std::vector<SFlangeExtrudeData> Vector(const QoList<SFlangeExtrudeData>& list) {
    std::vector<SFlangeExtrudeData> rows;
    for (const SFlangeExtrudeData* row = list.GetFirst(); row != nullptr; row = list.GetNext(row))
        rows.push_back(*row);
    return rows;
}

class WaterFlangeTable : public componenttest::FreshModule {
protected:
    QoHvacWTFlangeManager* manager = QoHvacWTFlangeManager::GetInstance();
};

// Gives access to the path of a kind's table.
class PathProbe : public QoHvacWTFlangeManager {
public:
    static CString PathOf(HVAC::EQoDbHvacSystemType kind) { return GetDictPath(kind); }
};

}  // namespace

TEST_F(WaterFlangeTable, StepsHoldFromTheirStartToTheNextOne) {
    manager->AddExtrudeData(Row(100, 4, 40), ESysKT);
    manager->AddExtrudeData(Row(15, 2, 20), ESysKT);
    manager->AddExtrudeData(Row(50, 3, 30), ESysKT);
    EXPECT_EQ(manager->GetKTThickness(10), 1.0);  // below the table: defaults
    EXPECT_EQ(manager->GetKTExrtude(10), 0.0);
    EXPECT_EQ(manager->GetKTExrtude(15), 20.0);
    EXPECT_EQ(manager->GetKTExrtude(15 - 1e-10), 20.0);  // within the zero band
    EXPECT_EQ(manager->GetKTExrtude(15 - 1e-6), 0.0);
    EXPECT_EQ(manager->GetKTThickness(49), 2.0);
    EXPECT_EQ(manager->GetKTThickness(50), 3.0);
    EXPECT_EQ(manager->GetKTExrtude(100), 40.0);
    EXPECT_EQ(manager->GetKTExrtude(500), 40.0);
}

TEST_F(WaterFlangeTable, KindsShareTablesAndDuctsHaveNone) {
    manager->AddExtrudeData(Row(20, 2, 5), ESysVRV);
    manager->AddExtrudeData(Row(20, 6, 9), ESysFHCN);
    EXPECT_EQ(manager->GetThickness(25, ESysKT), 2.0);
    EXPECT_EQ(manager->GetThickness(25, ESysDBCN), 6.0);
    EXPECT_EQ(manager->GetExrtude(25, ESysCZCN), 9.0);

    manager->AddExtrudeData(Row(0, 8, 8), ESysDuct);
    EXPECT_EQ(manager->GetThickness(25, ESysDuct), 1.0);
    EXPECT_EQ(manager->GetExrtude(25, ESysDuct), 0.0);
    EXPECT_EQ(manager->GetFlangeData(ESysDuct).GetLength(), 0);
    EXPECT_EQ(PathProbe::PathOf(ESysDuct), CString(L"ZEFRA\\WATER\\FLANGESET"));
    EXPECT_EQ(PathProbe::PathOf(ESysDBCN), CString(L"ZEFRA\\HEATING\\FLANGESET"));

    manager->Clear(ESysCZCN);
    EXPECT_EQ(manager->GetFlangeData(ESysDBCN).GetLength(), 0);
    EXPECT_EQ(manager->GetFlangeData(ESysKT).GetLength(), 1);
}

TEST_F(WaterFlangeTable, SortingKeepsRowsOfEqualStartInArrivalOrder) {
    QoList<SFlangeExtrudeData> rows;
    rows.Append(Row(50, 1, 1));
    rows.Append(Row(20, 2, 2));
    rows.Append(Row(50, 3, 3));
    rows.Append(Row(10, 4, 4));
    manager->AddExtrudeData(Row(99, 9, 9), ESysKT);
    manager->SetFlangeData(rows, ESysKT);  // replaces what was there
    EXPECT_EQ(Vector(manager->GetFlangeData(ESysKT)),
              (std::vector<SFlangeExtrudeData>{Row(10, 4, 4), Row(20, 2, 2), Row(50, 1, 1), Row(50, 3, 3)}));
    manager->AddExtrudeData(Row(50, 5, 5), ESysKT);
    EXPECT_EQ(Vector(manager->GetFlangeData(ESysKT)).back(), Row(50, 5, 5));
    // Of two rows with the same start, the later one holds.
    EXPECT_EQ(manager->GetKTThickness(60), 5.0);
}

TEST_F(WaterFlangeTable, SaveWritesRowsAndRefillsTheSharedPipeData) {
    manager->AddExtrudeData(Row(15, 2, 20), ESysKT);
    manager->AddExtrudeData(Row(50, 3, 30), ESysKT);
    manager->AddExtrudeData(Row(25, 7, 70), ESysCZCN);
    manager->SaveToDict(ESysKT);

    const QoDtDictionary* water = g_dictCfg.FindDict(L"ZEFRA\\WATER\\FLANGESET");
    ASSERT_NE(water, nullptr);
    ASSERT_EQ(water->children.GetLength(), 2);
    const QoDtDictItem* second = water->FindItem(L"1");
    EXPECT_EQ(second->GetType(), QoDtDictItem::eDtRow);
    EXPECT_EQ(second->GetAttributeDoubleValue(L"START"), 50.0);
    EXPECT_EQ(second->GetAttributeDoubleValue(L"THICKNESS"), 3.0);
    EXPECT_EQ(second->GetAttributeDoubleValue(L"EXTRUDE"), 30.0);
    EXPECT_EQ(Vector(g_HvacPipeGBData.GetData(ZefraPipeGBData::EFlangeExtrude)),
              (std::vector<SFlangeExtrudeData>{Row(15, 2, 20), Row(50, 3, 30)}));

    // The shared rows are those of the table saved last.
    manager->SaveToDict(ESysFHCN);
    EXPECT_EQ(Vector(g_HvacPipeGBData.GetData(ZefraPipeGBData::EFlangeExtrude)),
              (std::vector<SFlangeExtrudeData>{Row(25, 7, 70)}));

    // A second save replaces the rows rather than adding to them.
    manager->Clear(ESysKT);
    manager->AddExtrudeData(Row(80, 4, 4), ESysKT);
    manager->SaveToDict(ESysVRV);
    EXPECT_EQ(water->children.GetLength(), 1);
}

TEST_F(WaterFlangeTable, ReadingAnEmptyStoreKeepsTheRowsInMemory) {
    manager->AddExtrudeData(Row(15, 2, 20), ESysKT);
    manager->ReadFromDict(ESysKT);  // makes the dictionary, finds nothing
    ASSERT_NE(g_dictCfg.FindDict(L"ZEFRA\\WATER\\FLANGESET"), nullptr);
    EXPECT_EQ(manager->GetFlangeData(ESysKT).GetLength(), 1);
    manager->SaveToDict(ESysKT);
    EXPECT_EQ(g_dictCfg.FindDict(L"ZEFRA\\WATER\\FLANGESET")->children.GetLength(), 1);
}

TEST_F(WaterFlangeTable, ConstructionReadsBothTablesSorted) {
    componenttest::ResetModule();
    QoDtDictionary* heating = g_dictCfg.FindOrAddDict(L"ZEFRA\\HEATING\\FLANGESET");
    const double starts[] = {65, 15, 40};
    int key = 0;
    for (double start : starts) {
        QoDtDictItem* row = heating->FindOrAddItem(NT::itoa(key++), QoDtDictItem::eDtRow);
        row->SetAttributeDoubleValue(L"START", start);
        row->SetAttributeDoubleValue(L"THICKNESS", start / 10);
    }
    const QoHvacWTFlangeManager* fresh = QoHvacWTFlangeManager::GetInstance();
    EXPECT_EQ(fresh->GetThickness(50, ESysDBCN), 4.0);
    EXPECT_EQ(fresh->GetExrtude(50, ESysDBCN), 0.0);  // no attribute: reads 0
    EXPECT_EQ(fresh->GetFlangeData(ESysKT).GetLength(), 0);
    EXPECT_NE(g_dictCfg.FindDict(L"ZEFRA\\WATER\\FLANGESET"), nullptr);  // made by the first read
}

TEST_F(WaterFlangeTable, RowsWithNonFiniteOrNegativeValuesAreRefused) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    manager->AddExtrudeData(Row(15, 2, 20), ESysKT);
    const std::vector<SFlangeExtrudeData> kept = Vector(manager->GetFlangeData(ESysKT));
    // A NaN start once left the table unsorted; the record's default start is -1.
    for (const SFlangeExtrudeData& row : {Row(nan, 2, 20), Row(-1, 2, 20), SFlangeExtrudeData(), Row(30, inf, 20),
                                          Row(30, -2, 20), Row(30, 2, nan)}) {
        EXPECT_FALSE(manager->TryAddExtrudeData(row, ESysKT)) << row.start << " " << row.thickness << " " << row.extrude;
        QoList<SFlangeExtrudeData> list;
        list.Append(Row(5, 1, 1));
        list.Append(row);
        EXPECT_FALSE(manager->TrySetFlangeData(list, ESysKT));
        EXPECT_EQ(Vector(manager->GetFlangeData(ESysKT)), kept);
    }
    EXPECT_EQ(manager->GetThickness(nan, ESysKT), 1.0);  // below every table

    QoDtDictionary* water = g_dictCfg.FindOrAddDict(L"ZEFRA\\WATER\\FLANGESET");
    int key = 0;
    for (const wchar_t* start : {L"50", L"nan", L"-15", L"inf"}) {
        QoDtDictItem* stored = water->FindOrAddItem(NT::itoa(key++), QoDtDictItem::eDtRow);
        stored->SetAttributeValue(L"START", start);
        stored->SetAttributeValue(L"THICKNESS", L"2");
    }
    manager->ReadFromDict(ESysVRV);
    EXPECT_EQ(Vector(manager->GetFlangeData(ESysKT)), (std::vector<SFlangeExtrudeData>{Row(50, 2, 0)}));
}
