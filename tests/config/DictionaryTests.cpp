#include "ConfigTestSupport.h"

#include "zefra/containers/QoDynArray.h"

using configtest::ChildKeys;
using configtest::W;

TEST(DictionaryPaths, LookupsNeverAddAndFindOrAddDictMakesEachLevelOnce) {
    QoDtDictionary root;
    QoDtDictionary* water = root.FindOrAddDict(W("ZEFRA\\WATER\\系统"));
    ASSERT_NE(water, nullptr);
    EXPECT_EQ(root.FindOrAddDict(W("ZEFRA\\WATER\\系统")), water);
    EXPECT_EQ(root.FindDict(W("ZEFRA\\WATER\\系统")), water);
    EXPECT_EQ(root.FindDict(W("ZEFRA"))->FindDict(W("WATER\\系统")), water);

    EXPECT_EQ(root.FindItem(W("ZEFRA\\HEATING")), nullptr);
    EXPECT_EQ(root.FindItem(W("ZEFRA\\WATER\\系统\\X\\Y")), nullptr);
    EXPECT_EQ(ChildKeys(*root.FindDict(W("ZEFRA"))), "WATER");

    // A value item on the way ends every kind of descent.
    root.SetValue(W("ZEFRA\\TEXT"), W("x"));
    EXPECT_EQ(root.FindDict(W("ZEFRA\\TEXT")), nullptr);
    EXPECT_EQ(root.FindItem(W("ZEFRA\\TEXT\\A")), nullptr);
    EXPECT_EQ(root.FindOrAddDict(W("ZEFRA\\TEXT\\A")), nullptr);
    EXPECT_EQ(root.FindOrAddItem(W("ZEFRA\\TEXT\\A"), QoDtDictItem::eDtRow), nullptr);

    // Empty components and unknown kinds add nothing.
    EXPECT_EQ(root.FindOrAddDict(W("ZEFRA\\\\B")), nullptr);
    EXPECT_EQ(root.FindOrAddDict(W("ZEFRA\\")), nullptr);
    EXPECT_EQ(root.FindOrAddItem(W("ZEFRA\\R"), 99), nullptr);
    EXPECT_EQ(ChildKeys(*root.FindDict(W("ZEFRA"))), "WATER,TEXT");

    QoDtDictItem* row = root.FindOrAddItem(W("ZEFRA\\FLANGESET\\0"), 4);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->GetType(), QoDtDictItem::eDtRow);
    EXPECT_EQ(root.FindOrAddItem(W("ZEFRA\\FLANGESET\\0"), QoDtDictItem::eDtString), row);
}

TEST(DictionaryValues, MissesAndOtherKindsLeaveTheTargetUntouched) {
    QoDtDictionary dict;
    dict.SetValue(L"text", L"送风");
    dict.SetValue(L"count", 3);
    dict.SetValue(L"flag", true);

    double number = 7.5;
    CString text = L"keep";
    QoDynArray<double> numbers;
    numbers.Append(1.0);
    EXPECT_FALSE(dict.GetValue(L"missing", number));
    EXPECT_FALSE(dict.GetValue(L"text", number));
    EXPECT_FALSE(dict.GetValue(L"count", text));
    EXPECT_FALSE(dict.GetValue(L"text", numbers));
    EXPECT_EQ(number, 7.5);
    EXPECT_EQ(text, CString(L"keep"));
    EXPECT_EQ(numbers.GetLength(), 1);

    // The lossless readings across kinds.
    EXPECT_TRUE(dict.GetValue(L"count", number));
    EXPECT_EQ(number, 3.0);
    int flag = 0;
    bool nonZero = false;
    EXPECT_TRUE(dict.GetValue(L"flag", flag));
    EXPECT_TRUE(dict.GetValue(L"count", nonZero));
    EXPECT_EQ(flag, 1);
    EXPECT_TRUE(nonZero);
}

