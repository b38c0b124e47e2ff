#pragma once
// Equipment drawn on water piping: pumps, radiators, riser equipment...

#include "zefra/platform/entities/QoStringW.h"
#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacPipeEquipment : public AcDbEntity {
public:
    enum EEquipType : int {
        EEquipGeneral = 0,
        EEquipRadiator = 5,
        EEquipRadiatorGroup = 6,
        EEquipOnRiser = 7
    };

    explicit QoDbHvacPipeEquipment(EEquipType type = EEquipGeneral);

    EEquipType GetEquipType() const { return m_equipType; }
    void SetEquipType(EEquipType type) { m_equipType = type; }

    const QoStringW& GetSystemName() const { return m_systemName; }
    void SetSystemName(const QoStringW& name) { m_systemName = name; }

    double GetRadLineWidth() const { return m_radLineWidth; }
    void SetRadLineWidth(double width) { m_radLineWidth = width; }

private:
    EEquipType m_equipType;
    QoStringW m_systemName;
    double m_radLineWidth = 0.0;
};
