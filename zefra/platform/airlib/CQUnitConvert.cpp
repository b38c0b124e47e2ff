#include "zefra/platform/airlib/CQUnitConvert.h"

#include "zefra/platform/airlib/UnitTable.h"
#include "zefra/platform/mfc/CArray.h"

namespace {

// Sizes in W.
constexpr UnitEntry kUnits[] = {
    {L"W", {}, 1.0},  // watt
    {L"kW", {}, 1000.0},  // kilowatt
    {L"kcal/h", {}, 1.163},  // kilocalorie per hour
    {L"Btu/h", {L"BTU/h", L"Btuh"}, 0.29307107017222},  // British thermal unit per hour
    {L"RT", {L"USRT", L"TR"}, 3516.8528420667},  // refrigeration ton, 12000 Btu/h
};

constexpr UnitTable kTable(kUnits);

}  // namespace

void CQUnitConvert::SetQStdUnit(EQ_Unit unit) {
    if (kTable.IsCode(unit)) m_eStdUnit = unit;
}

void CQUnitConvert::SetQCurUnit(EQ_Unit unit) {
    if (kTable.IsCode(unit)) m_eCurUnit = unit;
}

CString CQUnitConvert::GetQStdUnit() const { return kTable.GetName(m_eStdUnit); }

CString CQUnitConvert::GetQCurUnit() const { return kTable.GetName(m_eCurUnit); }

EQ_Unit CQUnitConvert::GetQUnitCode(const CString& name) const {
    return static_cast<EQ_Unit>(kTable.FindCode(name));
}

void CQUnitConvert::GetQUnitNames(CStringArray& names) const { kTable.AppendNames(names); }

double CQUnitConvert::QConvert(double value, EQ_Unit from, EQ_Unit to) const {
    return kTable.Convert(value, from, to);
}
