#pragma once
#include "zefra/ZefraExport.h"
// The exception types MFC raises from its collection and archive classes.
// The system's own code raises none; it only catches these where the host
// would otherwise see them.

#include <stdexcept>

class ZEFRA_API CException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A bad index into a CArray or CString, or a negative size.
class ZEFRA_API CInvalidArgException : public CException {
public:
    CInvalidArgException() : CException("invalid argument") {}
    using CException::CException;
};

// A read past the end of an archive, or a failed stream.
class ZEFRA_API CArchiveException : public CException {
public:
    using CException::CException;
};
