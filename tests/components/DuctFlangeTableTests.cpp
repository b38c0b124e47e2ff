#include "ComponentTestKit.h"

#include "zefra/components/QoHvacDuctFlangeManager.h"

#include <functional>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace {

using Rows = std::vector<std::pair<double, double>>;

Rows RowsOf(const QoHvacDuctFlangeManager& table) {
    Rows rows;
    for (int i = 0; i < table.GetSizeSetNum(); ++i) rows.emplace_back(table.GetEndRange(i), table.GetOffset(i));
    return rows;
}

// (500, 25), (1000, 30), default offset 40.
class DuctFlangeTable : public componenttest::FreshModule {
protected:
    void SetUp() override {
        FreshModule::SetUp();
        table.ResetSize();
        table.SetDefaultOffset(40.0);
        table.AddSizeSet(500.0, 25.0);
        table.AddSizeSet(1000.0, 30.0);
    }

    QoHvacDuctFlangeManager table = *QoHvacDuctFlangeManager::GetInstance();
};

QoDtDictionary& FlangeBranch() { return *g_dictCfg.FindOrAddDict(L"ZEFRA\\FLANGESET"); }

void AddStoredRow(QoDtDictionary& sizeSet, const wchar_t* key, const wchar_t* end, const wchar_t* offset) {
    QoDtDictItem* row = sizeSet.FindOrAddItem(key, QoDtDictItem::eDtRow);
    row->SetAttributeValue(L"endrange", end);
    row->SetAttributeValue(L"offset", offset);
}

}  // namespace

TEST_F(DuctFlangeTable, SizeOnABoundBelongsToTheRowThatEndsThere) {
    EXPECT_EQ(table.GetOffset(499.0), 25.0);
    EXPECT_EQ(table.GetOffset(500.0), 25.0);
    EXPECT_EQ(table.GetOffset(500.0 + 1e-10), 25.0);  // within the zero band
    EXPECT_EQ(table.GetOffset(500.001), 30.0);
    EXPECT_EQ(table.GetOffset(1000.0), 30.0);
    EXPECT_EQ(table.GetOffset(1001.0), 40.0);
    EXPECT_EQ(table.GetOffset(0.0), 25.0);
}

TEST_F(DuctFlangeTable, IndexLookupsPastTheEndAndBelowZero) {
    EXPECT_EQ(table.GetStartRange(0), 0.0);
    EXPECT_EQ(table.GetStartRange(1), 500.0);
    EXPECT_EQ(table.GetStartRange(2), -1.0);
    EXPECT_EQ(table.GetEndRange(2), -1.0);
    EXPECT_EQ(table.GetOffset(2), 40.0);
    EXPECT_EQ(table.GetEndRange(-3), 500.0);
    EXPECT_EQ(table.GetOffset(-3), 25.0);
    EXPECT_EQ(table.GetStartRange(-3), 0.0);
}

TEST_F(DuctFlangeTable, AddItemRepeatsTheWidthOfTheLastRow) {
    table.AddItem();
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {1000, 30}, {1500, 40}}));

    table.ResetSize();
    table.AddItem();
    EXPECT_EQ(RowsOf(table), (Rows{{200, 40}}));
    table.ChangeEndRange(350.0, 200.0);
    table.AddItem();  // one row: the next is 200 wider
    EXPECT_EQ(RowsOf(table), (Rows{{350, 40}, {550, 40}}));
}

TEST_F(DuctFlangeTable, AddSizeSetOverwritesTheRowOfTheSameEnd) {
    table.AddSizeSet(500.0, 27.0);
    EXPECT_EQ(RowsOf(table), (Rows{{500, 27}, {1000, 30}}));
    table.AddSizeSet(750.0, 28.0);  // splits the upper row; its upper part keeps 30
    EXPECT_EQ(RowsOf(table), (Rows{{500, 27}, {750, 28}, {1000, 30}}));
}

TEST_F(DuctFlangeTable, RaisingAnEndSwallowsTheRowsItPasses) {
    EXPECT_TRUE(table.ChangeEndRange(1200.0, 500.0));
    EXPECT_EQ(RowsOf(table), (Rows{{1200, 25}}));

    SetUp();
    EXPECT_TRUE(table.ChangeEndRange(1000.0, 500.0));  // the row ending there takes the raised row's offset
    EXPECT_EQ(RowsOf(table), (Rows{{1000, 25}}));

    SetUp();
    EXPECT_TRUE(table.ChangeEndRange(1500.0, 1000.0));
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {1500, 30}}));
}

