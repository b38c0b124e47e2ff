#include "zefra/platform/entities/QoDbHvacDuct.h"

#include <utility>

QoDbHvacDuct::QoDbHvacDuct(EDuctType type) : m_ductType(type) {}

void QoDbHvacDuct::SetSystemName(QoStringW name) { m_systemName = std::move(name); }
