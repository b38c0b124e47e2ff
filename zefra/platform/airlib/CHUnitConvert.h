#pragma once
#include "zefra/ZefraExport.h"
// Enthalpy units: converts stored values (the standard unit) into the
// unit that texts show (the current unit). Base of the chart settings.

#include "zefra/platform/mfc/CString.h"

class CStringArray;

enum EH_Unit : int {
    H_UNIT_UNKNOWN = -1,
    H_UNIT_KJ_KG = 0,  // kJ/kg
    H_UNIT_KCAL_KG = 1,  // kcal/kg
};

class ZEFRA_API CHUnitConvert {
public:
    CHUnitConvert() = default;
    virtual ~CHUnitConvert() = default;

    EH_Unit GetHStdUnitCode() const { return m_eStdUnit; }
    EH_Unit GetHCurUnitCode() const { return m_eCurUnit; }
    // An unknown code leaves the unit as it was.
    void SetHStdUnit(EH_Unit unit);
    void SetHCurUnit(EH_Unit unit);
    // Display names of the standard and the current unit.
    CString GetHStdUnit() const;
    CString GetHCurUnit() const;

    // The code of a unit from its display name; H_UNIT_UNKNOWN when none.
    EH_Unit GetHUnitCode(const CString& name) const;
    // Appends every name a unit is known by, unit after unit: the display
    // name first, then the other names it answers to.
    void GetHUnitNames(CStringArray& names) const;

    double HConvert(double value, EH_Unit from, EH_Unit to) const;
    double HConvertStdToCur(double value) const { return HConvert(value, m_eStdUnit, m_eCurUnit); }

private:
    EH_Unit m_eStdUnit = H_UNIT_KJ_KG;
    EH_Unit m_eCurUnit = H_UNIT_KJ_KG;
};
