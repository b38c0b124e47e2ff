#pragma once
#include "zefra/ZefraExport.h"
// Density units: converts stored values (the standard unit) into the
// unit that texts show (the current unit). Base of the chart settings.

#include "zefra/platform/mfc/CString.h"

class CStringArray;

enum EDen_Unit : int {
    DEN_UNIT_UNKNOWN = -1,
    DEN_UNIT_KG_M3 = 0,  // kg/m^3
    DEN_UNIT_G_L = 1,  // g/L
    DEN_UNIT_LB_FT3 = 2,  // lb/ft^3
};

class ZEFRA_API CDenUnitConvert {
public:
    CDenUnitConvert() = default;
    virtual ~CDenUnitConvert() = default;

    EDen_Unit GetDenStdUnitCode() const { return m_eStdUnit; }
    EDen_Unit GetDenCurUnitCode() const { return m_eCurUnit; }
    // An unknown code leaves the unit as it was.
    void SetDenStdUnit(EDen_Unit unit);
    void SetDenCurUnit(EDen_Unit unit);
    // Display names of the standard and the current unit.
    CString GetDenStdUnit() const;
    CString GetDenCurUnit() const;

    // The code of a unit from its display name; DEN_UNIT_UNKNOWN when none.
    EDen_Unit GetDenUnitCode(const CString& name) const;
    // Appends every name a unit is known by, unit after unit: the display
    // name first, then the other names it answers to.
    void GetDenUnitNames(CStringArray& names) const;

    double DenConvert(double value, EDen_Unit from, EDen_Unit to) const;
    double DenConvertStdToCur(double value) const { return DenConvert(value, m_eStdUnit, m_eCurUnit); }

private:
    EDen_Unit m_eStdUnit = DEN_UNIT_KG_M3;
    EDen_Unit m_eCurUnit = DEN_UNIT_KG_M3;
};
