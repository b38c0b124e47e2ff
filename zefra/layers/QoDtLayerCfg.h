#pragma once
#include "zefra/ZefraExport.h"
// The layer configuration: the dictionary "LAYER" of g_dictCfg, which holds
// one dictionary per layer standard and names the current one in its string
// item "CURRENT_STD". Without that item, or when it names no standard, the
// first standard in the list is the current one.

#include "zefra/layers/QoDtLayerDef.h"

class QoDtDictionary;

class ZEFRA_API QoDtLayerCfg {
public:
    static const wchar_t* const kLayerRoot;       // "LAYER"
    static const wchar_t* const kCurrentStdItem;  // "CURRENT_STD"

    // Takes "LAYER" from g_dictCfg; it stays null if there is none.
    QoDtLayerCfg();

    QoDtDictionary* GetLayerRoot() const { return m_pLayerDict; }
    // The dictionary of the current layer standard, or null.
    QoDtDictionary* GetCurLayerStd() const;

    // Fills the record for its key from the given standard, or from the
    // current one when `standard` is null. The key is a layer key or a
    // system key (see QoDtLayerStandard). False, with the record untouched,
    // when the key has no definition.
    bool GetLayerDef(QoDtLayerDef& def, QoDtDictionary* standard) const;

protected:
    QoDtDictionary* m_pLayerDict = nullptr;  // borrowed from g_dictCfg
};
