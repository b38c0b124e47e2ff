#pragma once
#include "zefra/ZefraExport.h"
// How duct and pipe objects are displayed: which kinds of object show their
// axis, whether mask graphics show, the break offset, the line type option,
// and for pipes the 2D reducer. One half for ducts (ESysDuct), one shared
// by all five water kinds; any other kind selects nothing and makes every
// operation a no-op.
//
// Stored below g_dictCfg "ZEFRA\DISPLAYSET" and "ZEFRA\WATER\DISPLAYSET".
// Reading and saving also push the half into the shared object that its
// entities read: ducts into g_HvacFitAndDisplayData, water into
// g_HvacPipeDrawSetData. The dash line colour has no field here: both
// halves read it straight into g_HvacFitAndDisplayData and write it from
// there, so the half read last wins.

#include "zefra/labels/QoHvacCStringOption.h"
#include "zefra/layers/EQoDbHvacSystemType.h"
#include "zefra/module/QoModuleSingleton.h"

class ZEFRA_API QoHvacDuctDisplayManager {
public:
    static QoHvacDuctDisplayManager* GetInstance();

    QoHvacDuctDisplayManager(const QoHvacDuctDisplayManager&) = default;
    QoHvacDuctDisplayManager& operator=(const QoHvacDuctDisplayManager&) = default;
    ~QoHvacDuctDisplayManager() = default;

    // A missing branch keeps the half's values; the push happens anyway.
    void ReadFromDict(HVAC::EQoDbHvacSystemType type);
    // Writes into the existing branch only, and only into an existing
    // "DISPLAYAXIS" and "LINETYPE"; a missing branch writes and pushes
    // nothing.
    void SaveToDict(HVAC::EQoDbHvacSystemType type);
    void SetDataToQoDb(HVAC::EQoDbHvacSystemType type);
    // Sets every axis flag of the half; no push.
    void ModiftAll(bool on, HVAC::EQoDbHvacSystemType type);
    // 0 when the selected line type is "单线" (single line), else 1.
    int GetLineType(HVAC::EQoDbHvacSystemType type) const;

    bool m_rectDuct = true;
    bool m_rectElbow = true;
    bool m_rectTee = true;
    bool m_rectCross = true;
    bool m_rectTransition = true;
    bool m_rectOffset = true;
    bool m_circDuct = true;
    bool m_circElbow = true;
    bool m_circTee = true;
    bool m_circCross = true;
    bool m_circTransition = true;
    bool m_circOffset = true;
    bool m_circTydf = true;
    QoHvacCStringOption m_ductLineType;
    bool m_ductShowMask = true;
    double m_ductBreakOffset = 0.0;
    bool m_ductAllowClip = true;

    bool m_pipe = true;
    bool m_riser = true;
    bool m_elbow = true;
    bool m_tee = true;
    bool m_cross = true;
    bool m_multiport = true;
    bool m_reduce = true;
    bool m_gooseneck = true;
    bool m_bendBridge = true;
    QoHvacCStringOption m_waterLineType;
    bool m_waterShowMask = true;
    double m_waterBreakOffset = 0.0;
    bool m_show2dReducer = true;
    int m_2dReducerType = 0;
    double m_2dReducerLength = 0.0;

protected:
    // The built-in values of the half, line type option and 2D reducer
    // type and length excepted.
    void InitialData(HVAC::EQoDbHvacSystemType type);

private:
    friend class QoModuleSingleton<QoHvacDuctDisplayManager>;
    QoHvacDuctDisplayManager();
};
