// The drawn chart as a scene: groups on their resolved layers, a scheme's
// process drawn point by point and line by line, and labels kept clear.

#include "zefra/air/HDGSchemeChartOverlay.h"
#include "zefra/chart/HDGChartBuilder.h"
#include "zefra/chart/HDGChartLayout.h"
#include "zefra/chart/HDGChartSvg.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/layers/HDGChartLayerNames.h"
#include "zefra/layers/QoHvacDuctLayerManager.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/host/AcDbDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

HDGChartScene Build(const SHDGChartOverlay* overlay = nullptr, const SHvacHDGDrawSet& s = SHvacHDGDrawSet(),
                    double pressure = 101325.0, const SHDGChartLayerNames& names = SHDGChartLayerNames()) {
    HDGChartScene scene;
    std::string error;
    EXPECT_TRUE(HDGChartBuilder::Build(s, pressure, names, overlay, scene, error)) << error;
    return scene;
}

// The shipped configuration in g_dictCfg, with a fresh working drawing.
class ChartLayers : public ::testing::Test {
protected:
    void SetUp() override {
        CString message;
        ASSERT_TRUE(g_dictCfg.LoadFromXML(CString(ZEFRA_SOURCE_DATA_DIR "/Config.xml"), &message));
        acdbHostApplicationServices()->setWorkingDatabase(&m_drawing);
        QoHvacDuctLayerManager::GetInstance()->ReRead();
    }
    void TearDown() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    AcDbDatabase m_drawing;
};

void ExpectGroupsOnLayers(const HDGChartScene& scene, const SHDGChartLayerNames& names) {
    const std::string svg = HDGChartSvg::Write(scene);
    ASSERT_EQ(scene.groups.size(), size_t(kHDGChartGroupCount));
    for (const SHDGChartGroup& group : scene.groups) {
        SCOPED_TRACE(group.id);
        EXPECT_EQ(group.id, HDGChartGroupId(group.kind));
        EXPECT_EQ(group.layer, names.Of(group.kind));
        EXPECT_FALSE(group.Empty());
        EXPECT_NE(svg.find("<g id=\"" + group.id + "\" data-layer=\"" + group.layer + "\""), std::string::npos);
    }
}

TEST_F(ChartLayers, EveryGroupCarriesTheLayerTheStandardResolves) {
    const SHDGChartLayerNames names = HVAC::GetHDGChartLayerNames();
    EXPECT_EQ(names.t, "暖通-焓湿图-等温线");
    EXPECT_EQ(names.d, "暖通-焓湿图-等含湿量线");
    EXPECT_EQ(names.h, "暖通-焓湿图-等焓线");
    EXPECT_EQ(names.rh, "暖通-焓湿图-等相对湿度线");
    EXPECT_EQ(names.hhr, "暖通-焓湿图-热湿比线");
    EXPECT_EQ(names.hst, "暖通-焓湿图");
    EXPECT_EQ(names.point, "暖通-焓湿图-状态点");
    EXPECT_EQ(names.pointLabel, "暖通-焓湿图-状态点标注");
    EXPECT_EQ(names.line, "暖通-焓湿图-过程线");
    EXPECT_EQ(names.lineLabel, "暖通-焓湿图-过程线标注");

    ZefraHDGPrimaryReturnAir scheme;
    scheme.Calculate();
    const SHDGChartOverlay overlay = HDGChartOverlayOf(scheme);
    ExpectGroupsOnLayers(Build(&overlay, SHvacHDGDrawSet(), 101325.0, names), names);
}

TEST_F(ChartLayers, ARenamedLayerReachesItsGroup) {
    QoDtDictionary* standard = QoHvacDuctLayerManager::GetInstance()->GetCurLayerStd();
    ASSERT_TRUE(standard->SetValue(L"MODEL_LAYER_DEF\\暖通\\HVAC-NT_PROJ_HST-NT_MODEL_T", CString(L"图-等温线 & <t>")));
    ASSERT_TRUE(standard->SetValue(L"MODEL_LAYER_DEF\\暖通\\HVAC-NT_PROJ_HST-NT_MODEL_POINT", CString(L"图-点")));
    const SHDGChartLayerNames names = HVAC::GetHDGChartLayerNames();
    EXPECT_EQ(names.t, "图-等温线 & <t>");
    EXPECT_EQ(names.point, "图-点");
    EXPECT_EQ(names.d, "暖通-焓湿图-等含湿量线");

    ZefraHDGSecondaryReturnAir scheme;
    scheme.Calculate();
    const SHDGChartOverlay overlay = HDGChartOverlayOf(scheme);
    const HDGChartScene scene = Build(&overlay, SHvacHDGDrawSet(), 101325.0, names);
    EXPECT_EQ(scene.Group(EHDGChartGroup::Isotherms).layer, "图-等温线 & <t>");
    const std::string svg = HDGChartSvg::Write(scene);
    EXPECT_NE(svg.find("<g id=\"HDG_t\" data-layer=\"图-等温线 &amp; &lt;t&gt;\""), std::string::npos);
    EXPECT_NE(svg.find("<g id=\"HDG_Point\" data-layer=\"图-点\""), std::string::npos);
}

