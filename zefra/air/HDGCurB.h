#pragma once
// The process-wide atmospheric pressure B of the chart, in Pa. 101325.0 until
// set. Every state point reads it at each calculation; set it only while no
// calculation runs.

double GetHDGCurB();
void SetHDGCurB(double B);
