#pragma once
#include "zefra/ZefraExport.h"
// Air handling with two return-air streams. Outdoor air W (preheated to W' in
// winter) mixes with the first return air into C, the unit treats C to L,
// the second return air joins L in M, and the air reaches the room as supply
// state O. Type 0 is the summer treatment, 1 to 4 the winter ones
// (EHDGSecRetAirType). Units: °C, RH as a fraction, kJ/kg, g/kg, air flows
// in kg/s, heat loads in kW, moisture loads in kg/s, ε in kJ/kg.

#include "zefra/air/SHDGSecondaryReturnAirInfo.h"
#include "zefra/air/EHDGCalculationMode.h"
#include "zefra/air/EHDGSearchMode.h"
#include "zefra/air/HDGWarnings.h"
#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/air/ZefraHDGProcess.h"
#include "zefra/platform/mfc/CNTArray.h"

class ZEFRA_API ZefraHDGSecondaryReturnAir : public ZefraHDGProcess {
    DECLARE_DYNAMIC(ZefraHDGSecondaryReturnAir)
public:
    ZefraHDGSecondaryReturnAir();
    ZefraHDGSecondaryReturnAir(const ZefraHDGSecondaryReturnAir&) = default;
    ZefraHDGSecondaryReturnAir& operator=(const ZefraHDGSecondaryReturnAir&) = default;
    ~ZefraHDGSecondaryReturnAir() override = default;

    // Empties the result texts, names the nine points, then runs the
    // treatment of the type. False for a type outside 0 to 4.
    bool Calculate() override;
    bool Cal_Xj_Process();
    bool Cal_Dj_Process();

    void SetGivenData(const SHDGSecondaryReturnAirInfo& given) { GivenData = given; }
    SHDGSecondaryReturnAirInfo GetGivenData() const { return GivenData; }

    ZefraHDGPoint GetPointN() const { return GivenData.PointN; }
    ZefraHDGPoint GetPointW() const { return GivenData.PointW; }
    ZefraHDGPoint GetPointN1() const { return PointN1; }
    ZefraHDGPoint GetPointW1() const { return PointW1; }
    ZefraHDGPoint GetPointC() const { return PointC; }
    ZefraHDGPoint GetPointM() const { return PointM; }
    ZefraHDGPoint GetPointL() const { return PointL; }
    ZefraHDGPoint GetPointK() const { return PointK; }
    ZefraHDGPoint GetPointO() const { return PointO; }
    void SetPointN(const ZefraHDGPoint& point) { GivenData.PointN = point; }
    void SetPointW(const ZefraHDGPoint& point) { GivenData.PointW = point; }
    void SetPointN1(const ZefraHDGPoint& point) { PointN1 = point; }
    void SetPointW1(const ZefraHDGPoint& point) { PointW1 = point; }
    void SetPointC(const ZefraHDGPoint& point) { PointC = point; }
    void SetPointM(const ZefraHDGPoint& point) { PointM = point; }
    void SetPointL(const ZefraHDGPoint& point) { PointL = point; }
    void SetPointK(const ZefraHDGPoint& point) { PointK = point; }
    void SetPointO(const ZefraHDGPoint& point) { PointO = point; }

    double GetQn() const { return GivenData.Qn; }
    void SetQn(double value) { GivenData.Qn = value; }
    double GetMw() const { return GivenData.Mw; }
    void SetMw(double value) { GivenData.Mw = value; }
    double GetSfGdWs() const { return GivenData.SfGdWs; }
    void SetSfGdWs(double value) { GivenData.SfGdWs = value; }
    double GetHfGdWs() const { return GivenData.HfGdWs; }
    void SetHfGdWs(double value) { GivenData.HfGdWs = value; }
    double GetptL_RH() const { return GivenData.ptL_RH; }
    void SetptL_RH(double value) { GivenData.ptL_RH = value; }
    int GetFreshAirType() const { return GivenData.FreshAirType; }
    void SetFreshAirType(int value) { GivenData.FreshAirType = value; }
    double GetFreshAirRatio() const { return GivenData.FreshAirRatio; }
    void SetFreshAirRatio(double value) { GivenData.FreshAirRatio = value; }
    double GetGw() const { return GivenData.Gw; }
    void SetGw(double value) { GivenData.Gw = value; }
    double GetGo() const { return GivenData.Go; }
    void SetGo(double value) { GivenData.Go = value; }
    double GetSfWc() const { return GivenData.SfWc; }
    void SetSfWc(double value) { GivenData.SfWc = value; }

