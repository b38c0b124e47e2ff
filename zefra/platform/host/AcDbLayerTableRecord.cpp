#include "zefra/platform/host/AcDbLayerTableRecord.h"

AcDbLayerTableRecord::AcDbLayerTableRecord(const CString& name, std::uint16_t colorIndex,
                                           const CString& linetype, double lineWeight)
    : m_name(name), m_colorIndex(colorIndex), m_linetype(linetype), m_lineWeight(lineWeight) {}
