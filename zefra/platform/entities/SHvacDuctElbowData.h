#pragma once
#include "zefra/ZefraExport.h"
// The default record of a duct elbow.

#include "zefra/platform/entities/HvacFitDefaults.h"
#include "zefra/platform/mfc/CString.h"

struct ZEFRA_API SHvacDuctElbowData {
    CString name;
    int type = 0;  // a key of the elbow catalogue
    double widthA = HvacFitDefaults::kEqualSize;
    double widthB = HvacFitDefaults::kEqualSize;
    double heightA = HvacFitDefaults::kEqualSize;
    double heightB = HvacFitDefaults::kEqualSize;
    double curvature = HvacFitDefaults::kCurvature;
    double angle = HvacFitDefaults::kQuarterTurn;
    int segmentCount = HvacFitDefaults::kLobsterSegments;  // of a lobster-back bend

    friend bool operator==(const SHvacDuctElbowData& a, const SHvacDuctElbowData& b) {
        return a.name == b.name && a.type == b.type && a.widthA == b.widthA && a.widthB == b.widthB &&
               a.heightA == b.heightA && a.heightB == b.heightB && a.curvature == b.curvature &&
               a.angle == b.angle && a.segmentCount == b.segmentCount;
    }
    friend bool operator!=(const SHvacDuctElbowData& a, const SHvacDuctElbowData& b) { return !(a == b); }
};
