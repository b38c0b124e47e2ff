#pragma once
// A view on one layer standard, a dictionary below "LAYER", and the way a
// layer key becomes a layer definition in it.
//
// The standard holds three trees, each below a dictionary "暖通":
//   LAYER_FIELD_DEF\暖通\系统\<kind>\<system key>     the systems: line type, colour, comment
//   ASSEMBLY_LAYER_DEF\暖通\<kind>\<display name>\<layer key> = layer name
//   MODEL_LAYER_DEF\暖通\<layer key> = layer name      keys without a system, and fixed keys
// A layer key with a system takes each property from the first of its
// assembly entry, the definition of its key without the system part, and the
// system item that has it; a layer name that the entry leaves empty is the
// model definition's name followed by "-" and the system's display name.
// The system of a key is the one whose key stands in its system part, and
// its entry is looked for only in the group named by that system's display
// name now.

#include "zefra/layers/QoDtLayerDef.h"
#include "zefra/layers/SHvacSystemKind.h"

class QoDtDictionary;
class QoDtDictItem;

class QoDtLayerStandard {
public:
    static const wchar_t* const kFieldDef;     // "LAYER_FIELD_DEF"
    static const wchar_t* const kAssemblyDef;  // "ASSEMBLY_LAYER_DEF"
    static const wchar_t* const kModelDef;     // "MODEL_LAYER_DEF"
    static const wchar_t* const kDiscipline;   // "暖通"

    explicit QoDtLayerStandard(QoDtDictionary* standard);

    // The "暖通" dictionary below the named tree of a standard; null when
    // the standard, the tree or its "暖通" is missing or not a dictionary.
    static QoDtDictionary* FindDisciplineRoot(QoDtDictionary* standard, const wchar_t* tree);

    QoDtDictionary* GetFieldRoot() const { return m_fieldRoot; }
    QoDtDictionary* GetAssemblyRoot() const { return m_assemblyRoot; }
    QoDtDictionary* GetModelRoot() const { return m_modelRoot; }

    // Fills the record for its key, which is a layer key or a system key.
    // False, with the record untouched, when the standard defines neither.
    bool FillLayerDef(QoDtLayerDef& def) const;

private:
    // Where the properties of one layer key come from; any may be null.
    struct Sources {
        const QoDtDictItem* entry = nullptr;
        const QoDtDictItem* model = nullptr;
        const QoDtDictItem* system = nullptr;
    };

    Sources FindSources(const CString& key) const;
    // The kind's group of that display name; null if none.
    const QoDtDictionary* FindGroup(const HVAC::SHvacSystemKind& kind, const CString& name) const;
    // For a key without a system part: the first entry of the key in the
    // group of one of the kind's systems, in the order of the systems, and
    // that system.
    const QoDtDictItem* FindEntryOfAnySystem(const HVAC::SHvacSystemKind& kind, const CString& key,
                                             const QoDtDictItem*& system) const;
    QoDtDictionary* FindSystemDict(const HVAC::SHvacSystemKind& kind) const;
    const QoDtDictItem* FindSystemInKey(const HVAC::SHvacSystemKind& kind, const CString& key) const;
    const QoDtDictItem* FindSystemByKey(const CString& key) const;
    const QoDtDictItem* FindModelDef(const CString& key) const;

    static void FillFromLayer(QoDtLayerDef& def, const Sources& sources);
    static void FillFromSystem(QoDtLayerDef& def, const QoDtDictItem& system);

    QoDtDictionary* m_fieldRoot = nullptr;
    QoDtDictionary* m_assemblyRoot = nullptr;
    QoDtDictionary* m_modelRoot = nullptr;
};
