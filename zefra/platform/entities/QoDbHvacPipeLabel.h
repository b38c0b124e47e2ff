#pragma once
// A label in water drawings: of a pipe, a piece of equipment or a riser.

#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacPipeLabel : public AcDbEntity {
public:
    enum ELabelType : int { ELabelPipe = 0, ELabelEquipment = 1, ELabelRiser = 2 };

    explicit QoDbHvacPipeLabel(ELabelType type = ELabelPipe);

    ELabelType GetLabelType() const { return m_labelType; }

private:
    ELabelType m_labelType;
};
