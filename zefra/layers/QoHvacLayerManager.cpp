#include "zefra/layers/QoHvacLayerManager.h"

#include "zefra/layers/QoDtLayerStandard.h"

QoHvacLayerManager::QoHvacLayerManager() {
    QoDtDictionary* standard = GetCurLayerStd();
    m_pFieldRoot = QoDtLayerStandard::FindDisciplineRoot(standard, QoDtLayerStandard::kFieldDef);
    m_pAssemblyRoot = QoDtLayerStandard::FindDisciplineRoot(standard, QoDtLayerStandard::kAssemblyDef);
}

CString QoHvacLayerManager::GetLayerName(CString key) const {
    QoDtLayerDef def(key);
    return GetLayerDef(def, nullptr) ? def.layerName : CString(L"0");
}
