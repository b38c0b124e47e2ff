// Label lines worked out from a duct or from the stored content: each label
// name with its units and fallbacks, and the lines of lead and automatic
// labels.

#include "LabelTestKit.h"

#include "zefra/components/QoHvacDuctCalculateManager.h"
#include "zefra/platform/host/QoDbObjectRegistry.h"
#include "zefra/labels/QoHvacDuctLabelManager.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/NT.h"
#include "zefra/platform/entities/QoDbHvacLabel.h"

namespace {

class LabelCompositionTest : public LabelTest {
protected:
    void SetUp() override {
        LabelTest::SetUp();
        labels = QoHvacDuctLabelManager::GetInstance();
    }

    // The line of a one-item list.
    QoHvacDuctLabelData Line(const QoHvacDuctLabelItem& item, QoDbHvacDuct* duct = nullptr) const {
        QoArray<QoHvacDuctLabelItem> items;
        items.Append(item);
        return labels->GetLabelData(items, item.labelname, duct);
    }
    std::string Value(const QoHvacDuctLabelItem& item, QoDbHvacDuct* duct = nullptr) const {
        return U(Line(item, duct).value);
    }

    static QoDbHvacDuct LevelDuct(double z, double width, double height) {
        QoDbHvacDuct duct;
        duct.SetStartPoint(AcGePoint3d(0.0, 0.0, z));
        duct.SetEndPoint(AcGePoint3d(5000.0, 0.0, z));
        duct.SetWidth(width);
        duct.SetHeight(height);
        return duct;
    }

    QoHvacDuctLabelManager* labels = nullptr;
};

std::string Text(double value, int decimals) { return U(NT::ftoa(value, decimals, true)); }

}  // namespace

TEST_F(LabelCompositionTest, LinesKeepTheItemsTextsAndUnknownNamesTheirContent) {
    QoArray<QoHvacDuctLabelItem> items;
    items.Append(MakeItem(L"备注", L"<", L">", 2, L"见说明"));
    items.Append(MakeItem(L"风速", L"V=", L"m/s", 1, L"4"));
    items.Append(MakeItem(L"风速", L"第二", L"m/s", 3, L"9"));
    const QoHvacDuctLabelData note = labels->GetLabelData(items, L"备注", nullptr);
    EXPECT_EQ(U(note.name) + U(note.prefix) + U(note.value) + U(note.suffix), "备注<见说明>");
    EXPECT_EQ(note.precision, 2);
    const QoHvacDuctLabelData speed = labels->GetLabelData(items, L"风速", nullptr);  // the first of the name
    EXPECT_EQ(U(speed.prefix) + U(speed.value), "V=4.0");
    const QoHvacDuctLabelData none = labels->GetLabelData(items, L"风", nullptr);
    EXPECT_EQ(U(none.name) + U(none.prefix) + U(none.value) + U(none.suffix), "");
    EXPECT_EQ(none.precision, 0);
}

TEST_F(LabelCompositionTest, FlowConvertsFromCubicMetresPerHourByTheSuffix) {
    QoDbHvacDuct duct;
    duct.SetWindCapacity(3600.0);
    EXPECT_EQ(Value(MakeItem(L"风量", L"L=", L"m³/h", 0, L"1000"), &duct), "3600");
    EXPECT_EQ(Value(MakeItem(L"风量", L"", L"M3/S", 3, L"0"), &duct), "1.000");
    EXPECT_EQ(Value(MakeItem(L"风量", L"", L"L/S", 1, L"0"), &duct), "1000.0");

    // A duct that doesn't know its flow leaves the stored one.
    QoDbHvacDuct unknown;
    EXPECT_EQ(Value(MakeItem(L"风量", L"", L"", 0, L"1250.7 m3/h"), &unknown), "1251");

    // Mass flows: the base value stays in m³/h, the value is corrected to the
    // air of the calculation conditions.
    QoHvacDuctCalculateManager* conditions = QoHvacDuctCalculateManager::GetInstance();
    conditions->m_temperature = 30.0;
    conditions->m_relativeHumidity = 50.0;
    const double density = AIR::GetDen(30.0, 0.5, 101325.0);
    const QoHvacDuctLabelData perHour = Line(MakeItem(L"风量", L"G=", L"Kg/H", 2, L"0"), &duct);
    EXPECT_EQ(U(perHour.baseValue), "3600.00");
    EXPECT_EQ(U(perHour.value), Text(3600.0 * density, 2));
    EXPECT_EQ(Value(MakeItem(L"风量", L"", L"kg/s", 4, L"0"), &duct), Text(density, 4));
}

