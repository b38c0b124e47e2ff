#pragma once
#include "zefra/ZefraExport.h"
// Base of the air library's calculation objects: a name and a last error text
// beside CObject's run-time class.

#include "zefra/platform/mfc/CObject.h"
#include "zefra/platform/mfc/CString.h"

class ZEFRA_API CNTObject : public CObject {
    DECLARE_DYNAMIC(CNTObject)
public:
    CNTObject() = default;
    ~CNTObject() override = default;

    // The class name of the object's run-time record.
    virtual CString GetClassNameW() const;
    virtual void SetLastError(const CString& error);
    virtual CString GetLastError() const;
    virtual void SetName(const CString& name);

    CString GetName() const { return m_strName; }

private:
    CString m_strName;
    CString m_strLastError;
};
