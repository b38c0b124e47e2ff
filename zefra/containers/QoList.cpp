// The singly linked lists compiled whole for the element types of this library.
#include "zefra/containers/QoList.h"

#include "zefra/containers/QoDynArray.h"
#include "zefra/platform/mfc/CString.h"

template struct QoListNode<int>;
template struct QoListNode<double>;
template struct QoListNode<CString>;
template struct QoListNode<CString*>;

template class QoList<int>;
template class QoList<double>;
template class QoList<CString>;
template class QoList<CString*>;

// Node positions kept in an array, as the group table and the graph
// classes keep them.
template class QoDynArrayBase<QoListNode<CString*>*>;
template class QoDynArray<QoListNode<CString*>*>;
