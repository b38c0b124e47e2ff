#include "zefra/platform/airlib/CMwUnitConvert.h"

#include "zefra/platform/airlib/UnitTable.h"
#include "zefra/platform/mfc/CArray.h"

namespace {

// Sizes in kg/s.
constexpr UnitEntry kUnits[] = {
    {L"g/s", {}, 0.001},  // gram per second
    {L"g/h", {}, 0.001 / 3600.0},  // gram per hour
    {L"kg/s", {}, 1.0},  // kilogram per second
    {L"kg/h", {}, 1.0 / 3600.0},  // kilogram per hour
};

constexpr UnitTable kTable(kUnits);

}  // namespace

void CMwUnitConvert::SetMwStdUnit(EMw_Unit unit) {
    if (kTable.IsCode(unit)) m_eStdUnit = unit;
}

void CMwUnitConvert::SetMwCurUnit(EMw_Unit unit) {
    if (kTable.IsCode(unit)) m_eCurUnit = unit;
}

CString CMwUnitConvert::GetMwStdUnit() const { return kTable.GetName(m_eStdUnit); }

CString CMwUnitConvert::GetMwCurUnit() const { return kTable.GetName(m_eCurUnit); }

EMw_Unit CMwUnitConvert::GetMwUnitCode(const CString& name) const {
    return static_cast<EMw_Unit>(kTable.FindCode(name));
}

void CMwUnitConvert::GetMwUnitNames(CStringArray& names) const { kTable.AppendNames(names); }

double CMwUnitConvert::MwConvert(double value, EMw_Unit from, EMw_Unit to) const {
    return kTable.Convert(value, from, to);
}