TEST_F(DuctFlangeTable, LoweringAnEndWidensTheRowAbove) {
    EXPECT_TRUE(table.ChangeEndRange(400.0, 500.0));
    EXPECT_EQ(RowsOf(table), (Rows{{400, 25}, {1000, 30}}));
    EXPECT_EQ(table.GetStartRange(1), 400.0);
    EXPECT_TRUE(table.ChangeEndRange(600.0, 1000.0));
    EXPECT_EQ(RowsOf(table), (Rows{{400, 25}, {600, 30}}));
}

TEST_F(DuctFlangeTable, AnEndCanNotReachItsStartOrAMissingRow) {
    EXPECT_FALSE(table.ChangeEndRange(500.0, 1000.0));
    EXPECT_FALSE(table.ChangeEndRange(450.0, 1000.0));
    EXPECT_FALSE(table.ChangeEndRange(800.0, 777.0));
    EXPECT_FALSE(table.ChangeEndRange(800.0, 500.0 + 1e-6));  // keys match exactly
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {1000, 30}}));
}

TEST_F(DuctFlangeTable, MovingAStartRemovesTheRowsBetweenOrSplitsItsRow) {
    EXPECT_TRUE(table.ChangeStartRange(300.0, 1000.0));
    EXPECT_EQ(RowsOf(table), (Rows{{300, 25}, {1000, 30}}));

    SetUp();
    EXPECT_TRUE(table.ChangeStartRange(700.0, 1000.0));
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {700, 30}, {1000, 30}}));
}

TEST_F(DuctFlangeTable, MovingAStartIsRefusedAtOrAboveTheEnd) {
    EXPECT_FALSE(table.ChangeStartRange(1000.0, 1000.0));
    EXPECT_FALSE(table.ChangeStartRange(1100.0, 1000.0));
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {1000, 30}}));

    // A missing row is found only after the boundary was put in.
    EXPECT_FALSE(table.ChangeStartRange(300.0, 777.0));
    EXPECT_EQ(RowsOf(table), (Rows{{300, 25}, {500, 25}, {1000, 30}}));
}

TEST_F(DuctFlangeTable, SetLastEndRangeCutsOrExtendsTheTable) {
    EXPECT_TRUE(table.SetLastEndRange(700.0));
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {700, 30}}));
    EXPECT_TRUE(table.SetLastEndRange(2000.0));
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {700, 30}, {2000, 40}}));
    EXPECT_TRUE(table.SetLastEndRange(500.0));
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}}));
}

TEST_F(DuctFlangeTable, DeleteAndChangeOffsetNeedAnExactEnd) {
    EXPECT_FALSE(table.DelItem(777.0));
    EXPECT_FALSE(table.ChangeOffset(35.0, 999.0));
    EXPECT_TRUE(table.ChangeOffset(35.0, 1000.0));
    EXPECT_TRUE(table.DelItem(500.0));
    EXPECT_EQ(RowsOf(table), (Rows{{1000, 35}}));
    EXPECT_EQ(table.GetStartRange(0), 0.0);
    EXPECT_EQ(table.GetOffset(100.0), 35.0);
}

TEST_F(DuctFlangeTable, StyleGivesEntityTypeAndSealing) {
    struct Expect {
        int style;
        QoDbHvacDuctFlange::EFlangeType entity;
        bool sealed;
    };
    const Expect expected[] = {{0, QoDbHvacDuctFlange::EFlangeNone, false},
                               {1, QoDbHvacDuctFlange::EFlangeNone, false},
                               {2, QoDbHvacDuctFlange::EFlangeAngleSteel, false},
                               {3, QoDbHvacDuctFlange::EFlangeAngleSteel, true},
                               {4, QoDbHvacDuctFlange::EFlangeCommonPlate, false},
                               {5, QoDbHvacDuctFlange::EFlangeCommonPlate, true},
                               {6, QoDbHvacDuctFlange::EFlangeNone, false},
                               {-1, QoDbHvacDuctFlange::EFlangeNone, false}};
    QoDtDictOptionItem* style = componenttest::AddOption(FlangeBranch(), L"STYLE", {L"a", L"b"}, 0);
    for (const Expect& e : expected) {
        style->selection = e.style;
        table.ReadFromDict();
        EXPECT_EQ(table.GetFlangeType(), e.style);
        EXPECT_EQ(table.GetFlangeEntityType(), e.entity) << "style " << e.style;
        EXPECT_EQ(table.GetSearlarType(), e.sealed) << "style " << e.style;
    }
}

