#pragma once
#include "zefra/ZefraExport.h"
// One step of a pipe flange table: from the nominal size `start` on, the
// flange is `thickness` thick and stands out by `extrude`.

struct ZEFRA_API SFlangeExtrudeData {
    double extrude = 0.0;
    double thickness = 1.0;
    double start = -1.0;

    friend bool operator==(const SFlangeExtrudeData& a, const SFlangeExtrudeData& b) {
        return a.extrude == b.extrude && a.thickness == b.thickness && a.start == b.start;
    }
    friend bool operator!=(const SFlangeExtrudeData& a, const SFlangeExtrudeData& b) { return !(a == b); }
    // Steps order by where they start.
    friend bool operator<(const SFlangeExtrudeData& a, const SFlangeExtrudeData& b) { return a.start < b.start; }
    friend bool operator>(const SFlangeExtrudeData& a, const SFlangeExtrudeData& b) { return b < a; }
};
