#include "zefra/layers/SHvacSystemKind.h"

namespace HVAC {

const wchar_t* const SHvacSystemKind::kClassPlan = L"NT_CLASS_PLANE";
const wchar_t* const SHvacSystemKind::kClassSystem = L"NT_CLASS_SYS";

namespace {
const SHvacSystemKind kRows[] = {
    {ESysDuct, L"通风", L"系统\\风管系统", L"NT_DUCTSYS_SET", L"HVAC-NT_PROJ_TFGC-"},
    {ESysKT, L"空调水路", L"系统\\空调水路", L"WATER\\NT_KT_SET", L"HVAC-NT_PROJ_KT-"},
    {ESysVRV, L"多联机", L"系统\\多联机", L"WATER\\NT_VRV_SET", L"HVAC-NT_PROJ_VRV-"},
    {ESysDBCN, L"地板采暖", L"系统\\地板采暖", L"HEAINTG\\NT_DBCN_SET", L"HVAC-NT_PROJ_DBCN-"},
    {ESysFHCN, L"分户采暖", L"系统\\分户采暖", L"HEAINTG\\NT_FHCN_SET", L"HVAC-NT_PROJ_FHCN-"},
    {ESysCZCN, L"垂直采暖", L"系统\\垂直采暖", L"HEAINTG\\NT_CZCN_SET", L"HVAC-NT_PROJ_CZCN-"},
};
constexpr int kRowCount = static_cast<int>(sizeof(kRows) / sizeof(kRows[0]));
}  // namespace

const SHvacSystemKind* SHvacSystemKind::Find(EQoDbHvacSystemType kind) {
    for (const SHvacSystemKind& row : kRows)
        if (row.kind == kind) return &row;
    return nullptr;
}

const SHvacSystemKind* SHvacSystemKind::FindByLayerKey(const CString& layerKey) {
    for (const SHvacSystemKind& row : kRows)
        if (layerKey.Find(row.keyPrefix) == 0) return &row;
    return nullptr;
}

const SHvacSystemKind* SHvacSystemKind::Rows(int& count) {
    count = kRowCount;
    return kRows;
}

bool SHvacSystemKind::RemoveSystemPart(const CString& layerKey, const CString& systemKey,
                                       CString& modelKey) const {
    if (systemKey.IsEmpty()) return false;
    for (const wchar_t* drawingClass : {kClassPlan, kClassSystem}) {
        const CString head = CString(keyPrefix) + drawingClass;
        const CString withSystem = head + L"-" + systemKey;
        if (layerKey.Left(withSystem.GetLength()) != withSystem) continue;
        const CString rest = layerKey.Mid(withSystem.GetLength());
        if (rest.IsEmpty() || rest[0] == L'-') {
            modelKey = head + rest;
            return true;
        }
    }
    return false;
}

bool SHvacSystemKind::ReplaceSystemPart(const CString& layerKey, const CString& systemKey,
                                        const CString& newSystemKey, CString& result) const {
    if (systemKey.IsEmpty()) return false;
    for (const wchar_t* drawingClass : {kClassPlan, kClassSystem}) {
        const CString head = CString(keyPrefix) + drawingClass + L"-";
        const CString withSystem = head + systemKey;
        if (layerKey.Left(withSystem.GetLength()) != withSystem) continue;
        const CString rest = layerKey.Mid(withSystem.GetLength());
        if (rest.IsEmpty() || rest[0] == L'-') {
            result = head + newSystemKey + rest;
            return true;
        }
    }
    return false;
}

}  // namespace HVAC
