#include "zefra/platform/entities/QoDbHvacCoilPipe.h"

void QoDbHvacCoilPipe::SetSideLineWidth(double width) { m_sideLineWidth = width; }