TEST(DictionaryValues, SetValueOverwritesInPlaceAndChangesKindOnlyOfValues) {
    QoDtDictionary dict;
    dict.SetValue(L"a", 1.0);
    dict.SetValue(L"b", 2);
    dict.SetValue(L"c", W("c"));
    dict.SetValue(L"a", 1.25);
    EXPECT_EQ(ChildKeys(dict), "a,b,c");
    double a = 0;
    EXPECT_TRUE(dict.GetValue(L"a", a));
    EXPECT_EQ(a, 1.25);

    // A literal is a text, not a Boolean.
    QoDtDictItem* b = dict.FindItem(L"b");
    b->localname = W("风量");
    b->SetAttributeValue(L"flag", L"S");
    dict.SetValue(L"b", L"now text");
    EXPECT_EQ(ChildKeys(dict), "a,b,c");
    QoDtDictItem* replaced = dict.FindItem(L"b");
    EXPECT_EQ(replaced->GetType(), QoDtDictItem::eDtString);
    EXPECT_EQ(replaced->localname, W("风量"));
    EXPECT_EQ(replaced->GetAttributeValue(L"flag"), CString(L"S"));

    QoDtDictionary* sub = dict.FindOrAddDict(L"sub");
    sub->SetValue(L"x", 1);
    EXPECT_FALSE(dict.SetValue(L"sub", 5));
    EXPECT_EQ(dict.FindDict(L"sub"), sub);
    EXPECT_FALSE(dict.SetValue(L"", 5));

    // Paths reach through dictionaries, making them as needed.
    QoDynArray<double> dn;
    for (double d : {15.0, 20.0, 25.0}) dn.Append(d);
    EXPECT_TRUE(dict.SetValue(L"WT\\DN", dn));
    QoList<double> back;
    back.Append(99.0);
    EXPECT_TRUE(dict.GetValue(L"WT\\DN", back));
    ASSERT_EQ(back.GetLength(), 3);
    EXPECT_EQ(back.GetAt(2), 25.0);
}

TEST(DictionaryChildList, ResetFreesAndTablesReadBackInOrderWithoutMovingTheCursor) {
    QoDtDictionary table;
    for (int round = 0; round < 2; ++round) {
        table.children.Reset();
        for (int i = 0; i < 12; ++i) {
            CString key;
            key.Format(L"%d", i);
            table.SetValue(key, i * 10 + round);
        }
    }
    EXPECT_EQ(table.children.GetLength(), 12);

    // The reader's walk: GetValue for each child must not disturb the cursor.
    int count = 0;
    for (table.children.MoveToFirst(); !table.children.IsOut(); table.children.MoveToNext(), ++count) {
        CString key;
        key.Format(L"%d", count);
        int value = -1;
        EXPECT_TRUE(table.GetValue(key, value));
        EXPECT_EQ(table.FindItem(key), table.children.GetCurData());
        EXPECT_EQ(value, count * 10 + 1);
    }
    EXPECT_EQ(count, 12);
}

