#include "zefra/components/QoHvacDuctDisplayManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/platform/entities/QoDbHvacDefaultFitData.h"
#include "zefra/platform/entities/QoDbHvacPipeDrawSetData.h"

using HVAC::EQoDbHvacSystemType;

namespace {

enum class EHalf { None, Duct, Water };

EHalf HalfOf(EQoDbHvacSystemType type) {
    switch (type) {
        case HVAC::ESysDuct: return EHalf::Duct;
        case HVAC::ESysKT:
        case HVAC::ESysVRV:
        case HVAC::ESysDBCN:
        case HVAC::ESysFHCN:
        case HVAC::ESysCZCN: return EHalf::Water;
        default: return EHalf::None;
    }
}

const wchar_t* const kDuctPath = L"ZEFRA\\DISPLAYSET";
const wchar_t* const kWaterPath = L"ZEFRA\\WATER\\DISPLAYSET";
const wchar_t* const kAxisKey = L"DISPLAYAXIS";
const wchar_t* const kLineTypeKey = L"LINETYPE";
const wchar_t* const kDashColorKey = L"DASHLINECOLOR";
const wchar_t* const kShowMaskKey = L"SHOWMASKGRAPH";
const wchar_t* const kBreakOffsetKey = L"BREAKOFFSET";
const wchar_t* const kAllowClipKey = L"ALLOWCLIP";
const wchar_t* const kShow2dReducerKey = L"SHOW2DREDUCER";
const wchar_t* const kReducerTypeKey = L"2DREDUCERTYPE";
const wchar_t* const kReducerLengthKey = L"2DREDUCERLENGTH";

struct SAxisKey {
    const wchar_t* key;
    bool QoHvacDuctDisplayManager::*flag;
};

using M = QoHvacDuctDisplayManager;

// In the order of reading and writing: "CIRCTYDF" comes before "CIRCOFFSET".
const SAxisKey kDuctAxisKeys[] = {
    {L"RECTDUCT", &M::m_rectDuct},         {L"RECTELBOW", &M::m_rectElbow},
    {L"RECTTEE", &M::m_rectTee},           {L"RECTCROSS", &M::m_rectCross},
    {L"RECTTRANSITION", &M::m_rectTransition}, {L"RECTOFFSET", &M::m_rectOffset},
    {L"CIRCDUCT", &M::m_circDuct},         {L"CIRCELBOW", &M::m_circElbow},
    {L"CIRCTEE", &M::m_circTee},           {L"CIRCCROSS", &M::m_circCross},
    {L"CIRCTRANSITION", &M::m_circTransition}, {L"CIRCTYDF", &M::m_circTydf},
    {L"CIRCOFFSET", &M::m_circOffset},
};

const SAxisKey kWaterAxisKeys[] = {
    {L"PIPE", &M::m_pipe},           {L"RISER", &M::m_riser},     {L"ELBOW", &M::m_elbow},
    {L"TEE", &M::m_tee},             {L"CROSS", &M::m_cross},     {L"MULTIPORT", &M::m_multiport},
    {L"REDUCE", &M::m_reduce},       {L"GOOSENECK", &M::m_gooseneck}, {L"BENDBRIDGE", &M::m_bendBridge},
};

template <std::size_t N>
void ReadAxis(const QoDtDictionary& axis, const SAxisKey (&keys)[N], M& manager) {
    for (const SAxisKey& entry : keys) axis.GetValue(entry.key, manager.*entry.flag);
}

template <std::size_t N>
void WriteAxis(QoDtDictionary& axis, const SAxisKey (&keys)[N], const M& manager) {
    for (const SAxisKey& entry : keys) axis.SetValue(entry.key, manager.*entry.flag);
}

template <std::size_t N>
void SetAxis(const SAxisKey (&keys)[N], M& manager, bool on) {
    for (const SAxisKey& entry : keys) manager.*entry.flag = on;
}

QoDtDictOptionItem* FindOption(QoDtDictionary& dict, const wchar_t* key) {
    QoDtDictItem* item = dict.FindItem(key);
    return item != nullptr && item->GetType() == QoDtDictItem::eDtOption ? static_cast<QoDtDictOptionItem*>(item)
                                                                         : nullptr;
}

}  // namespace

QoHvacDuctDisplayManager* QoHvacDuctDisplayManager::GetInstance() {
    return QoModuleSingleton<QoHvacDuctDisplayManager>::Get();
}

QoHvacDuctDisplayManager::QoHvacDuctDisplayManager() {
    InitialData(HVAC::ESysDuct);
    ReadFromDict(HVAC::ESysDuct);
    InitialData(HVAC::ESysKT);
    ReadFromDict(HVAC::ESysKT);
}

void QoHvacDuctDisplayManager::InitialData(EQoDbHvacSystemType type) {
    switch (HalfOf(type)) {
        case EHalf::Duct:
            SetAxis(kDuctAxisKeys, *this, true);
            m_ductShowMask = true;
            m_ductBreakOffset = 0.0;
            m_ductAllowClip = true;
            break;
        case EHalf::Water:
            SetAxis(kWaterAxisKeys, *this, true);
            m_waterShowMask = true;
            m_waterBreakOffset = 0.0;
            m_show2dReducer = true;
            break;
        case EHalf::None: break;
    }
}

