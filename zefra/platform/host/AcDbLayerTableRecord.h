#pragma once
// One layer of a drawing: its name, colour index, line type and line weight.

#include "zefra/platform/mfc/CString.h"

#include <cstdint>

class AcDbLayerTableRecord {
public:
    AcDbLayerTableRecord() = default;
    AcDbLayerTableRecord(const CString& name, std::uint16_t colorIndex, const CString& linetype,
                         double lineWeight);

    const CString& name() const { return m_name; }
    void setName(const CString& name) { m_name = name; }

    // Colour index of the host's palette: 1 red ... 7 white/black.
    std::uint16_t colorIndex() const { return m_colorIndex; }
    void setColorIndex(std::uint16_t index) { m_colorIndex = index; }

    const CString& linetypeName() const { return m_linetype; }
    void setLinetypeName(const CString& linetype) { m_linetype = linetype; }

    // In millimetres; 0 is the host's default weight.
    double lineWeight() const { return m_lineWeight; }
    void setLineWeight(double weight) { m_lineWeight = weight; }

private:
    CString m_name;
    std::uint16_t m_colorIndex = 7;
    CString m_linetype = L"Continuous";
    double m_lineWeight = 0.0;
};
