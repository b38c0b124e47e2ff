// The report texts of the two return-air schemes: what a treatment appends
// to ResultInfo, and what callers can ask for at any time. Each text reads
// the chart settings at the call, so a changed unit or precision shows in
// the next text.

#include "zefra/air/HDGReportText.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/platform/airlib/NT.h"

namespace {

HDGReportText Report() { return HDGReportText(*QoHvacHDGSysSetManager::GetInstance()); }

bool HasDuctRise(double rise) { return !NT::IsEqual(rise, 0.0, 0.001); }

// The heat and moisture loads of either scheme, as the texts take them.
template <typename Scheme>
HDGReportText::SLoads LoadsOf(const Scheme& scheme) {
    HDGReportText::SLoads loads;
    loads.Qn = scheme.GetQn();
    loads.Qw = scheme.GetQw();
    loads.Qr = scheme.GetQr();
    loads.Qo = scheme.GetQo();
    loads.Qk = scheme.GetQk();
    loads.Qw1 = scheme.GetQw1();
    loads.Ql = scheme.GetQl();
    loads.Qp = scheme.GetQp();
    return loads;
}

template <typename Scheme>
HDGReportText::SMoisture MoistureOf(const Scheme& scheme) {
    HDGReportText::SMoisture moisture;
    moisture.Mw = scheme.GetMw();
    moisture.Mww = scheme.GetMww();
    moisture.Mwp = scheme.GetMwp();
    return moisture;
}

}  // namespace

// ---- Primary return air ------------------------------------------------------

CString ZefraHDGPrimaryReturnAir::GetAllPointText() const {
    const wchar_t* title = IsWinter() ? L"一次回风冬季处理过程计算结果" : L"一次回风夏季处理过程计算结果";
    return Report().PointText(title, GetAllPoint(), HasDuctRise(GivenData.HfGdWs));
}

CString ZefraHDGPrimaryReturnAir::GetAllText_G() const {
    HDGReportText::SFlows flows;
    flows.Gw = GivenData.Gw;
    flows.Gn = Gn;
    flows.Go = GivenData.Go;
    flows.FreshAirRatio = GivenData.FreshAirRatio;
    flows.HeatHumidityRatio = GetHeatHumidityRatio();
    return Report().PrimaryAirFlowText(flows);
}

CString ZefraHDGPrimaryReturnAir::GetAllText_Q() const {
    const HDGReportText::SLoads loads = LoadsOf(*this);
    return IsWinter() ? Report().WinterHeatLoadText(loads) : Report().SummerHeatLoadText(loads, true);
}

CString ZefraHDGPrimaryReturnAir::GetAllText_Mw() const { return Report().MoistureText(MoistureOf(*this), IsWinter()); }

// ---- Secondary return air ----------------------------------------------------

CString ZefraHDGSecondaryReturnAir::GetAllPointText() const {
    const wchar_t* title = IsWinter() ? L"二次回风冬季处理过程计算结果" : L"二次回风夏季处理过程计算结果";
    return Report().PointText(title, GetAllPoint(), HasDuctRise(GivenData.HfGdWs));
}

CString ZefraHDGSecondaryReturnAir::GetAllText_G() const {
    HDGReportText::SFlows flows;
    flows.Gw = GivenData.Gw;
    flows.Gn = Gn;
    flows.Go = GivenData.Go;
    flows.Gr1 = GivenData.Gr1;
    flows.Gr2 = Gr2;
    flows.FreshAirRatio = GivenData.FreshAirRatio;
    flows.HeatHumidityRatio = GetHeatHumidityRatio();
    return Report().SecondaryAirFlowText(flows);
}

CString ZefraHDGSecondaryReturnAir::GetAllText_Q() const {
    const HDGReportText::SLoads loads = LoadsOf(*this);
    return IsWinter() ? Report().WinterHeatLoadText(loads) : Report().SummerHeatLoadText(loads, false);
}

CString ZefraHDGSecondaryReturnAir::GetMwText_Mw() const { return Report().MoistureText(MoistureOf(*this), IsWinter()); }
