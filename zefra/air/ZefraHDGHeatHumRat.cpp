#include "zefra/air/ZefraHDGHeatHumRat.h"

#include "zefra/platform/airlib/NT.h"
#include "zefra/platform/geometry/Zero.h"

IMPLEMENT_DYNAMIC(ZefraHDGHeatHumRat, ZefraHDGProcess)

namespace {

const wchar_t* const kPlusInfinity = L"+∞";
const wchar_t* const kMinusInfinity = L"-∞";

}  // namespace

ZefraHDGHeatHumRat::ZefraHDGHeatHumRat() : HDGPointA(22.0, 0.6, L"A"), HDGPointB(20.0, 0.9, L"B") {}

bool ZefraHDGHeatHumRat::Calculate() {
    if (CalType == 0) {
        if (IsInZeroBand(Mw))
            Value = Q >= 0.0 ? kPlusInfinity : kMinusInfinity;
        else
            Value = ftoa(Q / Mw, 2, true);
    } else {
        const double dh = HDGPointB.GetH() - HDGPointA.GetH();
        // The divisor runs from B to A while the enthalpy runs from A to B.
        const double dd = HDGPointA.GetD() - HDGPointB.GetD();
        if (IsInZeroBand(dd))
            Value = dh >= 0.0 ? kPlusInfinity : kMinusInfinity;
        else
            Value = ftoa(1000.0 * dh / dd, 2, true);
    }
    return true;
}

void ZefraHDGHeatHumRat::SetHDGPointA(const ZefraHDGPoint& point) {
    HDGPointA = point;
    HDGPointA.SetName(L"A");
}

void ZefraHDGHeatHumRat::SetHDGPointB(const ZefraHDGPoint& point) {
    HDGPointB = point;
    HDGPointB.SetName(L"B");
}
