#pragma once
#include "zefra/ZefraExport.h"
// The flange of a duct, as far as the settings name its kinds.

class ZEFRA_API QoDbHvacDuctFlange {
public:
    enum EFlangeType : int {
        EFlangeNone = 0,         // drawn as a line, no flange body
        EFlangeAngleSteel = 1,   // angle-steel flange
        EFlangeCommonPlate = 2,  // common-plate (TDF) flange
    };
};
