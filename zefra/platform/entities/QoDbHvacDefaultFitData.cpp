#include "zefra/platform/entities/QoDbHvacDefaultFitData.h"

QoDbHvacDefaultFitData& QoDbHvacDefaultFitData::Shared() {
    static QoDbHvacDefaultFitData data;
    return data;
}
