#include "zefra/platform/airlib/CHUnitConvert.h"

#include "zefra/platform/airlib/UnitTable.h"
#include "zefra/platform/mfc/CArray.h"

namespace {

// Sizes in kJ/kg.
constexpr UnitEntry kUnits[] = {
    {L"kJ/kg", {L"kJ/kg.干空气", L"kJ/kg干空气"}, 1.0},  // kilojoule per kg of dry air
    {L"kcal/kg", {L"kcal/kg.干空气", L"kcal/kg干空气"}, 4.1868},  // kcal per kg of dry air
};

constexpr UnitTable kTable(kUnits);

}  // namespace

void CHUnitConvert::SetHStdUnit(EH_Unit unit) {
    if (kTable.IsCode(unit)) m_eStdUnit = unit;
}

void CHUnitConvert::SetHCurUnit(EH_Unit unit) {
    if (kTable.IsCode(unit)) m_eCurUnit = unit;
}

CString CHUnitConvert::GetHStdUnit() const { return kTable.GetName(m_eStdUnit); }

CString CHUnitConvert::GetHCurUnit() const { return kTable.GetName(m_eCurUnit); }

EH_Unit CHUnitConvert::GetHUnitCode(const CString& name) const {
    return static_cast<EH_Unit>(kTable.FindCode(name));
}

void CHUnitConvert::GetHUnitNames(CStringArray& names) const { kTable.AppendNames(names); }

double CHUnitConvert::HConvert(double value, EH_Unit from, EH_Unit to) const {
    return kTable.Convert(value, from, to);
}
