#pragma once
// What the duct entities look up at draw time about default fittings and
// duct display. The settings managers write it: the fitting records and the
// two 2D styles from the default fittings, the rest from the duct display
// settings. The one object is g_HvacFitAndDisplayData, built at its first
// use, before any manager that writes it has finished its construction.

#include "zefra/platform/entities/SHvacDuctCrossData.h"
#include "zefra/platform/entities/SHvacDuctElbowData.h"
#include "zefra/platform/entities/SHvacDuctOffsetData.h"
#include "zefra/platform/entities/SHvacDuctTeeData.h"
#include "zefra/platform/entities/SHvacDuctTransData.h"

class QoDbHvacDefaultFitData {
public:
    static QoDbHvacDefaultFitData& Shared();

    SHvacDuctCrossData m_rectCross;
    SHvacDuctTeeData m_rectTee;
    SHvacDuctElbowData m_rectElbow;
    SHvacDuctTransData m_rectTrans;
    SHvacDuctOffsetData m_rectOffset;
    SHvacDuctCrossData m_circleCross;
    SHvacDuctTeeData m_circleTee;
    SHvacDuctElbowData m_circleElbow;
    SHvacDuctTransData m_circleTrans;
    SHvacDuctOffsetData m_circleOffset;
    int m_raisedElbow2dStyle = 0;
    int m_raisedOffset2dStyle = 0;

    double m_breakOffset = 0.0;
    bool m_showMask = true;
    bool m_allowClip = true;
    int m_dashLineColor = 256;  // by layer until the settings give one

    // Whether each kind of duct object shows its axis, in the order of the
    // display settings' keys.
    struct SAxisFlags {
        bool rectDuct = true;
        bool rectElbow = true;
        bool rectTee = true;
        bool rectCross = true;
        bool rectTransition = true;
        bool rectOffset = true;
        bool circDuct = true;
        bool circElbow = true;
        bool circTee = true;
        bool circCross = true;
        bool circTransition = true;
        bool circOffset = true;
        bool circTydf = true;  // round-to-square transition
    };
    SAxisFlags m_axis;
};

#define g_HvacFitAndDisplayData (QoDbHvacDefaultFitData::Shared())
