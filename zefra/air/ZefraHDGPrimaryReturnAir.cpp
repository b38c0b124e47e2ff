#include "zefra/air/ZefraHDGPrimaryReturnAir.h"

#include "zefra/air/HDGCalItemText.h"
#include "zefra/air/HDGPrimarySupplyPointSearch.h"
#include "zefra/platform/airlib/NT.h"
#include "zefra/platform/geometry/Zero.h"

#include <cmath>
#include <cstdio>
#include <string>

IMPLEMENT_DYNAMIC(ZefraHDGPrimaryReturnAir, ZefraHDGProcess)

namespace {

const wchar_t* const kSupplyPointFailed = L"送风点O，露点L计算失败。调整室内参数重新计算。";
const wchar_t* const kMixPointFailed =
    L"混合点C计算失败，L点的焓不在W点与N点的焓之间。调整室外参数或新风比重新计算。";

// Each halving of the line from W to N halves both ends' distance; after
// this many a double has no finer point to offer.
constexpr int kMixHalvings = 64;
// The halving ends when C's enthalpy is within this of L's, in kJ/kg.
constexpr double kMixEnthalpyTolerance = 5e-5;
constexpr double kDuctRiseIsZero = 0.001;

std::string Figure(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

}  // namespace

ZefraHDGPrimaryReturnAir::ZefraHDGPrimaryReturnAir() { NamePoints(); }

void ZefraHDGPrimaryReturnAir::NamePoints() {
    GivenData.PointN.SetName(L"N");
    GivenData.PointW.SetName(L"W");
    PointN1.SetName(L"N'");
    PointW1.SetName(L"W'");
    PointC.SetName(L"C");
    PointL.SetName(L"L");
    PointK.SetName(L"K");
    PointO.SetName(L"O");
}

double ZefraHDGPrimaryReturnAir::GetHeatHumidityRatio() const {
    const double ratio = GivenData.Qn / GivenData.Mw;
    return IsWinter() ? ratio * -1.0 : ratio;
}

EHvacHDGPointCalItemType ZefraHDGPrimaryReturnAir::GetCalItemType(const CString& text) {
    return HDGCalItemText::FromText(text);
}

CString ZefraHDGPrimaryReturnAir::GetCalItemTypeStr(EHvacHDGPointCalItemType kind) {
    return HDGCalItemText::ToText(kind);
}

bool ZefraHDGPrimaryReturnAir::Calculate() {
    ResultInfo.RemoveAll();
    EngineeringNotes.clear();
    bool calculated = false;
    switch (GivenData.CalPriRetAirType) {
        case HDGPRI_XJ_DEWPOINT:
        case HDGPRI_XJ_SUPPLYDT:
            calculated = Cal_Xj_Process();
            break;
        case HDGPRI_DJ_ISENTH_HEAT:
        case HDGPRI_DJ_HEAT_ISENTH:
        case HDGPRI_DJ_ISOTH_HEAT:
        case HDGPRI_DJ_HEAT_ISOTH:
            calculated = Cal_Dj_Process();
            break;
    }
    // After the calculation: W' := W and K := L carry the names along.
    NamePoints();
    return calculated;
}

bool ZefraHDGPrimaryReturnAir::Cal_Xj_Process() {
    SHDGPrimaryReturnAirInfo& g = GivenData;
    ZefraHDGPoint& N = g.PointN;
    ZefraHDGPoint& W = g.PointW;
    N.Calculate();
    W.Calculate();
    PointW1 = W;
    const double epsilon = GetHeatHumidityRatio();
    PointN1.CalByTdbAndD(N.GetTdb() + g.HfGdWs, N.GetD());

    if (g.CalPriRetAirType == HDGPRI_XJ_DEWPOINT)
        FindSupplyPointByDewPoint(epsilon);
    else
        FixSupplyPointBySupplyDt(epsilon);

    g.Go = g.Qn / (N.GetH() - PointO.GetH());
    double ratio = 0.0;
    if (g.FreshAirType == 0) {
        ratio = g.FreshAirRatio;
        g.Gw = g.FreshAirRatio * g.Go;
    } else {
        ratio = g.Gw / g.Go;
        g.FreshAirRatio = ratio;
    }
    XjFreshAirRatio = ratio;

    const double hC = ratio * (W.GetH() - PointN1.GetH()) + PointN1.GetH();
    const double dC = ratio * (W.GetD() - PointN1.GetD()) + PointN1.GetD();
    PointC.CalByHAndD(hC, dC);
    Gn = g.Go - g.Gw;

    Qw = g.Gw * (W.GetH() - N.GetH());
    Qr = Gn * (PointN1.GetH() - N.GetH());
    Qo = g.Go * (PointK.GetH() - PointL.GetH());
    Qk = g.Go * (PointO.GetH() - PointK.GetH());
    Qp = g.Go * (PointC.GetH() - PointL.GetH());
    if (g.CalPriRetAirType == HDGPRI_XJ_DEWPOINT) {
        // No reheat: the supply duct warms L straight to O.
        Qo = g.Go * (PointO.GetH() - PointL.GetH());
        Qk = 0.0;
    }
    Mww = g.Gw * (W.GetD() - N.GetD()) * 0.001;
    Mwp = g.Go * (PointC.GetD() - PointL.GetD()) * 0.001;

    AppendReportTexts();
    return true;
}

void ZefraHDGPrimaryReturnAir::FindSupplyPointByDewPoint(double epsilon) {
    const SHDGPrimaryReturnAirInfo& g = GivenData;
    HDGPrimarySupplyPointSearch search(g.PointN, epsilon, g.ptL_RH, g.SfGdWs);
    const HDGPrimarySupplyPointSearch::SResult result =
        SearchMode == EHDGSearchMode::FullWalk ? search.FindByFullScan() : search.Find();
    if (!result.Found) {
        // O, L and K keep what they held; the flows and loads follow from them.
        ResultInfo.Add(kSupplyPointFailed);
        return;
    }
    const HDGPrimarySupplyPointSearch::SPass& pass = result.Pass;
    PointO.CalByHAndD(pass.HO, pass.D);
    // Without a duct rise L sits at O's temperature rather than on the curve.
    const double tL = IsInZeroBand(g.SfGdWs) ? pass.TO : pass.TL;
    PointL.CalByTdbAndD(tL, pass.D);
    PointK = PointL;
}

void ZefraHDGPrimaryReturnAir::FixSupplyPointBySupplyDt(double epsilon) {
    const SHDGPrimaryReturnAirInfo& g = GivenData;
    const ZefraHDGPoint& N = g.PointN;
    const double t = N.GetTdb() - g.SfWc;
    // The ε line through N meets the isotherm t here, by the enthalpy relation.
    const double d =
        (epsilon * N.GetD() - 1000.0 * N.GetH() + 1010.0 * t) / ((epsilon - 2500.0) - 1.84 * t);
    PointO.CalByTdbAndD(t, d);
    PointL.CalByRHAndD(g.ptL_RH, d);
    PointK.CalByTdbAndD(PointL.GetTdb() + g.SfGdWs, d);
}

bool ZefraHDGPrimaryReturnAir::Cal_Dj_Process() {
    SHDGPrimaryReturnAirInfo& g = GivenData;
    ZefraHDGPoint& N = g.PointN;
    ZefraHDGPoint& W = g.PointW;
    N.Calculate();
    W.Calculate();
    // The return duct cools the air in winter.
    PointN1.CalByTdbAndD(N.GetTdb() - g.HfGdWs, N.GetD());

    const double hO = g.Qn / g.Go + N.GetH();
    const double dO = N.GetD() - 1000.0 * g.Mw / g.Go;
    PointO.CalByHAndD(hO, dO);
    PointK.CalByTdbAndD(PointO.GetTdb() + g.SfGdWs, dO);
    PointL.CalByRHAndD(g.ptL_RH, dO);

    double ratio = 0.0;
    if (g.FreshAirType == 0) {
        ratio = g.FreshAirRatio;
        g.Gw = g.FreshAirRatio * g.Go;
    } else {
        ratio = g.Gw / g.Go;
        g.FreshAirRatio = ratio;
    }
    if (CalculationMode == EHDGCalculationMode::Engineering)
        MixAtDesignShare(ratio);
    else if (ratio - XjFreshAirRatio >= -g_fZero)
        MixOnOutdoorRoomLine();
    else
        MixWithPreheat();

    switch (g.CalPriRetAirType) {
        case HDGPRI_DJ_HEAT_ISENTH:
            PointL.CalByHAndD(PointK.GetH(), PointC.GetD());
            break;
        case HDGPRI_DJ_ISOTH_HEAT:
            PointL.CalByTdbAndD(PointC.GetTdb(), PointK.GetD());
            break;
        case HDGPRI_DJ_HEAT_ISOTH:
            PointL.CalByTdbAndD(PointK.GetTdb(), PointC.GetD());
            break;
        default:
            break;
    }
    Gn = g.Go - g.Gw;

    Qw = g.Gw * (N.GetH() - W.GetH());
    Qr = Gn * (N.GetH() - PointN1.GetH());
    Qo = g.Go * (PointK.GetH() - PointO.GetH());
    Qw1 = g.Gw * (PointW1.GetH() - W.GetH());
    Qp = g.Go * (PointK.GetH() - PointC.GetH());
    Qk = g.Go * (PointK.GetH() - PointL.GetH());
    Ql = g.Go * (PointL.GetH() - PointC.GetH());
    if (g.CalPriRetAirType == HDGPRI_DJ_HEAT_ISENTH || g.CalPriRetAirType == HDGPRI_DJ_HEAT_ISOTH) {
        // Heating comes first: C to L is the heater, L to K the humidifier.
        Qk = g.Go * (PointL.GetH() - PointC.GetH());
        Ql = g.Go * (PointK.GetH() - PointL.GetH());
    }
    Mww = g.Gw * (W.GetD() - N.GetD()) * 0.001;
    Mwp = g.Go * (PointL.GetD() - PointC.GetD()) * 0.001;
    // The moisture that the whole unit adds, C to K: where heating comes
    // first the literal figure counts only the heater, C to L, and is 0.
    if (CalculationMode == EHDGCalculationMode::Engineering) Mwp = g.Go * (PointK.GetD() - PointC.GetD()) * 0.001;

    AppendReportTexts();
    return true;
}

void ZefraHDGPrimaryReturnAir::MixAtDesignShare(double share) {
    // Outdoor air W mixes with the return air N' at the design's fresh-air
    // share. When that mix has less enthalpy than L needs, W is preheated at
    // constant D to W' just enough; when it has more, no preheat is needed and
    // a larger share of outdoor air brings the mix down to L's enthalpy. C is
    // then always the mix that happens, so the heat balance closes.
    SHDGPrimaryReturnAirInfo& g = GivenData;
    const ZefraHDGPoint& W = g.PointW;
    const ZefraHDGPoint& R = PointN1;
    const double target = PointL.GetH();
    const double mixH = R.GetH() + share * (W.GetH() - R.GetH());
    PointW1 = W;
    if (mixH < target && share > 0.0) {
        PointC.CalByHAndD(target, R.GetD() + share * (W.GetD() - R.GetD()));
        PointW1.CalByHAndD(R.GetH() - (R.GetH() - PointC.GetH()) / share, W.GetD());
        return;
    }
    double used = share;
    if (mixH > target) {
        if (W.GetH() < target) {
            used = (R.GetH() - target) / (R.GetH() - W.GetH());
            EngineeringNotes.push_back(
                {"fresh-air-share-raised",
                 "the mix at the fresh-air ratio " + Figure(share) +
                     " is warmer than L needs; without preheat the fresh-air share " + Figure(used) +
                     " brings it to L's enthalpy, and the flows follow that share",
                 CString()});
        } else {
            EngineeringNotes.push_back({"outdoor-too-warm",
                                        "the outdoor air has more enthalpy than L: no mix reaches L's enthalpy, "
                                        "and C is the mix at the given fresh-air ratio",
                                        CString()});
        }
    }
    g.FreshAirRatio = used;
    g.Gw = used * g.Go;
    PointC.CalByHAndD(R.GetH() + used * (W.GetH() - R.GetH()), R.GetD() + used * (W.GetD() - R.GetD()));
}

HDGWarningList ZefraHDGPrimaryReturnAir::GetWarnings() const {
    HDGWarningList warnings = HDGWarningsInTexts(ResultInfo);
    warnings.insert(warnings.end(), EngineeringNotes.begin(), EngineeringNotes.end());
    return warnings;
}

void ZefraHDGPrimaryReturnAir::MixOnOutdoorRoomLine() {
    const ZefraHDGPoint& N = GivenData.PointN;
    const ZefraHDGPoint& W = GivenData.PointW;
    double tA = W.GetTdb();
    double dA = W.GetD();
    double tB = N.GetTdb();
    double dB = N.GetD();
    // The halving ends only if L's enthalpy lies between W's and N's. Beyond
    // the bound, C keeps the pass that came closest and the texts say so.
    ZefraHDGPoint closest = PointC;
    double closestGap = HUGE_VAL;
    for (int halving = 0; halving < kMixHalvings; ++halving) {
        const double t = (tA + tB) / 2.0;
        const double d = (dA + dB) / 2.0;
        PointC.CalByTdbAndD(t, d);
        const double gap = PointC.GetH() - PointL.GetH();
        if (-g_fZero > std::fabs(gap) - kMixEnthalpyTolerance) return;
        if (std::fabs(gap) < closestGap) {
            closestGap = std::fabs(gap);
            closest = PointC;
        }
        if (gap > g_fZero) {
            tB = t;
            dB = d;
        } else {
            tA = t;
            dA = d;
        }
    }
    if (closestGap != HUGE_VAL) PointC = closest;
    ResultInfo.Add(kMixPointFailed);
}

void ZefraHDGPrimaryReturnAir::MixWithPreheat() {
    const ZefraHDGPoint& W = GivenData.PointW;
    const double summerRatio = XjFreshAirRatio;
    const double dC = PointN1.GetD() - summerRatio * (PointN1.GetD() - W.GetD());
    PointC.CalByHAndD(PointL.GetH(), dC);
    const double hW1 = PointN1.GetH() - (PointN1.GetH() - PointC.GetH()) / summerRatio;
    PointW1.CalByHAndD(hW1, W.GetD());
}

void ZefraHDGPrimaryReturnAir::AppendReportTexts() {
    ResultInfo.Add(GetAllPointText());
    ResultInfo.Add(GetAllText_G());
    ResultInfo.Add(GetAllText_Q());
    ResultInfo.Add(GetAllText_Mw());
}

CNTArray<ZefraHDGPoint, ZefraHDGPoint&> ZefraHDGPrimaryReturnAir::GetAllPoint() const {
    const SHDGPrimaryReturnAirInfo& g = GivenData;
    const bool returnDuctRise = !NT::IsEqual(g.HfGdWs, 0.0, kDuctRiseIsZero);
    const bool supplyDuctRise = !NT::IsEqual(g.SfGdWs, 0.0, kDuctRiseIsZero);
    CNTArray<ZefraHDGPoint, ZefraHDGPoint&> points;
    ZefraHDGPoint point = g.PointN;
    auto add = [&points, &point](const ZefraHDGPoint& source) {
        point = source;
        points.Add(point);
    };
    add(g.PointN);
    if (returnDuctRise) add(PointN1);
    add(g.PointW);
    if (IsWinter()) {
        if (!IsInZeroBand(g.PointW.GetTdb() - PointW1.GetTdb())) add(PointW1);
        add(PointC);
        add(PointL);
        if (supplyDuctRise) add(PointK);
    } else {
        add(PointC);
        add(PointL);
        if (g.CalPriRetAirType == HDGPRI_XJ_SUPPLYDT && supplyDuctRise) add(PointK);
    }
    add(PointO);
    return points;
}
