#pragma once
// CArray as the suite exports it: no field and no virtual operation of its
// own; Serialize writes the count and then the elements.

#include "zefra/platform/mfc/CArray.h"

template <typename T, typename ARG_T>
class CNTArray : public CArray<T, ARG_T> {};
