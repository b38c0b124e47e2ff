#include "zefra/platform/entities/QoDbHvacDuctFitting.h"

#include <utility>

void QoDbHvacDuctFitting::SetSystemName(QoStringW name) { m_systemName = std::move(name); }
