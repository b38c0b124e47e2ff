#include "zefra/air/HDGSchemeChartOverlay.h"

#include <cmath>

namespace {

// The overlay's points, found again by name.
class OverlayPoints {
public:
    explicit OverlayPoints(const CNTArray<ZefraHDGPoint, ZefraHDGPoint&>& points, SHDGChartOverlay& overlay)
        : m_overlay(overlay) {
        for (int i = 0; i < points.GetSize(); ++i) {
            const ZefraHDGPoint& p = points.GetAt(i);
            m_overlay.points.push_back({p.GetName().ToUtf8(), p.GetTdb(), p.GetD()});
        }
    }

    // -1 when no point has the name.
    int operator[](const char* name) const {
        for (size_t i = 0; i < m_overlay.points.size(); ++i)
            if (m_overlay.points[i].name == name) return static_cast<int>(i);
        return -1;
    }

    void Line(int from, int to, const char* label = "") {
        if (from < 0 || to < 0 || from == to) return;
        m_overlay.segments.push_back({from, to, label});
    }

    void RatioLine(int room, int supply, double epsilon) {
        if (room < 0 || supply < 0) return;
        m_overlay.ratioLine = {true, room, supply, epsilon};
    }

private:
    SHDGChartOverlay& m_overlay;
};

int Either(int first, int second) { return first >= 0 ? first : second; }

// How far C lies off the straight line from a to b on the chart's (D, H)
// plane, as a share of the line's length.
double OffLine(const ZefraHDGPoint& c, const ZefraHDGPoint& a, const ZefraHDGPoint& b) {
    const double dx = b.GetD() - a.GetD(), dy = b.GetH() - a.GetH();
    const double length2 = dx * dx + dy * dy;
    if (!(length2 > 0.0)) return HUGE_VAL;
    return std::fabs((c.GetD() - a.GetD()) * dy - (c.GetH() - a.GetH()) * dx) / length2;
}

struct STreatment {
    const char* first;   // from C to L
    const char* second;  // on to K
};

// The two treatments of the winter types, in the order the unit applies them.
STreatment WinterTreatment(bool heatFirst, bool isothermal) {
    const char* humidifying = isothermal ? "等温加湿" : "等焓加湿";
    return heatFirst ? STreatment{"加热", humidifying} : STreatment{humidifying, "再热"};
}

}  // namespace

SHDGChartOverlay HDGChartOverlayOf(const ZefraHDGPrimaryReturnAir& scheme) {
    const EHDGPriRetAirType type = scheme.GetCalPriRetAirType();
    const bool winter = type >= HDGPRI_DJ_ISENTH_HEAT;
    SHDGChartOverlay overlay;
    overlay.title = winter ? "一次回风冬季处理过程" : "一次回风夏季处理过程";
    OverlayPoints at(scheme.GetAllPoint(), overlay);
    const int N = at["N"], N1 = at["N'"], W = at["W"], W1 = at["W'"], C = at["C"], L = at["L"], K = at["K"],
              O = at["O"];
    const int returnAir = Either(N1, N);

    at.Line(N, N1, winter ? "回风温降" : "回风温升");
    // In winter C lies either on the line from the preheated W' to N' or,
    // when the fresh-air ratio needs no preheating, on the line from W to N.
    bool preheated = false;
    if (winter && W1 >= 0) {
        const ZefraHDGPoint c = scheme.GetPointC();
        preheated = OffLine(c, scheme.GetPointW1(), scheme.GetPointN1()) <=
                    OffLine(c, scheme.GetPointW(), scheme.GetPointN());
    }
    if (preheated) at.Line(W, W1, "预热");
    at.Line(preheated ? W1 : W, C, "混合");
    at.Line(winter && !preheated ? N : returnAir, C);

    if (!winter) {
        at.Line(C, L, "冷却减湿");
        if (type == HDGPRI_XJ_DEWPOINT) {
            at.Line(L, O, "送风温升");
        } else {
            at.Line(L, K, "送风温升");
            at.Line(Either(K, L), O, "再热");
        }
    } else {
        const STreatment steps = WinterTreatment(type == HDGPRI_DJ_HEAT_ISENTH || type == HDGPRI_DJ_HEAT_ISOTH,
                                                 type == HDGPRI_DJ_ISOTH_HEAT || type == HDGPRI_DJ_HEAT_ISOTH);
        at.Line(C, L, steps.first);
        at.Line(L, Either(K, O), steps.second);
        at.Line(K, O, "送风温降");
    }
    at.Line(O, N);
    at.RatioLine(N, O, scheme.GetHeatHumidityRatio());
    return overlay;
}

SHDGChartOverlay HDGChartOverlayOf(const ZefraHDGSecondaryReturnAir& scheme) {
    const EHDGSecRetAirType type = scheme.GetCalPriRetAirType();
    const bool winter = type >= HDGSEC_DJ_ISENTH_HEAT;
    SHDGChartOverlay overlay;
    overlay.title = winter ? "二次回风冬季处理过程" : "二次回风夏季处理过程";
    OverlayPoints at(scheme.GetAllPoint(), overlay);
    const int N = at["N"], N1 = at["N'"], W = at["W"], W1 = at["W'"], C = at["C"], L = at["L"], M = at["M"],
              K = at["K"], O = at["O"];
    const int returnAir = Either(N1, N);

    at.Line(N, N1, winter ? "回风温降" : "回风温升");
    if (winter) at.Line(W, W1, "预热");
    at.Line(winter ? Either(W1, W) : W, C, "混合");
    at.Line(returnAir, C);
    if (!winter) {
        at.Line(C, L, "冷却减湿");
        at.Line(L, M, "二次混合");
        at.Line(returnAir, M);
        at.Line(M, O, "送风温升");
    } else {
        const STreatment steps = WinterTreatment(type == HDGSEC_DJ_HEAT_ISENTH || type == HDGSEC_DJ_HEAT_ISOTH,
                                                 type == HDGSEC_DJ_ISOTH_HEAT || type == HDGSEC_DJ_HEAT_ISOTH);
        at.Line(C, L, steps.first);
        at.Line(L, M, "二次混合");
        at.Line(returnAir, M);
        at.Line(M, Either(K, O), steps.second);
        at.Line(K, O, "送风温降");
    }
    at.Line(O, N);
    at.RatioLine(N, O, scheme.GetHeatHumidityRatio());
    return overlay;
}
