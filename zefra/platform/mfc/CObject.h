#pragma once
#include "zefra/ZefraExport.h"
// Run-time class records and the CObject root, as MFC provides them. Each
// record is a constant aggregate, so no constructor runs at load.

#include <cstring>

class CObject;
class CArchive;

// Stand-in for MFC's debug dump stream; the system's Dump slots do nothing.
class CDumpContext {};

struct ZEFRA_API CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;
    unsigned int m_wSchema;
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* (*m_pfnGetBaseClass)();

    CObject* CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }
    CRuntimeClass* GetBaseClass() const { return m_pfnGetBaseClass ? m_pfnGetBaseClass() : nullptr; }
    bool IsDerivedFrom(const CRuntimeClass* base) const {
        for (const CRuntimeClass* c = this; c; c = c->GetBaseClass())
            if (c == base) return true;
        return false;
    }
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

// Declares the record and the three functions of a class with dynamic type
// information (schema 0xFFFF, no creation function).
#define DECLARE_DYNAMIC(class_name)                        \
protected:                                                 \
    static CRuntimeClass* _GetBaseClass();                 \
                                                           \
public:                                                    \
    static CRuntimeClass class##class_name;                \
    static CRuntimeClass* GetThisClass();                  \
    CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                       \
    CRuntimeClass* class_name::_GetBaseClass() { return RUNTIME_CLASS(base_class_name); }    \
    CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class class_name),    \
                                                   0xFFFF, nullptr, &class_name::_GetBaseClass}; \
    CRuntimeClass* class_name::GetThisClass() { return &class_name::class##class_name; }     \
    CRuntimeClass* class_name::GetRuntimeClass() const { return &class_name::class##class_name; }

class ZEFRA_API CObject {
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;
    virtual void Serialize(CArchive& ar);
    virtual void AssertValid() const {}
    virtual void Dump(CDumpContext& dc) const { (void)dc; }

    bool IsKindOf(const CRuntimeClass* cls) const { return GetRuntimeClass()->IsDerivedFrom(cls); }

    static CRuntimeClass classCObject;
    static CRuntimeClass* GetThisClass() { return &classCObject; }

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};
