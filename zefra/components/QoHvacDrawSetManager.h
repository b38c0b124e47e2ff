#pragma once
#include "zefra/ZefraExport.h"
// Drawing defaults of the water and heating commands. Three records serve
// the six kinds: air-conditioning water and VRV share one
// ("ZEFRA\WATER\DRAWSET"), floor heating has its own
// ("ZEFRA\DBCN\DRAWSET"), and per-household and vertical heating share one
// ("ZEFRA\HEATING\DRAWSET").
// Ducts and unknown kinds read the water record and change nothing.
//
// The bend radius (RADIUSOFCUR) is one value for all kinds, always stored
// under the water path and pushed to g_HvacPipeDrawSetData. The radiator
// data are one record, stored with both heating records: the one read last
// wins.

#include "zefra/components/SHvacDrawSetData.h"
#include "zefra/components/SHvacRadDrawSetData.h"
#include "zefra/layers/EQoDbHvacSystemType.h"
#include "zefra/module/QoModuleSingleton.h"
#include "zefra/platform/host/AcDbObjectId.h"
#include "zefra/platform/mfc/CString.h"

class ZEFRA_API QoHvacDrawSetManager {
public:
    static QoHvacDrawSetManager* GetInstance();

    QoHvacDrawSetManager(const QoHvacDrawSetManager&) = default;
    QoHvacDrawSetManager& operator=(const QoHvacDrawSetManager&) = default;
    ~QoHvacDrawSetManager() = default;

    // The kind's record itself, for the caller to change.
    SHvacDrawSetData& GetDrawSetData(HVAC::EQoDbHvacSystemType kind);
    SHvacDrawSetData& GetKTDrawSetData() { return GetDrawSetData(HVAC::ESysKT); }
    SHvacDrawSetData& GetCnDrawSetData() { return GetDrawSetData(HVAC::ESysCZCN); }
    // Does nothing for ducts and unknown kinds.
    void SetDrawSetData(const SHvacDrawSetData& data, HVAC::EQoDbHvacSystemType kind);
    SHvacRadDrawSetData& GetRadDrawSetData() { return m_radData; }
    void SetRadDrawSetData(const SHvacRadDrawSetData& data) { m_radData = data; }

    // The style of the host's working drawing for labels of the kind: its
    // current style when the record says to use the host's text, otherwise
    // the style that the record names.
    AcDbObjectId GetLabelTextStyle(HVAC::EQoDbHvacSystemType kind);

    // A missing dictionary keeps the record as it is.
    void ReadFromDict(HVAC::EQoDbHvacSystemType kind);
    // Makes the kind's dictionary when missing; the radius goes only into
    // an existing water dictionary.
    void SaveToDict(HVAC::EQoDbHvacSystemType kind);
    void ReadUnifiedData(SHvacDrawSetData& data);
    void SaveUnifiedData(const SHvacDrawSetData& data);

protected:
    static CString GetDictPath(HVAC::EQoDbHvacSystemType kind);

private:
    friend class QoModuleSingleton<QoHvacDrawSetManager>;
    QoHvacDrawSetManager();

    SHvacDrawSetData m_ktData;
    SHvacDrawSetData m_dbcnData;
    SHvacDrawSetData m_heatData;
    SHvacRadDrawSetData m_radData;
};
