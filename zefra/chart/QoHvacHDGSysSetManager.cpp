#include "zefra/chart/QoHvacHDGSysSetManager.h"

#include "zefra/chart/HDGChartItemTables.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtConfigStore.h"


namespace {

const wchar_t* const kBranch = L"ZEFRA\\HDG";

const int kConverterRows[] = {HDGChartItemTables::kUnitRowH, HDGChartItemTables::kUnitRowV,
                              HDGChartItemTables::kUnitRowQ, HDGChartItemTables::kUnitRowMw,
                              HDGChartItemTables::kUnitRowDen};

// The dictionaries below "ZEFRA\HDG": key and the local name a settings
// editor shows.
struct SBranchDict {
    const wchar_t* key;
    const wchar_t* localName;
};
const SBranchDict kDrawSetDict = {L"DrawSet", L"绘制设置"};
const SBranchDict kDisplayDict = {L"DisplayItemSet", L"显示设置"};
const SBranchDict kYcHfDict = {L"YcHfItemSet", L"一次回风设置"};
const SBranchDict kEcHfDict = {L"EcHfItemSet", L"二次回风设置"};
const SBranchDict kAbbrrvDict = {L"AbbrrvItemSet", L"缩写设置"};
const SBranchDict kUnitsDict = {L"UnitsItemSet", L"单位设置"};
const SBranchDict kPrecisionDict = {L"PrecisionSet", L"单位精度设置"};

CString RowKey(int row) {
    CString key;
    key.Format(L"%d", row);
    return key;
}

// A numbered table: emptied, set to its full size with `start` in every row,
// then row n read from the n-th child. Children beyond the full size have no
// row to go to and are passed over.
template <typename TABLE, typename VALUE>
void ReadRows(const QoDtDictionary& dict, TABLE& table, int rows, const VALUE& start) {
    table.RemoveAll();
    for (int row = 0; row < rows; ++row) table.Add(start);
    const int children = dict.children.GetLength();
    for (int row = 0; row < children && row < rows; ++row) {
        VALUE value = table.GetAt(row);
        dict.GetValue(RowKey(row), value);
        table.SetAt(row, value);
    }
}

template <typename TABLE>
void SaveRows(QoDtDictionary& branch, const SBranchDict& which, const TABLE& table) {
    QoDtDictionary* dict = branch.FindOrAddDict(which.key);
    if (!dict) return;
    dict->localname = which.localName;
    dict->children.Reset();
    for (int row = 0; row < table.GetSize(); ++row) dict->SetValue(RowKey(row), table.GetAt(row));
}

void ReadDrawSet(const QoDtDictionary& dict, SHvacHDGDrawSet& set) {
    dict.GetValue(L"大气压力", set.dAtmPressure);
    dict.GetValue(L"温度间距", set.nTdbInterval);
    dict.GetValue(L"含湿量间距", set.nDInterval);
    dict.GetValue(L"焓间距", set.nHInterval);
    dict.GetValue(L"相对湿度间距", set.nRHInterval);
    dict.GetValue(L"最小温度值", set.nMinTdb);
    dict.GetValue(L"最大温度值", set.nMaxTdb);
    dict.GetValue(L"最小含湿量值", set.nMinD);
    dict.GetValue(L"最大含湿量值", set.nMaxD);
    dict.GetValue(L"温度对应距离", set.nTdbLength);
    dict.GetValue(L"含湿量对应距离", set.nDLength);
    dict.GetValue(L"绘制外框", set.bDrawFrame);
    dict.GetValue(L"绘制标题信息", set.bDrawTitle);
    dict.GetValue(L"绘制水蒸气分压力线刻度盘", set.bDrawPvScale);
    dict.GetValue(L"绘制热湿比刻度盘", set.bDrawHeatHumRatioDial);
    dict.GetValue(L"中文字高", set.dChineseTextHeight);
    dict.GetValue(L"西文字高", set.dWesternTextHeight);
    dict.GetValue(L"字体类型", set.nFontType);
}

void SaveDrawSet(QoDtDictionary& dict, const SHvacHDGDrawSet& set) {
    dict.SetValue(L"大气压力", set.dAtmPressure);
    dict.SetValue(L"温度间距", set.nTdbInterval);
    dict.SetValue(L"含湿量间距", set.nDInterval);
    dict.SetValue(L"焓间距", set.nHInterval);
    dict.SetValue(L"相对湿度间距", set.nRHInterval);
    dict.SetValue(L"最小温度值", set.nMinTdb);
    dict.SetValue(L"最大温度值", set.nMaxTdb);
    dict.SetValue(L"最小含湿量值", set.nMinD);
    dict.SetValue(L"最大含湿量值", set.nMaxD);
    dict.SetValue(L"温度对应距离", set.nTdbLength);
    dict.SetValue(L"含湿量对应距离", set.nDLength);
    dict.SetValue(L"绘制外框", set.bDrawFrame);
    dict.SetValue(L"绘制标题信息", set.bDrawTitle);
    dict.SetValue(L"绘制水蒸气分压力线刻度盘", set.bDrawPvScale);
    dict.SetValue(L"绘制热湿比刻度盘", set.bDrawHeatHumRatioDial);
    dict.SetValue(L"中文字高", set.dChineseTextHeight);
    dict.SetValue(L"西文字高", set.dWesternTextHeight);
    dict.SetValue(L"字体类型", set.nFontType);
}

// Row `row` of a table, or `miss` when the name had no row. A table that a
// caller cut short through the table accessors answers a lookup beyond its
// end as a miss rather than let the array's exception reach the host.
template <typename TABLE, typename VALUE>
VALUE RowOrMiss(const TABLE& table, int row, const VALUE& miss) {
    if (row < 0) return miss;
    try {
        return table.GetAt(row);
    } catch (const CInvalidArgException&) {
        return miss;
    }
}

template <typename TABLE, typename VALUE>
bool SetRow(TABLE& table, int row, const VALUE& value) {
    if (row < 0) return false;
    try {
        table.SetAt(row, value);
        return true;
    } catch (const CInvalidArgException&) {
        return false;
    }
}

}  // namespace

