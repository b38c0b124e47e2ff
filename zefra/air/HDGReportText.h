#pragma once
// The four report texts of the return-air schemes: state points, air flows,
// heat loads and moisture loads. Figures are converted to the units of the
// chart settings and written with their precisions; the load texts end in a
// message when their balance doesn't close.

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/mfc/CNTArray.h"
#include "zefra/platform/mfc/CString.h"

class QoHvacHDGSysSetManager;

class HDGReportText {
public:
    // Flows in kg/s, as the schemes hold them.
    struct SFlows {
        double Gw = 0.0;
        double Gn = 0.0;
        double Go = 0.0;
        double Gr1 = 0.0;  // secondary scheme only
        double Gr2 = 0.0;  // secondary scheme only
        double FreshAirRatio = 0.0;
        double HeatHumidityRatio = 0.0;
    };

    // Heat loads in kW.
    struct SLoads {
        double Qn = 0.0;
        double Qw = 0.0;
        double Qr = 0.0;
        double Qo = 0.0;
        double Qk = 0.0;
        double Qw1 = 0.0;
        double Ql = 0.0;
        double Qp = 0.0;
    };

    // Moisture loads in kg/s.
    struct SMoisture {
        double Mw = 0.0;
        double Mww = 0.0;
        double Mwp = 0.0;
    };

    explicit HDGReportText(QoHvacHDGSysSetManager& settings);

    // The rule under every heading, with the line end before it.
    static const wchar_t* Rule();

    // One line per point, label padded to the width of "N'" when the list
    // holds N' (a return-duct rise).
    CString PointText(const CString& title, const CNTArray<ZefraHDGPoint, ZefraHDGPoint&>& points,
                      bool withReturnDuctRise) const;
    CString PrimaryAirFlowText(const SFlows& flows) const;
    CString SecondaryAirFlowText(const SFlows& flows) const;
    // Summer form; the primary scheme shows its reheat in the first row and
    // counts it in the total.
    CString SummerHeatLoadText(const SLoads& loads, bool withReheat) const;
    CString WinterHeatLoadText(const SLoads& loads) const;
    CString MoistureText(const SMoisture& moisture, bool winter) const;

private:
    // Whether what the unit carries equals the total, to 0.001 of the unit shown.
    bool LoadsBalance(double carried, double total) const;

    QoHvacHDGSysSetManager& m_settings;
};
