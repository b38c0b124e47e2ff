#include "zefra/platform/host/AcDbEntity.h"

AcDbEntity::~AcDbEntity() = default;
