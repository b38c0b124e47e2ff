#pragma once
#include "zefra/ZefraExport.h"
// The heat-humidity ratio ε of a process, in kJ/kg, as text: from a heat
// load and a moisture load, or from the two end states. A zero divisor
// gives "+∞" or "-∞".

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/air/ZefraHDGProcess.h"

class ZEFRA_API ZefraHDGHeatHumRat : public ZefraHDGProcess {
    DECLARE_DYNAMIC(ZefraHDGHeatHumRat)
public:
    ZefraHDGHeatHumRat();
    ~ZefraHDGHeatHumRat() override = default;
    ZefraHDGHeatHumRat(const ZefraHDGHeatHumRat&) = default;
    ZefraHDGHeatHumRat& operator=(const ZefraHDGHeatHumRat&) = default;

    // CalType 0: ε = Q / Mw. Otherwise ε = 1000·(B.H − A.H) / (A.D − B.D).
    bool Calculate() override;
    bool SaveXml(QoDtDictionary* dict) override;
    bool ReadXml(QoDtDictionary* dict) override;

    int GetCalType() const { return CalType; }
    void SetCalType(int type) { CalType = type; }
    double GetQ() const { return Q; }
    void SetQ(double q) { Q = q; }
    double GetMw() const { return Mw; }
    void SetMw(double mw) { Mw = mw; }
    CString GetValue() const { return Value; }
    void SetValue(const CString& value) { Value = value; }

    ZefraHDGPoint GetHDGPointA() const { return HDGPointA; }
    ZefraHDGPoint GetHDGPointB() const { return HDGPointB; }
    // The point is renamed "A" or "B" whatever name it came with.
    void SetHDGPointA(const ZefraHDGPoint& point);
    void SetHDGPointB(const ZefraHDGPoint& point);

private:
    int CalType = 0;
    double Q = 10000.0;
    double Mw = 10.0;  // in the unit that makes Q / Mw a ratio in kJ/kg
    ZefraHDGPoint HDGPointA;
    ZefraHDGPoint HDGPointB;
    CString Value = L"1000";
};
