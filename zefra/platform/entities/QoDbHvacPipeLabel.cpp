#include "zefra/platform/entities/QoDbHvacPipeLabel.h"

QoDbHvacPipeLabel::QoDbHvacPipeLabel(ELabelType type) : m_labelType(type) {}
