#include "zefra/components/ZefraVRVPipeDiameterManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"

namespace {

const wchar_t* const kBranch = L"ZEFRA\\WATER\\VRVPIPE";
const wchar_t* const kFirstKey = L"WT";
const wchar_t* const kSecondKey = L"AIR";
const wchar_t* const kDiameterKey = L"DN";

// Copper tube outside diameters from 1/8" to 2", in millimetres.
constexpr double kBuiltInSeries[] = {3.175, 6.35,  9.53,  12.7,  15.88, 19.05, 22.23, 25.4,
                                     28.58, 31.75, 34.93, 38.1,  41.28, 44.45, 47.63, 50.8};

void FillBuiltIn(QoList<double>& list) {
    list.Reset();
    for (double diameter : kBuiltInSeries) list.Append(diameter);
}

void WriteList(QoDtDictionary* dict, const QoList<double>& list) {
    if (dict == nullptr) return;
    dict->children.Reset();
    dict->SetValue(kDiameterKey, list);
}

}  // namespace

ZefraVRVPipeDiameterManager* ZefraVRVPipeDiameterManager::GetInstance() {
    return QoModuleSingleton<ZefraVRVPipeDiameterManager>::Get();
}

ZefraVRVPipeDiameterManager::ZefraVRVPipeDiameterManager() { ReadFromDict(); }

void ZefraVRVPipeDiameterManager::SetListData(QoList<double> list, bool first) {
    (first ? m_firstList : m_secondList) = list;
}

void ZefraVRVPipeDiameterManager::InitialData() {
    FillBuiltIn(m_firstList);
    FillBuiltIn(m_secondList);
}

void ZefraVRVPipeDiameterManager::ReadFromDict() {
    QoDtDictionary* branch = g_dictCfg.FindDict(kBranch);
    if (branch == nullptr) return;
    if (QoDtDictionary* first = branch->FindDict(kFirstKey)) {
        m_firstList.Reset();
        first->GetValue(kDiameterKey, m_firstList);
    }
    // "AIR" is made when missing, so a store with "WT" alone gains it.
    if (QoDtDictionary* second = branch->FindOrAddDict(kSecondKey)) {
        m_secondList.Reset();
        second->GetValue(kDiameterKey, m_secondList);
    }
}

void ZefraVRVPipeDiameterManager::SaveToDict() {
    QoDtDictionary* branch = g_dictCfg.FindOrAddDict(kBranch);
    if (branch == nullptr) return;
    WriteList(branch->FindOrAddDict(kFirstKey), m_firstList);
    WriteList(branch->FindOrAddDict(kSecondKey), m_secondList);
}
