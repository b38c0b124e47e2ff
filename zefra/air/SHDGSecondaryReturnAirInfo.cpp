#include "zefra/air/SHDGSecondaryReturnAirInfo.h"

SHDGSecondaryReturnAirInfo::SHDGSecondaryReturnAirInfo() : PointN(22.0, 0.6, L"N") {
    PointW.SetName(L"W");
    PointW.CalByTdbAndTwb(33.2, 26.4);
    Gw = FreshAirRatio * Go;
}
