#include "zefra/layers/HvacLayerResolution.h"

#include "zefra/layers/HvacLayerKeys.h"
#include "zefra/layers/QoDtInitLayer.h"
#include "zefra/layers/QoHvacDuctLayerManager.h"

namespace HVAC {

CString MakeLayerKey(const CString& model, const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return LayerKey::Make(model, system, plan, kind);
}

QoHvacEntProperty GetPropOfLayerKey(const CString& key) {
    QoHvacEntProperty property;
    if (!QoHvacDuctLayerManager::GetInstance()->GetLayerProp(key, property))
        property.layerId = QoDtInitLayer(key, nullptr);
    return property;
}

QoHvacEntProperty GetPropModelLayer(const CString& model, const CString& system, bool plan,
                                    EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(MakeLayerKey(model, system, plan, kind));
}

CString GetModelLayerComment(const CString& model, const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return QoHvacDuctLayerManager::GetInstance()->GetLayerComment(MakeLayerKey(model, system, plan, kind));
}

QoHvacEntProperty GetPropInsulation() { return GetPropOfLayerKey(LayerKey::Insulation()); }
QoHvacEntProperty GetPropCommonLabel() { return GetPropOfLayerKey(LayerKey::CommonLabel()); }
QoHvacEntProperty GetPropBrokenSign() { return GetPropOfLayerKey(LayerKey::BrokenSign()); }
QoHvacEntProperty GetPropFloorLine() { return GetPropOfLayerKey(LayerKey::FloorLine()); }
QoHvacEntProperty GetPropMaterialLayer() { return GetPropOfLayerKey(LayerKey::MaterialTable()); }
QoHvacEntProperty GetPropHDG_Point_Label_Layer() { return GetPropOfLayerKey(LayerKey::HDGPointLabel()); }
QoHvacEntProperty GetPropHDG_Line_Label_Layer() { return GetPropOfLayerKey(LayerKey::HDGLineLabel()); }
QoHvacEntProperty GetPropHDG_Point_Layer() { return GetPropOfLayerKey(LayerKey::HDGPoint()); }
QoHvacEntProperty GetPropHDG_Line_Layer() { return GetPropOfLayerKey(LayerKey::HDGLine()); }
QoHvacEntProperty GetPropHDG_Hhr_Layer() { return GetPropOfLayerKey(LayerKey::HDGHhr()); }
QoHvacEntProperty GetPropHDG_rh_Layer() { return GetPropOfLayerKey(LayerKey::HDGRh()); }
QoHvacEntProperty GetPropHDG_h_Layer() { return GetPropOfLayerKey(LayerKey::HDGH()); }
QoHvacEntProperty GetPropHDG_d_Layer() { return GetPropOfLayerKey(LayerKey::HDGD()); }
QoHvacEntProperty GetPropHDG_t_Layer() { return GetPropOfLayerKey(LayerKey::HDGT()); }
QoHvacEntProperty GetPropHDG_Hst_Layer() { return GetPropOfLayerKey(LayerKey::HDGHst()); }

QoHvacEntProperty GetPropDuctLayer(const CString& system, bool plan, bool flexible) {
    return GetPropOfLayerKey(LayerKey::Duct(system, plan, flexible));
}

QoHvacEntProperty GetPropDuctLabelLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::DuctLabel(system, plan));
}

QoHvacEntProperty GetPropPipeLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Pipe(system, plan, kind));
}

QoHvacEntProperty GetPropPipeLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::PipeLabel(system, plan, kind));
}

QoHvacEntProperty GetPropKTPipeLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::KTPipe(system, plan));
}

QoHvacEntProperty GetPropVRVPipeLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::VRVPipe(system, plan));
}

QoHvacEntProperty GetPropRiserLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Riser(system, plan, kind));
}

QoHvacEntProperty GetPropRiserLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::RiserLabel(system, plan, kind));
}

QoHvacEntProperty GetPropBucklebendLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Bucklebend(system, plan, kind));
}

QoHvacEntProperty GetPropEndlineLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Endline(system, plan, kind));
}

QoHvacEntProperty GetPropAxislineLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Axisline(system, plan, kind));
}

QoHvacEntProperty GetPropFlangeLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Flange(system, plan, kind));
}

QoHvacEntProperty GetPropTerminalLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Terminal(system, plan, kind));
}

QoHvacEntProperty GetPropTerminalLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::TerminalLabel(system, plan, kind));
}

QoHvacEntProperty GetPropEquipLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::Equip(system, plan));
}

QoHvacEntProperty GetPropEquipLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::EquipLabel(system, plan, kind));
}

QoHvacEntProperty GetPropValveLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::ValveLabel(system, plan, kind));
}

QoHvacEntProperty GetPropEquipmentLayer(const CString& system, int location, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Equipment(system, location, plan, kind));
}

QoHvacEntProperty GetPropValveLayer(const CString& system, int location, bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Valve(system, location, plan, kind));
}

QoHvacEntProperty GetPropRadiatorLayer(bool plan, EQoDbHvacSystemType kind) {
    return GetPropOfLayerKey(LayerKey::Radiator(plan, kind));
}

QoHvacEntProperty GetPropKTPipeEquipLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::KTPipeEquip(system, plan));
}

QoHvacEntProperty GetPropKTRiserEquipLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::KTRiserEquip(system, plan));
}

QoHvacEntProperty GetPropVRVPipeEquipLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::VRVPipeEquip(system, plan));
}

QoHvacEntProperty GetPropVRVRiserEquipLayer(const CString& system, bool plan) {
    return GetPropOfLayerKey(LayerKey::VRVRiserEquip(system, plan));
}

QoHvacEntProperty GetPropVRVFQGLayer(bool plan) {
    return GetPropOfLayerKey(LayerKey::VRVFQG(plan));
}

}  // namespace HVAC
