#include "zefra/air/ZefraHDGSecondaryReturnAir.h"

#include "zefra/air/HDGCalItemText.h"
#include "zefra/air/HDGSecondaryDewPointSearch.h"
#include "zefra/platform/airlib/NT.h"

IMPLEMENT_DYNAMIC(ZefraHDGSecondaryReturnAir, ZefraHDGProcess)

namespace {

constexpr double kDuctRiseIsZero = 0.001;
// Only when the walk for L gives up at its bound, far beyond any possible M.
const wchar_t* const kDewPointFailed = L"露点L计算失败，混合点M的温度超出计算范围。调整室内参数重新计算。";

}  // namespace

ZefraHDGSecondaryReturnAir::ZefraHDGSecondaryReturnAir() { NamePoints(); }

void ZefraHDGSecondaryReturnAir::NamePoints() {
    GivenData.PointN.SetName(L"N");
    GivenData.PointW.SetName(L"W");
    PointN1.SetName(L"N'");
    PointW1.SetName(L"W'");
    PointC.SetName(L"C");
    PointM.SetName(L"M");
    PointL.SetName(L"L");
    PointK.SetName(L"K");
    PointO.SetName(L"O");
}

double ZefraHDGSecondaryReturnAir::GetHeatHumidityRatio() const {
    const double ratio = GivenData.Qn / GivenData.Mw;
    return IsWinter() ? ratio * -1.0 : ratio;
}

EHvacHDGPointCalItemType ZefraHDGSecondaryReturnAir::GetCalItemType(const CString& text) {
    return HDGCalItemText::FromText(text);
}

CString ZefraHDGSecondaryReturnAir::GetCalItemTypeStr(EHvacHDGPointCalItemType kind) {
    return HDGCalItemText::ToText(kind);
}

bool ZefraHDGSecondaryReturnAir::Calculate() {
    ResultInfo.RemoveAll();
    // Named before the calculation: after summer W' carries "W" and K "O".
    NamePoints();
    switch (GivenData.CalPriRetAirType) {
        case HDGSEC_XJ:
            return Cal_Xj_Process();
        case HDGSEC_DJ_ISENTH_HEAT:
        case HDGSEC_DJ_HEAT_ISENTH:
        case HDGSEC_DJ_ISOTH_HEAT:
        case HDGSEC_DJ_HEAT_ISOTH:
            return Cal_Dj_Process();
    }
    return false;
}

bool ZefraHDGSecondaryReturnAir::Cal_Xj_Process() {
    SHDGSecondaryReturnAirInfo& g = GivenData;
    ZefraHDGPoint& N = g.PointN;
    ZefraHDGPoint& W = g.PointW;
    N.Calculate();
    W.Calculate();
    PointW1 = W;
    const double epsilon = GetHeatHumidityRatio();
    PointN1.CalByTdbAndD(N.GetTdb() + g.HfGdWs, N.GetD());

    const double tO = N.GetTdb() - g.SfWc;
    // The ε line through N meets the isotherm tO here, by the enthalpy relation.
    const double dO = (epsilon * N.GetD() - 1000 * N.GetH() + 1010 * tO) / (epsilon - 2500 - 1.84 * tO);
    PointO.CalByTdbAndD(tO, dO);
    PointK = PointO;
    PointM.CalByTdbAndD(PointO.GetTdb() - g.SfGdWs, PointO.GetD());
    g.Go = g.Qn / (N.GetH() - PointO.GetH());

    HDGSecondaryDewPointSearch search(PointM, PointN1, g.ptL_RH);
    const HDGSecondaryDewPointSearch::SResult dew =
        SearchMode == EHDGSearchMode::FullWalk ? search.FindByFullScan() : search.Find();
    if (dew.Exhausted) ResultInfo.Add(kDewPointFailed);
    PointL.CalByHAndD(dew.H, dew.D);
    Gr2 = g.Go * (PointM.GetH() - dew.H) / (PointN1.GetH() - dew.H);

    if (g.FreshAirType == 0)
        g.Gw = g.FreshAirRatio * g.Go;
    else
        g.FreshAirRatio = g.Gw / g.Go;
    Gn = g.Go - g.Gw;
    g.Gr1 = Gn - Gr2;

    const double unitFlow = g.Gr1 + g.Gw;
    const double freshShare = g.Gw / unitFlow;
    PointC.CalByHAndD(freshShare * (W.GetH() - PointN1.GetH()) + PointN1.GetH(),
                      freshShare * (W.GetD() - PointN1.GetD()) + PointN1.GetD());

    Qw = g.Gw * (W.GetH() - N.GetH());
    Qr = Gn * (PointN1.GetH() - N.GetH());
    Qo = g.Go * (PointO.GetH() - PointM.GetH());
    Qp = unitFlow * (PointC.GetH() - PointL.GetH());
    Mww = g.Gw * (W.GetD() - N.GetD()) * 0.001;
    Mwp = unitFlow * (PointC.GetD() - PointL.GetD()) * 0.001;

    AppendReportTexts();
    return true;
}

