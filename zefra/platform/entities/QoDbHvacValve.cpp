#include "zefra/platform/entities/QoDbHvacValve.h"

void QoDbHvacValve::SetSystemName(const QoStringW& name) { m_systemName = name; }