TEST_F(LabelCompositionTest, VelocityConvertsFromMetresPerSecond) {
    QoDbHvacDuct duct;
    EXPECT_EQ(Value(MakeItem(L"风速", L"", L"m/s", 1, L"5"), &duct), "5.0");  // no velocity: the content
    duct.SetWindVelocity(2.5);
    EXPECT_EQ(Value(MakeItem(L"风速", L"", L"m/s", 1, L"5"), &duct), "2.5");
    EXPECT_EQ(Value(MakeItem(L"风速", L"", L"M/H", 0, L"5"), &duct), "9000");
    EXPECT_EQ(Value(MakeItem(L"风速", L"", L"mm/s", 0, L"5"), &duct), "2500");
}

TEST_F(LabelCompositionTest, ElevationByStandardOrAlignment) {
    using M = QoHvacDuctLabelManager;
    const QoHvacDuctLabelItem metres = MakeItem(L"标高", L"h=", L"m", 3, L"2.5");
    // prefix, value and base value of a line
    auto elevation = [&](QoDbHvacDuct* duct) {
        const QoHvacDuctLabelData line = Line(metres, duct);
        return U(line.prefix) + U(line.value) + "/" + U(line.baseValue);
    };
    EXPECT_EQ(elevation(nullptr), "h=2.500/");

    QoDbHvacDuct duct = LevelDuct(3000.0, 800.0, 400.0);
    struct Case {
        M::EEleLabelStandard standard;
        int alignment;
        const char* expected;
    };
    for (const Case& c : {Case{M::EEleByAlignment, QoDbHvacDuct::EVertAlignTop, "T3.200/0"},
                          Case{M::EEleByAlignment, QoDbHvacDuct::EVertAlignCenter, "C3.000/0"},
                          Case{M::EEleByAlignment, QoDbHvacDuct::EVertAlignBottom, "B2.800/0"},
                          Case{M::EEleByAlignment, 7, "C3.000/0"},
                          Case{static_cast<M::EEleLabelStandard>(9), QoDbHvacDuct::EVertAlignTop, "T3.200/0"},
                          Case{M::EEleTop, QoDbHvacDuct::EVertAlignBottom, "T3.200/1"},
                          Case{M::EEleCentre, QoDbHvacDuct::EVertAlignTop, "C3.000/2"},
                          Case{M::EEleBottom, QoDbHvacDuct::EVertAlignTop, "B2.800/3"}}) {
        labels->SetEleLabelStandard(c.standard);
        duct.SetVertAlignment(static_cast<QoDbHvacDuct::EVertAlignment>(c.alignment));
        EXPECT_EQ(elevation(&duct), c.expected) << c.standard << "/" << c.alignment;
    }
    EXPECT_EQ(Value(MakeItem(L"标高", L"", L"MM", 0, L"0"), &duct), "2800");

    // A riser gives its foot, with the bottom prefix, whatever the standard.
    QoDbHvacDuct riser(QoDbHvacDuct::EDuctVertical);
    riser.SetStartPoint(AcGePoint3d(0.0, 0.0, 6000.0));
    riser.SetEndPoint(AcGePoint3d(0.0, 0.0, 3000.0));
    riser.SetHeight(400.0);
    labels->SetEleLabelStandard(M::EEleTop);
    labels->SetBotHPrefix(L"底");
    EXPECT_EQ(elevation(&riser), "底3.000/");
}

TEST_F(LabelCompositionTest, SizesByShapeUnitAndLinkFlag) {
    const QoHvacDuctLabelItem rect = MakeItem(L"矩形尺寸", L"", L"", 0, L"被替换");
    EXPECT_EQ(Value(rect), "500X300");
    QoDbHvacDuct duct = LevelDuct(0.0, 800.0, 400.0);
    EXPECT_EQ(Value(MakeItem(L"矩形尺寸", L"", L"M", 1, L""), &duct), "0.8X0.4");
    labels->m_linkFlag = L"×";
    EXPECT_EQ(Value(rect, &duct), "800×400");

    duct.SetSectionShape(QoDbHvacDuct::ESectionRound);
    duct.SetWidth(630.0);
    EXPECT_EQ(Value(rect, &duct), "630");
    EXPECT_EQ(Value(MakeItem(L"圆形尺寸", L"Φ", L"", 0, L"")), "500");
    EXPECT_EQ(Value(MakeItem(L"圆形尺寸", L"Φ", L"m", 2, L""), &duct), "0.63");
}

TEST_F(LabelCompositionTest, FrictionLinesNeedALengthAndASpecificLoss) {
    const QoHvacDuctLabelItem loss = MakeItem(L"沿程阻力", L"ΔP=", L"Pa", 1, L"待算");
    const QoHvacDuctLabelItem specific = MakeItem(L"比摩阻", L"R=", L"Pa/m", 2, L"0.8");
    EXPECT_EQ(Value(loss), "待算");
    EXPECT_EQ(Value(specific), "0.80");

    QoDbHvacDuct duct = LevelDuct(0.0, 500.0, 300.0);
    duct.SetActualLength(12000.0);
    EXPECT_EQ(Value(loss, &duct), "-");  // no specific loss known
    EXPECT_EQ(Value(specific, &duct), "0.80");
    duct.SetBMZ(1.25);
    EXPECT_EQ(Value(loss, &duct), Text(AIR::GetPm(1.25, 12.0), 1));
    EXPECT_EQ(Value(specific, &duct), "1.25");
    duct.SetActualLength(0.0);
    EXPECT_EQ(Value(loss, &duct), "-");
}

