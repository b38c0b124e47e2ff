#pragma once
#include "zefra/ZefraExport.h"
// The default record of a duct cross: main run A to B, branches C and D.

#include "zefra/platform/entities/HvacFitDefaults.h"
#include "zefra/platform/mfc/CString.h"

struct ZEFRA_API SHvacDuctCrossData {
    CString name;
    int type = 0;  // a key of the cross catalogue
    double widthA = HvacFitDefaults::kEqualSize;
    double widthB = HvacFitDefaults::kEqualSize;
    double widthC = HvacFitDefaults::kEqualSize;
    double widthD = HvacFitDefaults::kEqualSize;
    double heightA = HvacFitDefaults::kEqualSize;
    double heightB = HvacFitDefaults::kEqualSize;
    double heightC = HvacFitDefaults::kEqualSize;
    double heightD = HvacFitDefaults::kEqualSize;
    double curvature = HvacFitDefaults::kCurvature;
    double angle = HvacFitDefaults::kQuarterTurn;

    friend bool operator==(const SHvacDuctCrossData& a, const SHvacDuctCrossData& b) {
        return a.name == b.name && a.type == b.type && a.widthA == b.widthA && a.widthB == b.widthB &&
               a.widthC == b.widthC && a.widthD == b.widthD && a.heightA == b.heightA &&
               a.heightB == b.heightB && a.heightC == b.heightC && a.heightD == b.heightD &&
               a.curvature == b.curvature && a.angle == b.angle;
    }
    friend bool operator!=(const SHvacDuctCrossData& a, const SHvacDuctCrossData& b) { return !(a == b); }
};
