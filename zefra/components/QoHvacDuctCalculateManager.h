#pragma once
#include "zefra/ZefraExport.h"
// Conditions of duct calculation: the air state that gives density and
// kinematic viscosity, and the design ranges of air velocity and of the
// specific friction loss ("Bmz"). The calculation commands read the public
// fields; this class only keeps them and stores them in
// "ZEFRA\CALCONDITION" of g_dictCfg.
//
// Density and viscosity are worked out once, from the built-in air state,
// when the instance is built. After that they are plain stored values:
// whoever changes temperature, humidity or pressure sets them too.

#include "zefra/module/QoModuleSingleton.h"
#include "zefra/platform/mfc/CString.h"

class QoDtDictionary;

class ZEFRA_API QoHvacDuctCalculateManager {
public:
    static QoHvacDuctCalculateManager* GetInstance();

    QoHvacDuctCalculateManager(const QoHvacDuctCalculateManager&) = default;
    QoHvacDuctCalculateManager& operator=(const QoHvacDuctCalculateManager&) = default;
    ~QoHvacDuctCalculateManager() = default;

    // Both make "ZEFRA\CALCONDITION" when it is missing. A key missing from
    // the store keeps its field.
    void ReadFromDict();
    void SaveToDict();

    double m_pressure;            // Pa
    CString m_mobileMedia;        // the flowing medium
    double m_temperature;         // °C
    double m_relativeHumidity;    // percent: 60 is 60 %
    double m_density;             // kg/m³
    double m_kinematicViscosity;  // m²/s × 10^6
    double m_windVelocityMin;     // m/s
    double m_windVelocityMax;     // m/s
    double m_bmzMin;
    double m_bmzMax;
    int m_gjXz;
    // The dictionary last found; borrowed from the tree.
    QoDtDictionary* m_dict;

private:
    friend class QoModuleSingleton<QoHvacDuctCalculateManager>;
    QoHvacDuctCalculateManager();

    // Refreshes m_dict; false when there is no dictionary to work on.
    bool FindDict();
};
