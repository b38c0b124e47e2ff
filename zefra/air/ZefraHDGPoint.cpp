#include "zefra/air/ZefraHDGPoint.h"

#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/mfc/CArchive.h"

ZefraHDGPoint::ZefraHDGPoint(double Tdb, double RH, const CString& Name) : Name(Name) { CalByTdbAndRH(Tdb, RH); }

double ZefraHDGPoint::GetCalParaValue(EHvacHDGPointCalItemType kind) const {
    switch (kind) {
        case HDGPT_TDB: return Tdb;
        case HDGPT_RH: return RH;
        case HDGPT_H: return H;
        case HDGPT_D: return D;
        case HDGPT_TWB: return Twb;
        case HDGPT_TDP: return Tdp;
        case HDGPT_PV: return Pv;
        case HDGPT_DEN: return Den;
        case HDGPT_SV: return SV;
        case HDGPT_DS: return Ds;
        case HDGPT_PS: return Ps;
    }
    return -1000000.0;
}

namespace {

// Whether the unordered pair {a, b} is {x, y}.
bool IsPair(int a, int b, int x, int y) { return (a == x && b == y) || (a == y && b == x); }

}  // namespace

bool ZefraHDGPoint::Calculate() {
    const int a = CalPara1Type;
    const int b = CalPara2Type;
    if (IsPair(a, b, 0, 1)) return CalByTdbAndRH(Tdb, RH);
    if (IsPair(a, b, 0, 2)) return CalByTdbAndH(Tdb, H);
    if (IsPair(a, b, 0, 3)) return CalByTdbAndD(Tdb, D);
    if (IsPair(a, b, 0, 4)) return CalByTdbAndTwb(Tdb, Twb);
    if (IsPair(a, b, 0, 5)) return CalByTdbAndTdp(Tdb, Tdp);
    if (IsPair(a, b, 0, 6)) return CalByTdbAndPv(Tdb, Pv);
    if (IsPair(a, b, 1, 2)) return CalByRHAndH(RH, H);
    if (IsPair(a, b, 1, 3)) return CalByRHAndD(RH, D);
    if (IsPair(a, b, 1, 4)) return CalByRHAndTwb(RH, Twb);
    if (IsPair(a, b, 1, 5)) return CalByRHAndTdp(RH, Tdp);
    if (IsPair(a, b, 1, 6)) return CalByRHAndPv(RH, Pv);
    if (IsPair(a, b, 2, 3)) return CalByHAndD(H, D);
    if (IsPair(a, b, 2, 5)) return CalByHAndTdp(H, Tdp);
    if (IsPair(a, b, 2, 6)) return CalByHAndPv(H, Pv);
    if (IsPair(a, b, 3, 4)) return CalByDAndTwb(D, Twb);
    if (IsPair(a, b, 4, 5)) return CalByTwbAndTdp(Twb, Tdp);
    if (IsPair(a, b, 4, 6)) return CalByTwbAndPv(Twb, Pv);
    return false;
}

void ZefraHDGPoint::CalCommonTail(double B) {
    Den = AIR::GetDen(Tdb, RH, B);
    SV = AIR::GetSVByDAndDen(D, Den);
    Twb = AIR::GetTwb(H, RH, B);
    Tdp = AIR::GetTdp(D, B);
    Ds = AIR::GetDByPv(Ps, B);
}

// The three base calculations.

bool ZefraHDGPoint::CalByTdbAndRH(double tdb, double rh) {
    const double B = GetHDGCurB();
    Tdb = tdb;
    RH = rh;
    Ps = AIR::GetPs(Tdb);
    Pv = RH * Ps;
    D = AIR::GetDByPv(Pv, B);
    H = AIR::GetH(Tdb, D);
    CalCommonTail(B);
    SetPair(HDGPT_TDB, HDGPT_RH);
    return true;
}

bool ZefraHDGPoint::CalByTdbAndPv(double tdb, double pv) {
    const double B = GetHDGCurB();
    Tdb = tdb;
    Pv = pv;
    Ps = AIR::GetPs(Tdb);
    RH = AIR::GetRHByPvAndPs(Pv, Ps);
    D = AIR::GetDByPv(Pv, B);
    H = AIR::GetH(Tdb, D);
    CalCommonTail(B);
    SetPair(HDGPT_TDB, HDGPT_PV);
    return true;
}

// Records (Tdb, D) as its pair: the state it leaves is that of Tdb and D.
bool ZefraHDGPoint::CalByHAndD(double h, double d) {
    const double B = GetHDGCurB();
    H = h;
    D = d;
    Tdb = AIR::GetTdb(H, D);
    Ps = AIR::GetPs(Tdb);
    Pv = AIR::GetPv(D, B);
    RH = AIR::GetRHByPvAndPs(Pv, Ps);
    CalCommonTail(B);
    SetPair(HDGPT_TDB, HDGPT_D);
    return true;
}

// The wrappers: each stores its inputs, derives what a base calculation
// needs, and records its own pair over the one the base wrote.

bool ZefraHDGPoint::CalByTdbAndD(double tdb, double d) {
    Tdb = tdb;
    D = d;
    H = AIR::GetH(Tdb, D);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_TDB, HDGPT_D);
    return ok;
}

bool ZefraHDGPoint::CalByTdbAndH(double tdb, double h) {
    Tdb = tdb;
    H = h;
    D = AIR::GetD(Tdb, H);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_TDB, HDGPT_H);
    return ok;
}

bool ZefraHDGPoint::CalByTdbAndTwb(double tdb, double twb) {
    Tdb = tdb;
    Twb = twb;
    H = AIR::GetHByTwb(Twb, GetHDGCurB());
    D = AIR::GetD(Tdb, H);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_TDB, HDGPT_TWB);
    return ok;
}

