#include "zefra/layers/QoDtLayerCfg.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/layers/QoDtLayerStandard.h"

const wchar_t* const QoDtLayerCfg::kLayerRoot = L"LAYER";
const wchar_t* const QoDtLayerCfg::kCurrentStdItem = L"CURRENT_STD";

QoDtLayerCfg::QoDtLayerCfg() {
    QoDtDictItem* root = g_dictCfg.FindItem(kLayerRoot);
    if (root && root->IsDict()) m_pLayerDict = static_cast<QoDtDictionary*>(root);
}

QoDtDictionary* QoDtLayerCfg::GetCurLayerStd() const {
    if (!m_pLayerDict) return nullptr;
    CString current;
    if (m_pLayerDict->GetValue(kCurrentStdItem, current) && !current.IsEmpty()) {
        QoDtDictItem* named = m_pLayerDict->children.Find(current.Str());
        if (named && named->IsDict()) return static_cast<QoDtDictionary*>(named);
    }
    for (QoDtDictItem* const* p = m_pLayerDict->children.GetFirst(); p; p = m_pLayerDict->children.GetNext(p))
        if ((*p)->IsDict()) return static_cast<QoDtDictionary*>(*p);
    return nullptr;
}

bool QoDtLayerCfg::GetLayerDef(QoDtLayerDef& def, QoDtDictionary* standard) const {
    QoDtDictionary* source = standard ? standard : GetCurLayerStd();
    if (!source) return false;
    return QoDtLayerStandard(source).FillLayerDef(def);
}
