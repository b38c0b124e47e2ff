#include "zefra/air/ZefraHDGSecondaryReturnAir.h"

#include "zefra/air/HDGCalItemText.h"
#include "zefra/air/HDGSecondaryDewPointSearch.h"
#include "zefra/air/HDGCurB.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/NT.h"

#include <cmath>

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
    EngineeringNotes.clear();
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
    double dewH = dew.H;
    double dewD = dew.D;
    if (CalculationMode == EHDGCalculationMode::Engineering && dew.Found && !RefineDewPoint(dewH, dewD))
        EngineeringNotes.push_back({"search-failed",
                                    "the line from N' through M doesn't meet the curve RH = ptL_RH: the design "
                                    "has no dew point L",
                                    CString()});
    PointL.CalByHAndD(dewH, dewD);
    if (CalculationMode == EHDGCalculationMode::Engineering && PointL.GetTdb() < 0.0)
        EngineeringNotes.push_back({"dew-point-below-freezing",
                                    "the dew point L lies below 0 °C: the coil would frost; the second return "
                                    "air is most of the supply air, give less of it or a larger supply "
                                    "temperature difference",
                                    CString()});
    Gr2 = g.Go * (PointM.GetH() - dewH) / (PointN1.GetH() - dewH);

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
    if (CalculationMode == EHDGCalculationMode::Engineering) {
        // The humidifier of the types that heat first works on M to K, which
        // the literal figure (C to L only) leaves out.
        Mwp += g.Go * (PointK.GetD() - PointM.GetD()) * 0.001;
        if (PointW1.GetH() < W.GetH())
            EngineeringNotes.push_back({"preheat-negative",
                                        "the first mix at this fresh-air share is warmer than L needs: W' comes "
                                        "out colder than W and the preheat load is negative; give more fresh "
                                        "air or less first return air",
                                        CString()});
    }
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

bool ZefraHDGSecondaryReturnAir::RefineDewPoint(double& h, double& d) const {
    // X(t) = 0 where L(t) on the curve lies on the line from N' through M; the
    // walk's step lies within its 0.002 °C of that crossing. Bisection on a
    // bracket widened from the step, bounded in passes.
    const double B = GetHDGCurB();
    const double rh = GivenData.ptL_RH;
    const ZefraHDGPoint& M = PointM;
    const ZefraHDGPoint& R = PointN1;
    const auto curveD = [B, rh](double t) { return AIR::GetD(t, rh, B); };
    const auto cross = [&](double t) {
        const double dt = curveD(t);
        const double ht = AIR::GetH(t, dt);
        return (M.GetH() - ht) * (R.GetD() - dt) - (M.GetD() - dt) * (R.GetH() - ht);
    };
    const double t0 = AIR::GetTdbByDAndRH(d, rh, B);
    if (!std::isfinite(t0)) return false;
    double lo = t0;
    double hi = t0;
    double fLo = cross(lo);
    double fHi = fLo;
    for (double reach = 0.002; (fLo > 0.0) == (fHi > 0.0) && fLo != 0.0; reach *= 2.0) {
        // The walk starts at 0 °C; a crossing below it lies up to 60 K away.
        if (reach > 64.0) return false;
        lo = t0 - reach;
        hi = t0 + reach;
        fLo = cross(lo);
        fHi = cross(hi);
        if (!std::isfinite(fLo) || !std::isfinite(fHi)) return false;
    }
    for (int pass = 0; pass < 200 && hi - lo > 1e-13 * (1.0 + std::fabs(lo)) && fLo != 0.0; ++pass) {
        const double mid = 0.5 * (lo + hi);
        const double fMid = cross(mid);
        if ((fMid > 0.0) == (fLo > 0.0)) {
            lo = mid;
            fLo = fMid;
        } else {
            hi = mid;
        }
    }
    const double t = fLo == 0.0 ? lo : 0.5 * (lo + hi);
    d = curveD(t);
    h = AIR::GetH(t, d);
    return std::isfinite(h) && std::isfinite(d);
}

HDGWarningList ZefraHDGSecondaryReturnAir::GetWarnings() const {
    HDGWarningList warnings = HDGWarningsInTexts(ResultInfo);
    warnings.insert(warnings.end(), EngineeringNotes.begin(), EngineeringNotes.end());
    return warnings;
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
