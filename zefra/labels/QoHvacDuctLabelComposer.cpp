#include "zefra/labels/QoHvacDuctLabelComposer.h"

#include "zefra/components/QoHvacDuctCalculateManager.h"
#include "zefra/labels/QoHvacDuctLabelItem.h"
#include "zefra/labels/QoHvacDuctLabelManager.h"
#include "zefra/layers/QoHvacDuctLayerManager.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/CVUnitConvert.h"
#include "zefra/platform/airlib/NT.h"
#include "zefra/platform/entities/QoDbHvacDuct.h"
#include "zefra/platform/geometry/Zero.h"

#include <algorithm>
#include <cwchar>

namespace {

// Width and height of a rectangular size, and the diameter of a round one,
// shown when there is no duct.
constexpr double kStandByWidth = 500.0;
constexpr double kStandByHeight = 300.0;
constexpr double kStandByDiameter = 500.0;

QoStringW LabelText(const CString& text) { return QoStringW(text.GetString()); }

// The leading number of a text, 0 when there is none.
double LeadingNumber(const CString& text) { return std::wcstod(text, nullptr); }

// Label numbers keep exactly the line's decimals.
QoStringW NumberText(double value, int decimals) { return LabelText(NT::ftoa(value, decimals, true)); }

CString UnitOf(const QoHvacDuctLabelItem& item) {
    CString unit = item.suffix;
    return unit.MakeLower();
}

// Flows are known in m³/h; the suffix names the unit to show.
EV_Unit FlowUnitOf(const CString& unit) {
    if (unit == L"m^3/s" || unit == L"m3/s") return V_UNIT_M3_S;
    if (unit == L"kg/h") return V_UNIT_KG_H;
    if (unit == L"kg/s") return V_UNIT_KG_S;
    if (unit == L"l/h") return V_UNIT_L_H;
    if (unit == L"l/s") return V_UNIT_L_S;
    return V_UNIT_M3_H;
}

// Velocities are known in m/s.
double VelocityFactorOf(const CString& unit) {
    if (unit == L"m/h") return 3600.0;
    if (unit == L"mm/s") return 1000.0;
    if (unit == L"mm/h") return 3600000.0;
    return 1.0;
}

}  // namespace

const QoHvacDuctLabelComposer::SLabelComputation QoHvacDuctLabelComposer::kComputations[] = {
    {L"风量", &QoHvacDuctLabelComposer::ComposeFlow},
    {L"风速", &QoHvacDuctLabelComposer::ComposeVelocity},
    {L"标高", &QoHvacDuctLabelComposer::ComposeElevation},
    {L"比摩阻", &QoHvacDuctLabelComposer::ComposeSpecificFriction},
    {L"矩形尺寸", &QoHvacDuctLabelComposer::ComposeRectSize},
    {L"圆形尺寸", &QoHvacDuctLabelComposer::ComposeRoundSize},
    {L"沿程阻力", &QoHvacDuctLabelComposer::ComposeFrictionLoss},
    {L"风管代号", &QoHvacDuctLabelComposer::ComposeSystemFlag},
    {L"风管系统", &QoHvacDuctLabelComposer::ComposeSystemName},
};

QoHvacDuctLabelData QoHvacDuctLabelComposer::Compose(const QoHvacDuctLabelItem& item,
                                                     const QoDbHvacDuct* duct) const {
    QoHvacDuctLabelData line(LabelText(item.labelname), LabelText(item.prefix), LabelText(item.content),
                             LabelText(item.suffix), 0, item.percition, 0);
    for (const SLabelComputation& computation : kComputations) {
        if (std::wcscmp(item.labelname, computation.labelname) == 0) {
            (this->*computation.compute)(item, duct, line);
            break;
        }
    }
    return line;
}

void QoHvacDuctLabelComposer::ComposeFlow(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                          QoHvacDuctLabelData& line) const {
    double flow = LeadingNumber(item.content);
    if (duct != nullptr) duct->GetWindCapacity(flow);
    line.baseValue = NumberText(flow, item.percition);

    const EV_Unit unit = FlowUnitOf(UnitOf(item));
    const CVUnitConvert converter;
    double shown = converter.VConvert(flow, V_UNIT_M3_H, unit);
    if (unit == V_UNIT_KG_H || unit == V_UNIT_KG_S) {
        // Mass follows the density of the air that the ducts are designed for.
        const QoHvacDuctCalculateManager* conditions = QoHvacDuctCalculateManager::GetInstance();
        shown *= converter.GetCorFactor(conditions->m_temperature, conditions->m_relativeHumidity / 100.0,
                                        conditions->m_pressure);
    }
    line.value = NumberText(shown, item.percition);
}

void QoHvacDuctLabelComposer::ComposeVelocity(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                              QoHvacDuctLabelData& line) const {
    double velocity = LeadingNumber(item.content);
    if (duct != nullptr) duct->GetWindVelocity(velocity);
    line.value = NumberText(velocity * VelocityFactorOf(UnitOf(item)), item.percition);
}

