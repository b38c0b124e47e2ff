// The point arrays that the module exports to the suite's other modules.

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/mfc/CNTArray.h"

template class CArray<ZefraHDGPoint, ZefraHDGPoint&>;
template class CNTArray<ZefraHDGPoint, ZefraHDGPoint&>;
template class CArray<ZefraHDGPoint*, ZefraHDGPoint*>;
template class CNTArray<ZefraHDGPoint*, ZefraHDGPoint*>;
