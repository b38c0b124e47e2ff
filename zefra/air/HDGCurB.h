#pragma once
#include "zefra/ZefraExport.h"
// The process-wide atmospheric pressure B of the chart, in Pa. 101325.0 until
// set. Every state point reads it at each calculation; set it only while no
// calculation runs.

ZEFRA_API_BEGIN

double GetHDGCurB();
void SetHDGCurB(double B);

ZEFRA_API_END
