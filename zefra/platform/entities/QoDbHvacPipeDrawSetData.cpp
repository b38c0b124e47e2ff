#include "zefra/platform/entities/QoDbHvacPipeDrawSetData.h"

QoDbHvacPipeDrawSetData& QoDbHvacPipeDrawSetData::Shared() {
    static QoDbHvacPipeDrawSetData data;
    return data;
}
