#include "zefra/layers/HvacLayerKeys.h"

#include "zefra/layers/HvacLayerModels.h"
#include "zefra/layers/QoHvacDuctLayerManager.h"
#include "zefra/layers/SHvacSystemKind.h"

namespace HVAC {
namespace LayerKey {

CString Make(const CString& model, const CString& system, bool plan, EQoDbHvacSystemType kind) {
    CString tail;
    if (!system.IsEmpty()) {
        if (QoHvacDuctLayerManager::GetInstance()->GetSysKey(system, tail, kind)) {
            if (!model.IsEmpty()) tail += L"-" + model;
        } else {
            tail = model;
        }
    } else if (!model.IsEmpty()) {
        tail = model;
    }
    const SHvacSystemKind* row = SHvacSystemKind::Find(kind);
    if (!row) row = SHvacSystemKind::Find(ESysDuct);
    CString key = CString(row->keyPrefix) + (plan ? SHvacSystemKind::kClassPlan : SHvacSystemKind::kClassSystem);
    if (!tail.IsEmpty()) key += L"-" + tail;
    return key;
}

CString Insulation() { return L"HVAC-NT_PROJ_OTHER-NT_MODEL_INSULATION"; }
CString CommonLabel() { return L"HVAC-NT_PROJ_OTHER-NT_MODEL_COMMONLABEL"; }
CString BrokenSign() { return L"HVAC-NT_PROJ_OTHER-NT_MODEL_BROKENSIGN"; }
CString FloorLine() { return L"HVAC-NT_PROJ_OTHER-NT_MODEL_FLOORLINE"; }
CString MaterialTable() { return L"HVAC-NT_PROJ_OTHER-NT_MODEL_MATERIALTABLE"; }
CString HDGPointLabel() { return L"HVAC-NT_PROJ_HST-NT_MODEL_POINT_LABEL"; }
CString HDGLineLabel() { return L"HVAC-NT_PROJ_HST-NT_MODEL_LINE_LABEL"; }
CString HDGPoint() { return L"HVAC-NT_PROJ_HST-NT_MODEL_POINT"; }
CString HDGLine() { return L"HVAC-NT_PROJ_HST-NT_MODEL_LINE"; }
CString HDGHhr() { return L"HVAC-NT_PROJ_HST-NT_MODEL_HHR"; }
CString HDGRh() { return L"HVAC-NT_PROJ_HST-NT_MODEL_RH"; }
CString HDGH() { return L"HVAC-NT_PROJ_HST-NT_MODEL_H"; }
CString HDGD() { return L"HVAC-NT_PROJ_HST-NT_MODEL_D"; }
CString HDGT() { return L"HVAC-NT_PROJ_HST-NT_MODEL_T"; }
CString HDGHst() { return L"HVAC-NT_PROJ_HST"; }

CString Duct(const CString& system, bool plan, bool flexible) {
    if (flexible) return Make(LayerModel::kFlexDuct, system, plan, ESysDuct);
    return Pipe(system, plan, ESysDuct);
}

CString DuctLabel(const CString& system, bool plan) { return PipeLabel(system, plan, ESysDuct); }

CString Pipe(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(IsWaterSystemType(kind) ? LayerModel::kPipe : LayerModel::kDuct, system, plan, kind);
}

CString PipeLabel(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(IsWaterSystemType(kind) ? LayerModel::kPipeLabel : LayerModel::kDuctLabel, system, plan, kind);
}

CString KTPipe(const CString& system, bool plan) { return Pipe(system, plan, ESysKT); }
CString VRVPipe(const CString& system, bool plan) { return Pipe(system, plan, ESysVRV); }

CString Riser(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(LayerModel::kRiser, system, plan, kind);
}

CString RiserLabel(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(LayerModel::kRiserLabel, system, plan, kind);
}

CString Bucklebend(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(LayerModel::kBuckleBend, system, plan, kind);
}

CString Endline(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(LayerModel::kEndline, system, plan, kind);
}

CString Axisline(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(LayerModel::kAxisline, system, plan, kind);
}

// Flanges of water pipes lie with the equipment, whatever the system.
CString Flange(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    if (IsWaterSystemType(kind)) return Make(LayerModel::kEquipment, CString(), plan, kind);
    return Make(LayerModel::kFlange, system, plan, kind);
}

CString Terminal(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(LayerModel::kTerminal, system, plan, kind);
}

CString TerminalLabel(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    return Make(LayerModel::kTerminalLabel, system, plan, kind);
}

CString Equip(const CString& system, bool plan) { return Make(LayerModel::kEquip, system, plan, ESysDuct); }

CString EquipLabel(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    if (IsWaterSystemType(kind)) return Make(LayerModel::kEquipmentLabel, CString(), plan, kind);
    return Make(LayerModel::kEquipLabel, system, plan, kind);
}

CString ValveLabel(const CString& system, bool plan, EQoDbHvacSystemType kind) {
    if (IsWaterSystemType(kind)) return Make(LayerModel::kEquipmentLabel, CString(), plan, kind);
    return Make(LayerModel::kValveLabel, system, plan, kind);
}

CString Equipment(const CString& system, int location, bool plan, EQoDbHvacSystemType kind) {
    if (!IsWaterSystemType(kind)) return Make(LayerModel::kEquip, system, plan, kind);
    switch (location) {
        case ELocationOnPipe: return Make(LayerModel::kPipeEquipment, system, plan, kind);
        case ELocationOnRiser: return Make(LayerModel::kRiserEquipment, system, plan, kind);
        default: return Make(LayerModel::kEquipment, system, plan, kind);
    }
}

// Unlike other equipment, a free-standing valve of a water kind lies on the
// equipment layer without its system.
CString Valve(const CString& system, int location, bool plan, EQoDbHvacSystemType kind) {
    if (system == kBranchSystemName) return Make(LayerModel::kBranchPipeEquipment, system, plan, kind);
    if (!IsWaterSystemType(kind)) return Make(LayerModel::kValve, system, plan, kind);
    switch (location) {
        case ELocationOnPipe: return Make(LayerModel::kPipeEquipment, system, plan, kind);
        case ELocationOnRiser: return Make(LayerModel::kRiserEquipment, system, plan, kind);
        default: return Make(LayerModel::kEquipment, CString(), plan, kind);
    }
}

CString Radiator(bool plan, EQoDbHvacSystemType kind) { return Make(LayerModel::kRadiator, CString(), plan, kind); }

CString KTPipeEquip(const CString& system, bool plan) {
    return Make(LayerModel::kPipeEquipment, system, plan, ESysKT);
}

CString KTRiserEquip(const CString& system, bool plan) {
    return Make(LayerModel::kRiserEquipment, system, plan, ESysKT);
}

CString VRVPipeEquip(const CString& system, bool plan) {
    return Make(LayerModel::kPipeEquipment, system, plan, ESysVRV);
}

CString VRVRiserEquip(const CString& system, bool plan) {
    return Make(LayerModel::kRiserEquipment, system, plan, ESysVRV);
}

CString VRVFQG(bool plan) { return Make(LayerModel::kBifurcatedPipe, CString(), plan, ESysVRV); }

}  // namespace LayerKey
}  // namespace HVAC
