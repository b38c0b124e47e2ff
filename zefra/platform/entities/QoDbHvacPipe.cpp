#include "zefra/platform/entities/QoDbHvacPipe.h"

QoDbHvacPipe::QoDbHvacPipe(EPipeType type) : m_pipeType(type) {}