void QoHvacDuctDisplayManager::ReadFromDict(EQoDbHvacSystemType type) {
    const EHalf half = HalfOf(type);
    if (half == EHalf::None) return;
    if (QoDtDictionary* dict = g_dictCfg.FindDict(half == EHalf::Duct ? kDuctPath : kWaterPath)) {
        QoDtDictItem* axis = dict->FindItem(kAxisKey);
        const bool hasAxis = axis != nullptr && axis->IsDict();
        QoDtDictOptionItem* lineType = FindOption(*dict, kLineTypeKey);
        if (half == EHalf::Duct) {
            dict->GetValue(kShowMaskKey, m_ductShowMask);
            dict->GetValue(kBreakOffsetKey, m_ductBreakOffset);
            dict->GetValue(kAllowClipKey, m_ductAllowClip);
            if (hasAxis) ReadAxis(*static_cast<QoDtDictionary*>(axis), kDuctAxisKeys, *this);
            if (lineType != nullptr) m_ductLineType.ReadFromDict(lineType);
        } else {
            dict->GetValue(kShowMaskKey, m_waterShowMask);
            dict->GetValue(kBreakOffsetKey, m_waterBreakOffset);
            dict->GetValue(kShow2dReducerKey, m_show2dReducer);
            dict->GetValue(kReducerTypeKey, m_2dReducerType);
            dict->GetValue(kReducerLengthKey, m_2dReducerLength);
            if (hasAxis) ReadAxis(*static_cast<QoDtDictionary*>(axis), kWaterAxisKeys, *this);
            if (lineType != nullptr) m_waterLineType.ReadFromDict(lineType);
        }
        dict->GetValue(kDashColorKey, g_HvacFitAndDisplayData.m_dashLineColor);
    }
    SetDataToQoDb(type);
}

void QoHvacDuctDisplayManager::SaveToDict(EQoDbHvacSystemType type) {
    const EHalf half = HalfOf(type);
    if (half == EHalf::None) return;
    QoDtDictionary* dict = g_dictCfg.FindDict(half == EHalf::Duct ? kDuctPath : kWaterPath);
    if (dict == nullptr) return;
    QoDtDictionary* axis = dict->FindDict(kAxisKey);
    QoDtDictOptionItem* lineType = FindOption(*dict, kLineTypeKey);
    if (half == EHalf::Duct) {
        dict->SetValue(kShowMaskKey, m_ductShowMask);
        dict->SetValue(kBreakOffsetKey, m_ductBreakOffset);
        dict->SetValue(kAllowClipKey, m_ductAllowClip);
        if (axis != nullptr) WriteAxis(*axis, kDuctAxisKeys, *this);
        if (lineType != nullptr) m_ductLineType.SaveToDict(lineType);
    } else {
        dict->SetValue(kShowMaskKey, m_waterShowMask);
        dict->SetValue(kBreakOffsetKey, m_waterBreakOffset);
        dict->SetValue(kShow2dReducerKey, m_show2dReducer);
        dict->SetValue(kReducerTypeKey, m_2dReducerType);
        dict->SetValue(kReducerLengthKey, m_2dReducerLength);
        if (axis != nullptr) WriteAxis(*axis, kWaterAxisKeys, *this);
        if (lineType != nullptr) m_waterLineType.SaveToDict(lineType);
    }
    dict->SetValue(kDashColorKey, g_HvacFitAndDisplayData.m_dashLineColor);
    SetDataToQoDb(type);
}

void QoHvacDuctDisplayManager::SetDataToQoDb(EQoDbHvacSystemType type) {
    switch (HalfOf(type)) {
        case EHalf::Duct: {
            QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
            shared.m_breakOffset = m_ductBreakOffset;
            shared.m_showMask = m_ductShowMask;
            shared.m_allowClip = m_ductAllowClip;
            shared.m_axis = {m_rectDuct,  m_rectElbow, m_rectTee,        m_rectCross,  m_rectTransition,
                             m_rectOffset, m_circDuct, m_circElbow,      m_circTee,    m_circCross,
                             m_circTransition, m_circOffset, m_circTydf};
            break;
        }
        case EHalf::Water: {
            QoDbHvacPipeDrawSetData& shared = g_HvacPipeDrawSetData;
            shared.m_breakOffset = m_waterBreakOffset;
            shared.m_showMask = m_waterShowMask;
            shared.m_show2dReducer = m_show2dReducer;
            shared.m_2dReducerType = m_2dReducerType;
            shared.m_2dReducerLength = m_2dReducerLength;
            shared.m_axis = {m_pipe, m_riser, m_elbow, m_tee, m_cross, m_multiport, m_reduce, m_gooseneck, m_bendBridge};
            break;
        }
        case EHalf::None: break;
    }
}

void QoHvacDuctDisplayManager::ModiftAll(bool on, EQoDbHvacSystemType type) {
    switch (HalfOf(type)) {
        case EHalf::Duct: SetAxis(kDuctAxisKeys, *this, on); break;
        case EHalf::Water: SetAxis(kWaterAxisKeys, *this, on); break;
        case EHalf::None: break;
    }
}

int QoHvacDuctDisplayManager::GetLineType(EQoDbHvacSystemType type) const {
    CString selected;
    switch (HalfOf(type)) {
        case EHalf::Duct: selected = m_ductLineType.GetCurSelString(); break;
        case EHalf::Water: selected = m_waterLineType.GetCurSelString(); break;
        case EHalf::None: break;
    }
    return selected == L"单线" ? 0 : 1;
}