QoHvacHDGSysSetManager::QoHvacHDGSysSetManager() {
    // Without a stored branch the converters keep their own current units.
    if (!ReadData()) TopUpTables();
    // The process calculation hands heat loads in kW and moisture in kg/s.
    SetQStdUnit(Q_UNIT_KW);
    SetMwStdUnit(MW_UNIT_KG_S);
}

bool QoHvacHDGSysSetManager::ReadData() {
    QoDtDictionary* branch = g_dictCfg.FindDict(kBranch);
    if (!branch) return false;

    if (const QoDtDictionary* dict = branch->FindDict(kDrawSetDict.key)) ReadDrawSet(*dict, m_DrawSet);
    if (const QoDtDictionary* dict = branch->FindDict(kDisplayDict.key))
        ReadRows(*dict, m_DisplayItems, HDGChartItemTables::kDisplayRows, false);
    if (const QoDtDictionary* dict = branch->FindDict(kYcHfDict.key))
        ReadRows(*dict, m_YcHfItems, HDGChartItemTables::kYcHfRows, false);
    if (const QoDtDictionary* dict = branch->FindDict(kEcHfDict.key))
        ReadRows(*dict, m_EcHfItems, HDGChartItemTables::kEcHfRows, false);
    if (const QoDtDictionary* dict = branch->FindDict(kAbbrrvDict.key))
        ReadRows(*dict, m_Abbreviations, HDGChartItemTables::kDisplayRows, CString());
    if (const QoDtDictionary* dict = branch->FindOrAddDict(kUnitsDict.key)) {
        ReadRows(*dict, m_UnitsNames, HDGChartItemTables::kUnitRows, CString());
        UpdateAllCurUnitsConvertSet();
    }
    if (const QoDtDictionary* dict = branch->FindOrAddDict(kPrecisionDict.key))
        ReadRows(*dict, m_Precisions, HDGChartItemTables::kUnitRows, 0);
    TopUpTables();
    return true;
}

