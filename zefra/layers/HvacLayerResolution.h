#pragma once
#include "zefra/ZefraExport.h"
// From what is drawn to its layer. A layer key is composed from the kind's
// prefix, the drawing class (plan or system diagram), the system's key and a
// model key; the current layer standard gives the key's layer. Systems are
// passed by display name; a name the register doesn't know drops out of the
// key. Every function gives a property value that names a layer: a key
// without a definition still gets one (see QoDtInitLayer), with scale 1 and
// the default weight.

#include "zefra/layers/EQoDbHvacSystemType.h"
#include "zefra/platform/entities/QoHvacEntProperty.h"
#include "zefra/platform/mfc/CString.h"

ZEFRA_API_BEGIN

namespace HVAC {

// prefix + class [+ "-" + system key] [+ "-" + model]; see HVAC::LayerKey.
CString MakeLayerKey(const CString& model, const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropModelLayer(const CString& model, const CString& system, bool plan,
                                    EQoDbHvacSystemType kind);
CString GetModelLayerComment(const CString& model, const CString& system, bool plan, EQoDbHvacSystemType kind);
// The property of any layer key (a missing definition still gives a layer).
QoHvacEntProperty GetPropOfLayerKey(const CString& key);

// Fixed layers: general drawing matter and the enthalpy-humidity chart.
QoHvacEntProperty GetPropInsulation();
QoHvacEntProperty GetPropCommonLabel();
QoHvacEntProperty GetPropBrokenSign();
QoHvacEntProperty GetPropFloorLine();
QoHvacEntProperty GetPropMaterialLayer();
QoHvacEntProperty GetPropHDG_Point_Label_Layer();
QoHvacEntProperty GetPropHDG_Line_Label_Layer();
QoHvacEntProperty GetPropHDG_Point_Layer();
QoHvacEntProperty GetPropHDG_Line_Layer();
QoHvacEntProperty GetPropHDG_Hhr_Layer();
QoHvacEntProperty GetPropHDG_rh_Layer();
QoHvacEntProperty GetPropHDG_h_Layer();
QoHvacEntProperty GetPropHDG_d_Layer();
QoHvacEntProperty GetPropHDG_t_Layer();
QoHvacEntProperty GetPropHDG_Hst_Layer();

// Layers of systems. The water kinds are all but ESysDuct.
QoHvacEntProperty GetPropDuctLayer(const CString& system, bool plan, bool flexible);
QoHvacEntProperty GetPropDuctLabelLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropPipeLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropPipeLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropKTPipeLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropVRVPipeLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropRiserLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropRiserLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropBucklebendLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropEndlineLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropAxislineLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
// Water kinds: the equipment layer, without the system.
QoHvacEntProperty GetPropFlangeLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropTerminalLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropTerminalLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropEquipLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropEquipLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropValveLabelLayer(const CString& system, bool plan, EQoDbHvacSystemType kind);
// location: 1 on a pipe, 2 on a riser, anything else free-standing; read
// for the water kinds only.
QoHvacEntProperty GetPropEquipmentLayer(const CString& system, int location, bool plan, EQoDbHvacSystemType kind);
// The system "支管" (exactly) means a branch-pipe valve, for every kind.
QoHvacEntProperty GetPropValveLayer(const CString& system, int location, bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropRadiatorLayer(bool plan, EQoDbHvacSystemType kind);
QoHvacEntProperty GetPropKTPipeEquipLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropKTRiserEquipLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropVRVPipeEquipLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropVRVRiserEquipLayer(const CString& system, bool plan);
QoHvacEntProperty GetPropVRVFQGLayer(bool plan);

}  // namespace HVAC

ZEFRA_API_END
