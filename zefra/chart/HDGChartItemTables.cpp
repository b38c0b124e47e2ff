#include "zefra/chart/HDGChartItemTables.h"

namespace {

const wchar_t* const kDisplayNames[HDGChartItemTables::kDisplayRows] = {
    L"干球温度", L"相对湿度", L"焓", L"含湿量", L"湿球温度", L"露点温度",
    L"水蒸气分压力", L"密度", L"比容", L"饱和含湿量", L"饱和水蒸气压力",
};
// The five items a point report shows out of the box.
const bool kDisplayDefaults[HDGChartItemTables::kDisplayRows] = {
    true, true, true, true, true, false, false, false, false, false, false,
};

const wchar_t* const kYcHfNames[HDGChartItemTables::kYcHfRows] = {
    L"新风量", L"回风量", L"送风量", L"新风比", L"热湿比", L"室内负荷", L"新风负荷",
    L"再热负荷", L"回风管段温升负荷", L"送风管段温升负荷", L"设备承担负荷", L"总冷负荷",
    L"预热负荷", L"加湿负荷", L"回风管段温降负荷", L"送风管段温降负荷", L"总热负荷",
    L"室内湿负荷", L"新风湿负荷", L"机组承担湿负荷", L"总湿负荷",
};

// "设备承担负荷" stands in rows 12 and 19; lookups by name reach row 12.
const wchar_t* const kEcHfNames[HDGChartItemTables::kEcHfRows] = {
    L"新风量", L"回风量", L"一次回风量", L"二次回风量", L"送风量", L"设备风量",
    L"新风比", L"热湿比", L"室内负荷", L"新风负荷", L"回风管段温升负荷",
    L"送风管段温升负荷", L"设备承担负荷", L"总冷负荷", L"预热负荷", L"再热负荷",
    L"加湿负荷", L"回风管段温降负荷", L"送风管段温降负荷", L"设备承担负荷", L"总热负荷",
    L"室内湿负荷", L"新风湿负荷", L"机组承担湿负荷", L"总湿负荷",
};

const wchar_t* const kUnitNames[HDGChartItemTables::kUnitRows] = {
    L"温度", L"含湿量", L"焓", L"压力", L"风量", L"冷热负荷", L"湿负荷", L"密度",
};
const wchar_t* const kUnitDefaults[HDGChartItemTables::kUnitRows] = {
    L"℃", L"g/kg.干空气", L"kJ/kg.干空气", L"Pa", L"m^3/h", L"W", L"g/s", L"kg/m^3",
};
const int kPrecisionDefaults[HDGChartItemTables::kUnitRows] = {2, 2, 2, 0, 3, 2, 3, 3};

template <int N>
int RowOf(const wchar_t* const (&names)[N], const CString& name) {
    for (int row = 0; row < N; ++row)
        if (name == names[row]) return row;
    return -1;
}

template <typename TABLE, typename VALUE, int N>
void TopUp(TABLE& table, const VALUE (&defaults)[N]) {
    for (int row = table.GetSize(); row < N; ++row) table.Add(defaults[row]);
}

// The return-air tables show every item out of the box.
void TopUpAllShown(CNTArray<bool, bool>& table, int rows) {
    for (int row = table.GetSize(); row < rows; ++row) table.Add(true);
}

}  // namespace

int HDGChartItemTables::DisplayRow(const CString& name) { return RowOf(kDisplayNames, name); }
int HDGChartItemTables::YcHfRow(const CString& name) { return RowOf(kYcHfNames, name); }
int HDGChartItemTables::EcHfRow(const CString& name) { return RowOf(kEcHfNames, name); }
int HDGChartItemTables::UnitRow(const CString& name) { return RowOf(kUnitNames, name); }

const wchar_t* HDGChartItemTables::DisplayName(int row) {
    return row >= 0 && row < kDisplayRows ? kDisplayNames[row] : L"";
}

const wchar_t* HDGChartItemTables::UnitName(int row) {
    return row >= 0 && row < kUnitRows ? kUnitNames[row] : L"";
}

void HDGChartItemTables::TopUpDisplayItems(CNTArray<bool, bool>& table) { TopUp(table, kDisplayDefaults); }
void HDGChartItemTables::TopUpYcHfItems(CNTArray<bool, bool>& table) { TopUpAllShown(table, kYcHfRows); }
void HDGChartItemTables::TopUpEcHfItems(CNTArray<bool, bool>& table) { TopUpAllShown(table, kEcHfRows); }

void HDGChartItemTables::TopUpAbbreviations(CStringArray& table) {
    // An abbreviation is the item's own name until the user shortens it.
    for (int row = table.GetSize(); row < kDisplayRows; ++row) table.Add(CString(kDisplayNames[row]));
}

void HDGChartItemTables::TopUpUnitsNames(CStringArray& table) {
    for (int row = table.GetSize(); row < kUnitRows; ++row) table.Add(CString(kUnitDefaults[row]));
}

void HDGChartItemTables::TopUpPrecisions(CNTArray<int, int>& table) { TopUp(table, kPrecisionDefaults); }
