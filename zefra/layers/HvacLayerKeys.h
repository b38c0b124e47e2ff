#pragma once
// The layer key of each sort of drawn thing: the keys behind the
// HVAC::GetProp... functions, one function here for each of them, with the
// same arguments. Systems are display names; one that the register doesn't
// know drops out of the key.

#include "zefra/layers/EQoDbHvacSystemType.h"
#include "zefra/platform/mfc/CString.h"

namespace HVAC {
namespace LayerKey {

// prefix + class [+ "-" + system key] [+ "-" + model]. A kind outside the
// six takes the duct prefix and never has a system part.
CString Make(const CString& model, const CString& system, bool plan, EQoDbHvacSystemType kind);

CString Insulation();
CString CommonLabel();
CString BrokenSign();
CString FloorLine();
CString MaterialTable();
CString HDGPointLabel();
CString HDGLineLabel();
CString HDGPoint();
CString HDGLine();
CString HDGHhr();
CString HDGRh();
CString HDGH();
CString HDGD();
CString HDGT();
CString HDGHst();

CString Duct(const CString& system, bool plan, bool flexible);
CString DuctLabel(const CString& system, bool plan);
CString Pipe(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString PipeLabel(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString KTPipe(const CString& system, bool plan);
CString VRVPipe(const CString& system, bool plan);
CString Riser(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString RiserLabel(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString Bucklebend(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString Endline(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString Axisline(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString Flange(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString Terminal(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString TerminalLabel(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString Equip(const CString& system, bool plan);
CString EquipLabel(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString ValveLabel(const CString& system, bool plan, EQoDbHvacSystemType kind);
CString Equipment(const CString& system, int location, bool plan, EQoDbHvacSystemType kind);
CString Valve(const CString& system, int location, bool plan, EQoDbHvacSystemType kind);
CString Radiator(bool plan, EQoDbHvacSystemType kind);
CString KTPipeEquip(const CString& system, bool plan);
CString KTRiserEquip(const CString& system, bool plan);
CString VRVPipeEquip(const CString& system, bool plan);
CString VRVRiserEquip(const CString& system, bool plan);
CString VRVFQG(bool plan);

}  // namespace LayerKey
}  // namespace HVAC
