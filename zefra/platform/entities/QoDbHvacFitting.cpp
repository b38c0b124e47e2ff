#include "zefra/platform/entities/QoDbHvacFitting.h"

QoDbHvacFitting::QoDbHvacFitting(EFittingType type) : m_fittingType(type) {}
