#pragma once
#include "zefra/ZefraExport.h"
// CArray as the suite exports it: no field and no virtual operation of its
// own; Serialize writes the count and then the elements.

#include "zefra/platform/mfc/CArray.h"

template <typename T, typename ARG_T>
class ZEFRA_API CNTArray : public CArray<T, ARG_T> {};