TEST_F(DuctFlangeTable, StoreKeepsTwoDecimalsAndRowPositions) {
    QoDtDictionary& branch = FlangeBranch();
    QoDtDictOptionItem* style = componenttest::AddOption(branch, L"STYLE", {L"无", L"单线", L"角钢法兰"}, 2);
    branch.FindOrAddDict(L"SIZESET");
    table.ReadFromDict();  // style 2; the empty "SIZESET" empties the table
    EXPECT_EQ(table.GetSizeSetNum(), 0);
    table.AddSizeSet(1000.0, 30.0);
    table.AddSizeSet(1333.333, 31.25);
    table.SetDefaultOffset(45.5);
    style->selection = 0;
    table.SaveToDict();

    const QoDtDictionary* sizeSet = branch.FindDict(L"SIZESET");
    ASSERT_EQ(sizeSet->children.GetLength(), 2);
    EXPECT_EQ(sizeSet->FindItem(L"0")->GetType(), QoDtDictItem::eDtRow);
    EXPECT_EQ(sizeSet->FindItem(L"0")->GetAttributeValue(L"offset"), CString(L"30.00"));
    EXPECT_EQ(sizeSet->FindItem(L"1")->GetAttributeValue(L"endrange"), CString(L"1333.33"));
    double stored = 0.0;
    EXPECT_TRUE(branch.GetValue(L"DEFAULTSIZE", stored));
    EXPECT_EQ(stored, 45.5);
    EXPECT_EQ(style->selection, 2);

    QoHvacDuctFlangeManager reread = table;
    reread.ResetSize();
    reread.ReadFromDict();
    EXPECT_EQ(RowsOf(reread), (Rows{{1000, 30}, {1333.33, 31.25}}));
    EXPECT_NE(reread.GetEndRange(1), 1333.333);
    EXPECT_EQ(reread.GetFlangeEntityType(), QoDbHvacDuctFlange::EFlangeAngleSteel);
}

TEST_F(DuctFlangeTable, ReadTakesRowsInAnyOrderAndTheLaterOfTwoEqualEnds) {
    QoDtDictionary& sizeSet = *FlangeBranch().FindOrAddDict(L"SIZESET");
    AddStoredRow(sizeSet, L"0", L"800.00", L"28.00");
    AddStoredRow(sizeSet, L"1", L"400.00", L"20.00");
    AddStoredRow(sizeSet, L"2", L"800.00", L"29.00");
    AddStoredRow(sizeSet, L"3", L"wide", L"5");
    table.ReadFromDict();
    EXPECT_EQ(RowsOf(table), (Rows{{0, 5}, {400, 20}, {800, 29}}));
    EXPECT_EQ(table.GetDefaultOffset(), 40.0);  // no DEFAULTSIZE: kept
}

TEST_F(DuctFlangeTable, MissingBranchesLeaveTheTableOrTheStoreAlone) {
    // No "ZEFRA\FLANGESET": nothing read, nothing made.
    table.ReadFromDict();
    table.SaveToDict();
    EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {1000, 30}}));
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA\\FLANGESET"), nullptr);

    // A branch without "SIZESET" empties the table on read and gets only
    // the default offset on save.
    QoDtDictionary& branch = FlangeBranch();
    table.SaveToDict();
    EXPECT_EQ(branch.FindItem(L"SIZESET"), nullptr);
    EXPECT_NE(branch.FindItem(L"DEFAULTSIZE"), nullptr);
    table.ReadFromDict();
    EXPECT_EQ(table.GetSizeSetNum(), 0);
}

TEST_F(DuctFlangeTable, FreshManagerWithoutStoreIsEmpty) {
    const QoHvacDuctFlangeManager* manager = QoHvacDuctFlangeManager::GetInstance();
    EXPECT_EQ(manager, QoHvacDuctFlangeManager::GetInstance());
    EXPECT_EQ(manager->GetSizeSetNum(), 0);
    EXPECT_EQ(manager->GetDefaultOffset(), 0.0);
    EXPECT_EQ(manager->GetFlangeType(), QoHvacDuctFlangeManager::EFlangeStyleNone);
    EXPECT_EQ(manager->GetOffset(300.0), 0.0);
}

