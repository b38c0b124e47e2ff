#include "zefra/platform/host/AcDbObjectId.h"

const AcDbObjectId AcDbObjectId::kNull;

namespace {
std::int64_t g_lastObjectId = 0;
}

AcDbObjectId AcDbObjectId::MakeNew() {
    AcDbObjectId id;
    id.m_value = ++g_lastObjectId;
    return id;
}
