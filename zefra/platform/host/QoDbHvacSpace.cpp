#include "zefra/platform/host/QoDbHvacSpace.h"

#include "zefra/platform/host/AcDbDatabase.h"

namespace {
AcDbDatabase& Resolve(AcDbDatabase* database) {
    return database != nullptr ? *database : *acdbHostApplicationServices()->workingDatabase();
}
}  // namespace

void QoDbSetHvacSpaceTextSize(double textSize, AcDbDatabase* database) {
    Resolve(database).setHvacSpaceTextSize(textSize);
}

CString QoDbGetHvacSpaceVisibleField(AcDbDatabase* database) { return Resolve(database).hvacSpaceVisibleField(); }

void QoDbSetHvacSpaceVisibleField(const CString& visibleField, AcDbDatabase* database) {
    Resolve(database).setHvacSpaceVisibleField(visibleField);
}
