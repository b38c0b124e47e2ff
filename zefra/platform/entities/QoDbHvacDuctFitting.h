#pragma once
// A duct fitting (elbow, tee, reducer...): outline, end lines and axis; it
// has no flange of its own.

#include "zefra/platform/entities/QoHvacEntProperty.h"
#include "zefra/platform/entities/QoStringW.h"
#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacDuctFitting : public AcDbEntity {
public:
    QoStringW GetSystemName() const { return m_systemName; }
    void SetSystemName(QoStringW name);

    const QoHvacEntProperty& GetPropDuctline() const { return m_propDuctline; }
    void SetPropDuctline(const QoHvacEntProperty& prop) { m_propDuctline = prop; }
    const QoHvacEntProperty& GetPropEndline() const { return m_propEndline; }
    void SetPropEndline(const QoHvacEntProperty& prop) { m_propEndline = prop; }
    const QoHvacEntProperty& GetPropAxisline() const { return m_propAxisline; }
    void SetPropAxisline(const QoHvacEntProperty& prop) { m_propAxisline = prop; }

private:
    QoStringW m_systemName;
    QoHvacEntProperty m_propDuctline;
    QoHvacEntProperty m_propEndline;
    QoHvacEntProperty m_propAxisline;
};
