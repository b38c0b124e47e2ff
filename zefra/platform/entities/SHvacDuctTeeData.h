#pragma once
#include "zefra/ZefraExport.h"
// The default record of a duct tee: main run A to B, branch C.

#include "zefra/platform/entities/HvacFitDefaults.h"
#include "zefra/platform/mfc/CString.h"

struct ZEFRA_API SHvacDuctTeeData {
    CString name;
    int type = 0;  // a key of the tee catalogue
    double widthA = HvacFitDefaults::kEqualSize;
    double widthB = HvacFitDefaults::kEqualSize;
    double widthC = HvacFitDefaults::kEqualSize;
    double heightA = HvacFitDefaults::kEqualSize;
    double heightB = HvacFitDefaults::kEqualSize;
    double heightC = HvacFitDefaults::kEqualSize;
    double curvature = HvacFitDefaults::kCurvature;
    double angle = HvacFitDefaults::kQuarterTurn;

    friend bool operator==(const SHvacDuctTeeData& a, const SHvacDuctTeeData& b) {
        return a.name == b.name && a.type == b.type && a.widthA == b.widthA && a.widthB == b.widthB &&
               a.widthC == b.widthC && a.heightA == b.heightA && a.heightB == b.heightB &&
               a.heightC == b.heightC && a.curvature == b.curvature && a.angle == b.angle;
    }
    friend bool operator!=(const SHvacDuctTeeData& a, const SHvacDuctTeeData& b) { return !(a == b); }
};
