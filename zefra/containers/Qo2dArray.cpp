// The two-dimensional arrays compiled whole for the element types of this library.
#include "zefra/containers/Qo2dArray.h"

#include "zefra/platform/mfc/CString.h"

template class QoArray<QoArray<double>>;
template class Qo2dArray<int>;
template class Qo2dArray<double>;
template class Qo2dArray<CString>;
