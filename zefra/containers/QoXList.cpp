// The group-indexed lists compiled whole for the element types of this library.
#include "zefra/containers/QoXList.h"

#include "zefra/platform/mfc/CString.h"

template class QoXList<int>;
template class QoXList<double*>;
template class QoXList<CString*>;
