// The dynamic arrays compiled whole for the element types of this library.
#include "zefra/containers/QoDynArray.h"

#include "zefra/platform/mfc/CString.h"

template class QoDynArrayBase<char>;
template class QoDynArrayBase<int>;
template class QoDynArrayBase<double>;
template class QoDynArrayBase<CString>;
template class QoDynArrayBase<CString*>;

template class QoDynArray<char>;
template class QoDynArray<int>;
template class QoDynArray<double>;
template class QoDynArray<CString>;
template class QoDynArray<CString*>;

template class QoArray<int>;
template class QoArray<double>;
template class QoArray<CString>;
template class QoArray<QoArray<int>>;

template class QoQuene<int>;
