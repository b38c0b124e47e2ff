#pragma once
#include "zefra/ZefraExport.h"
// Given data of the primary return-air scheme. Units: °C, RH as a fraction,
// kJ/kg, g/kg, kg/s for air flows, kW for heat loads, kg/s for moisture loads.

#include "zefra/air/ZefraHDGPoint.h"

enum EHDGPriRetAirType : int {
    HDGPRI_XJ_DEWPOINT = 0,     // summer: cooling to L, duct rise to O, no reheat
    HDGPRI_XJ_SUPPLYDT = 1,     // summer: cooling to L, duct rise to K, reheat to O
    HDGPRI_DJ_ISENTH_HEAT = 2,  // winter: humidifying at constant enthalpy, then reheat
    HDGPRI_DJ_HEAT_ISENTH = 3,  // winter: heating, then humidifying at constant enthalpy
    HDGPRI_DJ_ISOTH_HEAT = 4,   // winter: humidifying at constant temperature, then reheat
    HDGPRI_DJ_HEAT_ISOTH = 5,   // winter: heating, then humidifying at constant temperature
};

struct ZEFRA_API SHDGPrimaryReturnAirInfo {
    SHDGPrimaryReturnAirInfo();

    EHDGPriRetAirType CalPriRetAirType = HDGPRI_XJ_DEWPOINT;
    ZefraHDGPoint PointN;  // room air
    ZefraHDGPoint PointW;  // outdoor air
    double Qn = 11.6;      // room load: cooling load in summer, heat loss in winter
    double Mw = 0.0014;    // room moisture load
    double SfGdWs = 0.0;   // temperature rise along the supply duct
    double HfGdWs = 0.0;   // temperature rise along the return duct
    double ptL_RH = 0.9;   // relative humidity of the dew point L
    int FreshAirType = 0;  // 0: FreshAirRatio is given; otherwise Gw is given
    double FreshAirRatio = 0.3;
    double Gw = 0.0;       // fresh-air flow
    double Go = 1.35;      // supply flow: a result in summer, given in winter
    double SfWc = 6.0;     // supply temperature difference, room minus supply; type 1 only
};
