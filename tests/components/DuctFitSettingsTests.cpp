#include "ComponentTestKit.h"

#include "zefra/components/QoHvacDuctFitManager.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/platform/host/CommandLine.h"

#include <vector>

namespace {

std::vector<int> Vector(const QoArray<int>& array) {
    return std::vector<int>(array.GetDataBuffer(), array.GetDataBuffer() + array.GetLength());
}

// Collects what acutPrintf writes while it lives.
class CommandLineCapture {
public:
    CommandLineCapture() {
        zefra::SetCommandLineSink([this](const CString& text) { m_lines.push_back(text); });
    }
    ~CommandLineCapture() { zefra::SetCommandLineSink(nullptr); }
    const std::vector<CString>& Lines() const { return m_lines; }

private:
    std::vector<CString> m_lines;
};

QoDtDictionary& Root() { return *g_dictCfg.FindOrAddDict(L"ZEFRA\\DEFAULTFITTING"); }

// Puts a text where a record's dictionary belongs, so that saving it fails.
void BlockRecord(const wchar_t* name) { Root().SetValue(name, CString(L"blocked")); }

using DuctFitSettings = componenttest::FreshModule;

}  // namespace

TEST_F(DuctFitSettings, FreshConfigurationGivesTheBuiltInDefaultsEverywhere) {
    QoHvacDuctFitManager* manager = QoHvacDuctFitManager::GetInstance();
    EXPECT_EQ(manager, QoHvacDuctFitManager::GetInstance());
    EXPECT_NE(g_dictCfg.FindDict(L"ZEFRA\\DEFAULTFITTING"), nullptr);  // the read made the root
    EXPECT_EQ(Root().children.GetLength(), 0);

    EXPECT_EQ(manager->GetOffsetNameWithType(manager->m_rectOffset.type), CString(L"来回乙字弯"));
    EXPECT_EQ(manager->GetElbowNameWithType(manager->m_circleElbow.type), CString(L"圆弧"));
    EXPECT_TRUE(manager->m_useDial);
    EXPECT_EQ(manager->m_elevationChangeNode, 3);
    EXPECT_EQ(manager->m_shortRiseOffset, 1);
    EXPECT_DOUBLE_EQ(manager->m_raisedOffsetAngle, 3.14159265358979323846 / 4);

    const QoDbHvacDefaultFitData& shared = g_HvacFitAndDisplayData;
    EXPECT_EQ(shared.m_rectElbow, manager->m_rectElbow);
    EXPECT_EQ(shared.m_circleOffset, manager->m_circleOffset);
    EXPECT_EQ(shared.m_rectCross, manager->m_rectCross);
}

TEST_F(DuctFitSettings, CataloguesListRectangularAndCircularTypes) {
    QoHvacDuctFitManager* manager = QoHvacDuctFitManager::GetInstance();
    EXPECT_EQ(Vector(manager->GetAllTransType()), (std::vector<int>{0, 1, 100, 101}));
    EXPECT_EQ(Vector(manager->GetAllOffsetType()), (std::vector<int>{0, 1, 2, 100, 101, 102}));
    EXPECT_EQ(manager->GetAllElbowType().GetLength(), 27);
    EXPECT_EQ(manager->GetAllTeeType().GetLength(), 19);
    EXPECT_EQ(manager->GetAllCrossType().GetLength(), 11);
    EXPECT_EQ(manager->GetElbowNameWithType(3), CString(L"内圆弧"));
    EXPECT_EQ(manager->GetElbowNameWithType(103), CString(L"褶皱"));
    EXPECT_EQ(manager->GetTeeNameWithType(108), CString(L"锥型三通(带弯头)"));
    EXPECT_EQ(manager->GetCrossNameWithType(102), CString(L"斜接四通"));

    // An unknown type enters every catalogue but the cross one.
    EXPECT_EQ(manager->GetTeeNameWithType(50), CString());
    EXPECT_EQ(manager->GetAllTeeType().GetLength(), 20);
    EXPECT_EQ(Vector(manager->GetAllTeeType())[10], 50);
    EXPECT_EQ(manager->GetCrossNameWithType(50), CString());
    EXPECT_EQ(manager->GetAllCrossType().GetLength(), 11);
}

