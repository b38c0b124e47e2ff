// The doubly linked lists compiled whole for the element types of this library.
#include "zefra/containers/QoDList.h"

#include "zefra/platform/mfc/CString.h"

template struct QoDListNode<int>;
template struct QoDListNode<double>;
template struct QoDListNode<CString>;
template struct QoDListNode<CString*>;

template class QoDList<int>;
template class QoDList<double>;
template class QoDList<CString>;
template class QoDList<CString*>;
