#pragma once
#include "zefra/ZefraExport.h"
// Moisture load units: converts stored values (the standard unit) into the
// unit that texts show (the current unit). Base of the chart settings.

#include "zefra/platform/mfc/CString.h"

class CStringArray;

enum EMw_Unit : int {
    MW_UNIT_UNKNOWN = -1,
    MW_UNIT_G_S = 0,  // g/s
    MW_UNIT_G_H = 1,  // g/h
    MW_UNIT_KG_S = 2,  // kg/s
    MW_UNIT_KG_H = 3,  // kg/h
};

class ZEFRA_API CMwUnitConvert {
public:
    CMwUnitConvert() = default;
    virtual ~CMwUnitConvert() = default;

    EMw_Unit GetMwStdUnitCode() const { return m_eStdUnit; }
    EMw_Unit GetMwCurUnitCode() const { return m_eCurUnit; }
    // An unknown code leaves the unit as it was.
    void SetMwStdUnit(EMw_Unit unit);
    void SetMwCurUnit(EMw_Unit unit);
    // Display names of the standard and the current unit.
    CString GetMwStdUnit() const;
    CString GetMwCurUnit() const;

    // The code of a unit from its display name; MW_UNIT_UNKNOWN when none.
    EMw_Unit GetMwUnitCode(const CString& name) const;
    // Appends every name a unit is known by, unit after unit: the display
    // name first, then the other names it answers to.
    void GetMwUnitNames(CStringArray& names) const;

    double MwConvert(double value, EMw_Unit from, EMw_Unit to) const;
    double MwConvertStdToCur(double value) const { return MwConvert(value, m_eStdUnit, m_eCurUnit); }

private:
    EMw_Unit m_eStdUnit = MW_UNIT_KG_S;
    EMw_Unit m_eCurUnit = MW_UNIT_G_S;
};
