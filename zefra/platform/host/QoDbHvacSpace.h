#pragma once
// The drawing side of the space (room) label settings. A null database means
// the working one.

#include "zefra/platform/mfc/CString.h"

class AcDbDatabase;

void QoDbSetHvacSpaceTextSize(double textSize, AcDbDatabase* database);
// The drawing's visible fields; empty when it has none.
CString QoDbGetHvacSpaceVisibleField(AcDbDatabase* database);
void QoDbSetHvacSpaceVisibleField(const CString& visibleField, AcDbDatabase* database);