void QoHvacDuctLabelComposer::ComposeElevation(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                               QoHvacDuctLabelData& line) const {
    double metres = LeadingNumber(item.content);
    if (duct != nullptr) {
        if (duct->GetDuctType() == QoDbHvacDuct::EDuctVertical) {
            // A riser is labelled at its foot.
            metres = std::min(duct->GetEndPoint().z, duct->GetStartPoint().z) / 1000.0;
            line.prefix = LabelText(m_settings.GetBotHPrefix());
        } else {
            metres = LevelDuctElevation(*duct, line);
        }
    }
    if (UnitOf(item) == L"mm") metres *= 1000.0;
    // Elevations alone are written without the flag of the other numbers.
    line.value = LabelText(NT::ftoa(metres, item.percition, false));
}

double QoHvacDuctLabelComposer::LevelDuctElevation(const QoDbHvacDuct& duct, QoHvacDuctLabelData& line) const {
    // End points lie on the axis.
    const double axis = duct.GetStartPoint().z / 1000.0;
    const double halfHeight = duct.GetHeight() / 2000.0;
    switch (m_settings.GetEleLabelStarnard()) {
        case QoHvacDuctLabelManager::EEleTop:
            line.prefix = LabelText(m_settings.GetTopHPrefix());
            line.baseValue = L"1";
            return axis + halfHeight;
        case QoHvacDuctLabelManager::EEleCentre:
            line.prefix = LabelText(m_settings.GetMidHPrefix());
            line.baseValue = L"2";
            return axis;
        case QoHvacDuctLabelManager::EEleBottom:
            line.prefix = LabelText(m_settings.GetBotHPrefix());
            line.baseValue = L"3";
            return axis - halfHeight;
        default: break;
    }
    // By alignment: the face by which the duct is set out gives the height.
    line.baseValue = L"0";
    switch (duct.GetVertAlignment()) {
        case QoDbHvacDuct::EVertAlignTop:
            line.prefix = LabelText(m_settings.GetTopHPrefix());
            return axis + halfHeight;
        case QoDbHvacDuct::EVertAlignBottom:
            line.prefix = LabelText(m_settings.GetBotHPrefix());
            return axis - halfHeight;
        default:
            line.prefix = LabelText(m_settings.GetMidHPrefix());
            return axis;
    }
}

void QoHvacDuctLabelComposer::ComposeSpecificFriction(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                                      QoHvacDuctLabelData& line) const {
    double bmz = LeadingNumber(item.content);
    if (duct != nullptr) duct->GetBMZ(bmz);
    line.value = NumberText(bmz, item.percition);
}

void QoHvacDuctLabelComposer::ComposeRectSize(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                              QoHvacDuctLabelData& line) const {
    double width = kStandByWidth;
    double height = kStandByHeight;
    if (duct != nullptr) {
        width = duct->GetWidth();
        height = duct->GetHeight();
    }
    if (UnitOf(item) == L"m") {
        width /= 1000.0;
        height /= 1000.0;
    }
    CString size = NT::ftoa(width, item.percition, true);
    if (duct == nullptr || duct->GetSectionShape() != QoDbHvacDuct::ESectionRound)
        size += m_settings.m_linkFlag + NT::ftoa(height, item.percition, true);
    line.value = LabelText(size);
}

void QoHvacDuctLabelComposer::ComposeRoundSize(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                               QoHvacDuctLabelData& line) const {
    double diameter = duct != nullptr ? duct->GetWidth() : kStandByDiameter;
    if (UnitOf(item) == L"m") diameter /= 1000.0;
    line.value = NumberText(diameter, item.percition);
}

void QoHvacDuctLabelComposer::ComposeFrictionLoss(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                                  QoHvacDuctLabelData& line) const {
    if (duct == nullptr) return;
    const double length = duct->GetActualLength();
    double bmz = 0.0;
    if (duct->GetBMZ(bmz) && !IsInZeroBand(length))
        line.value = NumberText(AIR::GetPm(bmz, length / 1000.0), item.percition);
    else
        line.value = L"-";
}

void QoHvacDuctLabelComposer::ComposeSystemFlag(const QoHvacDuctLabelItem&, const QoDbHvacDuct* duct,
                                                QoHvacDuctLabelData& line) const {
    if (duct == nullptr) return;
    const CString systemName(duct->GetSystemName().GetString());
    line.value = LabelText(QoHvacDuctLayerManager::GetInstance()->GetFlagWithSysname(systemName, HVAC::ESysDuct));
}

void QoHvacDuctLabelComposer::ComposeSystemName(const QoHvacDuctLabelItem&, const QoDbHvacDuct* duct,
                                                QoHvacDuctLabelData& line) const {
    if (duct != nullptr) line.value = duct->GetSystemName();
}
