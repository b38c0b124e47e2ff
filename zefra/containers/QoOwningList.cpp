// The owning lists compiled whole for the element types of this library.
#include "zefra/containers/QoPDList.h"
#include "zefra/containers/QoPXList.h"

#include "zefra/platform/mfc/CString.h"

template class QoOwning<double, QoDList<double*>>;
template class QoOwningList<double, QoDList<double*>>;
template class QoPDList<double>;
template class QoOwning<CString, QoDList<CString*>>;
template class QoOwningList<CString, QoDList<CString*>>;
template class QoPDList<CString>;

template class QoOwning<CString, QoXList<CString*>>;
template class QoOwningList<CString, QoXList<CString*>>;
template class QoPXList<CString>;
