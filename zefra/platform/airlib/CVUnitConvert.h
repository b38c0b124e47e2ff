#pragma once
#include "zefra/ZefraExport.h"
// Air-flow units: converts stored flows (the standard unit, kg/s as the
// engine hands them) into the unit that texts show (the current unit).
// Volume and mass units meet at the density of standard air, 1.2 kg/m³;
// GetCorFactor corrects a converted mass flow to other air conditions.

#include "zefra/platform/mfc/CString.h"

class CStringArray;

enum EV_Unit : int {
    V_UNIT_UNKNOWN = -1,
    V_UNIT_M3_H = 0,  // m^3/h
    V_UNIT_M3_S = 1,  // m^3/s
    V_UNIT_KG_H = 2,  // kg/h
    V_UNIT_KG_S = 3,  // kg/s
    V_UNIT_L_H = 4,   // l/h
    V_UNIT_L_S = 5,   // l/s
};

class ZEFRA_API CVUnitConvert {
public:
    // The density, in kg/m³, at which volume and mass units convert.
    static constexpr double kStandardAirDensity = 1.2;

    CVUnitConvert() = default;
    virtual ~CVUnitConvert() = default;

    EV_Unit GetVStdUnitCode() const { return m_eStdUnit; }
    EV_Unit GetVCurUnitCode() const { return m_eCurUnit; }
    // An unknown code leaves the unit as it was.
    void SetVStdUnit(EV_Unit unit);
    void SetVCurUnit(EV_Unit unit);
    // Display names of the standard and the current unit.
    CString GetVStdUnit() const;
    CString GetVCurUnit() const;

    // The code of a unit from its display name; V_UNIT_UNKNOWN when none.
    EV_Unit GetVUnitCode(const CString& name) const;
    // Appends every name a unit is known by, unit after unit: the display
    // name first, then the other names it answers to.
    void GetVUnitNames(CStringArray& names) const;

    double VConvert(double value, EV_Unit from, EV_Unit to) const;
    double VConvertStdToCur(double value) const { return VConvert(value, m_eStdUnit, m_eCurUnit); }

    // Density of air at (Tdb, RH as a fraction, B in Pa) over the standard
    // density: a mass flow converted from a volume flow at standard density,
    // times this factor, is the mass flow of that volume at those conditions.
    double GetCorFactor(double Tdb, double RH, double B) const;

private:
    EV_Unit m_eStdUnit = V_UNIT_KG_S;
    EV_Unit m_eCurUnit = V_UNIT_M3_H;
};
