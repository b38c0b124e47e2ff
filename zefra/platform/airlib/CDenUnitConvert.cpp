#include "zefra/platform/airlib/CDenUnitConvert.h"

#include "zefra/platform/airlib/UnitTable.h"
#include "zefra/platform/mfc/CArray.h"

namespace {

// Sizes in kg/m^3.
constexpr UnitEntry kUnits[] = {
    {L"kg/m^3", {L"kg/m3", L"kg/m³"}, 1.0},  // kilogram per cubic metre
    {L"g/L", {}, 1.0},  // gram per litre
    {L"lb/ft^3", {L"lb/ft3", L"lb/ft³"}, 16.018463373960138},  // pound per cubic foot
};

constexpr UnitTable kTable(kUnits);

}  // namespace

void CDenUnitConvert::SetDenStdUnit(EDen_Unit unit) {
    if (kTable.IsCode(unit)) m_eStdUnit = unit;
}

void CDenUnitConvert::SetDenCurUnit(EDen_Unit unit) {
    if (kTable.IsCode(unit)) m_eCurUnit = unit;
}

CString CDenUnitConvert::GetDenStdUnit() const { return kTable.GetName(m_eStdUnit); }

CString CDenUnitConvert::GetDenCurUnit() const { return kTable.GetName(m_eCurUnit); }

EDen_Unit CDenUnitConvert::GetDenUnitCode(const CString& name) const {
    return static_cast<EDen_Unit>(kTable.FindCode(name));
}

void CDenUnitConvert::GetDenUnitNames(CStringArray& names) const { kTable.AppendNames(names); }

double CDenUnitConvert::DenConvert(double value, EDen_Unit from, EDen_Unit to) const {
    return kTable.Convert(value, from, to);
}
