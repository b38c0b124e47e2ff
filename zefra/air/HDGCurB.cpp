#include "zefra/air/HDGCurB.h"

namespace {

double g_dHDGCurB = 101325.0;

}  // namespace

double GetHDGCurB() { return g_dHDGCurB; }

void SetHDGCurB(double B) { g_dHDGCurB = B; }