    // Both forms carry this one name: the first reads the type, the second stores it.
    EHDGSecRetAirType GetCalPriRetAirType() const { return GivenData.CalPriRetAirType; }
    void GetCalPriRetAirType(EHDGSecRetAirType type) { GivenData.CalPriRetAirType = type; }

    double GetGn() const { return Gn; }
    double GetGr1() const { return GivenData.Gr1; }
    double GetGr2() const { return Gr2; }
    // The flow through the first mixing point and the unit: Gr1 + Gw.
    double GetGo1() const { return GivenData.Gr1 + GivenData.Gw; }
    double GetQw() const { return Qw; }
    double GetQr() const { return Qr; }
    double GetQo() const { return Qo; }
    double GetQk() const { return Qk; }
    double GetQw1() const { return Qw1; }
    double GetQl() const { return Ql; }
    double GetQp() const { return Qp; }
    double GetMww() const { return Mww; }
    double GetMwp() const { return Mwp; }

    // Qn / Mw, negated for the winter types.
    double GetHeatHumidityRatio() const;

    static EHvacHDGPointCalItemType GetCalItemType(const CString& text);
    static CString GetCalItemTypeStr(EHvacHDGPointCalItemType kind);

    // The points that belong on the chart, as copies.
    CNTArray<ZefraHDGPoint, ZefraHDGPoint&> GetAllPoint() const;

    // The report texts (HDGSchemeReports.cpp): points, air flows, heat loads
    // and moisture loads, in the units and precisions of the chart settings.
    CString GetAllPointText() const;
    CString GetAllText_G() const;
    CString GetAllText_Q() const;
    CString GetMwText_Mw() const;

    // Which form of the summer search Calculate runs; Quick unless set.
    void SetSearchMode(EHDGSearchMode mode) { SearchMode = mode; }
    EHDGSearchMode GetSearchMode() const { return SearchMode; }

    // The system's treatments (Literal, the default) or the engineering ones
    // that differ where the literal steps give a wrong answer (docs/processes.md).
    void SetCalculationMode(EHDGCalculationMode mode) { CalculationMode = mode; }
    EHDGCalculationMode GetCalculationMode() const { return CalculationMode; }

    // The warnings of the last Calculate: those its report texts carry (a
    // balance that doesn't close, a failed search), then the steps that
    // engineering mode took differently from the given data.
    HDGWarningList GetWarnings() const;

    // The record of the given data (HDGRecords.cpp).
    bool SaveXml(QoDtDictionary* dict) override;
    bool ReadXml(QoDtDictionary* dict) override;

private:
    bool IsWinter() const { return GivenData.CalPriRetAirType >= HDGSEC_DJ_ISENTH_HEAT; }
    void NamePoints();
    // Winter: L and M for the types that heat first or humidify at constant
    // temperature, in place of those of type 1.
    void ReplaceDewAndMixPoints(double secondShare);
    // Summer, engineering mode: the walk's L moved along the curve RH =
    // ptL_RH to where the line from N' through M crosses it.
    bool RefineDewPoint(double& h, double& d) const;
    // The last step of each treatment: the point, air-flow, heat-load and
    // moisture texts join ResultInfo, after any failure text.
    void AppendReportTexts();

    EHDGSearchMode SearchMode = EHDGSearchMode::Quick;
    EHDGCalculationMode CalculationMode = EHDGCalculationMode::Literal;
    HDGWarningList EngineeringNotes;
    double Gn = 0.0;
    double Gr2 = 0.0;
    double Qw = 0.0;
    double Qr = 0.0;
    double Qo = 0.0;
    double Qk = 0.0;
    double Qw1 = 0.0;
    double Ql = 0.0;
    double Qp = 0.0;
    double Mww = 0.0;
    double Mwp = 0.0;
    SHDGSecondaryReturnAirInfo GivenData;
    ZefraHDGPoint PointN1;
    ZefraHDGPoint PointW1;
    ZefraHDGPoint PointC;
    ZefraHDGPoint PointM;
    ZefraHDGPoint PointL;
    ZefraHDGPoint PointK;
    ZefraHDGPoint PointO;
};
