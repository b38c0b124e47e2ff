#pragma once
#include "zefra/ZefraExport.h"
// Mixing of two air streams A and B into C, in the ratio Ga : Gb or in a
// given ratio of parts of A to one part of B.

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/air/ZefraHDGProcess.h"

class ZEFRA_API ZefraHDGMixAir : public ZefraHDGProcess {
    DECLARE_DYNAMIC(ZefraHDGMixAir)
public:
    ZefraHDGMixAir();
    ~ZefraHDGMixAir() override = default;
    ZefraHDGMixAir(const ZefraHDGMixAir&) = default;
    ZefraHDGMixAir& operator=(const ZefraHDGMixAir&) = default;

    // C lies on the line from B to A at the enthalpy and moisture content
    // weighted by the ratio; C is named "C" and computed from (H, D).
    bool Calculate() override;
    bool SaveXml(QoDtDictionary* dict) override;
    bool ReadXml(QoDtDictionary* dict) override;

    double GetGa() const { return Ga; }
    void SetGa(double ga) { Ga = ga; }
    double GetGb() const { return Gb; }
    void SetGb(double gb) { Gb = gb; }
    double GetdMixRatio() const { return dMixRatio; }
    void SetdMixRatio(double ratio) { dMixRatio = ratio; }
    bool GetIsHfb() const { return IsHfb; }
    void SetIsHfb(bool isHfb) { IsHfb = isHfb; }

    ZefraHDGPoint GetHDGPointA() const { return HDGPointA; }
    ZefraHDGPoint GetHDGPointB() const { return HDGPointB; }
    ZefraHDGPoint GetHDGPointC() const { return HDGPointC; }
    // The point is renamed "A" or "B" whatever name it came with.
    void SetHDGPointA(const ZefraHDGPoint& point);
    void SetHDGPointB(const ZefraHDGPoint& point);

private:
    double Ga = 3000.0;  // only Ga / Gb counts
    double Gb = 1000.0;
    double dMixRatio = 3.0;
    ZefraHDGPoint HDGPointA;
    ZefraHDGPoint HDGPointB;
    ZefraHDGPoint HDGPointC;
    bool IsHfb = false;  // true: dMixRatio is given; false: it is Ga / Gb
};
