#include "zefra/layers/HvacEntLayer.h"

#include "zefra/layers/HvacLayerModels.h"
#include "zefra/layers/HvacLayerResolution.h"
#include "zefra/platform/entities/QoDbHvacCoilPipe.h"
#include "zefra/platform/entities/QoDbHvacDuct.h"
#include "zefra/platform/entities/QoDbHvacDuctFitting.h"
#include "zefra/platform/entities/QoDbHvacDuctValve.h"
#include "zefra/platform/entities/QoDbHvacEquipment.h"
#include "zefra/platform/entities/QoDbHvacFitting.h"
#include "zefra/platform/entities/QoDbHvacLabel.h"
#include "zefra/platform/entities/QoDbHvacPipe.h"
#include "zefra/platform/entities/QoDbHvacPipeEquipment.h"
#include "zefra/platform/entities/QoDbHvacPipeLabel.h"
#include "zefra/platform/entities/QoDbHvacTelescopeCase.h"
#include "zefra/platform/entities/QoDbHvacTerminal.h"
#include "zefra/platform/entities/QoDbHvacValve.h"

namespace HVAC {

namespace {

void Apply(const QoHvacEntProperty& property, AcDbEntity* entity) { property.SetTo(entity, 1.0, nullptr); }

}  // namespace

void SetHvacEntLayer(QoDbHvacDuct* duct, const CString& system, bool plan) {
    duct->SetSystemName(QoStringW(system));
    const bool flexible = duct->GetDuctType() == QoDbHvacDuct::EDuctFlexible;
    duct->SetPropDuctline(GetPropDuctLayer(system, plan, flexible));
    duct->SetPropFlange(GetPropFlangeLayer(system, plan, ESysDuct));
    duct->SetPropEndline(GetPropEndlineLayer(system, plan, ESysDuct));
    duct->SetPropAxisline(GetPropAxislineLayer(system, plan, ESysDuct));
}

void SetHvacEntLayer(QoDbHvacDuctFitting* fitting, const CString& system, bool plan) {
    fitting->SetSystemName(QoStringW(system));
    fitting->SetPropDuctline(GetPropDuctLayer(system, plan, false));
    fitting->SetPropEndline(GetPropEndlineLayer(system, plan, ESysDuct));
    fitting->SetPropAxisline(GetPropAxislineLayer(system, plan, ESysDuct));
}

void SetHvacEntLayer(QoDbHvacEquipment* equipment, const CString& system, bool plan) {
    Apply(GetPropEquipLayer(system, plan), equipment);
}

void SetHvacEntLayer(QoDbHvacDuctValve* valve, const CString& system, bool plan) {
    Apply(GetPropValveLayer(system, ELocationFree, plan, ESysDuct), valve);
}

void SetHvacEntLayer(QoDbHvacLabel* label, const CString& system, bool plan) {
    switch (label->GetLabelType()) {
        case QoDbHvacLabel::ELabelDuct:
            Apply(GetPropDuctLabelLayer(system, plan), label);
            return;
        case QoDbHvacLabel::ELabelEquip:
            switch (label->GetEquipLabelType()) {
                case QoDbHvacLabel::EEquipLabelTerminal:
                    Apply(GetPropTerminalLabelLayer(system, plan, ESysDuct), label);
                    return;
                case QoDbHvacLabel::EEquipLabelValve:
                    Apply(GetPropValveLabelLayer(system, plan, ESysDuct), label);
                    return;
            }
            return;
    }
}

void SetHvacEntLayer(QoDbHvacTerminal* terminal, const CString& system, bool plan) {
    Apply(GetPropTerminalLayer(system, plan, ESysDuct), terminal);
}

void SetHvacEntLayer(QoDbHvacPipe* pipe, const CString& system, bool plan, EQoDbHvacSystemType kind) {
    QoHvacEntProperty property;
    CString preCode;
    if (system.Find(kBranchSystemName) >= 0) {
        property = GetPropModelLayer(LayerModel::kBranchPipe, CString(), plan, kind);
        preCode = GetModelLayerComment(LayerModel::kBranchPipe, CString(), plan, kind);
    } else if (pipe->GetPipeType() == QoDbHvacPipe::EPipeRiser) {
        property = GetPropRiserLayer(system, plan, kind);
        preCode = GetModelLayerComment(LayerModel::kRiser, system, plan, kind);
    } else if (pipe->GetPipeType() == QoDbHvacPipe::EPipeBuckleBend) {
        property = GetPropBucklebendLayer(system, plan, kind);
        preCode = GetModelLayerComment(LayerModel::kBuckleBend, system, plan, kind);
    } else {
        property = GetPropPipeLayer(system, plan, kind);
        preCode = GetModelLayerComment(LayerModel::kPipe, system, plan, kind);
    }
    pipe->SetPreCode(QoStringW(preCode));
    Apply(property, pipe);
    pipe->SetSideLineWidth(property.lineWeight);
    pipe->SetPropFlange(GetPropFlangeLayer(system, plan, kind));
    pipe->SetPropEndline(GetPropEndlineLayer(system, plan, kind));
    pipe->SetPropAxisline(GetPropAxislineLayer(system, plan, kind));
}

void SetHvacEntLayer(QoDbHvacFitting* fitting, const CString& system, bool plan, EQoDbHvacSystemType kind) {
    if (fitting->GetFittingType() == QoDbHvacFitting::EFittingVRVBranch) {
        const QoHvacEntProperty property = GetPropVRVFQGLayer(plan);
        Apply(property, fitting);
        fitting->SetSideLineWidth(property.lineWeight);
        return;
    }
    fitting->SetSystemName(QoStringW(system));
    const QoHvacEntProperty property = GetPropPipeLayer(system, plan, kind);
    Apply(property, fitting);
    fitting->SetSideLineWidth(property.lineWeight);
    fitting->SetPropFlange(GetPropFlangeLayer(system, plan, kind));
    fitting->SetPropEndline(GetPropEndlineLayer(system, plan, kind));
    fitting->SetPropAxisline(GetPropAxislineLayer(system, plan, kind));
}

void SetHvacEntLayer(QoDbHvacPipeLabel* label, const CString& system, bool plan, EQoDbHvacSystemType kind) {
    switch (label->GetLabelType()) {
        case QoDbHvacPipeLabel::ELabelPipe: Apply(GetPropPipeLabelLayer(system, plan, kind), label); return;
        case QoDbHvacPipeLabel::ELabelEquipment: Apply(GetPropEquipLabelLayer(system, plan, kind), label); return;
        case QoDbHvacPipeLabel::ELabelRiser: Apply(GetPropRiserLabelLayer(system, plan, kind), label); return;
    }
}

void SetHvacEntLayer(QoDbHvacPipeEquipment* equipment, const CString& system, int location, bool plan,
                     EQoDbHvacSystemType kind) {
    equipment->SetSystemName(QoStringW(system));
    switch (equipment->GetEquipType()) {
        case QoDbHvacPipeEquipment::EEquipRadiator:
        case QoDbHvacPipeEquipment::EEquipRadiatorGroup: {
            const QoHvacEntProperty property = GetPropRadiatorLayer(plan, kind);
            Apply(property, equipment);
            equipment->SetRadLineWidth(property.lineWeight);
            return;
        }
        case QoDbHvacPipeEquipment::EEquipOnRiser: {
            const QoHvacEntProperty property = GetPropRiserLayer(system, plan, kind);
            Apply(property, equipment);
            equipment->SetRadLineWidth(property.lineWeight);
            return;
        }
        default: Apply(GetPropEquipmentLayer(system, location, plan, kind), equipment); return;
    }
}

void SetHvacEntLayer(QoDbHvacValve* valve, const CString& system, int location, bool plan,
                     EQoDbHvacSystemType kind) {
    valve->SetSystemName(QoStringW(system));
    Apply(GetPropValveLayer(system, location, plan, kind), valve);
}

void SetHvacEntLayer(QoDbHvacCoilPipe* coil) {
    const QoHvacEntProperty supply = GetPropModelLayer(LayerModel::kPipe, L"供水", true, ESysDBCN);
    const QoHvacEntProperty back = GetPropModelLayer(LayerModel::kPipe, L"回水", true, ESysDBCN);
    Apply(supply, coil);
    coil->SetSideLineWidth(supply.lineWeight);
    coil->SetPropBackPipe(back);
}

void SetHvacEntLayer(QoDbHvacTelescopeCase* telescopeCase) {
    Apply(GetPropModelLayer(LayerModel::kTelescope, CString(), true, ESysDBCN), telescopeCase);
}

}  // namespace HVAC
