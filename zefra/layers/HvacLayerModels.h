#pragma once
// The model keys: the last part of a layer key, naming what is drawn.

namespace HVAC {
namespace LayerModel {

inline constexpr const wchar_t* kDuct = L"NT_MODEL_DUCT";
inline constexpr const wchar_t* kFlexDuct = L"NT_MODEL_FLEXDUCT";
inline constexpr const wchar_t* kDuctLabel = L"NT_MODEL_DUCT-NT_LABEL";
inline constexpr const wchar_t* kPipe = L"NT_MODEL_PIPE";
inline constexpr const wchar_t* kPipeLabel = L"NT_MODEL_PIPELABEL";
inline constexpr const wchar_t* kRiser = L"NT_MODEL_RISER";
inline constexpr const wchar_t* kRiserLabel = L"NT_MODEL_RISERLABEL";
inline constexpr const wchar_t* kBuckleBend = L"NT_MODEL_BUCKLEBEND";
inline constexpr const wchar_t* kEndline = L"NT_MODEL_ENDLINE";
inline constexpr const wchar_t* kAxisline = L"NT_MODEL_AXISLINE";
inline constexpr const wchar_t* kFlange = L"NT_MODEL_FLANGE";
inline constexpr const wchar_t* kTerminal = L"NT_MODEL_TERMINAL";
inline constexpr const wchar_t* kTerminalLabel = L"NT_MODEL_TERMINAL-NT_LABEL";
inline constexpr const wchar_t* kEquip = L"NT_MODEL_EQUIP";
inline constexpr const wchar_t* kEquipLabel = L"NT_MODEL_EQUIP-NT_LABEL";
inline constexpr const wchar_t* kValve = L"NT_MODEL_VALVE";
inline constexpr const wchar_t* kValveLabel = L"NT_MODEL_VALVE-NT_LABEL";
inline constexpr const wchar_t* kEquipment = L"NT_MODEL_EQUIPMENT";
inline constexpr const wchar_t* kEquipmentLabel = L"NT_MODEL_EQUIPMENTLABEL";
inline constexpr const wchar_t* kPipeEquipment = L"NT_MODEL_PIPEEQUIPMENT";
inline constexpr const wchar_t* kRiserEquipment = L"NT_MODEL_RISEREQUIPMENT";
inline constexpr const wchar_t* kBranchPipe = L"NT_MODEL_BRANCHPIPE";
inline constexpr const wchar_t* kBranchPipeEquipment = L"NT_MODEL_BRANCHPIPEEQUIPMENT";
inline constexpr const wchar_t* kRadiator = L"NT_MODEL_RADIATOR";
inline constexpr const wchar_t* kBifurcatedPipe = L"NT_MODEL_BIFURCATEDPIPE";
inline constexpr const wchar_t* kTelescope = L"NT_MODEL_TELESCOPE";

}  // namespace LayerModel

// The system name of branch pipes and their valves (支管).
inline constexpr const wchar_t* kBranchSystemName = L"支管";

// Where a piece of equipment or a valve sits, for the water kinds.
enum EHvacEquipLocation : int { ELocationFree = 0, ELocationOnPipe = 1, ELocationOnRiser = 2 };

}  // namespace HVAC
