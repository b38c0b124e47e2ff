#include "zefra/platform/host/AcDbHostApplicationServices.h"

#include "zefra/platform/host/AcDbDatabase.h"

namespace {
AcDbDatabase& BuiltInDatabase() {
    static AcDbDatabase database;
    return database;
}
}  // namespace

AcDbDatabase* AcDbHostApplicationServices::workingDatabase() const {
    return m_working != nullptr ? m_working : &BuiltInDatabase();
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}
