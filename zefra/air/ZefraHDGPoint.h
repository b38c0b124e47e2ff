#pragma once
#include "zefra/ZefraExport.h"
// One state of moist air on the enthalpy-humidity chart: eleven properties,
// the point's name and the pair of properties that defines it. A plain value
// class; every calculation reads the current pressure GetHDGCurB().

#include "zefra/air/HDGCurB.h"
#include "zefra/platform/mfc/CString.h"

class CArchive;
class QoDtDictionary;

// Kinds of calculation item. The values are stored in records and the first
// eleven fields of ZefraHDGPoint stand in this order.
enum EHvacHDGPointCalItemType : int {
    HDGPT_TDB = 0,
    HDGPT_RH = 1,
    HDGPT_H = 2,
    HDGPT_D = 3,
    HDGPT_TWB = 4,
    HDGPT_TDP = 5,
    HDGPT_PV = 6,
    HDGPT_DEN = 7,
    HDGPT_SV = 8,
    HDGPT_DS = 9,
    HDGPT_PS = 10,
};

class ZEFRA_API ZefraHDGPoint {
public:
    ZefraHDGPoint() = default;
    ZefraHDGPoint(double Tdb, double RH, const CString& Name);

    double GetTdb() const { return Tdb; }
    double GetRH() const { return RH; }
    double GetH() const { return H; }
    double GetD() const { return D; }
    double GetTwb() const { return Twb; }
    double GetTdp() const { return Tdp; }
    double GetPv() const { return Pv; }
    double GetDen() const { return Den; }
    double GetSV() const { return SV; }
    double GetDs() const { return Ds; }
    double GetPs() const { return Ps; }
    void SetTdb(double value) { Tdb = value; }
    void SetRH(double value) { RH = value; }
    void SetH(double value) { H = value; }
    void SetD(double value) { D = value; }
    void SetTwb(double value) { Twb = value; }
    void SetTdp(double value) { Tdp = value; }
    void SetPv(double value) { Pv = value; }
    void SetDen(double value) { Den = value; }
    void SetSV(double value) { SV = value; }
    void SetDs(double value) { Ds = value; }
    void SetPs(double value) { Ps = value; }

    CString GetName() const { return Name; }
    void SetName(const CString& name) { Name = name; }
    CString GetErrorInfo() const { return ErrorInfo; }
    void SetErrorInfo(const CString& info) { ErrorInfo = info; }

    EHvacHDGPointCalItemType GetCalPara1Type() const { return CalPara1Type; }
    EHvacHDGPointCalItemType GetCalPara2Type() const { return CalPara2Type; }
    void SetCalPara1Type(EHvacHDGPointCalItemType kind) { CalPara1Type = kind; }
    void SetCalPara2Type(EHvacHDGPointCalItemType kind) { CalPara2Type = kind; }

    // The field of that kind; a kind outside 0..10 gives -1000000.0.
    double GetCalParaValue(EHvacHDGPointCalItemType kind) const;
    double GetCalPara1Value() const { return GetCalParaValue(CalPara1Type); }
    double GetCalPara2Value() const { return GetCalParaValue(CalPara2Type); }

    // Computes the point from the two fields that the pair of kinds names.
    // False, with nothing changed, for a pair that has no calculation.
    bool Calculate();

    bool CalByTdbAndRH(double Tdb, double RH);
    bool CalByTdbAndH(double Tdb, double H);
    bool CalByTdbAndD(double Tdb, double D);
    bool CalByTdbAndTwb(double Tdb, double Twb);
    bool CalByTdbAndTdp(double Tdb, double Tdp);
    bool CalByTdbAndPv(double Tdb, double Pv);
    bool CalByTdbAndDen(double Tdb, double Den);
    bool CalByRHAndH(double RH, double H);
    bool CalByRHAndD(double RH, double D);
    bool CalByRHAndTwb(double RH, double Twb);
    bool CalByRHAndTdp(double RH, double Tdp);
    bool CalByRHAndPv(double RH, double Pv);
    bool CalByHAndD(double H, double D);
    bool CalByHAndTdp(double H, double Tdp);
    bool CalByHAndPv(double H, double Pv);
    bool CalByDAndTwb(double D, double Twb);
    bool CalByTwbAndTdp(double Twb, double Tdp);
    bool CalByTwbAndPv(double Twb, double Pv);

    // The point's record below "状态点\<name>" of the dictionary given
    // (HDGRecords.cpp). Reading finds the record by the current name and
    // calculates nothing.
    bool SaveXml(QoDtDictionary* dict) const;
    bool ReadXml(QoDtDictionary* dict);

private:
    // Den, SV, Twb, Tdp and Ds from Tdb, RH, H, D and Ps.
    void CalCommonTail(double B);
    void SetPair(EHvacHDGPointCalItemType first, EHvacHDGPointCalItemType second) {
        CalPara1Type = first;
        CalPara2Type = second;
    }

    friend void SerializeElements(CArchive& ar, ZefraHDGPoint* points, int count);

    double Tdb = 0.0;
    double RH = 0.0;
    double H = 0.0;
    double D = 0.0;
    double Twb = 0.0;
    double Tdp = 0.0;
    double Pv = 0.0;
    double Den = 0.0;
    double SV = 0.0;
    double Ds = 0.0;
    double Ps = 0.0;
    CString Name;
    CString ErrorInfo;
    EHvacHDGPointCalItemType CalPara1Type = HDGPT_TDB;
    EHvacHDGPointCalItemType CalPara2Type = HDGPT_RH;
};

// The kind of the property named in a text; 0 when it names none.
ZEFRA_API EHvacHDGPointCalItemType GetHDGPtCalItemType(const CString& text);

// Archive form of points: the eleven numbers, the name and the pair.
ZEFRA_API void SerializeElements(CArchive& ar, ZefraHDGPoint* points, int count);
