#include "zefra/platform/mfc/CObject.h"

CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, nullptr, nullptr};

CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }

void CObject::Serialize(CArchive& ar) { (void)ar; }
