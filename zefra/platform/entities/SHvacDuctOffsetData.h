#pragma once
#include "zefra/ZefraExport.h"
// The default record of a duct offset (S-bend).

#include "zefra/platform/entities/HvacFitDefaults.h"
#include "zefra/platform/mfc/CString.h"

struct ZEFRA_API SHvacDuctOffsetData {
    CString name;
    int type = 0;  // a key of the offset catalogue
    double widthA = HvacFitDefaults::kEqualSize;
    double widthB = HvacFitDefaults::kEqualSize;
    double heightA = HvacFitDefaults::kEqualSize;
    double heightB = HvacFitDefaults::kEqualSize;
    // Kept by the drawing commands for themselves; the settings never
    // store it.
    double reserved = 0.0;
    double length = HvacFitDefaults::kOffsetLength;
    double offsetDistance = HvacFitDefaults::kOffsetDistance;
    double curvature = HvacFitDefaults::kCurvature;

    friend bool operator==(const SHvacDuctOffsetData& a, const SHvacDuctOffsetData& b) {
        return a.name == b.name && a.type == b.type && a.widthA == b.widthA && a.widthB == b.widthB &&
               a.heightA == b.heightA && a.heightB == b.heightB && a.reserved == b.reserved &&
               a.length == b.length && a.offsetDistance == b.offsetDistance && a.curvature == b.curvature;
    }
    friend bool operator!=(const SHvacDuctOffsetData& a, const SHvacDuctOffsetData& b) { return !(a == b); }
};
