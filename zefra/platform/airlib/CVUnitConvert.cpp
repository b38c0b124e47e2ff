#include "zefra/platform/airlib/CVUnitConvert.h"

#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/UnitTable.h"
#include "zefra/platform/mfc/CArray.h"

namespace {

constexpr double kRho = CVUnitConvert::kStandardAirDensity;

// Sizes in kg/s; volumes at the standard density.
constexpr UnitEntry kUnits[] = {
    {L"m^3/h", {L"m3/h", L"m³/h", L"CMH"}, kRho / 3600.0},
    {L"m^3/s", {L"m3/s", L"m³/s"}, kRho},
    {L"kg/h", {}, 1.0 / 3600.0},
    {L"kg/s", {}, 1.0},
    {L"l/h", {}, kRho / 1000.0 / 3600.0},
    {L"l/s", {}, kRho / 1000.0},
};

constexpr UnitTable kTable(kUnits);

}  // namespace

void CVUnitConvert::SetVStdUnit(EV_Unit unit) {
    if (kTable.IsCode(unit)) m_eStdUnit = unit;
}

void CVUnitConvert::SetVCurUnit(EV_Unit unit) {
    if (kTable.IsCode(unit)) m_eCurUnit = unit;
}

CString CVUnitConvert::GetVStdUnit() const { return kTable.GetName(m_eStdUnit); }

CString CVUnitConvert::GetVCurUnit() const { return kTable.GetName(m_eCurUnit); }

EV_Unit CVUnitConvert::GetVUnitCode(const CString& name) const { return static_cast<EV_Unit>(kTable.FindCode(name)); }

void CVUnitConvert::GetVUnitNames(CStringArray& names) const { kTable.AppendNames(names); }

double CVUnitConvert::VConvert(double value, EV_Unit from, EV_Unit to) const { return kTable.Convert(value, from, to); }

double CVUnitConvert::GetCorFactor(double Tdb, double RH, double B) const {
    return AIR::GetDen(Tdb, RH, B) / kStandardAirDensity;
}