// ---- Schemes as processes ---------------------------------------------------

// "W>C:混合" for each line; labels are left out when empty.
std::vector<std::string> Lines(const SHDGChartOverlay& overlay) {
    std::vector<std::string> out;
    for (const SHDGChartOverlay::SSegment& s : overlay.segments)
        out.push_back(overlay.points[s.from].name + ">" + overlay.points[s.to].name +
                      (s.label.empty() ? "" : ":" + s.label));
    return out;
}

std::vector<std::string> Names(const SHDGChartOverlay& overlay) {
    std::vector<std::string> out;
    for (const SHDGChartOverlay::SPoint& p : overlay.points) out.push_back(p.name);
    return out;
}

template <typename Info>
Info Winter(int type) {
    Info info;
    info.CalPriRetAirType = static_cast<decltype(info.CalPriRetAirType)>(type);
    info.PointN = ZefraHDGPoint(20.0, 0.45, L"N");
    info.PointW = ZefraHDGPoint(-10.0, 0.6, L"W");
    info.Qn = 14.0;
    info.Mw = 0.0002;
    info.SfGdWs = 1.0;
    info.HfGdWs = 0.7;
    info.Go = 1.6;
    info.FreshAirRatio = 0.3;
    return info;
}

using V = std::vector<std::string>;

TEST(SchemeOverlay, PrimarySummerTypesRunFromTheMixThroughTheUnitToTheRoom) {
    ZefraHDGPrimaryReturnAir scheme;
    scheme.Calculate();
    SHDGChartOverlay overlay = HDGChartOverlayOf(scheme);
    EXPECT_EQ(overlay.title, "一次回风夏季处理过程");
    EXPECT_EQ(Names(overlay), (V{"N", "W", "C", "L", "O"}));
    EXPECT_EQ(Lines(overlay), (V{"W>C:混合", "N>C", "C>L:冷却减湿", "L>O:送风温升", "O>N"}));
    EXPECT_TRUE(overlay.ratioLine.present);
    EXPECT_EQ(overlay.points[overlay.ratioLine.through].name, "N");
    EXPECT_EQ(overlay.points[overlay.ratioLine.toward].name, "O");
    EXPECT_DOUBLE_EQ(overlay.ratioLine.epsilon, scheme.GetHeatHumidityRatio());
    const ZefraHDGPoint C = scheme.GetPointC();
    EXPECT_EQ(overlay.points[2].Tdb, C.GetTdb());
    EXPECT_EQ(overlay.points[2].D, C.GetD());

    SHDGPrimaryReturnAirInfo given = scheme.GetGivenData();
    given.CalPriRetAirType = HDGPRI_XJ_SUPPLYDT;
    given.SfGdWs = 1.5;
    given.HfGdWs = 0.5;
    scheme.SetGivenData(given);
    scheme.Calculate();
    overlay = HDGChartOverlayOf(scheme);
    EXPECT_EQ(Lines(overlay), (V{"N>N':回风温升", "W>C:混合", "N'>C", "C>L:冷却减湿", "L>K:送风温升", "K>O:再热", "O>N"}));
}

