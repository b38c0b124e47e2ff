#pragma once
#include "zefra/ZefraExport.h"
// A heat load along a line between two states: Q from the air flow G, or G
// from Q, by the enthalpy difference from A to B.

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/air/ZefraHDGProcess.h"

class ZEFRA_API ZefraHDGLine : public ZefraHDGProcess {
    DECLARE_DYNAMIC(ZefraHDGLine)
public:
    ZefraHDGLine();
    ~ZefraHDGLine() override = default;
    ZefraHDGLine(const ZefraHDGLine&) = default;
    ZefraHDGLine& operator=(const ZefraHDGLine&) = default;

    // CalType 0: Q := G·(B.H − A.H). Otherwise G := Q / (B.H − A.H), or 0
    // when the enthalpies are equal.
    bool Calculate() override;
    bool SaveXml(QoDtDictionary* dict) override;
    bool ReadXml(QoDtDictionary* dict) override;

    int GetCalType() const { return CalType; }
    void SetCalType(int type) { CalType = type; }
    double GetG() const { return G; }
    void SetG(double g) { G = g; }
    double GetQ() const { return Q; }
    void SetQ(double q) { Q = q; }

    ZefraHDGPoint GetHDGPointA() const { return HDGPointA; }
    ZefraHDGPoint GetHDGPointB() const { return HDGPointB; }
    // The point is renamed "A" or "B" whatever name it came with.
    void SetHDGPointA(const ZefraHDGPoint& point);
    void SetHDGPointB(const ZefraHDGPoint& point);

private:
    int CalType = 0;
    double G = 1.35;  // kg/s
    double Q = 1.0;   // kW
    ZefraHDGPoint HDGPointA;
    ZefraHDGPoint HDGPointB;
};
