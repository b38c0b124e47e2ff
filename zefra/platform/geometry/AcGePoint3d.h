#pragma once
#include "zefra/ZefraExport.h"
// A point in drawing space. Drawings of this suite are in millimetres, so z
// is a height in mm.

class ZEFRA_API AcGePoint3d {
public:
    AcGePoint3d() = default;
    AcGePoint3d(double px, double py, double pz) : x(px), y(py), z(pz) {}

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