bool ZefraHDGPoint::CalByTdbAndTdp(double tdb, double tdp) {
    Tdb = tdb;
    Tdp = tdp;
    D = AIR::GetDByTdp(Tdp, GetHDGCurB());
    H = AIR::GetH(Tdb, D);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_TDB, HDGPT_TDP);
    return ok;
}

bool ZefraHDGPoint::CalByTdbAndDen(double tdb, double den) {
    Tdb = tdb;
    Den = den;
    Pv = AIR::GetPvByTdbAndDen(Tdb, Den, GetHDGCurB());
    const bool ok = CalByTdbAndPv(Tdb, Pv);
    SetPair(HDGPT_TDB, HDGPT_DEN);
    return ok;
}

bool ZefraHDGPoint::CalByRHAndD(double rh, double d) {
    RH = rh;
    D = d;
    Tdb = AIR::GetTdbByDAndRH(D, RH, GetHDGCurB());
    H = AIR::GetH(Tdb, D);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_RH, HDGPT_D);
    return ok;
}

bool ZefraHDGPoint::CalByRHAndH(double rh, double h) {
    RH = rh;
    H = h;
    Tdb = AIR::GetTdbByHAndRH(H, RH, GetHDGCurB());
    D = AIR::GetD(Tdb, H);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_RH, HDGPT_H);
    return ok;
}

bool ZefraHDGPoint::CalByRHAndPv(double rh, double pv) {
    RH = rh;
    Pv = pv;
    D = AIR::GetDByPv(Pv, GetHDGCurB());
    const bool ok = CalByRHAndD(RH, D);
    SetPair(HDGPT_RH, HDGPT_PV);
    return ok;
}

bool ZefraHDGPoint::CalByRHAndTdp(double rh, double tdp) {
    RH = rh;
    Tdp = tdp;
    D = AIR::GetDByTdp(Tdp, GetHDGCurB());
    const bool ok = CalByRHAndD(RH, D);
    SetPair(HDGPT_RH, HDGPT_TDP);
    return ok;
}

bool ZefraHDGPoint::CalByRHAndTwb(double rh, double twb) {
    RH = rh;
    Twb = twb;
    H = AIR::GetHByTwb(Twb, GetHDGCurB());
    const bool ok = CalByRHAndH(RH, H);
    SetPair(HDGPT_RH, HDGPT_TWB);
    return ok;
}

bool ZefraHDGPoint::CalByHAndPv(double h, double pv) {
    H = h;
    Pv = pv;
    D = AIR::GetDByPv(Pv, GetHDGCurB());
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_H, HDGPT_PV);
    return ok;
}

bool ZefraHDGPoint::CalByHAndTdp(double h, double tdp) {
    H = h;
    Tdp = tdp;
    D = AIR::GetDByTdp(Tdp, GetHDGCurB());
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_H, HDGPT_TDP);
    return ok;
}

bool ZefraHDGPoint::CalByDAndTwb(double d, double twb) {
    D = d;
    Twb = twb;
    H = AIR::GetHByTwb(Twb, GetHDGCurB());
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_D, HDGPT_TWB);
    return ok;
}

bool ZefraHDGPoint::CalByTwbAndPv(double twb, double pv) {
    Twb = twb;
    Pv = pv;
    const double B = GetHDGCurB();
    H = AIR::GetHByTwb(Twb, B);
    D = AIR::GetDByPv(Pv, B);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_TWB, HDGPT_PV);
    return ok;
}

bool ZefraHDGPoint::CalByTwbAndTdp(double twb, double tdp) {
    Twb = twb;
    Tdp = tdp;
    const double B = GetHDGCurB();
    H = AIR::GetHByTwb(Twb, B);
    D = AIR::GetDByTdp(Tdp, B);
    const bool ok = CalByHAndD(H, D);
    SetPair(HDGPT_TWB, HDGPT_TDP);
    return ok;
}

EHvacHDGPointCalItemType GetHDGPtCalItemType(const CString& text) {
    // The saturated names contain the plain ones, so they are tried first.
    static const struct {
        const wchar_t* name;
        EHvacHDGPointCalItemType kind;
    } kNames[] = {
        {L"干球温度", HDGPT_TDB},       {L"相对湿度", HDGPT_RH}, {L"焓", HDGPT_H},
        {L"饱和含湿量", HDGPT_DS},      {L"饱和水蒸气分压力", HDGPT_PS}, {L"含湿量", HDGPT_D},
        {L"湿球温度", HDGPT_TWB},       {L"露点温度", HDGPT_TDP}, {L"水蒸气分压力", HDGPT_PV},
        {L"密度", HDGPT_DEN},           {L"比容", HDGPT_SV},
    };
    for (const auto& entry : kNames)
        if (text.Find(entry.name) >= 0) return entry.kind;
    return HDGPT_TDB;
}

void SerializeElements(CArchive& ar, ZefraHDGPoint* points, int count) {
    for (int i = 0; i < count; ++i) {
        ZefraHDGPoint& p = points[i];
        double* fields[] = {&p.Tdb, &p.RH, &p.H, &p.D, &p.Twb, &p.Tdp, &p.Pv, &p.Den, &p.SV, &p.Ds, &p.Ps};
        if (ar.IsStoring()) {
            for (double* field : fields) ar << *field;
            ar << p.Name << static_cast<int>(p.CalPara1Type) << static_cast<int>(p.CalPara2Type);
        } else {
            for (double* field : fields) ar >> *field;
            int first = 0;
            int second = 0;
            ar >> p.Name >> first >> second;
            p.CalPara1Type = static_cast<EHvacHDGPointCalItemType>(first);
            p.CalPara2Type = static_cast<EHvacHDGPointCalItemType>(second);
        }
    }
}
