#pragma once
#include "zefra/ZefraExport.h"
// One layer definition as the current layer standard gives it for a key:
// the layer's name, colour index, line type, line weight and line-type scale,
// its comment (for pipes, the code that starts their labels) and the text a
// settings editor shows for it. A fresh record holds the values of an empty
// definition: colour 7, "Continuous", weight 0 (the host's default), scale 1.

#include "zefra/platform/mfc/CString.h"

#include <cstdint>

class ZEFRA_API QoDtLayerDef {
public:
    explicit QoDtLayerDef(const CString& key = CString());
    QoDtLayerDef(const QoDtLayerDef&) = default;
    QoDtLayerDef& operator=(const QoDtLayerDef&) = default;
    ~QoDtLayerDef() = default;

    CString key;
    CString localName;
    CString layerName;
    std::uint16_t colorIndex = 7;
    CString lineType = L"Continuous";
    CString comment;

    double GetLineWeight() const { return m_lineWeight; }
    void SetLineWeight(double weight) { m_lineWeight = weight; }
    double GetLineScale() const { return m_lineScale; }
    void SetLineScale(double scale) { m_lineScale = scale; }

private:
    double m_lineWeight = 0.0;
    double m_lineScale = 1.0;
};
