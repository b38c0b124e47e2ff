#pragma once
#include "zefra/ZefraExport.h"
// The default record of a duct transition (reducer).

#include "zefra/platform/entities/HvacFitDefaults.h"
#include "zefra/platform/mfc/CString.h"

struct ZEFRA_API SHvacDuctTransData {
    CString name;
    int type = 0;  // a key of the transition catalogue
    double widthA = HvacFitDefaults::kEqualSize;
    double widthB = HvacFitDefaults::kEqualSize;
    double heightA = HvacFitDefaults::kEqualSize;
    double heightB = HvacFitDefaults::kEqualSize;
    int sectionLine = 1;  // section indicator line
    int calcType = 0;
    double eccentricity = 0.0;
    double length = HvacFitDefaults::kTransitionLength;
    double angle = HvacFitDefaults::kTaperAngle;

    friend bool operator==(const SHvacDuctTransData& a, const SHvacDuctTransData& b) {
        return a.name == b.name && a.type == b.type && a.widthA == b.widthA && a.widthB == b.widthB &&
               a.heightA == b.heightA && a.heightB == b.heightB && a.sectionLine == b.sectionLine &&
               a.calcType == b.calcType && a.eccentricity == b.eccentricity && a.length == b.length &&
               a.angle == b.angle;
    }
    friend bool operator!=(const SHvacDuctTransData& a, const SHvacDuctTransData& b) { return !(a == b); }
};