TEST(SchemeOverlay, PrimaryWinterPreheatsOrMixesOnTheOutdoorRoomLine) {
    const V start = {"N>N':回风温降", "W>W':预热", "W'>C:混合", "N'>C"};
    const V unit[] = {{"C>L:等焓加湿", "L>K:再热"}, {"C>L:加热", "L>K:等焓加湿"},
                      {"C>L:等温加湿", "L>K:再热"}, {"C>L:加热", "L>K:等温加湿"}};
    for (int type = 2; type <= 5; ++type) {
        SCOPED_TRACE(type);
        ZefraHDGPrimaryReturnAir scheme;
        scheme.SetGivenData(Winter<SHDGPrimaryReturnAirInfo>(type));
        scheme.Calculate();
        V expected = start;
        expected.insert(expected.end(), unit[type - 2].begin(), unit[type - 2].end());
        expected.insert(expected.end(), {"K>O:送风温降", "O>N"});
        EXPECT_EQ(Lines(HDGChartOverlayOf(scheme)), expected);
    }
    // After a summer run at ratio 0.3 a winter ratio of 0.5 needs no
    // preheating: C lies on the line from W to N, and the W' left from
    // summer is no part of the process.
    ZefraHDGPrimaryReturnAir scheme;
    scheme.Calculate();
    SHDGPrimaryReturnAirInfo winter = Winter<SHDGPrimaryReturnAirInfo>(HDGPRI_DJ_ISENTH_HEAT);
    winter.FreshAirRatio = 0.5;
    winter.PointW = ZefraHDGPoint(-2.0, 0.8, L"W");
    scheme.SetGivenData(winter);
    scheme.Calculate();
    const SHDGChartOverlay overlay = HDGChartOverlayOf(scheme);
    EXPECT_EQ(Names(overlay), (V{"N", "N'", "W", "W'", "C", "L", "K", "O"}));
    EXPECT_EQ(Lines(overlay), (V{"N>N':回风温降", "W>C:混合", "N>C", "C>L:等焓加湿", "L>K:再热", "K>O:送风温降", "O>N"}));
}

TEST(SchemeOverlay, SecondarySchemesMixTwiceBeforeTheSupplyDuct) {
    ZefraHDGSecondaryReturnAir summer;
    summer.Calculate();
    SHDGChartOverlay overlay = HDGChartOverlayOf(summer);
    EXPECT_EQ(overlay.title, "二次回风夏季处理过程");
    EXPECT_EQ(Names(overlay), (V{"N", "W", "C", "L", "M", "O"}));
    EXPECT_EQ(Lines(overlay), (V{"W>C:混合", "N>C", "C>L:冷却减湿", "L>M:二次混合", "N>M", "M>O:送风温升", "O>N"}));

    ZefraHDGSecondaryReturnAir winter;
    SHDGSecondaryReturnAirInfo given = Winter<SHDGSecondaryReturnAirInfo>(HDGSEC_DJ_HEAT_ISOTH);
    given.Gr1 = 0.8;
    winter.SetGivenData(given);
    winter.Calculate();
    overlay = HDGChartOverlayOf(winter);
    EXPECT_EQ(overlay.title, "二次回风冬季处理过程");
    EXPECT_EQ(Lines(overlay), (V{"N>N':回风温降", "W>W':预热", "W'>C:混合", "N'>C", "C>L:加热", "L>M:二次混合", "N'>M",
                                 "M>K:等温加湿", "K>O:送风温降", "O>N"}));
    EXPECT_LT(overlay.ratioLine.epsilon, 0.0);
}

// ---- Drawing the process -----------------------------------------------------

std::vector<HDGChartLayout::SOutline> Markers(const HDGChartScene& scene) {
    std::vector<HDGChartLayout::SOutline> out;
    for (const SHDGChartShape& s : scene.Group(EHDGChartGroup::Points).shapes)
        out.push_back(HDGChartLayout::Box({s.points[0].x - s.radius, s.points[0].y - s.radius,
                                           s.points[0].x + s.radius, s.points[0].y + s.radius}));
    return out;
}

TEST(ChartProcess, PointsSitAtTheirStatesAndNoTextCoversAPointOrAnotherLabel) {
    ZefraHDGSecondaryReturnAir summer;
    summer.Calculate();
    ZefraHDGPrimaryReturnAir winter;
    winter.SetGivenData(Winter<SHDGPrimaryReturnAirInfo>(HDGPRI_DJ_HEAT_ISOTH));
    winter.Calculate();
    for (const SHDGChartOverlay& overlay : {HDGChartOverlayOf(summer), HDGChartOverlayOf(winter)})
        for (double pressure : {101325.0, 84000.0}) {
            SCOPED_TRACE(overlay.title + " at " + std::to_string(pressure));
            const HDGChartScene scene = Build(&overlay, SHvacHDGDrawSet(), pressure);
            const HDGChartAxes axes(SHvacHDGDrawSet(), pressure);
            const std::vector<SHDGChartShape>& markers = scene.Group(EHDGChartGroup::Points).shapes;
            ASSERT_EQ(markers.size(), overlay.points.size());
            for (size_t i = 0; i < markers.size(); ++i) {
                const SHDGChartXY at = axes.ToChart(overlay.points[i].Tdb, overlay.points[i].D);
                EXPECT_NEAR(markers[i].points[0].x, at.x, 1e-9);
                EXPECT_NEAR(markers[i].points[0].y, at.y, 1e-9);
            }
            std::string labels;
            for (const SHDGChartText& text : scene.Group(EHDGChartGroup::PointLabels).texts) labels += text.text + ",";
            for (const SHDGChartOverlay::SPoint& p : overlay.points)
                EXPECT_NE(labels.find(p.name + ","), std::string::npos) << p.name << " in " << labels;
            std::vector<HDGChartLayout::SOutline> texts;
            for (const SHDGChartGroup& group : scene.groups)
                for (const SHDGChartText& text : group.texts) texts.push_back(HDGChartLayout::TextOutline(text));
            for (const HDGChartLayout::SOutline& marker : Markers(scene))
                for (const HDGChartLayout::SOutline& text : texts) EXPECT_FALSE(HDGChartLayout::Overlap(marker, text));
            for (size_t i = 0; i < texts.size(); ++i)
                for (size_t j = i + 1; j < texts.size(); ++j)
                    ASSERT_FALSE(HDGChartLayout::Overlap(texts[i], texts[j])) << i << " and " << j;
        }
}

