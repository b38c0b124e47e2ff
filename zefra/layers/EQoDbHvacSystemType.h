#pragma once
#include "zefra/ZefraExport.h"
// The six families of HVAC systems. The numbers are fixed: the drawing
// modules switch on them and store them.

#include "zefra/platform/mfc/CString.h"

ZEFRA_API_BEGIN

namespace HVAC {

enum EQoDbHvacSystemType : int {
    ESysDuct = 10001,  // air ducts, 通风
    ESysKT = 11101,    // air-conditioning water, 空调水路
    ESysVRV = 11201,   // multi-split refrigerant piping, 多联机
    ESysDBCN = 11301,  // floor heating, 地板采暖
    ESysFHCN = 11401,  // per-household heating, 分户采暖
    ESysCZCN = 11501,  // vertical heating, 垂直采暖
};

// "DUCT", "KT", "VRV", "DBCN", "FHCN", "CZCN"; empty for any other value.
CString GetSysLayerKey(EQoDbHvacSystemType kind);

// Every kind but the ducts is drawn with pipes: the water kinds.
bool IsWaterSystemType(EQoDbHvacSystemType kind);

}  // namespace HVAC

ZEFRA_API_END
