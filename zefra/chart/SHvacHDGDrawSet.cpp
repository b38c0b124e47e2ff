#include "zefra/chart/SHvacHDGDrawSet.h"

SHvacHDGDrawSet::SHvacHDGDrawSet()
    : dAtmPressure(101325.0),
      nTdbInterval(1),
      nDInterval(1),
      nHInterval(1),
      nRHInterval(5),
      nMinTdb(-35),
      nMaxTdb(65),
      nMinD(0),
      nMaxD(45),
      nTdbLength(200),
      nDLength(500),
      bDrawFrame(true),
      bDrawTitle(true),
      bDrawPvScale(true),
      bDrawHeatHumRatioDial(true),
      dChineseTextHeight(3.0),
      dWesternTextHeight(3.0),
      nFontType(1) {}