TEST_F(DuctFitSettings, PartialRecordsKeepTheirOtherFields) {
    QoDtDictionary* elbow = Root().FindOrAddDict(L"RectElbow");
    elbow->SetValue(L"默认类型", 5);
    elbow->SetValue(L"虾米弯节数", 7);
    QoDtDictionary* tee = Root().FindOrAddDict(L"CircleTee");
    tee->SetValue(L"默认类型", CString(L"not a number"));
    tee->SetValue(L"C宽度", 0.75);
    tee->SetValue(L"默认类型x", 9);
    Root().SetValue(L"变高弯头二维显示样式", 2);
    QoHvacDuctFitManager* manager = QoHvacDuctFitManager::GetInstance();

    SHvacDuctElbowData expectedElbow;
    expectedElbow.type = 5;
    expectedElbow.segmentCount = 7;
    EXPECT_EQ(manager->m_rectElbow, expectedElbow);
    EXPECT_EQ(manager->m_circleTee.type, 100);  // a type that doesn't read as a number is not taken
    EXPECT_EQ(manager->m_circleTee.widthC, 0.75);
    EXPECT_EQ(manager->m_raisedElbow2dStyle, 2);
    EXPECT_EQ(g_HvacFitAndDisplayData.m_raisedElbow2dStyle, 2);
    EXPECT_EQ(g_HvacFitAndDisplayData.m_rectElbow.segmentCount, 7);

    Root().FindOrAddDict(L"RectCross")->SetValue(L"默认类型", 999);  // not in the catalogue: taken as is
    manager->ReadData();
    EXPECT_EQ(manager->m_rectCross.type, 999);
}

TEST_F(DuctFitSettings, SaveThenReadGivesBackEveryStoredField) {
    QoHvacDuctFitManager* manager = QoHvacDuctFitManager::GetInstance();
    manager->m_rectTrans.name = L"渐缩";
    manager->m_rectTrans.eccentricity = 12.5;
    manager->m_rectTrans.calcType = 2;
    manager->m_circleCross.heightD = 0.4;
    manager->m_rectOffset.offsetDistance = 1.75;
    manager->m_rectOffset.reserved = 99.0;  // not stored
    manager->m_shortRiseOffset = 0;
    manager->m_returnOffsetCurvature = 1.5;
    manager->m_raisedOffset2dStyle = 1;
    EXPECT_TRUE(manager->SaveData());
    EXPECT_EQ(g_HvacFitAndDisplayData.m_raisedOffset2dStyle, 1);
    EXPECT_EQ(g_HvacFitAndDisplayData.m_circleCross.heightD, 0.4);

    const QoDtDictionary* trans = Root().FindDict(L"RectTransition");
    ASSERT_NE(trans, nullptr);
    const wchar_t* expectedKeys[] = {L"默认类型", L"名称", L"A宽度", L"A高度", L"B宽度", L"B高度",
                                     L"截面指示线", L"计算类型", L"偏心距离", L"长度", L"角度"};
    ASSERT_EQ(trans->children.GetLength(), 11);
    for (int i = 0; i < 11; ++i) EXPECT_EQ(trans->children.GetAt(i)->name, CString(expectedKeys[i]));

    QoHvacDuctFitManager copy = *manager;
    copy.m_rectTrans = SHvacDuctTransData();
    copy.m_circleCross = SHvacDuctCrossData();
    copy.m_rectOffset = SHvacDuctOffsetData();
    copy.m_shortRiseOffset = 1;
    copy.m_returnOffsetCurvature = 1.0;
    EXPECT_TRUE(copy.ReadData());
    EXPECT_EQ(copy.m_rectTrans, manager->m_rectTrans);
    EXPECT_EQ(copy.m_circleCross, manager->m_circleCross);
    EXPECT_EQ(copy.m_rectOffset.offsetDistance, 1.75);
    EXPECT_EQ(copy.m_rectOffset.reserved, 0.0);
    EXPECT_EQ(copy.m_shortRiseOffset, 0);
    EXPECT_EQ(copy.m_returnOffsetCurvature, 1.5);
}

