#pragma once
#include "zefra/ZefraExport.h"
// Heat load units: converts stored values (the standard unit) into the
// unit that texts show (the current unit). Base of the chart settings.

#include "zefra/platform/mfc/CString.h"

class CStringArray;

enum EQ_Unit : int {
    Q_UNIT_UNKNOWN = -1,
    Q_UNIT_W = 0,  // W
    Q_UNIT_KW = 1,  // kW
    Q_UNIT_KCAL_H = 2,  // kcal/h
    Q_UNIT_BTU_H = 3,  // Btu/h
    Q_UNIT_RT = 4,  // RT
};

class ZEFRA_API CQUnitConvert {
public:
    CQUnitConvert() = default;
    virtual ~CQUnitConvert() = default;

    EQ_Unit GetQStdUnitCode() const { return m_eStdUnit; }
    EQ_Unit GetQCurUnitCode() const { return m_eCurUnit; }
    // An unknown code leaves the unit as it was.
    void SetQStdUnit(EQ_Unit unit);
    void SetQCurUnit(EQ_Unit unit);
    // Display names of the standard and the current unit.
    CString GetQStdUnit() const;
    CString GetQCurUnit() const;

    // The code of a unit from its display name; Q_UNIT_UNKNOWN when none.
    EQ_Unit GetQUnitCode(const CString& name) const;
    // Appends every name a unit is known by, unit after unit: the display
    // name first, then the other names it answers to.
    void GetQUnitNames(CStringArray& names) const;

    double QConvert(double value, EQ_Unit from, EQ_Unit to) const;
    double QConvertStdToCur(double value) const { return QConvert(value, m_eStdUnit, m_eCurUnit); }

private:
    EQ_Unit m_eStdUnit = Q_UNIT_KW;
    EQ_Unit m_eCurUnit = Q_UNIT_W;
};
