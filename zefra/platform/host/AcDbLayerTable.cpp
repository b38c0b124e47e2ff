#include "zefra/platform/host/AcDbLayerTable.h"

AcDbLayerTable::AcDbLayerTable() {
    AcDbObjectId id;
    add(AcDbLayerTableRecord(L"0", 7, L"Continuous", 0.0), id);
}

bool AcDbLayerTable::has(const wchar_t* name) const {
    AcDbObjectId id;
    return getAt(name, id);
}

bool AcDbLayerTable::getAt(const wchar_t* name, AcDbObjectId& id) const {
    if (!name) return false;
    for (const auto& layer : m_layers) {
        if (layer.second.name().CompareNoCase(name) == 0) {
            id = layer.first;
            return true;
        }
    }
    return false;
}

bool AcDbLayerTable::getAt(const AcDbObjectId& id, AcDbLayerTableRecord& record) const {
    if (id.isNull()) return false;
    for (const auto& layer : m_layers) {
        if (layer.first == id) {
            record = layer.second;
            return true;
        }
    }
    return false;
}

bool AcDbLayerTable::add(const AcDbLayerTableRecord& record, AcDbObjectId& id) {
    if (record.name().IsEmpty() || has(record.name())) return false;
    id = AcDbObjectId::MakeNew();
    m_layers.emplace_back(id, record);
    return true;
}
