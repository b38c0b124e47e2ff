// The owning arrays compiled whole for the element types of this library.
#include "zefra/containers/QoDynPArray.h"

#include "zefra/platform/mfc/CString.h"

template class QoOwning<double, QoDynArray<double*>>;
template class QoDynPArray<double>;
template class QoOwning<CString, QoDynArray<CString*>>;
template class QoDynPArray<CString>;
