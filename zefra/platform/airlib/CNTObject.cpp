#include "zefra/platform/airlib/CNTObject.h"

IMPLEMENT_DYNAMIC(CNTObject, CObject)

CString CNTObject::GetClassNameW() const { return CString(GetRuntimeClass()->m_lpszClassName); }
void CNTObject::SetLastError(const CString& error) { m_strLastError = error; }
CString CNTObject::GetLastError() const { return m_strLastError; }
void CNTObject::SetName(const CString& name) { m_strName = name; }
