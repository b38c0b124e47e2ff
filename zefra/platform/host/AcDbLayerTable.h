#pragma once
// The layers of one drawing. Layer names are unique without regard to case,
// as the host has them, and the layer "0" is always there.

#include "zefra/platform/host/AcDbLayerTableRecord.h"
#include "zefra/platform/host/AcDbObjectId.h"

#include <utility>
#include <vector>

class AcDbLayerTable {
public:
    AcDbLayerTable();

    bool has(const wchar_t* name) const;
    // The id of the named layer; false when there is none.
    bool getAt(const wchar_t* name, AcDbObjectId& id) const;
    // The layer of an id; false when the id names no layer of this table.
    bool getAt(const AcDbObjectId& id, AcDbLayerTableRecord& record) const;

    // Adds a layer and gives its id. False, with nothing added, when the name
    // is empty or already taken.
    bool add(const AcDbLayerTableRecord& record, AcDbObjectId& id);

    int count() const { return static_cast<int>(m_layers.size()); }

private:
    std::vector<std::pair<AcDbObjectId, AcDbLayerTableRecord>> m_layers;
};
