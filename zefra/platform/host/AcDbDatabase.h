#pragma once
// A drawing, as far as this system reaches into it: its layer table and the
// settings of space (room) labels that the drawing keeps for itself.

#include "zefra/platform/host/AcDbLayerTable.h"
#include "zefra/platform/mfc/CString.h"

class AcDbDatabase {
public:
    AcDbDatabase() = default;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    AcDbLayerTable& layerTable() { return m_layers; }
    const AcDbLayerTable& layerTable() const { return m_layers; }

    double hvacSpaceTextSize() const { return m_hvacSpaceTextSize; }
    void setHvacSpaceTextSize(double size) { m_hvacSpaceTextSize = size; }
    // Empty until set.
    const CString& hvacSpaceVisibleField() const { return m_hvacSpaceVisibleField; }
    void setHvacSpaceVisibleField(const CString& fields) { m_hvacSpaceVisibleField = fields; }

private:
    AcDbLayerTable m_layers;
    double m_hvacSpaceTextSize = 0.0;
    CString m_hvacSpaceVisibleField;
};

// The host's services come with the database, as callers expect.
#include "zefra/platform/host/AcDbHostApplicationServices.h"
