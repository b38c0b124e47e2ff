#include "zefra/platform/entities/QoDbHvacLabel.h"

QoDbHvacLabel::QoDbHvacLabel(ELabelType type, EEquipLabelType equipType)
    : m_labelType(type), m_equipLabelType(equipType) {}
