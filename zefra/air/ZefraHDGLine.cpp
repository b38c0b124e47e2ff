#include "zefra/air/ZefraHDGLine.h"

#include "zefra/platform/geometry/Zero.h"

IMPLEMENT_DYNAMIC(ZefraHDGLine, ZefraHDGProcess)

ZefraHDGLine::ZefraHDGLine() : HDGPointA(22.0, 0.6, L"A"), HDGPointB(20.0, 0.9, L"B") {}

bool ZefraHDGLine::Calculate() {
    const double dh = HDGPointB.GetH() - HDGPointA.GetH();
    if (CalType == 0)
        Q = G * dh;
    else
        G = IsInZeroBand(dh) ? 0.0 : Q / dh;
    return true;
}

void ZefraHDGLine::SetHDGPointA(const ZefraHDGPoint& point) {
    HDGPointA = point;
    HDGPointA.SetName(L"A");
}

void ZefraHDGLine::SetHDGPointB(const ZefraHDGPoint& point) {
    HDGPointB = point;
    HDGPointB.SetName(L"B");
}