TEST_F(LabelCompositionTest, SystemLinesComeFromTheRegister) {
    g_dictCfg.SetValue(L"LAYER\\CURRENT_STD", CString(L"STD"));
    g_dictCfg.SetValue(L"LAYER\\STD\\LAYER_FIELD_DEF\\暖通\\系统\\风管系统\\SF", CString(L"送风系统"));
    g_dictCfg.FindItem(L"LAYER\\STD\\LAYER_FIELD_DEF\\暖通\\系统\\风管系统\\SF")->localname = L"送风";
    g_dictCfg.SetValue(L"ZEFRA\\NT_DUCTSYS_SET\\SF", CString(L""));
    g_dictCfg.FindItem(L"ZEFRA\\NT_DUCTSYS_SET\\SF")->SetAttributeValue(L"flag", L"sf");

    const QoHvacDuctLabelItem code = MakeItem(L"风管代号", L"", L"", 0, L"XF");
    const QoHvacDuctLabelItem system = MakeItem(L"风管系统", L"", L"", 0, L"新风");
    EXPECT_EQ(Value(code), "XF");
    QoDbHvacDuct duct;
    duct.SetSystemName(L"送风");
    EXPECT_EQ(Value(code, &duct), "SF");
    EXPECT_EQ(Value(system, &duct), "送风");
    duct.SetSystemName(L"排烟");
    EXPECT_EQ(Value(code, &duct), "");
}

TEST_F(LabelCompositionTest, LeadAndAutomaticLabelsTakeTheSelectedLinesThatFit) {
    QoArray<QoHvacDuctLabelItem> lines;
    lines.Append(MakeItem(L"风管系统", L"", L"", 0, L"送风"));
    lines.Append(MakeItem(L"矩形尺寸", L"", L"", 0, L""));
    lines.Append(MakeItem(L"圆形尺寸", L"Φ", L"", 0, L""));
    lines.Append(MakeItem(L"风速", L"V=", L"m/s", 1, L"3", false));
    for (int i = lines.GetLength(); i < 9; ++i) lines.Append(MakeItem(L"备注", L"", L"", 0, L"", false));
    lines.Append(MakeItem(L"备注", L"", L"", 0, L"第十行"));  // beyond nine: never shown
    for (auto& list : labels->m_labelItems) list = lines;

    auto names = [](const QoArray<QoHvacDuctLabelData>& data) {
        std::string joined;
        for (int i = 0; i < data.GetLength(); ++i) joined += U(data[i].name) + U(data[i].value) + ";";
        return joined;
    };
    const QoArray<QoHvacDuctLabelData> stored = labels->GetLeadLabelData(nullptr, 3);
    EXPECT_EQ(names(stored), "风管系统送风;矩形尺寸500X300;圆形尺寸500;");
    EXPECT_EQ(stored[2].listIndex, 3);

    QoDbHvacDuct round;
    round.SetSectionShape(QoDbHvacDuct::ESectionRound);
    round.SetWidth(400.0);
    round.SetSystemName(L"排风");
    EXPECT_EQ(names(labels->GetLeadLabelData(&round, 0)), "风管系统排风;圆形尺寸400;");
    QoDbHvacDuct rect = LevelDuct(0.0, 320.0, 200.0);
    const QoArray<QoHvacDuctLabelData> automatic = labels->GetAutoLabelData(&rect);
    EXPECT_EQ(names(automatic), "风管系统;矩形尺寸320X200;");
    EXPECT_EQ(automatic[1].listIndex, 0);

    EXPECT_EQ(labels->GetLeadLabelData(nullptr, -1).GetLength(), 0);
    EXPECT_EQ(labels->GetLeadLabelData(&rect, 4).GetLength(), 0);

    // By object id: an id that doesn't open a duct gives the stored contents.
    const AcDbObjectId ductId = AcDbObjectId::MakeNew();
    const AcDbObjectId labelId = AcDbObjectId::MakeNew();
    QoDbHvacLabel label;
    QoDbObjectRegistry::Post(ductId, &rect);
    QoDbObjectRegistry::Post(labelId, &label);
    EXPECT_EQ(names(labels->GetLeadLabelData(1, ductId)), "风管系统;矩形尺寸320X200;");
    EXPECT_EQ(names(labels->GetAutoLabelData(labelId)), names(stored));
    EXPECT_EQ(names(labels->GetLeadLabelData(1, AcDbObjectId::MakeNew())), names(stored));
    QoDbObjectRegistry::Remove(ductId);
    QoDbObjectRegistry::Remove(labelId);
}
