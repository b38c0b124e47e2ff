#pragma once
#include "zefra/ZefraExport.h"
// The two lists of diameters a VRV pipe may choose from, kept below
// g_dictCfg "ZEFRA\WATER\VRVPIPE": the first list in "WT", the second in
// "AIR", each as the number array "DN". Reading doesn't fill in anything
// built-in; the built-in series comes only on request (InitialData, which
// a settings dialog reaches through RestoreBuiltInSeries).

#include "zefra/containers/QoList.h"
#include "zefra/module/QoModuleSingleton.h"

class ZEFRA_API ZefraVRVPipeDiameterManager {
public:
    static ZefraVRVPipeDiameterManager* GetInstance();

    ZefraVRVPipeDiameterManager(const ZefraVRVPipeDiameterManager&) = default;
    ZefraVRVPipeDiameterManager& operator=(const ZefraVRVPipeDiameterManager&) = default;
    ~ZefraVRVPipeDiameterManager() = default;

    // `first` picks the list of "WT", otherwise that of "AIR".
    QoList<double> GetListData(bool first) const { return first ? m_firstList : m_secondList; }
    void SetListData(QoList<double> list, bool first);

    // Both lists become the built-in series, in memory only.
    void RestoreBuiltInSeries() { InitialData(); }

    void ReadFromDict();
    // Writes the tree in memory; HVAC::SaveConfigData puts it on disk.
    void SaveToDict();

protected:
    void InitialData();

private:
    friend class QoModuleSingleton<ZefraVRVPipeDiameterManager>;
    ZefraVRVPipeDiameterManager();

    QoList<double> m_firstList;
    QoList<double> m_secondList;
};