TEST_F(DuctFlangeTable, NonFiniteAndNegativeValuesAreRefusedAndRowsStayInOrder) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    using T = QoHvacDuctFlangeManager;
    const std::function<bool(T&)> refused[] = {
        [&](T& t) { return t.TryAddSizeSet(nan, 5); },  // once overwrote another row's offset
        [&](T& t) { return t.TryAddSizeSet(inf, 5); },        [&](T& t) { return t.TryAddSizeSet(-1, 5); },
        [&](T& t) { return t.TryAddSizeSet(700, nan); },      [&](T& t) { return t.TryAddSizeSet(700, -2); },
        [&](T& t) { return t.SetLastEndRange(-1); },  // once cut the table to one row
        [&](T& t) { return t.SetLastEndRange(nan); },      [&](T& t) { return t.ChangeEndRange(inf, 1000); },
        [&](T& t) { return t.ChangeEndRange(600, nan); },  [&](T& t) { return t.ChangeStartRange(-3, 1000); },
        [&](T& t) { return t.ChangeStartRange(nan, 1000); }, [&](T& t) { return t.ChangeOffset(-1, 500); },
        [&](T& t) { return t.ChangeOffset(5, nan); },      [&](T& t) { return t.DelItem(nan); },  // matches every row
        [&](T& t) { return t.TrySetDefaultOffset(nan); },     [&](T& t) { return t.TrySetDefaultOffset(-5); },
    };
    for (size_t i = 0; i < std::size(refused); ++i) {
        SetUp();
        EXPECT_FALSE(refused[i](table)) << "case " << i;
        EXPECT_EQ(RowsOf(table), (Rows{{500, 25}, {1000, 30}})) << "case " << i;
        EXPECT_EQ(table.GetDefaultOffset(), 40.0) << "case " << i;
    }
}

TEST_F(DuctFlangeTable, AnEndJustBelowTheOldOneIsTheOldOne) {
    const struct {
        double newEnd, oldEnd;
        Rows expected;
    } cases[] = {
        {1000.0 - 1e-10, 1000.0, {{500, 25}, {1000, 30}}},  // once a reversed erase
        {500.0 - 1e-10, 500.0, {{500, 25}, {1000, 30}}},
        {1000.0 - 1e-6, 1000.0, {{500, 25}, {1000.0 - 1e-6, 30}}},  // beyond the band: lowered
        {1000.0 + 1e-10, 1000.0, {{500, 25}, {1000.0 + 1e-10, 30}}},
    };
    for (const auto& c : cases) {
        SetUp();
        EXPECT_TRUE(table.ChangeEndRange(c.newEnd, c.oldEnd)) << c.newEnd;
        EXPECT_EQ(RowsOf(table), c.expected) << c.newEnd;
    }
}

TEST_F(DuctFlangeTable, EmptyTablesAndTheLargestNumbers) {
    table.ResetSize();
    for (int i : {-1, 0, 1}) {
        EXPECT_EQ(table.GetEndRange(i), -1.0) << i;
        EXPECT_EQ(table.GetOffset(i), 40.0) << i;
    }
    table.AddSizeSet(1e308, 1.0);
    EXPECT_FALSE(table.TryAddItem());  // 1e308 + 200 is 1e308
    table.AddSizeSet(1.7e308, 2.0);
    EXPECT_FALSE(table.TryAddItem());  // infinite
    EXPECT_EQ(RowsOf(table), (Rows{{1e308, 1}, {1.7e308, 2}}));
}

TEST_F(DuctFlangeTable, ReadSkipsRowsAndADefaultTheTableRefuses) {
    QoDtDictionary& sizeSet = *FlangeBranch().FindOrAddDict(L"SIZESET");
    AddStoredRow(sizeSet, L"0", L"800.00", L"28.00");
    AddStoredRow(sizeSet, L"1", L"nan", L"20.00");
    AddStoredRow(sizeSet, L"2", L"-400.00", L"20.00");
    AddStoredRow(sizeSet, L"3", L"900.00", L"inf");
    FlangeBranch().SetValue(L"DEFAULTSIZE", std::numeric_limits<double>::quiet_NaN());
    table.ReadFromDict();
    EXPECT_EQ(RowsOf(table), (Rows{{800, 28}}));
    EXPECT_EQ(table.GetDefaultOffset(), 40.0);
}
