#include "zefra/platform/geometry/Zero.h"

const double g_fZero = 1e-9;