TEST_F(DuctFitSettings, OptionsWaitForTheRootThatTheRecordsMake) {
    QoHvacDuctFitManager* manager = QoHvacDuctFitManager::GetInstance();
    QoDtDictionary empty;  // the read made the root: take it away
    g_dictCfg.Swap(empty);

    EXPECT_TRUE(manager->SaveData());
    EXPECT_EQ(Root().FindItem(L"使用刻度盘"), nullptr);
    EXPECT_EQ(Root().children.GetLength(), 10);
    EXPECT_TRUE(manager->SaveData());
    EXPECT_NE(Root().FindItem(L"使用刻度盘"), nullptr);
    EXPECT_EQ(Root().children.GetLength(), 18);
}

TEST_F(DuctFitSettings, SettingARecordSavesOnlyWhenAsked) {
    QoHvacDuctFitManager* manager = QoHvacDuctFitManager::GetInstance();
    SHvacDuctElbowData elbow;
    elbow.type = 104;
    elbow.curvature = 1.5;
    EXPECT_TRUE(manager->SetDefaultFitData(elbow, false, false));
    EXPECT_EQ(manager->m_circleElbow, elbow);
    EXPECT_EQ(manager->m_rectElbow.type, 3);
    EXPECT_NE(g_HvacFitAndDisplayData.m_circleElbow, elbow);
    EXPECT_EQ(Root().FindItem(L"CircleElbow"), nullptr);

    SHvacDuctTeeData tee;
    tee.widthC = 0.6;
    EXPECT_TRUE(manager->SetDefaultFitData(tee, true, true));
    EXPECT_EQ(g_HvacFitAndDisplayData.m_rectTee, tee);
    EXPECT_EQ(Root().children.GetLength(), 1);  // that record alone, no options
    double stored = 0.0;
    EXPECT_TRUE(Root().FindDict(L"RectTee")->GetValue(L"C宽度", stored));
    EXPECT_EQ(stored, 0.6);
}

TEST_F(DuctFitSettings, AFailedSavePrintsItsFamilyAndStopsTheChain) {
    QoHvacDuctFitManager* manager = QoHvacDuctFitManager::GetInstance();
    struct Case {
        const wchar_t* blocked;
        const wchar_t* message;
        int recordsWritten;  // before the failure
    };
    const Case cases[] = {{L"CircleElbow", L"\n弯头默认数据保存到文件失败!", 1},
                          {L"RectTransition", L"\n变径默认数据保存到文件失败!", 2},
                          {L"CircleOffset", L"\n乙字弯默认数据保存到文件失败!", 5},
                          {L"RectTee", L"\n三通默认数据保存到文件失败!", 6},
                          {L"CircleCross", L"\n四通默认数据保存到文件失败!", 9}};
    for (const Case& c : cases) {
        QoDtDictionary empty;
        g_dictCfg.Swap(empty);
        BlockRecord(c.blocked);
        manager->m_circleCross.widthD = 0.3;
        CommandLineCapture capture;
        EXPECT_FALSE(manager->SaveData());
        ASSERT_EQ(capture.Lines().size(), 1u);
        EXPECT_EQ(capture.Lines()[0], CString(c.message));
        // The eight options, the blocking text, and the records before it.
        EXPECT_EQ(Root().children.GetLength(), 8 + 1 + c.recordsWritten) << c.message;
    }
    // The shared object is brought up to date before the failing write.
    EXPECT_EQ(g_HvacFitAndDisplayData.m_circleCross.widthD, 0.3);

    // A single family's save reports alike; reading never reports.
    CommandLineCapture capture;
    EXPECT_FALSE(manager->SetDefaultFitData(SHvacDuctCrossData(), false, true));
    EXPECT_TRUE(manager->ReadData());
    EXPECT_EQ(capture.Lines().size(), 1u);
}