bool QoHvacHDGSysSetManager::SaveData() const {
    QoDtDictionary* branch = g_dictCfg.FindOrAddDict(kBranch);
    if (!branch) return false;
    branch->localname = L"焓湿图系统设置";

    if (QoDtDictionary* dict = branch->FindOrAddDict(kDrawSetDict.key)) {
        dict->localname = kDrawSetDict.localName;
        SaveDrawSet(*dict, m_DrawSet);
    }
    SaveRows(*branch, kDisplayDict, m_DisplayItems);
    SaveRows(*branch, kYcHfDict, m_YcHfItems);
    SaveRows(*branch, kEcHfDict, m_EcHfItems);
    SaveRows(*branch, kAbbrrvDict, m_Abbreviations);
    SaveRows(*branch, kUnitsDict, m_UnitsNames);
    SaveRows(*branch, kPrecisionDict, m_Precisions);
    return true;
}

void QoHvacHDGSysSetManager::TopUpTables() {
    HDGChartItemTables::TopUpDisplayItems(m_DisplayItems);
    HDGChartItemTables::TopUpYcHfItems(m_YcHfItems);
    HDGChartItemTables::TopUpEcHfItems(m_EcHfItems);
    HDGChartItemTables::TopUpAbbreviations(m_Abbreviations);
    HDGChartItemTables::TopUpUnitsNames(m_UnitsNames);
    HDGChartItemTables::TopUpPrecisions(m_Precisions);
}

void QoHvacHDGSysSetManager::UpdateAllCurUnitsConvertSet() {
    UpdateConverter(HDGChartItemTables::kUnitRowH);
    UpdateConverter(HDGChartItemTables::kUnitRowV);
    UpdateConverter(HDGChartItemTables::kUnitRowQ);
    UpdateConverter(HDGChartItemTables::kUnitRowMw);
    UpdateConverter(HDGChartItemTables::kUnitRowDen);
    m_UnknownUnitsNames.clear();
    for (const int row : kConverterRows) FallBackToConverterUnit(row);
}

void QoHvacHDGSysSetManager::FallBackToConverterUnit(int unitRow) {
    const CString item = HDGChartItemTables::UnitName(unitRow);
    const CString unit = RowOrMiss(m_UnitsNames, unitRow, CString());
    if (!HasUnitsConverter(item) || IsKnownUnitsName(item, unit)) return;
    CString own;
    switch (unitRow) {
        case HDGChartItemTables::kUnitRowH: own = GetHCurUnit(); break;
        case HDGChartItemTables::kUnitRowV: own = GetVCurUnit(); break;
        case HDGChartItemTables::kUnitRowQ: own = GetQCurUnit(); break;
        case HDGChartItemTables::kUnitRowMw: own = GetMwCurUnit(); break;
        default: own = GetDenCurUnit(); break;
    }
    if (SetRow(m_UnitsNames, unitRow, own)) m_UnknownUnitsNames.push_back({item, unit});
}

bool QoHvacHDGSysSetManager::HasUnitsConverter(const CString& item) {
    const int row = HDGChartItemTables::UnitRow(item);
    for (const int converterRow : kConverterRows)
        if (row == converterRow) return true;
    return false;
}

bool QoHvacHDGSysSetManager::IsKnownUnitsName(const CString& item, const CString& unit) {
    switch (HDGChartItemTables::UnitRow(item)) {
        case HDGChartItemTables::kUnitRowH: return CHUnitConvert().GetHUnitCode(unit) != H_UNIT_UNKNOWN;
        case HDGChartItemTables::kUnitRowV: return CVUnitConvert().GetVUnitCode(unit) != V_UNIT_UNKNOWN;
        case HDGChartItemTables::kUnitRowQ: return CQUnitConvert().GetQUnitCode(unit) != Q_UNIT_UNKNOWN;
        case HDGChartItemTables::kUnitRowMw: return CMwUnitConvert().GetMwUnitCode(unit) != MW_UNIT_UNKNOWN;
        case HDGChartItemTables::kUnitRowDen: return CDenUnitConvert().GetDenUnitCode(unit) != DEN_UNIT_UNKNOWN;
        default: return false;
    }
}

void QoHvacHDGSysSetManager::GetKnownUnitsNames(const CString& item, CStringArray& names) {
    switch (HDGChartItemTables::UnitRow(item)) {
        case HDGChartItemTables::kUnitRowH: CHUnitConvert().GetHUnitNames(names); break;
        case HDGChartItemTables::kUnitRowV: CVUnitConvert().GetVUnitNames(names); break;
        case HDGChartItemTables::kUnitRowQ: CQUnitConvert().GetQUnitNames(names); break;
        case HDGChartItemTables::kUnitRowMw: CMwUnitConvert().GetMwUnitNames(names); break;
        case HDGChartItemTables::kUnitRowDen: CDenUnitConvert().GetDenUnitNames(names); break;
        default: break;
    }
}

