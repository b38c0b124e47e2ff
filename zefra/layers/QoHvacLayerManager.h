#pragma once
#include "zefra/ZefraExport.h"
// The layer configuration seen from the HVAC discipline: besides "LAYER" it
// keeps the "暖通" dictionaries of the current standard's field tree (the
// systems) and assembly tree (the layer groups of the systems).

#include "zefra/layers/QoDtLayerCfg.h"

class ZEFRA_API QoHvacLayerManager : public QoDtLayerCfg {
public:
    QoHvacLayerManager();

    // The layer name of a key's definition; "0" when it has none.
    CString GetLayerName(CString key) const;

protected:
    QoDtDictionary* m_pFieldRoot = nullptr;     // borrowed
    QoDtDictionary* m_pAssemblyRoot = nullptr;  // borrowed
};
