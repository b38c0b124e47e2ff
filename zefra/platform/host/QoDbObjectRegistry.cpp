#include "zefra/platform/host/QoDbObjectRegistry.h"

#include "zefra/platform/host/AcDbEntity.h"

#include <cstdint>
#include <map>

namespace {

std::map<std::int64_t, AcDbEntity*>& Entities() {
    static std::map<std::int64_t, AcDbEntity*> entities;
    return entities;
}

}  // namespace

void QoDbObjectRegistry::Post(const AcDbObjectId& id, AcDbEntity* entity) {
    if (id.isNull() || entity == nullptr) return;
    Entities()[id.asOldId()] = entity;
}

void QoDbObjectRegistry::Remove(const AcDbObjectId& id) { Entities().erase(id.asOldId()); }

AcDbEntity* QoDbObjectRegistry::Find(const AcDbObjectId& id) {
    const auto found = Entities().find(id.asOldId());
    return found != Entities().end() ? found->second : nullptr;
}
