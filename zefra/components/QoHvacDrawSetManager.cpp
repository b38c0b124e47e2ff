#include "zefra/components/QoHvacDrawSetManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/platform/entities/QoDbHvacPipeDrawSetData.h"
#include "zefra/platform/host/AcDbHostApplicationServices.h"
#include "zefra/platform/host/AcDbTextStyleTable.h"

using HVAC::EQoDbHvacSystemType;

namespace {

const wchar_t* const kWaterPath = L"ZEFRA\\WATER\\DRAWSET";
const wchar_t* const kDbcnPath = L"ZEFRA\\DBCN\\DRAWSET";
const wchar_t* const kHeatingPath = L"ZEFRA\\HEATING\\DRAWSET";
const wchar_t* const kRadiusKey = L"RADIUSOFCUR";

bool IsHeatingKind(EQoDbHvacSystemType kind) {
    return kind == HVAC::ESysDBCN || kind == HVAC::ESysFHCN || kind == HVAC::ESysCZCN;
}

}  // namespace

QoHvacDrawSetManager* QoHvacDrawSetManager::GetInstance() { return QoModuleSingleton<QoHvacDrawSetManager>::Get(); }

QoHvacDrawSetManager::QoHvacDrawSetManager() {
    // Floor heating last: its radiator data win at start.
    ReadFromDict(HVAC::ESysKT);
    ReadFromDict(HVAC::ESysCZCN);
    ReadFromDict(HVAC::ESysDBCN);
}

SHvacDrawSetData& QoHvacDrawSetManager::GetDrawSetData(EQoDbHvacSystemType kind) {
    switch (kind) {
        case HVAC::ESysDBCN: return m_dbcnData;
        case HVAC::ESysFHCN:
        case HVAC::ESysCZCN: return m_heatData;
        default: return m_ktData;
    }
}

void QoHvacDrawSetManager::SetDrawSetData(const SHvacDrawSetData& data, EQoDbHvacSystemType kind) {
    switch (kind) {
        case HVAC::ESysKT:
        case HVAC::ESysVRV: m_ktData = data; break;
        case HVAC::ESysDBCN: m_dbcnData = data; break;
        case HVAC::ESysFHCN:
        case HVAC::ESysCZCN: m_heatData = data; break;
        default: break;
    }
}

CString QoHvacDrawSetManager::GetDictPath(EQoDbHvacSystemType kind) {
    switch (kind) {
        case HVAC::ESysDBCN: return kDbcnPath;
        case HVAC::ESysFHCN:
        case HVAC::ESysCZCN: return kHeatingPath;
        default: return kWaterPath;
    }
}

AcDbObjectId QoHvacDrawSetManager::GetLabelTextStyle(EQoDbHvacSystemType kind) {
    const SHvacDrawSetData& data = GetDrawSetData(kind);
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (data.m_useCadText) return acdbTextStyleTable(database).currentStyle();
    return GetTextStyleId(data.m_textStyle, database);
}

void QoHvacDrawSetManager::ReadUnifiedData(SHvacDrawSetData& data) {
    QoDtDictionary* water = g_dictCfg.FindDict(kWaterPath);
    if (water == nullptr) return;
    water->GetValue(kRadiusKey, data.m_radiusOfCur);
    g_HvacPipeDrawSetData.m_radius = data.m_radiusOfCur;
}

void QoHvacDrawSetManager::SaveUnifiedData(const SHvacDrawSetData& data) {
    QoDtDictionary* water = g_dictCfg.FindDict(kWaterPath);
    if (water == nullptr) return;
    water->SetValue(kRadiusKey, data.m_radiusOfCur);
    g_HvacPipeDrawSetData.m_radius = data.m_radiusOfCur;
}

void QoHvacDrawSetManager::ReadFromDict(EQoDbHvacSystemType kind) {
    SHvacDrawSetData data = GetDrawSetData(kind);
    ReadUnifiedData(data);
    const QoDtDictionary* dict = g_dictCfg.FindDict(GetDictPath(kind));
    if (dict == nullptr) return;
    // A key that is missing, or doesn't read as the field's kind, leaves
    // the field alone.
    const auto read = [dict](const wchar_t* key, auto& field) { dict->GetValue(key, field); };
    SHvacDrawSetData::ForEachStoredField(data, read);
    SetDrawSetData(data, kind);
    if (IsHeatingKind(kind)) SHvacRadDrawSetData::ForEachStoredField(m_radData, read);
}

void QoHvacDrawSetManager::SaveToDict(EQoDbHvacSystemType kind) {
    const SHvacDrawSetData data = GetDrawSetData(kind);
    SaveUnifiedData(data);
    QoDtDictionary* dict = g_dictCfg.FindOrAddDict(GetDictPath(kind));
    if (dict == nullptr) return;
    const auto write = [dict](const wchar_t* key, const auto& field) { dict->SetValue(key, field); };
    SHvacDrawSetData::ForEachStoredField(data, write);
    if (IsHeatingKind(kind)) SHvacRadDrawSetData::ForEachStoredField(m_radData, write);
}
