#pragma once
// Where each system kind keeps its systems, layer groups and flags in the
// configuration tree, and how its layer keys begin.

#include "zefra/layers/EQoDbHvacSystemType.h"

namespace HVAC {

struct SHvacSystemKind {
    // The drawing class that follows the prefix in every layer key.
    static const wchar_t* const kClassPlan;    // "NT_CLASS_PLANE"
    static const wchar_t* const kClassSystem;  // "NT_CLASS_SYS", the system diagram

    EQoDbHvacSystemType kind;
    const wchar_t* assemblyDict;  // below the assembly root
    const wchar_t* systemDict;    // below the field root
    const wchar_t* flagSet;       // below "ZEFRA"
    const wchar_t* keyPrefix;     // start of the kind's layer keys

    // The row of a kind, or null for a value outside the six.
    static const SHvacSystemKind* Find(EQoDbHvacSystemType kind);
    // The row whose key prefix begins the layer key, or null.
    static const SHvacSystemKind* FindByLayerKey(const CString& layerKey);
    // All six rows in the order duct, KT, VRV, DBCN, FHCN, CZCN.
    static const SHvacSystemKind* Rows(int& count);

    // For a key of this kind that reads prefix + class + "-" + systemKey,
    // optionally followed by "-" + model: true, with the same key without
    // "-" + systemKey in `modelKey`.
    bool RemoveSystemPart(const CString& layerKey, const CString& systemKey, CString& modelKey) const;
    // For such a key: true, with `systemKey` in its system part replaced by
    // `newSystemKey` in `result`. The rest of the key is left as it is, even
    // where it holds the text of the old system key.
    bool ReplaceSystemPart(const CString& layerKey, const CString& systemKey, const CString& newSystemKey,
                           CString& result) const;
};

}  // namespace HVAC