void QoHvacHDGSysSetManager::UpdateConverter(int unitRow) {
    const CString unit = RowOrMiss(m_UnitsNames, unitRow, CString());
    switch (unitRow) {
        case HDGChartItemTables::kUnitRowH: SetHCurUnit(GetHUnitCode(unit)); break;
        case HDGChartItemTables::kUnitRowV: SetVCurUnit(GetVUnitCode(unit)); break;
        case HDGChartItemTables::kUnitRowQ: SetQCurUnit(GetQUnitCode(unit)); break;
        case HDGChartItemTables::kUnitRowMw: SetMwCurUnit(GetMwUnitCode(unit)); break;
        case HDGChartItemTables::kUnitRowDen: SetDenCurUnit(GetDenUnitCode(unit)); break;
        default: break;  // temperature, moisture content and pressure have no converter
    }
}

bool QoHvacHDGSysSetManager::SetDisplayItem(const CString& name, bool display) {
    return SetRow(m_DisplayItems, HDGChartItemTables::DisplayRow(name), display);
}

bool QoHvacHDGSysSetManager::IsDisplayItem(const CString& name) const {
    return RowOrMiss(m_DisplayItems, HDGChartItemTables::DisplayRow(name), false);
}

bool QoHvacHDGSysSetManager::SetDisplayYcHfItem(const CString& name, bool display) {
    return SetRow(m_YcHfItems, HDGChartItemTables::YcHfRow(name), display);
}

bool QoHvacHDGSysSetManager::IsDisplayYcHfItem(const CString& name) const {
    return RowOrMiss(m_YcHfItems, HDGChartItemTables::YcHfRow(name), false);
}

bool QoHvacHDGSysSetManager::SetDisplayEcHfItem(const CString& name, bool display) {
    return SetRow(m_EcHfItems, HDGChartItemTables::EcHfRow(name), display);
}

bool QoHvacHDGSysSetManager::IsDisplayEcHfItem(const CString& name) const {
    return RowOrMiss(m_EcHfItems, HDGChartItemTables::EcHfRow(name), false);
}

bool QoHvacHDGSysSetManager::SetAbbreviationName(const CString& name, const CString& abbreviation) {
    return SetRow(m_Abbreviations, HDGChartItemTables::DisplayRow(name), abbreviation);
}

CString QoHvacHDGSysSetManager::GetAbbreviationName(const CString& name) const {
    return RowOrMiss(m_Abbreviations, HDGChartItemTables::DisplayRow(name), CString());
}

bool QoHvacHDGSysSetManager::SetUnitsName(const CString& name, const CString& unit) {
    const int row = HDGChartItemTables::UnitRow(name);
    if (!SetRow(m_UnitsNames, row, unit)) return false;
    UpdateConverter(row);
    const CString item = HDGChartItemTables::UnitName(row);
    for (auto it = m_UnknownUnitsNames.begin(); it != m_UnknownUnitsNames.end();)
        it = it->item == item ? m_UnknownUnitsNames.erase(it) : it + 1;
    FallBackToConverterUnit(row);
    return true;
}

CString QoHvacHDGSysSetManager::GetUnitsName(const CString& name) const {
    return RowOrMiss(m_UnitsNames, HDGChartItemTables::UnitRow(name), CString());
}

bool QoHvacHDGSysSetManager::SetPrecision(const CString& name, int precision) {
    return SetRow(m_Precisions, HDGChartItemTables::UnitRow(name), precision);
}

int QoHvacHDGSysSetManager::GetPrecision(const CString& name) const {
    return RowOrMiss(m_Precisions, HDGChartItemTables::UnitRow(name), 2);
}

int QoHvacHDGSysSetManager::GetDislayItemNumbers() const {
    int shown = 0;
    for (int row = 0; row < m_DisplayItems.GetSize(); ++row)
        if (m_DisplayItems.GetAt(row)) ++shown;
    return shown;
}
