#include "zefra/air/ZefraHDGMixAir.h"

IMPLEMENT_DYNAMIC(ZefraHDGMixAir, ZefraHDGProcess)

ZefraHDGMixAir::ZefraHDGMixAir() : HDGPointA(22.0, 0.6, L"A"), HDGPointB(20.0, 0.9, L"B") {}

bool ZefraHDGMixAir::Calculate() {
    if (!IsHfb) dMixRatio = Ga / Gb;
    const double hC = (dMixRatio * HDGPointA.GetH() + HDGPointB.GetH()) / (dMixRatio + 1.0);
    const double dC = (dMixRatio * HDGPointA.GetD() + HDGPointB.GetD()) / (dMixRatio + 1.0);
    HDGPointC.SetName(L"C");
    HDGPointC.CalByHAndD(hC, dC);
    return true;
}

void ZefraHDGMixAir::SetHDGPointA(const ZefraHDGPoint& point) {
    HDGPointA = point;
    HDGPointA.SetName(L"A");
}

void ZefraHDGMixAir::SetHDGPointB(const ZefraHDGPoint& point) {
    HDGPointB = point;
    HDGPointB.SetName(L"B");
}
