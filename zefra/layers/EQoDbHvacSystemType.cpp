#include "zefra/layers/EQoDbHvacSystemType.h"

namespace HVAC {

CString GetSysLayerKey(EQoDbHvacSystemType kind) {
    switch (kind) {
        case ESysDuct: return L"DUCT";
        case ESysKT: return L"KT";
        case ESysVRV: return L"VRV";
        case ESysDBCN: return L"DBCN";
        case ESysFHCN: return L"FHCN";
        case ESysCZCN: return L"CZCN";
    }
    return CString();
}

bool IsWaterSystemType(EQoDbHvacSystemType kind) {
    switch (kind) {
        case ESysKT:
        case ESysVRV:
        case ESysDBCN:
        case ESysFHCN:
        case ESysCZCN: return true;
        case ESysDuct: return false;
    }
    return false;
}

}  // namespace HVAC
