#pragma once
// A pipe fitting (elbow, tee, reducer, and the branch joint of refrigerant
// piping).

#include "zefra/platform/entities/QoHvacEntProperty.h"
#include "zefra/platform/entities/QoStringW.h"
#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacFitting : public AcDbEntity {
public:
    enum EFittingType : int { EFittingElbow = 0, EFittingVRVBranch = 8 };

    explicit QoDbHvacFitting(EFittingType type = EFittingElbow);

    EFittingType GetFittingType() const { return m_fittingType; }
    void SetFittingType(EFittingType type) { m_fittingType = type; }

    const QoStringW& GetSystemName() const { return m_systemName; }
    void SetSystemName(const QoStringW& name) { m_systemName = name; }

    double GetSideLineWidth() const { return m_sideLineWidth; }
    void SetSideLineWidth(double width) { m_sideLineWidth = width; }

    const QoHvacEntProperty& GetPropFlange() const { return m_propFlange; }
    void SetPropFlange(const QoHvacEntProperty& prop) { m_propFlange = prop; }
    const QoHvacEntProperty& GetPropEndline() const { return m_propEndline; }
    void SetPropEndline(const QoHvacEntProperty& prop) { m_propEndline = prop; }
    const QoHvacEntProperty& GetPropAxisline() const { return m_propAxisline; }
    void SetPropAxisline(const QoHvacEntProperty& prop) { m_propAxisline = prop; }

private:
    EFittingType m_fittingType;
    QoStringW m_systemName;
    double m_sideLineWidth = 0.0;
    QoHvacEntProperty m_propFlange;
    QoHvacEntProperty m_propEndline;
    QoHvacEntProperty m_propAxisline;
};