bool ZefraHDGSecondaryReturnAir::Cal_Dj_Process() {
    SHDGSecondaryReturnAirInfo& g = GivenData;
    ZefraHDGPoint& N = g.PointN;
    ZefraHDGPoint& W = g.PointW;
    N.Calculate();
    W.Calculate();
    // The return duct cools the air in winter.
    PointN1.CalByTdbAndD(N.GetTdb() - g.HfGdWs, N.GetD());

    const double hO = N.GetH() + g.Qn / g.Go;
    const double dO = N.GetD() - 1000 * g.Mw / g.Go;
    PointO.CalByHAndD(hO, dO);
    PointK.CalByTdbAndD(PointO.GetTdb() + g.SfGdWs, dO);

    if (g.FreshAirType == 0)
        g.Gw = g.FreshAirRatio * g.Go;
    else
        g.FreshAirRatio = g.Gw / g.Go;
    Gn = g.Go - g.Gw;
    Gr2 = Gn - g.Gr1;
    const double secondShare = Gr2 / g.Go;

    const double dL = (PointO.GetD() - secondShare * PointN1.GetD()) / (1.0 - secondShare);
    PointL.CalByRHAndD(g.ptL_RH, dL);
    PointM.CalByHAndD(secondShare * (PointN1.GetH() - PointL.GetH()) + PointL.GetH(), PointO.GetD());

    const double unitFlow = g.Gr1 + g.Gw;
    const double freshShare = g.Gw / unitFlow;
    const double dC = PointN1.GetD() - freshShare * (PointN1.GetD() - W.GetD());
    PointC.CalByHAndD(PointL.GetH(), dC);
    const double hW1 = PointN1.GetH() - (PointN1.GetH() - PointC.GetH()) / freshShare;
    PointW1.CalByHAndD(hW1, W.GetD());

    ReplaceDewAndMixPoints(secondShare);

    Qw = g.Gw * (N.GetH() - W.GetH());
    Qr = Gn * (N.GetH() - PointN1.GetH());
    Qo = g.Go * (PointK.GetH() - PointO.GetH());
    Qw1 = g.Gw * (PointW1.GetH() - W.GetH());
    Mww = g.Gw * (W.GetD() - N.GetD()) * 0.001;
    Mwp = unitFlow * (PointL.GetD() - PointC.GetD()) * 0.001;
    const double supplyStage = g.Go * (PointK.GetH() - PointM.GetH());
    const double unitStage = unitFlow * (PointL.GetH() - PointC.GetH());
    const bool heatingFirst = g.CalPriRetAirType == HDGSEC_DJ_HEAT_ISENTH || g.CalPriRetAirType == HDGSEC_DJ_HEAT_ISOTH;
    Qk = heatingFirst ? unitStage : supplyStage;
    Ql = heatingFirst ? supplyStage : unitStage;
    // What the unit's heater and humidifier carry; with the preheat Qw1 it
    // balances Qn + Qw + Qr + Qo.
    Qp = Qk + Ql;

    AppendReportTexts();
    return true;
}

void ZefraHDGSecondaryReturnAir::ReplaceDewAndMixPoints(double secondShare) {
    const double s = secondShare;
    switch (GivenData.CalPriRetAirType) {
        case HDGSEC_DJ_HEAT_ISENTH: {
            const double hL = (PointK.GetH() - s * PointN1.GetH()) / (1.0 - s);
            PointL.CalByHAndD(hL, PointC.GetD());
            const double dM = s * (PointN1.GetD() - PointL.GetD()) + PointL.GetD();
            PointM.CalByHAndD(PointK.GetH(), dM);
            break;
        }
        case HDGSEC_DJ_ISOTH_HEAT: {
            const double dL = (PointO.GetD() - s * PointN1.GetD()) / (1.0 - s);
            PointL.CalByTdbAndD(PointC.GetTdb(), dL);
            PointM.CalByHAndD(s * (PointN1.GetH() - PointL.GetH()) + PointL.GetH(), PointO.GetD());
            break;
        }
        case HDGSEC_DJ_HEAT_ISOTH: {
            const double dM = s * (PointN1.GetD() - PointC.GetD()) + PointC.GetD();
            PointM.CalByTdbAndD(PointK.GetTdb(), dM);
            const double hL = (PointM.GetH() - s * PointN1.GetH()) / (1.0 - s);
            PointL.CalByHAndD(hL, PointC.GetD());
            break;
        }
        default:
            break;
    }
}

void ZefraHDGSecondaryReturnAir::AppendReportTexts() {
    ResultInfo.Add(GetAllPointText());
    ResultInfo.Add(GetAllText_G());
    ResultInfo.Add(GetAllText_Q());
    ResultInfo.Add(GetMwText_Mw());
}

CNTArray<ZefraHDGPoint, ZefraHDGPoint&> ZefraHDGSecondaryReturnAir::GetAllPoint() const {
    const SHDGSecondaryReturnAirInfo& g = GivenData;
    CNTArray<ZefraHDGPoint, ZefraHDGPoint&> points;
    ZefraHDGPoint point;
    auto add = [&points, &point](const ZefraHDGPoint& source) {
        point = source;
        points.Add(point);
    };
    add(g.PointN);
    if (!NT::IsEqual(g.HfGdWs, 0.0, kDuctRiseIsZero)) add(PointN1);
    add(g.PointW);
    if (IsWinter()) {
        add(PointW1);
        add(PointM);
        add(PointC);
        add(PointL);
        add(PointK);
    } else {
        add(PointC);
        add(PointL);
        add(PointM);
    }
    add(PointO);
    return points;
}
