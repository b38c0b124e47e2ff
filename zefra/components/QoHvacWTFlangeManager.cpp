#include "zefra/components/QoHvacWTFlangeManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/platform/airlib/NT.h"
#include "zefra/platform/entities/ZefraPipeGBData.h"
#include "zefra/platform/geometry/Zero.h"

#include <cmath>

using HVAC::EQoDbHvacSystemType;

namespace {

const wchar_t* const kWaterPath = L"ZEFRA\\WATER\\FLANGESET";
const wchar_t* const kHeatingPath = L"ZEFRA\\HEATING\\FLANGESET";
const wchar_t* const kExtrudeAttribute = L"EXTRUDE";
const wchar_t* const kThicknessAttribute = L"THICKNESS";
const wchar_t* const kStartAttribute = L"START";

bool IsWaterTableKind(EQoDbHvacSystemType kind) { return kind == HVAC::ESysKT || kind == HVAC::ESysVRV; }

bool IsHeatingTableKind(EQoDbHvacSystemType kind) {
    return kind == HVAC::ESysDBCN || kind == HVAC::ESysFHCN || kind == HVAC::ESysCZCN;
}

int CompareStart(const SFlangeExtrudeData& a, const SFlangeExtrudeData& b) {
    return a.start > b.start ? 1 : a.start < b.start ? -1 : 0;
}

}  // namespace

bool QoHvacWTFlangeManager::IsValidRow(const SFlangeExtrudeData& row) {
    for (const double value : {row.start, row.thickness, row.extrude})
        if (!std::isfinite(value) || value < 0.0) return false;
    return true;
}

QoHvacWTFlangeManager* QoHvacWTFlangeManager::GetInstance() { return QoModuleSingleton<QoHvacWTFlangeManager>::Get(); }

QoHvacWTFlangeManager::QoHvacWTFlangeManager() {
    ReadFromDict(HVAC::ESysKT);
    ReadFromDict(HVAC::ESysCZCN);
}

QoList<SFlangeExtrudeData>* QoHvacWTFlangeManager::TableOf(EQoDbHvacSystemType kind) {
    if (IsWaterTableKind(kind)) return &m_waterTable;
    if (IsHeatingTableKind(kind)) return &m_heatingTable;
    return nullptr;
}

const QoList<SFlangeExtrudeData>* QoHvacWTFlangeManager::TableOf(EQoDbHvacSystemType kind) const {
    return const_cast<QoHvacWTFlangeManager*>(this)->TableOf(kind);
}

CString QoHvacWTFlangeManager::GetDictPath(EQoDbHvacSystemType kind) {
    return IsHeatingTableKind(kind) ? kHeatingPath : kWaterPath;
}

QoList<SFlangeExtrudeData> QoHvacWTFlangeManager::GetFlangeData(EQoDbHvacSystemType kind) const {
    const QoList<SFlangeExtrudeData>* table = TableOf(kind);
    return table != nullptr ? *table : QoList<SFlangeExtrudeData>();
}

bool QoHvacWTFlangeManager::TrySetFlangeData(QoList<SFlangeExtrudeData> rows, EQoDbHvacSystemType kind) {
    QoList<SFlangeExtrudeData>* table = TableOf(kind);
    if (table == nullptr) return false;
    for (const SFlangeExtrudeData* row = rows.GetFirst(); row != nullptr; row = rows.GetNext(row))
        if (!IsValidRow(*row)) return false;
    *table = rows;
    Sort(kind);
    return true;
}

void QoHvacWTFlangeManager::SetFlangeData(QoList<SFlangeExtrudeData> rows, EQoDbHvacSystemType kind) { TrySetFlangeData(rows, kind); }

bool QoHvacWTFlangeManager::TryAddExtrudeData(const SFlangeExtrudeData& row, EQoDbHvacSystemType kind) {
    QoList<SFlangeExtrudeData>* table = TableOf(kind);
    if (table == nullptr || !IsValidRow(row)) return false;
    table->Append(row);
    Sort(kind);
    return true;
}

void QoHvacWTFlangeManager::AddExtrudeData(const SFlangeExtrudeData& row, EQoDbHvacSystemType kind) { TryAddExtrudeData(row, kind); }

void QoHvacWTFlangeManager::Clear(EQoDbHvacSystemType kind) {
    if (QoList<SFlangeExtrudeData>* table = TableOf(kind)) table->Reset();
}

void QoHvacWTFlangeManager::Sort(EQoDbHvacSystemType kind) {
    if (QoList<SFlangeExtrudeData>* table = TableOf(kind)) table->Sort(&CompareStart);
}

const SFlangeExtrudeData* QoHvacWTFlangeManager::RowFor(double size, EQoDbHvacSystemType kind) const {
    const QoList<SFlangeExtrudeData>* table = TableOf(kind);
    if (table == nullptr || std::isnan(size)) return nullptr;
    const SFlangeExtrudeData* holding = nullptr;
    for (const SFlangeExtrudeData* row = table->GetFirst(); row != nullptr; row = table->GetNext(row)) {
        if (row->start - size > g_fZero) break;
        holding = row;
    }
    return holding;
}

double QoHvacWTFlangeManager::GetThickness(double size, EQoDbHvacSystemType kind) const {
    const SFlangeExtrudeData* row = RowFor(size, kind);
    return row != nullptr ? row->thickness : SFlangeExtrudeData().thickness;
}

double QoHvacWTFlangeManager::GetExrtude(double size, EQoDbHvacSystemType kind) const {
    const SFlangeExtrudeData* row = RowFor(size, kind);
    return row != nullptr ? row->extrude : SFlangeExtrudeData().extrude;
}

void QoHvacWTFlangeManager::SaveToDict(EQoDbHvacSystemType kind) {
    const QoList<SFlangeExtrudeData> rows = GetFlangeData(kind);
    QoDtDictionary* dict = g_dictCfg.FindOrAddDict(GetDictPath(kind));
    if (dict == nullptr) return;
    dict->children.Reset();
    g_HvacPipeGBData.Clear(ZefraPipeGBData::EFlangeExtrude);
    int position = 0;
    for (const SFlangeExtrudeData* row = rows.GetFirst(); row != nullptr; row = rows.GetNext(row), ++position) {
        g_HvacPipeGBData.AddData(*row, ZefraPipeGBData::EFlangeExtrude);
        QoDtDictItem* item = dict->FindOrAddItem(NT::itoa(position), QoDtDictItem::eDtRow);
        if (item == nullptr) continue;
        item->SetAttributeDoubleValue(kExtrudeAttribute, row->extrude);
        item->SetAttributeDoubleValue(kThicknessAttribute, row->thickness);
        item->SetAttributeDoubleValue(kStartAttribute, row->start);
    }
}

void QoHvacWTFlangeManager::ReadFromDict(EQoDbHvacSystemType kind) {
    QoList<SFlangeExtrudeData> rows;
    QoDtDictionary* dict = g_dictCfg.FindOrAddDict(GetDictPath(kind));
    if (dict == nullptr) return;
    for (QoDtDictItem* const* child = dict->children.GetFirst(); child != nullptr;
         child = dict->children.GetNext(child)) {
        SFlangeExtrudeData row;
        row.start = (*child)->GetAttributeDoubleValue(kStartAttribute);
        row.thickness = (*child)->GetAttributeDoubleValue(kThicknessAttribute);
        row.extrude = (*child)->GetAttributeDoubleValue(kExtrudeAttribute);
        if (IsValidRow(row)) rows.Append(row);
    }
    if (rows.GetLength() == 0) return;
    Clear(kind);
    SetFlangeData(rows, kind);
}