TEST(DictionaryChildList, KeyIndexFollowsEveryChangeOfAWideList) {
    QoDtDictionary dict;
    for (int i = 0; i < 1000; ++i) dict.SetValue(W("k" + std::to_string(i)), i);
    QoDtDictItem* k500 = dict.FindItem(L"k500");
    ASSERT_NE(k500, nullptr);

    // Renames through the field, through the attribute and in place.
    k500->name = L"renamed";
    EXPECT_EQ(dict.FindItem(L"k500"), nullptr);
    EXPECT_EQ(dict.FindItem(L"renamed"), k500);
    k500->SetAttributeValue(L"name", L"again");
    EXPECT_EQ(dict.FindItem(L"again"), k500);
    k500->name.MakeUpper();
    EXPECT_EQ(dict.FindItem(L"AGAIN"), k500);

    // A repeated key: the first in list order wins, also when put at the head.
    auto* late = new QoDtDictIntItem;
    late->name = L"k7";
    dict.children.Append(late);
    EXPECT_NE(dict.FindItem(L"k7"), late);
    auto* early = new QoDtDictIntItem;
    early->name = L"k7";
    dict.children.InsertHead(early);
    EXPECT_EQ(dict.FindItem(L"k7"), early);

    // Deleting while walking frees the items and drops them from the index.
    for (dict.children.MoveToFirst(); !dict.children.IsOut(); dict.children.MoveToNext())
        if (dict.children.GetCurData()->name == L"k7" || dict.children.GetCurData()->name == L"k9")
            dict.children.DelCur();
    EXPECT_EQ(dict.FindItem(L"k7"), nullptr);
    EXPECT_EQ(dict.FindItem(L"k9"), nullptr);
    EXPECT_NE(dict.FindItem(L"k8"), nullptr);
    EXPECT_EQ(dict.children.GetLength(), 998);

    // Reordering keeps every item alive and findable.
    dict.children.Sort([](QoDtDictItem* const& a, QoDtDictItem* const& b) { return b->name.Compare(a->name); });
    EXPECT_TRUE(dict.children.Move(0, 10));
    dict.children.Rotate(3, 0);
    dict.children.ReverseList();
    int value = 0;
    EXPECT_TRUE(dict.GetValue(L"k999", value));
    EXPECT_EQ(value, 999);
    EXPECT_EQ(dict.FindItem(L"AGAIN"), k500);
    dict.children.Del(dict.children.Find(k500));
    EXPECT_EQ(dict.FindItem(L"AGAIN"), nullptr);
}

TEST(DictionaryItem, NameAndLocalNameAreOneDatumWithTheirAttributes) {
    QoDtDictStringItem item;
    item.SetAttributeValue(L"name", L"风管系统");
    item.SetAttributeValue(L"localname", L"送风");
    EXPECT_EQ(item.name, CString(L"风管系统"));
    EXPECT_EQ(item.localname, CString(L"送风"));
    item.name = L"SF";
    item.localname = L"回风";
    EXPECT_EQ(item.GetAttributeValue(L"name"), CString(L"SF"));
    EXPECT_EQ(item.GetAttributeValue(L"localname"), CString(L"回风"));
    EXPECT_EQ(item.GetAttributes().GetCount(), 0);

    item.SetAttributeDoubleValue(L"EXTRUDE", 0.1 + 0.2);
    item.SetAttributeIntValue(L"color", -7);
    item.SetAttributeBoolValue(L"selected", true);
    item.SetAttributeValue(L"endrange", L" 630.00mm");
    EXPECT_EQ(item.GetAttributeDoubleValue(L"EXTRUDE"), 0.1 + 0.2);
    EXPECT_EQ(item.GetAttributeIntValue(L"color"), -7);
    EXPECT_TRUE(item.GetAttributeBoolValue(L"selected"));
    EXPECT_EQ(item.GetAttributeDoubleValue(L"endrange"), 630.0);
    EXPECT_EQ(item.GetAttributeValue(L"missing"), CString());
    EXPECT_EQ(item.GetAttributeDoubleValue(L"missing"), 0.0);
    EXPECT_FALSE(item.GetAttributeBoolValue(L"missing"));
    EXPECT_EQ(item.GetAttributes().GetName(0), CString(L"EXTRUDE"));
}

TEST(DictionaryItem, CopyDataCopiesSubtreesDeeplyEvenFromInsideItself) {
    QoDtDictionary root;
    root.SetValue(L"A\\B\\v", 1);
    root.FindDict(L"A")->localname = L"甲";
    QoDtDictionary* b = root.FindDict(L"A\\B");

    // Copying a descendant over its ancestor must not read freed items.
    QoDtDictionary* a = root.FindDict(L"A");
    a->CopyData(*b);
    EXPECT_EQ(root.FindDict(L"B"), a);
    EXPECT_EQ(a->localname, CString());
    int v = 0;
    EXPECT_TRUE(root.GetValue(L"B\\v", v));

    std::unique_ptr<QoDtDictItem> copy(root.Clone());
    static_cast<QoDtDictionary&>(*copy).SetValue(L"B\\v", 2);
    EXPECT_TRUE(root.GetValue(L"B\\v", v));
    EXPECT_EQ(v, 1);
}
