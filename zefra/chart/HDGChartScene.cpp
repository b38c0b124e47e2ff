#include "zefra/chart/HDGChartScene.h"

const std::string& SHDGChartLayerNames::Of(EHDGChartGroup group) const {
    switch (group) {
        case EHDGChartGroup::MoistureLines: return d;
        case EHDGChartGroup::Isotherms: return t;
        case EHDGChartGroup::EnthalpyLines: return h;
        case EHDGChartGroup::HumidityCurves: return rh;
        case EHDGChartGroup::Chart: return hst;
        case EHDGChartGroup::HeatHumRatio: return hhr;
        case EHDGChartGroup::ProcessLines: return line;
        case EHDGChartGroup::ProcessLineLabels: return lineLabel;
        case EHDGChartGroup::Points: return point;
        case EHDGChartGroup::PointLabels: return pointLabel;
    }
    return hst;
}

const char* HDGChartGroupId(EHDGChartGroup kind) {
    switch (kind) {
        case EHDGChartGroup::MoistureLines: return "HDG_d";
        case EHDGChartGroup::Isotherms: return "HDG_t";
        case EHDGChartGroup::EnthalpyLines: return "HDG_h";
        case EHDGChartGroup::HumidityCurves: return "HDG_rh";
        case EHDGChartGroup::Chart: return "HDG_Hst";
        case EHDGChartGroup::HeatHumRatio: return "HDG_Hhr";
        case EHDGChartGroup::ProcessLines: return "HDG_Line";
        case EHDGChartGroup::ProcessLineLabels: return "HDG_Line_Label";
        case EHDGChartGroup::Points: return "HDG_Point";
        case EHDGChartGroup::PointLabels: return "HDG_Point_Label";
    }
    return "HDG_Hst";
}
