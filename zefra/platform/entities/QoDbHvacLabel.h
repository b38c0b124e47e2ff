#pragma once
// A label in duct drawings: of a duct, or of a piece of equipment (an air
// terminal or a damper).

#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacLabel : public AcDbEntity {
public:
    enum ELabelType : int { ELabelDuct = 0, ELabelEquip = 100 };
    enum EEquipLabelType : int { EEquipLabelTerminal = 0, EEquipLabelValve = 1 };
    // End mark of a lead label's leader: an index into the choices of the
    // label settings (the shipped store offers these four).
    enum ELeadLabelPtType : int {
        ELeadLabelPtArrow = 0,
        ELeadLabelPtDot = 1,
        ELeadLabelPtSlash = 2,
        ELeadLabelPtNone = 3,
    };

    explicit QoDbHvacLabel(ELabelType type = ELabelDuct, EEquipLabelType equipType = EEquipLabelTerminal);

    ELabelType GetLabelType() const { return m_labelType; }
    EEquipLabelType GetEquipLabelType() const { return m_equipLabelType; }

private:
    ELabelType m_labelType;
    EEquipLabelType m_equipLabelType;
};