TEST(ChartProcess, LinesAreCutAtTheFrameAndPointsBeyondItLeftOut) {
    SHDGChartOverlay overlay;
    overlay.points = {{"A", 20.0, 8.0}, {"B", 90.0, 20.0}, {"C", 25.0, 60.0}};
    overlay.segments = {{0, 1, "加热"}, {0, 2, ""}};
    overlay.ratioLine = {true, 0, 1, 5000.0};
    const HDGChartScene scene = Build(&overlay);
    EXPECT_EQ(scene.Group(EHDGChartGroup::Points).shapes.size(), 1u);
    ASSERT_EQ(scene.notes.size(), 2u);
    EXPECT_NE(scene.notes[0].find("point B"), std::string::npos);
    const SHDGChartBox frame = scene.frame;
    for (const EHDGChartGroup kind : {EHDGChartGroup::ProcessLines, EHDGChartGroup::HeatHumRatio})
        for (const SHDGChartShape& s : scene.Group(kind).shapes) {
            if (s.kind != EHDGChartShape::Polyline || s.points.size() != 2) continue;
            for (const SHDGChartXY& p : s.points) EXPECT_TRUE(frame.Contains(p, 1e-9)) << p.x << ", " << p.y;
        }
    // Both lines reach the frame: one through the top, one through the side.
    std::vector<SHDGChartShape> lines;
    for (const SHDGChartShape& s : scene.Group(EHDGChartGroup::ProcessLines).shapes)
        if (s.kind == EHDGChartShape::Polyline) lines.push_back(s);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].points[1].y, frame.maxY, 1e-9);
    EXPECT_NEAR(lines.back().points[1].x, frame.maxX, 1e-9);
    // Everything drawn lies on the page.
    for (const SHDGChartGroup& group : scene.groups) {
        for (const SHDGChartShape& s : group.shapes)
            for (const SHDGChartXY& p : s.points) EXPECT_TRUE(scene.page.Contains(p)) << group.id;
        for (const SHDGChartText& t : group.texts) {
            const SHDGChartBox b = HDGChartLayout::TextOutline(t).bounds;
            EXPECT_TRUE(scene.page.Contains({b.minX, b.minY}) && scene.page.Contains({b.maxX, b.maxY})) << t.text;
        }
    }
}

TEST(ChartProcess, TheRatioLineEndsWhereTheAirWouldSaturate) {
    ZefraHDGPrimaryReturnAir scheme;
    scheme.Calculate();
    const SHDGChartOverlay overlay = HDGChartOverlayOf(scheme);
    const HDGChartScene scene = Build(&overlay);
    const std::vector<SHDGChartShape>& shapes = scene.Group(EHDGChartGroup::HeatHumRatio).shapes;
    const auto line = std::find_if(shapes.begin(), shapes.end(), [](const SHDGChartShape& s) { return s.dashed; });
    ASSERT_NE(line, shapes.end());
    const HDGChartAxes axes(SHvacHDGDrawSet(), 101325.0);
    double t = 0, d = 0;
    axes.FromChart(line->points[1], t, d);
    EXPECT_NEAR(d, AIR::GetD(t, 1.0, 101325.0), 1e-6);
    // ... on the room's ε line: Δh / Δd = ε / 1000.
    const ZefraHDGPoint N = scheme.GetPointN();
    EXPECT_NEAR((AIR::GetH(t, d) - N.GetH()) / (d - N.GetD()), scheme.GetHeatHumidityRatio() / 1000.0, 1e-6);
}

}  // namespace
