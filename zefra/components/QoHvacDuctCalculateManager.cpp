#include "zefra/components/QoHvacDuctCalculateManager.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/platform/airlib/Air.h"

namespace {

const wchar_t* const kBranch = L"ZEFRA\\CALCONDITION";

}  // namespace

QoHvacDuctCalculateManager* QoHvacDuctCalculateManager::GetInstance() {
    return QoModuleSingleton<QoHvacDuctCalculateManager>::Get();
}

QoHvacDuctCalculateManager::QoHvacDuctCalculateManager()
    : m_pressure(101325.0),
      m_mobileMedia(L"空气"),
      m_temperature(20.0),
      m_relativeHumidity(60.0),
      m_density(AIR::GetDen(m_temperature, m_relativeHumidity / 100.0, m_pressure)),
      m_kinematicViscosity(AIR::GetKV(m_temperature) * 1000000.0),
      m_windVelocityMin(6.0),
      m_windVelocityMax(8.0),
      m_bmzMin(0.8),
      m_bmzMax(1.4),
      m_gjXz(0),
      m_dict(nullptr) {
    ReadFromDict();
}

bool QoHvacDuctCalculateManager::FindDict() {
    QoDtDictionary* dict = g_dictCfg.FindOrAddDict(kBranch);
    if (dict != nullptr && dict->IsDict()) m_dict = dict;
    return m_dict != nullptr;
}

void QoHvacDuctCalculateManager::ReadFromDict() {
    if (!FindDict()) return;
    m_dict->GetValue(L"Pressure", m_pressure);
    m_dict->GetValue(L"MobileMedia", m_mobileMedia);
    m_dict->GetValue(L"Temperature", m_temperature);
    m_dict->GetValue(L"RelativeHumidity", m_relativeHumidity);
    m_dict->GetValue(L"Density", m_density);
    m_dict->GetValue(L"KinematicViscosity", m_kinematicViscosity);
    m_dict->GetValue(L"WindVelocityMin", m_windVelocityMin);
    m_dict->GetValue(L"WindVelocityMax", m_windVelocityMax);
    m_dict->GetValue(L"BmzMin", m_bmzMin);
    m_dict->GetValue(L"BmzMax", m_bmzMax);
    m_dict->GetValue(L"GjXz", m_gjXz);
}

void QoHvacDuctCalculateManager::SaveToDict() {
    if (!FindDict()) return;
    m_dict->SetValue(L"Pressure", m_pressure);
    m_dict->SetValue(L"MobileMedia", m_mobileMedia);
    m_dict->SetValue(L"Temperature", m_temperature);
    m_dict->SetValue(L"RelativeHumidity", m_relativeHumidity);
    m_dict->SetValue(L"Density", m_density);
    m_dict->SetValue(L"KinematicViscosity", m_kinematicViscosity);
    m_dict->SetValue(L"WindVelocityMin", m_windVelocityMin);
    m_dict->SetValue(L"WindVelocityMax", m_windVelocityMax);
    m_dict->SetValue(L"BmzMin", m_bmzMin);
    m_dict->SetValue(L"BmzMax", m_bmzMax);
    m_dict->SetValue(L"GjXz", m_gjXz);
}
